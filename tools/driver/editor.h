// The real program as a user has it: started as a process of its own.
#pragma once

#include "driver/form.h"

#include <functional>

// Whether the condition comes to hold within some seconds.
bool WaitUntil(const std::function<bool()>& condition);

class EditorProcess
{
public:
    // Starts the program of that name beside this one.
    explicit EditorProcess(const Text& arguments = {}, const Text& program = _T("QBSettings.exe"));
    EditorProcess(const EditorProcess&) = delete;
    EditorProcess& operator=(const EditorProcess&) = delete;
    // Ends the program the hard way, if it still runs.
    ~EditorProcess();

    static Text Path(const Text& program = _T("QBSettings.exe"));

    DWORD Id() const { return m_process.dwProcessId; }
    HANDLE Handle() const { return m_process.hProcess; }
    bool Runs() const { return WaitForSingleObject(m_process.hProcess, 0) == WAIT_TIMEOUT; }
    // Clicks a button of the sheet that closes it; whether the program has ended with 0, as WaitForEnd.
    bool EndBy(int button, const Sheet& sheet) const;
    // Whether the program has ended with 0, waiting for that some seconds.
    bool WaitForEnd() const;
    // The titles of its visible top-level windows: those of its first thread, which has them all.
    std::vector<Text> Windows() const;
    // Its visible top-level window of that title, waiting for that some seconds.
    HWND WaitForWindow(const Text& title) const;
    // The visible top-level window that stands beside a given one: a dialog of the sheet, say. Waits
    // likewise.
    HWND WaitForWindowBeside(HWND other) const;
    // The sheet, with its first page up.
    Sheet WaitForSheet() const;

private:
    HWND WaitForWindowThat(const std::function<bool(HWND)>& isWanted) const;

    PROCESS_INFORMATION m_process = {};
};
