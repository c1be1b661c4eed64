#include "support/trial_sheet.h"

#include <gtest/gtest.h>
#include <tchar.h>

#include <utility>

namespace
{
constexpr LPCTSTR Caption = _T("Trial sheet");

class TemplateWriter
{
public:
    void Add(WORD word) { m_words.push_back(word); }
    void AddLong(DWORD number)
    {
        Add(LOWORD(number));
        Add(HIWORD(number));
    }
    void AddText(LPCTSTR text)
    {
        do
        {
            Add(static_cast<WORD>(*text));
        } while (*text++ != 0);
    }
    void Align() { m_words.resize((m_words.size() + 1) / 2 * 2); }
    std::vector<WORD> Take() { return std::move(m_words); }

private:
    std::vector<WORD> m_words;
};

// A page with two edits.
std::vector<WORD> MakeTemplate(LPCTSTR title)
{
    TemplateWriter writer;
    writer.AddLong(WS_CHILD | WS_CAPTION | WS_DISABLED | DS_CONTROL);
    writer.AddLong(0);
    for (WORD word : {2, 0, 0, 200, 80})  // count of controls, place, size
    {
        writer.Add(word);
    }
    writer.Add(0);
    writer.Add(0);
    writer.AddText(title);
    for (WORD line = 0; line < 2; ++line)
    {
        writer.Align();
        writer.AddLong(WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_BORDER);
        writer.AddLong(0);
        for (int word : {7, 7 + 20 * line, 60, 14, TrialSheet::IdFirstEdit + line, 0xFFFF, 0x0081, 0, 0})
        {
            writer.Add(static_cast<WORD>(word));
        }
    }
    return writer.Take();
}

std::string NameOf(const PSHNOTIFY& notification)
{
    const std::string detail = notification.lParam != 0 ? " 1" : "";
    switch (notification.hdr.code)
    {
    case PSN_SETACTIVE:
        return "setactive";
    case PSN_KILLACTIVE:
        return "killactive";
    case PSN_APPLY:
        return "apply" + detail;
    case PSN_RESET:
        return "reset" + detail;
    case PSN_QUERYCANCEL:
        return "querycancel";
    case PSN_HELP:
        return "help";
    default:
        return {};
    }
}

std::function<void()> g_step;

void CALLBACK RunStep(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    std::exchange(g_step, nullptr)();
}
}  // namespace

TrialSheet::TrialSheet()
{
    const LPCTSTR titles[] = {_T("One"), _T("Two && half"), _T("Three")};
    for (size_t index = 0; index < pages.size(); ++index)
    {
        Page& page = pages[index];
        page.sheet = this;
        page.dialogTemplate = MakeTemplate(titles[index]);
        page.record.dwSize = sizeof(page.record);
        page.record.dwFlags = PSP_DLGINDIRECT | PSP_USECALLBACK;
        page.record.pResource = reinterpret_cast<LPCDLGTEMPLATEW>(page.dialogTemplate.data());
        page.record.pfnDlgProc = DialogProc;
        page.record.pfnCallback = PageCallback;
        page.record.lParam = reinterpret_cast<LPARAM>(&page);
    }
}

TrialSheet::~TrialSheet()
{
    Close();
}

INT_PTR TrialSheet::Run(PROPSHEETHEADERW& header)
{
    std::vector<PROPSHEETPAGEW> records;
    for (const Page& page : pages)
    {
        records.push_back(page.record);
    }
    header.dwSize = sizeof(header);
    header.dwFlags |= PSH_PROPSHEETPAGE;
    header.pszCaption = Caption;
    header.nPages = static_cast<UINT>(records.size());
    header.ppsp = records.data();
    return PropertySheetW(&header);
}

void TrialSheet::Open(UINT startPage, DWORD flags)
{
    PROPSHEETHEADERW header = {};
    header.dwFlags = flags;
    header.nStartPage = startPage;
    window = reinterpret_cast<HWND>(Run(header));
    ASSERT_TRUE(IsWindow(window));
}

INT_PTR TrialSheet::RunModal(HWND owner, const std::function<void()>& step)
{
    g_step = [this, step]
    {
        window = FindWindowW(nullptr, Caption);
        step();
    };
    SetTimer(nullptr, 0, 20, RunStep);
    PROPSHEETHEADERW header = {};
    header.hwndParent = owner;
    const INT_PTR result = Run(header);
    EXPECT_FALSE(IsWindow(window));
    return result;
}

void TrialSheet::Close()
{
    if (IsWindow(window))
    {
        DestroyWindow(window);
    }
}

LRESULT TrialSheet::Send(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return SendMessageW(window, message, wParam, lParam);
}

void TrialSheet::Mark(int index, bool marked) const
{
    const Page& page = pages[static_cast<size_t>(index)];
    Send(marked ? PSM_CHANGED : PSM_UNCHANGED, reinterpret_cast<WPARAM>(page.window));
}

bool TrialSheet::Press(WPARAM key, bool control, bool shift) const
{
    BYTE before[256] = {};
    GetKeyboardState(before);
    BYTE during[256] = {};
    during[VK_CONTROL] = control ? 0x80 : 0;
    during[VK_SHIFT] = shift ? 0x80 : 0;
    SetKeyboardState(during);
    MSG message = {};
    message.hwnd = GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    message.lParam = 1;
    const bool taken = Send(PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&message)) != 0;
    SetKeyboardState(before);
    return taken;
}

int TrialSheet::Current() const
{
    const LRESULT current = Send(PSM_GETCURRENTPAGEHWND);
    return current == 0 ? -1 : static_cast<int>(Send(PSM_HWNDTOINDEX, static_cast<WPARAM>(current)));
}

Events TrialSheet::Take()
{
    return std::exchange(m_events, {});
}

void TrialSheet::Note(const Page& page, const std::string& what)
{
    if (!what.empty())
    {
        m_events.push_back(std::to_string(&page - pages.data()) + " " + what);
    }
}

INT_PTR CALLBACK TrialSheet::DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
    {
        SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam);
    }
    auto* page = reinterpret_cast<Page*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (page == nullptr)
    {
        return FALSE;
    }
    switch (message)
    {
    case WM_INITDIALOG:
        page->window = dialog;
        page->sheet->Note(*page, "init");
        if (page->onReceived)
        {
            page->onReceived(WM_INITDIALOG);
        }
        return TRUE;
    case WM_NOTIFY:
    {
        const auto& notification = *reinterpret_cast<const PSHNOTIFY*>(lParam);
        const UINT code = notification.hdr.code;
        EXPECT_EQ(notification.hdr.hwndFrom, GetParent(dialog));
        page->sheet->Note(*page, NameOf(notification));
        if (page->onReceived)
        {
            page->onReceived(code);
        }
        const auto answer = page->answers.find(code);
        if (answer == page->answers.end())
        {
            return FALSE;
        }
        SetWindowLongPtrW(dialog, DWLP_MSGRESULT, answer->second);
        return TRUE;
    }
    case WM_SHOWWINDOW:
        if (page->sheet->noteShowing)
        {
            page->sheet->Note(*page, wParam != 0 ? "show" : "hide");
        }
        return FALSE;
    case WM_DESTROY:
        page->sheet->Note(*page, "destroy");
        page->window = nullptr;
        return FALSE;
    default:
        return FALSE;
    }
}

UINT CALLBACK TrialSheet::PageCallback(HWND, UINT message, PROPSHEETPAGEW* record)
{
    const auto& page = *reinterpret_cast<const Page*>(record->lParam);
    const char* names[] = {"addref", "release", "create"};
    page.sheet->Note(page, names[message]);
    return TRUE;
}
