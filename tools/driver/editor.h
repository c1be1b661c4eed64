// The real program, started in a process of its own.
#pragma once

#include "driver/form.h"

#include <functional>

// Waits until the condition holds. Returns false after some seconds.
bool WaitUntil(const std::function<bool()>& condition);

class EditorProcess
{
public:
    // Starts the program of this name from the folder of this one.
    explicit EditorProcess(const Text& arguments = {}, const Text& program = _T("QBSettings.exe"));
    EditorProcess(const EditorProcess&) = delete;
    EditorProcess& operator=(const EditorProcess&) = delete;
    // Terminates the program if it still runs.
    ~EditorProcess();

    static Text Path(const Text& program = _T("QBSettings.exe"));

    DWORD Id() const { return m_process.dwProcessId; }
    HANDLE Handle() const { return m_process.hProcess; }
    bool Runs() const { return WaitForSingleObject(m_process.hProcess, 0) == WAIT_TIMEOUT; }
    // Clicks a button of the sheet that closes it, and returns the result of WaitForEnd.
    bool EndBy(int button, const Sheet& sheet) const;
    // Waits some seconds. Returns true if the program has ended with code 0.
    bool WaitForEnd() const;
    // The titles of its visible top-level windows, all of which belong to its first thread.
    std::vector<Text> Windows() const;
    // Waits some seconds for a visible top-level window with this title.
    HWND WaitForWindow(const Text& title) const
    {
        return WaitForWindowThat([&](HWND window) { return Form(window).Title() == title; });
    }
    // Waits some seconds for a visible top-level window other than the given one, for example a dialog.
    HWND WaitForWindowBeside(HWND other) const
    {
        return WaitForWindowThat([=](HWND window) { return window != other; });
    }
    // Waits for the sheet and its first page.
    Sheet WaitForSheet() const;

private:
    HWND WaitForWindowThat(const std::function<bool(HWND)>& isWanted) const;

    PROCESS_INFORMATION m_process = {};
};
