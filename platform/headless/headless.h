// What only tests can do with this platform: look inside, count and break its functions.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "windef.h"

namespace headless
{
// --- Faults

// Lets the nth use from now on of a function (1 is the next) fail with `error`: an error code or RPC status,
// according to the function. The use has no effect and fills no more out-parameters than the real function
// does when it fails; RegCloseKey alone closes the key all the same. "TTM_ADDTOOLW" names the adding of a
// tool to a tooltip control, which is a message and no function. Several faults may be armed, also on one
// function; each strikes once.
void FailCall(const char* function, unsigned nth, DWORD error);
// Lets every use fail from the nth on.
void FailCallsFrom(const char* function, unsigned nth, DWORD error);
// Lets the nth call of any registry function fail.
void FailAnyRegistryCall(unsigned nth, DWORD error);
void ClearFaults();

// Uses since the last ResetCallCounts, failed ones included.
unsigned CallCount(const char* function);
unsigned RegistryCallCount();
void ResetCallCounts();

// --- Registry

// Handles to keys that were opened and not closed yet.
std::size_t OpenKeyCount();
// Empties the registry. Handles that are still open go dead and give ERROR_INVALID_HANDLE.
void ResetRegistry();

// A registry call as it was asked for: `function` is the W name; `key` is the full path, as
// u"HKEY_LOCAL_MACHINE\\SOFTWARE\\..." with the caller's subkey path appended; `type` and `data` are what
// RegSetValueExW was given and empty elsewhere.
struct RegistryCall
{
    std::string function;
    std::u16string key;
    std::u16string value;
    DWORD type = 0;
    std::vector<BYTE> data;
    LONG status = 0;
};

// Switching recording on starts an empty list; switching it off keeps the list.
void RecordRegistryCalls(bool on);
const std::vector<RegistryCall>& RegistryCalls();

// --- Windows

// Lets the nth window of a class (1 is the next), controls in dialogs included, fail to be made. ClearFaults
// ends it. Faults of CreateWindowExW itself count the windows of all classes.
void FailWindowClass(LPCWSTR className, unsigned nth, DWORD error);

// --- File dialog

// What the last file dialog had been told when it was shown.
struct FileDialogRequest
{
    std::vector<std::pair<std::u16string, std::u16string>> filters;  // text and pattern
    std::u16string defaultExtension;
    std::u16string fileName;
    std::u16string folder;  // empty if none was set
    DWORD options = 0;
    HWND owner = nullptr;
};
const FileDialogRequest& LastFileDialog();
// Lets a folder exist; no other does.
void DeclareFolder(const std::u16string& path);
// Answers the next dialog at once, without a window; an empty path cancels it.
void AnswerFileDialog(const std::u16string& path);
}  // namespace headless
