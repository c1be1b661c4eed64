// The property sheet: its window, its messages, and the modal loop.
#include "propertysheet.h"

#include <algorithm>
#include <map>
#include <utility>

#include "commctrl.h"
#include "fault.h"

namespace headless
{
namespace
{
constexpr int ButtonWidth = 75;
constexpr int ButtonHeight = 23;
constexpr int Gap = 7;

// The sheets whose windows stand.
std::map<HWND, std::shared_ptr<PropertySheet>>& Sheets()
{
    static auto& sheets = *new std::map<HWND, std::shared_ptr<PropertySheet>>;
    return sheets;
}
}  // namespace

PropertySheet::PropertySheet(const PROPSHEETHEADERW& header)
    : m_header(header), m_caption(IS_INTRESOURCE(header.pszCaption) ? u"" : header.pszCaption)
{
    if (header.pszCaption != nullptr && IS_INTRESOURCE(header.pszCaption))
    {
        WCHAR text[256];
        LoadStringW(header.hInstance, LOWORD(reinterpret_cast<ULONG_PTR>(header.pszCaption)), text, 256);
        m_caption = text;
    }
    const auto* record = reinterpret_cast<const BYTE*>(header.ppsp);
    for (UINT index = 0; index < header.nPages; ++index)
    {
        if ((header.dwFlags & PSH_PROPSHEETPAGE) != 0)
        {
            // The records may be longer than they are known here: each says how long it is.
            const auto& given = *reinterpret_cast<const PROPSHEETPAGEW*>(record);
            m_pages.push_back(std::make_shared<_PSP>(given));
            record += given.dwSize;
        }
        else
        {
            m_pages.emplace_back(header.phpage[index]);
        }
    }
    // A page without a template is left out.
    m_pages.erase(std::remove_if(m_pages.begin(), m_pages.end(),
                                 [](const Page& page) { return page->Template() == nullptr; }),
                  m_pages.end());
}

bool PropertySheet::Open()
{
    const std::vector<WORD> sheetTemplate = MakeSheetTemplate(m_caption.c_str());
    CreateDialogIndirectParamW(m_header.hInstance, reinterpret_cast<LPCDLGTEMPLATEW>(sheetTemplate.data()),
                               m_header.hwndParent, DialogProc, reinterpret_cast<LPARAM>(this));
    if (m_window != nullptr)
    {
        ShowWindow(m_window, SW_SHOW);
    }
    return m_window != nullptr;
}

INT_PTR CALLBACK PropertySheet::DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
    {
        const auto sheet = reinterpret_cast<PropertySheet*>(lParam)->shared_from_this();
        Sheets()[dialog] = sheet;
        sheet->m_window = dialog;
        sheet->Initialise();
        return FALSE;
    }
    const auto found = Sheets().find(dialog);
    if (found == Sheets().end())
    {
        return FALSE;
    }
    const std::shared_ptr<PropertySheet> sheet = found->second;
    if (message == WM_DESTROY)
    {
        Sheets().erase(dialog);
        sheet->Destroyed();
        return FALSE;
    }
    LRESULT result = 0;
    if (!sheet->Handle(message, wParam, lParam, &result))
    {
        return FALSE;
    }
    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, result);
    return TRUE;
}

