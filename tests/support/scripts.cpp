#include "support/scripts.h"

#include "shell/QBSettingsApp.h"

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>

namespace
{
constexpr UINT LookMilliseconds = 5;
constexpr ULONGLONG GiveUpMilliseconds = 30000;

struct Wait
{
    std::vector<Text> titles;
    std::vector<HWND> before;  // windows that stood already, or have been acted on
    std::function<void(const Form&)> act;
    int most;
    int count = 0;
    ULONGLONG giveUp = GetTickCount64() + GiveUpMilliseconds;
};

std::map<UINT_PTR, Wait*> waits;  // by their timers

void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD)
{
    const auto found = waits.find(timer);
    if (found == waits.end())
    {
        return;
    }
    Wait& wait = *found->second;
    if (GetTickCount64() > wait.giveUp)
    {
        ADD_FAILURE() << "a window has not come, or does not go";
        // What stands instead would wait for ever.
        PostMessageW(GetActiveWindow(), WM_CLOSE, 0, 0);
        wait.giveUp += 1000;
    }
    if (wait.count == wait.most)
    {
        return;
    }
    const auto has = [](const auto& all, const auto& one) {
        return std::find(all.begin(), all.end(), one) != all.end();
    };
    for (const HWND window : WindowsOf(GetCurrentThreadId()))
    {
        if (!has(wait.before, window) && has(wait.titles, Form(window).Title()))
        {
            wait.before.push_back(window);
            ++wait.count;
            wait.act(Form(window));
            return;
        }
    }
}

// Takes the steps, and acts on windows of these titles that come meanwhile; gives their count.
int ActDuring(const std::function<void()>& steps, const std::vector<Text>& titles,
              const std::function<void(const Form&)>& act, int most = 1)
{
    Wait wait = {titles, WindowsOf(GetCurrentThreadId()), act, most};
    const UINT_PTR timer = SetTimer(nullptr, 0, LookMilliseconds, Look);
    waits[timer] = &wait;
    steps();
    KillTimer(nullptr, timer);
    waits.erase(timer);
    return wait.count;
}

LRESULT CALLBACK Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR list)
{
    Events& events = *reinterpret_cast<Events*>(list);
    if (message == PSM_CHANGED || message == PSM_UNCHANGED)
    {
        events.emplace_back(message == PSM_CHANGED ? "marked" : "unmarked");
    }
    else if (message == WM_COMMAND && lParam != 0 &&
             (HIWORD(wParam) == EN_CHANGE || HIWORD(wParam) == BN_CLICKED))
    {
        events.push_back(std::to_string(LOWORD(wParam)) +
                         (HIWORD(wParam) == EN_CHANGE ? " changed" : " clicked"));
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

std::vector<HWND> TipControls()
{
    std::vector<HWND> controls;
    for (HWND window = nullptr;
         (window = FindWindowExW(nullptr, window, TOOLTIPS_CLASSW, nullptr)) != nullptr;)
    {
        if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId())
        {
            controls.push_back(window);
        }
    }
    return controls;
}

// A control's tool of that number from 0; which dialog the control serves shows in it: its window's parent.
bool GetTool(HWND control, size_t index, TTTOOLINFOW* tool)
{
    *tool = {};
    tool->cbSize = sizeof(*tool);
    return SendMessageW(control, TTM_ENUMTOOLSW, index, reinterpret_cast<LPARAM>(tool)) != 0;
}
}  // namespace

bool TryRunEditor(const std::function<void(Sheet&)>& script)
{
    // The tests are the first instance, whatever else runs on the machine.
    g_dwInstanceMutexError = ERROR_SUCCESS;
    bool shown = false;
    const auto run = [] { EXPECT_FALSE(AfxGetApp()->InitInstance()); };
    const auto act = [&](const Form& form) {
        shown = form.Title() == SheetTitle;
        Sheet sheet(form.Window());
        if (shown)
        {
            script(sheet);
        }
        if (!shown || sheet.IsOpen())
        {
            SendMessageW(sheet.Window(), WM_COMMAND, IDCANCEL, 0);
        }
    };
    EXPECT_EQ(ActDuring(run, {SheetTitle, titles::Error}, act), 1) << "no sheet and no error box";
    return shown;
}

