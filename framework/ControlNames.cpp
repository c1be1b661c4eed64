#include "framework/ControlNames.h"

#include <oleacc.h>

namespace
{
// CLSID_AccPropServices, IID_IAccPropServices and PROPID_ACC_NAME, which not every library of ids and header
// has.
constexpr CLSID ServiceClass = {0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};
constexpr IID ServiceInterface = {
    0x6E26E776, 0x04F0, 0x495D, {0x80, 0xE4, 0x33, 0x30, 0x35, 0x2E, 0x31, 0x69}};
constexpr MSAAPROPID NameProperty = {
    0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};
}  // namespace

void NameControls(const CWnd& dialog, const ControlNames& names)
{
    IAccPropServices* service = nullptr;
    if (names.empty() || FAILED(CoCreateInstance(ServiceClass, nullptr, CLSCTX_INPROC_SERVER,
                                                 ServiceInterface, reinterpret_cast<void**>(&service))))
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
