// The property sheet's pages: made when first shown, asked before they are left, told what the user decided.
#include <algorithm>
#include <cstring>

#include "commctrl.h"
#include "propertysheet.h"

_PSP::_PSP(const PROPSHEETPAGEW& given)
{
    std::memcpy(&record, &given, std::min<std::size_t>(given.dwSize, sizeof(record)));
    if ((record.dwFlags & PSP_USETITLE) != 0 && !IS_INTRESOURCE(record.pszTitle))
    {
        title = record.pszTitle;
        record.pszTitle = title.c_str();
    }
    if ((record.dwFlags & PSP_DLGINDIRECT) == 0 && !IS_INTRESOURCE(record.pszTemplate))
    {
        templateName = record.pszTemplate;
        record.pszTemplate = templateName.c_str();
    }
    if ((record.dwFlags & PSP_USEREFPARENT) != 0)
    {
        ++*record.pcRefParent;
    }
    Call(PSPCB_ADDREF);
}

_PSP::~_PSP()
{
    Call(PSPCB_RELEASE);
    if ((record.dwFlags & PSP_USEREFPARENT) != 0)
    {
        --*record.pcRefParent;
    }
}

bool _PSP::Call(UINT message)
{
    return (record.dwFlags & PSP_USECALLBACK) == 0 || record.pfnCallback == nullptr ||
           record.pfnCallback(nullptr, message, &record) != 0;
}

LPCDLGTEMPLATEW _PSP::Template() const
{
    if ((record.dwFlags & PSP_DLGINDIRECT) != 0)
    {
        return record.pResource;
    }
    const HRSRC resource = FindResourceW(record.hInstance, record.pszTemplate, RT_DIALOG);
    return static_cast<LPCDLGTEMPLATEW>(LockResource(LoadResource(record.hInstance, resource)));
}

HPROPSHEETPAGE WINAPI CreatePropertySheetPageW(LPCPROPSHEETPAGEW page)
{
    return page == nullptr ? nullptr : std::make_unique<_PSP>(*page).release();
}

BOOL WINAPI DestroyPropertySheetPage(HPROPSHEETPAGE page)
{
    const std::unique_ptr<_PSP> owned(page);
    return page != nullptr;
}