void RunEditor(const std::function<void(Sheet&)>& script)
{
    EXPECT_TRUE(TryRunEditor(script)) << "no sheet";
}

void RunOnTab(const Text& tab, const std::function<void(Sheet&)>& script)
{
    RunEditor([&](Sheet& sheet) {
        ASSERT_TRUE(sheet.Select(tab)) << Printable(tab);
        script(sheet);
    });
}

void WithDialog(const Text& title, const std::function<void()>& open,
                const std::function<void(const Form&)>& script)
{
    const auto act = [&script](const Form& form) {
        script(form);
        // Comes to nothing if the script has ended the dialog, which is gone by then.
        PostMessageW(form.Window(), WM_COMMAND, IDCANCEL, 0);
    };
    EXPECT_EQ(ActDuring(open, {title}, act), 1) << Printable(title);
}

void WithDialog(const Text& title, const Form& opener, int button,
                const std::function<void(const Form&)>& script)
{
    const auto open = [&] { opener.Click(button); };
    WithDialog(title, open, script);
}

int CountPrompts(const std::function<void()>& steps)
{
    const auto confirm = [](const Form& box) {
        for (const HWND window : WindowsOf(GetCurrentThreadId()))
        {
            EXPECT_EQ(IsWindowEnabled(window) != 0, window == box.Window()) << "no other window takes input";
        }
        SendMessageW(box.Window(), WM_COMMAND, IDOK, 0);
    };
    return ActDuring(steps, {AfxGetApp()->m_strAppName.GetString()}, confirm, -1);
}

Events EventsOf(const Sheet& sheet, const std::function<void()>& steps)
{
    Events events;
    const HWND windows[] = {sheet.Page(), sheet.Window()};
    for (const HWND window : windows)
    {
        SetWindowSubclass(window, Note, 1, reinterpret_cast<DWORD_PTR>(&events));
    }
    steps();
    for (const HWND window : windows)
    {
        RemoveWindowSubclass(window, Note, 1);
    }
    return events;
}

void ForEachForm(const std::function<void(const Form&, const Text& name)>& check)
{
    RunEditor([&check](const Sheet& sheet) {
        for (const Text& tab : AllTabs)
        {
            SCOPED_TRACE(Printable(tab));
            ASSERT_TRUE(sheet.Select(tab));
            check(sheet, tab);
        }
        sheet.Select(tabs::Media);
        for (const auto& [button, title] :
             {std::pair{1139, titles::AdvancedTCP}, {1190, titles::ClientPorts}})
        {
            WithDialog(title, sheet, button,
                       [&check, &name = title](const Form& dialog) { check(dialog, name); });
        }
    });
}

HWND TipControlOf(HWND dialog)
{
    for (const HWND control : TipControls())
    {
        TTTOOLINFOW tool;
        if (GetTool(control, 0, &tool) && tool.hwnd == dialog)
        {
            return control;
        }
    }
    return nullptr;
}

int CountTipControls()
{
    return static_cast<int>(TipControls().size());
}

std::vector<int> TipsOf(HWND dialog)
{
    std::vector<int> ids;
    TTTOOLINFOW tool;
    for (size_t index = 0; GetTool(TipControlOf(dialog), index, &tool); ++index)
    {
        // A tool that is not its window shows its tip nowhere: none here has a rectangle.
        ids.push_back((tool.uFlags & TTF_IDISHWND) != 0 ? GetDlgCtrlID(reinterpret_cast<HWND>(tool.uId)) : 0);
    }
    return ids;
}

Text TipText(HWND dialog, int id)
{
    TCHAR text[1024] = {};
    TTTOOLINFOW tool = {};
    tool.cbSize = sizeof(tool);
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(GetDlgItem(dialog, id));
    tool.lpszText = text;
    SendMessageW(TipControlOf(dialog), TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
    return text;
}
