#include "driver/editor.h"

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace
{
constexpr DWORD GiveUpMilliseconds = 20000;
constexpr DWORD LookMilliseconds = 10;
constexpr int IdApply = 0x3021;  // what the common control numbers its Apply button

bool WaitUntil(const std::function<bool()>& condition)
{
    const ULONGLONG giveUp = GetTickCount64() + GiveUpMilliseconds;
    while (!condition())
    {
        if (GetTickCount64() > giveUp)
        {
            return false;
        }
        Sleep(LookMilliseconds);
    }
    return true;
}

// A program that hangs fails the test rather than holding it up for ever.
LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, GiveUpMilliseconds, &result);
    return static_cast<LRESULT>(result);
}

std::wstring TextOfWindow(HWND window)
{
    std::wstring text(static_cast<size_t>(Send(window, WM_GETTEXTLENGTH)), L'\0');
    Send(window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

struct WindowSearch
{
    DWORD process;
    std::vector<HWND> found;
};

BOOL CALLBACK AddWindow(HWND window, LPARAM search)
{
    auto* wanted = reinterpret_cast<WindowSearch*>(search);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == wanted->process && IsWindowVisible(window))
    {
        wanted->found.push_back(window);
    }
    return TRUE;
}

std::vector<HWND> WindowsOf(DWORD process)
{
    WindowSearch search = {process, {}};
    EnumWindows(AddWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}
}  // namespace

std::wstring EditorDialog::Title() const
{
    return TextOfWindow(m_window);
}

HWND EditorDialog::Control(int id) const
{
    return GetDlgItem(m_window, id);
}

std::wstring EditorDialog::TextOf(int id) const
{
    return TextOfWindow(Control(id));
}

bool EditorDialog::IsEnabled(int id) const
{
    return IsWindowEnabled(Control(id));
}

bool EditorDialog::IsChecked(int id) const
{
    return Send(Control(id), BM_GETCHECK) == BST_CHECKED;
}

int EditorDialog::SelectionOf(int id) const
{
    return static_cast<int>(Send(Control(id), LB_GETCURSEL));
}

void EditorDialog::Click(int id) const
{
    Send(Control(id), BM_CLICK);
}

void EditorDialog::ClickToOpen(int id) const
{
    PostMessageW(Control(id), BM_CLICK, 0, 0);
}

void EditorDialog::Retype(int id, const std::wstring& keys) const
{
    const HWND edit = Control(id);
    Send(edit, EM_SETSEL, 0, -1);
    for (const wchar_t key : keys)
    {
        Send(edit, WM_CHAR, key, 1);
    }
}

void EditorDialog::MoveSelection(int id, int steps) const
{
    for (int step = 0; step < std::abs(steps); ++step)
    {
        Send(Control(id), WM_KEYDOWN, steps > 0 ? VK_DOWN : VK_UP, 1);
    }
}

bool EditorDialog::WaitUntilGone() const
{
    return WaitUntil([this] { return !IsWindow(m_window); });
}

HWND EditorSheet::Page() const
{
    return reinterpret_cast<HWND>(Send(Window(), PSM_GETCURRENTPAGEHWND));
}

HWND EditorSheet::Control(int id) const
{
    return GetDlgItem(Page(), id);
}

int EditorSheet::PageCount() const
{
    const auto tabs = reinterpret_cast<HWND>(Send(Window(), PSM_GETTABCONTROL));
    return static_cast<int>(Send(tabs, TCM_GETITEMCOUNT));
}

bool EditorSheet::SelectIndex(int index) const
{
    Send(Window(), PSM_SETCURSEL, static_cast<WPARAM>(index));
    return Send(Window(), PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(Page())) == index;
}

bool EditorSheet::Select(int dialogId) const
{
    const auto index = static_cast<int>(Send(Window(), PSM_IDTOINDEX, 0, dialogId));
    return index >= 0 && SelectIndex(index);
}

bool EditorSheet::Shows(int dialogId) const
{
    return Send(Window(), PSM_IDTOINDEX, 0, dialogId) ==
           Send(Window(), PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(Page()));
}

std::vector<std::wstring> EditorSheet::OpenAll() const
{
    std::vector<std::wstring> titles;
    for (int index = 0; index < PageCount() && SelectIndex(index); ++index)
    {
        titles.push_back(TextOfWindow(Page()));
    }
    return titles;
}

HWND EditorSheet::ApplyButton() const
{
    return GetDlgItem(Window(), IdApply);
}

void EditorSheet::Apply() const
{
    Send(ApplyButton(), BM_CLICK);
}

bool EditorSheet::Ok() const
{
    PostMessageW(GetDlgItem(Window(), IDOK), BM_CLICK, 0, 0);
    return WaitUntilGone();
}

bool EditorSheet::Cancel() const
{
    PostMessageW(GetDlgItem(Window(), IDCANCEL), BM_CLICK, 0, 0);
    return WaitUntilGone();
}

std::wstring EditorProcess::Path(const std::wstring& program)
{
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return path.substr(0, path.find_last_of(L'\\') + 1) + program;
}

EditorProcess::EditorProcess(const std::wstring& arguments, const std::wstring& program)
{
    std::wstring line = L"\"" + Path(program) + L"\" " + arguments;
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &m_process);
}

EditorProcess::~EditorProcess()
{
    if (Runs())
    {
        TerminateProcess(m_process.hProcess, 1);
        WaitForSingleObject(m_process.hProcess, GiveUpMilliseconds);
    }
    CloseHandle(m_process.hThread);
    CloseHandle(m_process.hProcess);
}

bool EditorProcess::Runs() const
{
    return WaitForSingleObject(m_process.hProcess, 0) == WAIT_TIMEOUT;
}

bool EditorProcess::WaitForEnd() const
{
    DWORD code = 1;
    return WaitForSingleObject(m_process.hProcess, GiveUpMilliseconds) == WAIT_OBJECT_0 &&
           GetExitCodeProcess(m_process.hProcess, &code) && code == 0;
}

std::vector<std::wstring> EditorProcess::Windows() const
{
    std::vector<std::wstring> titles;
    for (const HWND window : WindowsOf(Id()))
    {
        titles.push_back(TextOfWindow(window));
    }
    return titles;
}

HWND EditorProcess::WaitForWindowThat(const std::function<bool(HWND)>& isWanted) const
{
    HWND found = nullptr;
    WaitUntil(
        [&]
        {
            const std::vector<HWND> windows = WindowsOf(Id());
            const auto window = std::find_if(windows.begin(), windows.end(), isWanted);
            found = window != windows.end() ? *window : nullptr;
            return found != nullptr || !Runs();
        });
    return found;
}

HWND EditorProcess::WaitForWindow(const std::wstring& title) const
{
    return WaitForWindowThat([&](HWND window) { return TextOfWindow(window) == title; });
}

HWND EditorProcess::WaitForWindowBeside(HWND other) const
{
    return WaitForWindowThat([&](HWND window) { return window != other; });
}

EditorSheet EditorProcess::WaitForSheet() const
{
    EditorSheet sheet(WaitForWindow(SheetTitle));
    WaitUntil([&] { return sheet.Page() != nullptr || !Runs(); });
    return sheet;
}
