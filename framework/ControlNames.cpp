#include "framework/ControlNames.h"

#include <atlbase.h>

// PROPID_ACC_NAME, which some versions of the headers lack.
constexpr MSAAPROPID NameProperty = {
    0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};
constexpr DWORD Object = static_cast<DWORD>(OBJID_CLIENT);

// The window property that holds the dialog's original window procedure.
constexpr LPCTSTR Procedure = _T("Procedure behind the names");

static bool Open(CComPtr<IAccPropServices>& service)
{
    return SUCCEEDED(CoCreateInstance(AccPropServicesClass, nullptr, CLSCTX_INPROC_SERVER,
                                      AccPropServicesInterface, reinterpret_cast<void**>(&service.p)));
}

// The system keeps an accessible name after its window is destroyed unless it is cleared before that.
static LRESULT CALLBACK TakeNamesBack(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto procedure = reinterpret_cast<WNDPROC>(GetPropW(dialog, Procedure));
    if (message == WM_DESTROY)
    {
        SetWindowLongPtrW(dialog, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
        RemovePropW(dialog, Procedure);
        CComPtr<IAccPropServices> service;
        if (Open(service))
        {
            for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
                 control = GetWindow(control, GW_HWNDNEXT))
            {
                service->ClearHwndProps(control, Object, CHILDID_SELF, &NameProperty, 1);
            }
        }
    }
    return CallWindowProcW(procedure, dialog, message, wParam, lParam);
}

void NameControls(const CWnd& dialog, const ControlNames& names)
{
    CComPtr<IAccPropServices> service;
    if (names.empty() || !Open(service))
    {
        return;
    }
    for (const auto& [id, name] : names)
    {
        // Some versions of the header lack the const.
        service->SetHwndPropStr(dialog.GetDlgItem(id)->m_hWnd, Object, CHILDID_SELF, NameProperty,
                                const_cast<LPWSTR>(name));
    }
    SetPropW(dialog.m_hWnd, Procedure,
             reinterpret_cast<HANDLE>(GetWindowLongPtrW(dialog.m_hWnd, GWLP_WNDPROC)));
    SetWindowLongPtrW(dialog.m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(TakeNamesBack));
}