void PropertySheet::Initialise()
{
    m_tabs = GetDlgItem(m_window, IdTabs);
    for (std::size_t index = 0; index < m_pages.size(); ++index)
    {
        const _PSP& page = *m_pages[index];
        std::u16string title = ReadPageTemplate(page.Template()).title;
        WCHAR text[256];
        if ((page.record.dwFlags & PSP_USETITLE) != 0)
        {
            title = page.title;
            if (title.empty())
            {
                LoadStringW(page.record.hInstance, LOWORD(reinterpret_cast<ULONG_PTR>(page.record.pszTitle)),
                            text, 256);
                title = text;
            }
        }
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = title.data();
        SendMessageW(m_tabs, TCM_INSERTITEMW, index, reinterpret_cast<LPARAM>(&item));
    }
    if ((m_header.dwFlags & PSH_NOAPPLYNOW) != 0)
    {
        ShowWindow(GetDlgItem(m_window, IdApply), SW_HIDE);
    }
    if ((m_header.dwFlags & PSH_HASHELP) != 0)
    {
        ShowWindow(GetDlgItem(m_window, IdHelp), SW_SHOW);
    }
    if ((m_header.dwFlags & (PSH_USEICONID | PSH_USEHICON)) != 0)
    {
        const HICON icon = (m_header.dwFlags & PSH_USEHICON) != 0
                               ? m_header.hIcon
                               : LoadIconW(m_header.hInstance, m_header.pszIcon);
        SendMessageW(m_window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    }
    LayOut();
    const auto last = static_cast<UINT>(std::max<std::size_t>(m_pages.size(), 1) - 1);
    Activate(static_cast<int>(m_header.nStartPage <= last ? m_header.nStartPage : 0));
    if (const Page page = ActivePage(); m_window != nullptr && page != nullptr)
    {
        SetFocus(GetNextDlgTabItem(page->Window(), nullptr, FALSE));
    }
}

// The tab control has room for the largest page; the buttons stand below it, from the right.
void PropertySheet::LayOut()
{
    RECT space = {0, 0, 4 * (ButtonWidth + Gap), 100};
    for (const Page& page : m_pages)
    {
        const SIZE size = ReadPageTemplate(page->Template()).size;
        RECT rect = {0, 0, size.cx, size.cy};
        MapDialogRect(m_window, &rect);
        space.right = std::max(space.right, rect.right);
        space.bottom = std::max(space.bottom, rect.bottom);
    }
    SendMessageW(m_tabs, TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&space));
    OffsetRect(&space, Gap - space.left, Gap - space.top);
    MoveWindow(m_tabs, space.left, space.top, space.right - space.left, space.bottom - space.top, FALSE);
    LONG left = space.right;
    for (const int id : {IdHelp, IdApply, IDCANCEL, IDOK})
    {
        const HWND button = GetDlgItem(m_window, id);
        if ((GetWindowLongW(button, GWL_STYLE) & WS_VISIBLE) != 0)
        {
            left -= ButtonWidth;
            MoveWindow(button, left, space.bottom + Gap, ButtonWidth, ButtonHeight, FALSE);
            left -= Gap;
        }
    }
    RECT frame = {0, 0, space.right + Gap, space.bottom + ButtonHeight + 2 * Gap};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongW(m_window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(m_window, GWL_EXSTYLE)));
    SetWindowPos(m_window, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void PropertySheet::Destroyed()
{
    const HWND tabs = std::exchange(m_tabs, nullptr);
    m_window = nullptr;
    m_closed = true;
    // Each page goes with its dialog, so that its last callback comes after the dialog's last message.
    for (Page& page : std::exchange(m_pages, {}))
    {
        if (const HWND window = page->Window())
        {
            DestroyWindow(window);
        }
        page.reset();
    }
    if (IsWindow(tabs))
    {
        DestroyWindow(tabs);
    }
}

LRESULT PropertySheet::RunModal()
{
    const HWND owner = m_header.hwndParent;
    const bool disabled = IsWindow(owner) && IsWindowEnabled(owner);
    if (disabled)
    {
        EnableWindow(owner, FALSE);
    }
    MSG message = {};
    while (!m_closed)
    {
        if (!GetMessageW(&message, nullptr, 0, 0))
        {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!TranslateKeys(&message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    // Before the sheet goes, so that the activation goes to its owner.
    if (disabled)
    {
        EnableWindow(owner, TRUE);
    }
    if (m_window != nullptr)
    {
        const bool active = GetActiveWindow() == m_window;
        DestroyWindow(m_window);
        if (active && IsWindow(owner))
        {
            SetActiveWindow(owner);
        }
    }
    return m_result;
}

bool PropertySheet::TranslateKeys(MSG* message)
{
    if (m_window == nullptr || message->hwnd == nullptr ||
        (message->hwnd != m_window && !IsChild(m_window, message->hwnd)))
    {
        return false;
    }
    const bool forwards =
        message->wParam == VK_NEXT || (message->wParam == VK_TAB && GetKeyState(VK_SHIFT) >= 0);
    if (message->message == WM_KEYDOWN && GetKeyState(VK_CONTROL) < 0 && !m_pages.empty() &&
        (message->wParam == VK_TAB || message->wParam == VK_NEXT || message->wParam == VK_PRIOR))
    {
        const auto count = static_cast<int>(m_pages.size());
        Turn((m_active + (forwards ? 1 : count - 1)) % count);
        return true;
    }
    return IsDialogMessageW(m_window, message) != FALSE;
}

void PropertySheet::Press(int button)
{
    switch (button)
    {
    case IDOK:
        Ok();
        break;
    case IDCANCEL:
        Cancel(false);
        break;
    case IdApply:
        Apply(false);
        break;
    case IdHelp:
        Notify(ActivePage(), PSN_HELP);
        break;
    default:
        break;
    }
}

LRESULT PropertySheet::HandleTabs(const NMHDR& header)
{
    if (header.code == TCN_SELCHANGING)
    {
        return LeaveActivePage() ? FALSE : TRUE;
    }
    if (header.code == TCN_SELCHANGE)
    {
        Activate(static_cast<int>(SendMessageW(m_tabs, TCM_GETCURSEL, 0, 0)));
    }
    return 0;
}

bool PropertySheet::Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    switch (message)
    {
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED)
        {
            Press(LOWORD(wParam));
        }
        return true;
    case WM_NOTIFY:
    {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        *result = header.hwndFrom == m_tabs ? HandleTabs(header) : 0;
        return header.hwndFrom == m_tabs;
    }
    case WM_CLOSE:
        Cancel(true);
        return true;
    default:
        return HandlePageMessage(message, wParam, lParam, result);
    }
}

bool PropertySheet::HandlePageMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    static constexpr int Buttons[] = {0, 0, 0, IDOK, IdApply, IDCANCEL, IdHelp};
    const Page active = m_closed ? nullptr : ActivePage();
    const Page page = wParam < m_pages.size() ? m_pages[wParam] : nullptr;
    switch (message)
    {
    case PSM_SETCURSEL:
        *result =
            Turn(lParam != 0 ? IndexOf(reinterpret_cast<const _PSP*>(lParam)) : static_cast<int>(wParam));
        return true;
    case PSM_CHANGED:
    case PSM_UNCHANGED:
        Mark(reinterpret_cast<HWND>(wParam), message == PSM_CHANGED);
        return true;
    case PSM_APPLY:
        *result = Apply(false);
        return true;
    case PSM_PRESSBUTTON:
        Press(wParam <= PSBTN_MAX ? Buttons[wParam] : 0);
        return true;
    case PSM_GETTABCONTROL:
        *result = reinterpret_cast<LRESULT>(m_tabs);
        return true;
    case PSM_ISDIALOGMESSAGE:
        *result = TranslateKeys(reinterpret_cast<MSG*>(lParam));
        return true;
    case PSM_GETCURRENTPAGEHWND:
        *result = active == nullptr ? 0 : reinterpret_cast<LRESULT>(active->Window());
        return true;
    case PSM_HWNDTOINDEX:
        *result = IndexOf(reinterpret_cast<HWND>(wParam));
        return true;
    case PSM_INDEXTOHWND:
        *result = page == nullptr ? 0 : reinterpret_cast<LRESULT>(page->Window());
        return true;
    case PSM_PAGETOINDEX:
        *result = IndexOf(reinterpret_cast<const _PSP*>(lParam));
        return true;
    case PSM_INDEXTOPAGE:
        *result = reinterpret_cast<LRESULT>(page.get());
        return true;
    case PSM_INDEXTOID:
        *result = page != nullptr && IS_INTRESOURCE(page->record.pszTemplate)
                      ? reinterpret_cast<LRESULT>(page->record.pszTemplate)
                      : 0;
        return true;
    case PSM_GETRESULT:
        *result = m_result;
        return true;
    default:
        return false;
    }
}
}  // namespace headless

INT_PTR WINAPI PropertySheetW(LPCPROPSHEETHEADERW header)
{
    DWORD error = 0;
    if (headless::TakeFault("PropertySheetW", &error))
    {
        SetLastError(error);
        return -1;
    }
    const auto sheet = std::make_shared<headless::PropertySheet>(*header);
    if (!sheet->Open())
    {
        return -1;
    }
    return (header->dwFlags & PSH_MODELESS) != 0 ? reinterpret_cast<INT_PTR>(sheet->Window())
                                                 : sheet->RunModal();
}