namespace headless
{
LRESULT PropertySheet::Notify(const Page& page, UINT code, LPARAM lParam) const
{
    PSHNOTIFY notification = {{m_window, 0, code}, lParam};
    return page == nullptr
               ? 0
               : SendMessageW(page->Window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

PropertySheet::Page PropertySheet::ActivePage() const
{
    const auto index = static_cast<std::size_t>(m_active);
    return m_active >= 0 && index < m_pages.size() ? m_pages[index] : nullptr;
}

int PropertySheet::IndexOf(HWND window) const
{
    const auto found =
        std::find_if(m_pages.begin(), m_pages.end(),
                     [window](const Page& page) { return window != nullptr && page->Window() == window; });
    return found == m_pages.end() ? -1 : static_cast<int>(found - m_pages.begin());
}

int PropertySheet::IndexOf(const _PSP* page) const
{
    const auto found = std::find_if(m_pages.begin(), m_pages.end(),
                                    [page](const Page& candidate) { return candidate.get() == page; });
    return found == m_pages.end() ? -1 : static_cast<int>(found - m_pages.begin());
}

// The sheet knows the page's window only when its dialog has been made: what the page says of itself before,
// in WM_INITDIALOG, is about an unknown window.
bool PropertySheet::CreatePage(const Page& page)
{
    if (page->Window() != nullptr)
    {
        return true;
    }
    LPCDLGTEMPLATEW given = page->Template();
    if (given == nullptr || !page->Call(PSPCB_CREATE) || m_window == nullptr)
    {
        return false;
    }
    const std::vector<BYTE> pageTemplate = MakePageTemplate(given);
    page->m_window = CreateDialogIndirectParamW(
        page->record.hInstance, reinterpret_cast<LPCDLGTEMPLATEW>(pageTemplate.data()), m_window,
        page->record.pfnDlgProc, reinterpret_cast<LPARAM>(&page->record));
    if (m_window == nullptr || page->Window() == nullptr)
    {
        return false;
    }
    RECT place = {};
    GetWindowRect(m_tabs, &place);
    MapWindowPoints(nullptr, m_window, reinterpret_cast<LPPOINT>(&place), 2);
    SendMessageW(m_tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&place));
    SetWindowPos(page->m_window, HWND_TOP, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOACTIVATE);
    if (!m_pageWasCreated)
    {
        m_pageWasCreated = true;
        EnableWindow(GetDlgItem(m_window, IdApply), FALSE);
    }
    return m_window != nullptr;
}

bool PropertySheet::LeaveActivePage()
{
    return Notify(ActivePage(), PSN_KILLACTIVE) == 0 && m_window != nullptr;
}

bool PropertySheet::Turn(int index)
{
    return LeaveActivePage() && Activate(index);
}

bool PropertySheet::Activate(int index)
{
    if (index < 0 || index >= static_cast<int>(m_pages.size()))
    {
        return false;
    }
    const int before = m_active;
    const Page left = ActivePage();
    const bool hadFocus = left != nullptr && IsChild(left->Window(), GetFocus());
    if (left != nullptr)
    {
        ShowWindow(left->Window(), SW_HIDE);
    }
    m_active = -1;
    m_closed = false;
    int shown = -1;
    for (; index < static_cast<int>(m_pages.size()); ++index)
    {
        const Page page = m_pages[static_cast<std::size_t>(index)];
        if (!CreatePage(page))
        {
            continue;
        }
        shown = index;
        if (Notify(page, PSN_SETACTIVE) == 0)
        {
            break;
        }
    }
    if (m_window == nullptr)
    {
        return false;
    }
    // When all refuse, the last is shown all the same; when none can be made, the one that was.
    Show(shown >= 0 ? shown : before);
    if (hadFocus && m_window != nullptr && ActivePage() != nullptr)
    {
        SetFocus(GetNextDlgTabItem(ActivePage()->Window(), nullptr, FALSE));
    }
    return shown >= 0 && m_window != nullptr;
}

void PropertySheet::Show(int index)
{
    const Page left = ActivePage();
    if (left != nullptr && m_active != index)
    {
        ShowWindow(left->Window(), SW_HIDE);
    }
    m_active = index;
    SendMessageW(m_tabs, TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
    const Page page = ActivePage();
    if (page == nullptr)
    {
        return;
    }
    ShowWindow(page->Window(), SW_SHOW);
    EnableWindow(GetDlgItem(m_window, IdHelp), (page->record.dwFlags & PSP_HASHELP) != 0);
}

bool PropertySheet::Apply(bool closing)
{
    if (!LeaveActivePage())
    {
        return false;
    }
    for (std::size_t index = 0; index < m_pages.size(); ++index)
    {
        const Page page = m_pages[index];
        if (page->Window() == nullptr)
        {
            continue;
        }
        const LRESULT answer = Notify(page, PSN_APPLY, closing ? 1 : 0);
        if (m_window == nullptr)
        {
            return false;
        }
        if (answer == PSNRET_INVALID)
        {
            Show(static_cast<int>(index));
        }
        if (answer == PSNRET_INVALID || answer == PSNRET_INVALID_NOCHANGEPAGE)
        {
            return false;
        }
    }
    if (closing)
    {
        return true;
    }
    Notify(ActivePage(), PSN_SETACTIVE);
    for (const Page& page : m_pages)
    {
        page->marked = false;
    }
    EnableWindow(GetDlgItem(m_window, IdApply), FALSE);
    return m_window != nullptr;
}

void PropertySheet::Ok()
{
    if (Apply(true))
    {
        m_result = 1;
        m_closed = true;
    }
}

void PropertySheet::Cancel(bool byTitleBar)
{
    if (Notify(ActivePage(), PSN_QUERYCANCEL) != 0)
    {
        return;
    }
    for (std::size_t index = 0; index < m_pages.size(); ++index)
    {
        const Page page = m_pages[index];
        if (page->Window() != nullptr)
        {
            Notify(page, PSN_RESET, byTitleBar ? 1 : 0);
        }
    }
    m_closed = true;
}

void PropertySheet::Mark(HWND window, bool marked)
{
    const int index = IndexOf(window);
    if (index >= 0)
    {
        m_pages[static_cast<std::size_t>(index)]->marked = marked;
    }
    const bool any =
        std::any_of(m_pages.begin(), m_pages.end(), [](const Page& page) { return page->marked; });
    if (marked || !any)
    {
        EnableWindow(GetDlgItem(m_window, IdApply), marked);
    }
}
}  // namespace headless
