#include "driver/editor.h"

#include <algorithm>

constexpr DWORD GiveUpMilliseconds = 20000;
constexpr DWORD LookMilliseconds = 2;

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

Text EditorProcess::Path(const Text& program)
{
    Text path(MAX_PATH, _T('\0'));
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return path.substr(0, path.find_last_of(_T('\\')) + 1) + program;
}

EditorProcess::EditorProcess(const Text& arguments, const Text& program)
{
    Text line = _T("\"") + Path(program) + _T("\" ") + arguments;
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

bool EditorProcess::EndBy(int button, const Sheet& sheet) const
{
    Form(sheet.Window()).ClickToOpen(button);
    return WaitForEnd();
}

bool EditorProcess::WaitForEnd() const
{
    DWORD code = 1;
    return WaitForSingleObject(m_process.hProcess, GiveUpMilliseconds) == WAIT_OBJECT_0 &&
           GetExitCodeProcess(m_process.hProcess, &code) && code == 0;
}

std::vector<Text> EditorProcess::Windows() const
{
    std::vector<Text> titles;
    for (const HWND window : WindowsOf(m_process.dwThreadId))
    {
        titles.push_back(Form(window).Title());
    }
    return titles;
}

HWND EditorProcess::WaitForWindowThat(const std::function<bool(HWND)>& isWanted) const
{
    HWND found = nullptr;
    WaitUntil([&] {
        const std::vector<HWND> windows = WindowsOf(m_process.dwThreadId);
        const auto window = std::find_if(windows.begin(), windows.end(), isWanted);
        found = window != windows.end() ? *window : nullptr;
        return found != nullptr || !Runs();
    });
    return found;
}

Sheet EditorProcess::WaitForSheet() const
{
    Sheet sheet(WaitForWindow(SheetTitle));
    WaitUntil([&] { return sheet.Page() != nullptr || !Runs(); });
    return sheet;
}
