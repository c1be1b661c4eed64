#include "framework/ControlNames.h"

namespace
{
// PROPID_ACC_NAME, which not every header has.
constexpr MSAAPROPID NameProperty = {
    0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};
}  // namespace

void NameControls(const CWnd& dialog, const ControlNames& names)
{
    IAccPropServices* service = nullptr;
    if (names.empty() ||
        FAILED(CoCreateInstance(AccPropServicesClass, nullptr, CLSCTX_INPROC_SERVER, AccPropServicesInterface,
                                reinterpret_cast<void**>(&service))))
    {
        return;
    }
    for (const auto& [id, name] : names)
    {
        // Not every header has the const.
        service->SetHwndPropStr(dialog.GetDlgItem(id)->m_hWnd, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                NameProperty, const_cast<LPWSTR>(name));
    }
    service->Release();
}
