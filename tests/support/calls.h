// Calls of the system that this program makes: a test can list them, and make one of them fail. Calls that
// name HKEY_LOCAL_MACHINE use a scratch key below HKEY_CURRENT_USER instead, which the program deletes at
// exit.
#pragma once

#include "driver/form.h"

#include <vector>

struct Call
{
    std::string function;
    Text key;   // that the call opens, or that has the value: the path below HKEY_LOCAL_MACHINE
    Text name;  // of a value
};

namespace calls
{
// The first letters of any registry call. RegCloseKey is not counted: the program ignores its result.
inline constexpr const char* AnyOfTheRegistry = "Reg";

// Makes calls use HKEY_LOCAL_MACHINE itself.
inline bool useMachineSettings = false;
// Starts a new list. No call fails, and there is one screen.
void Reset();
// From now on the n-th call of functions whose names have the prefix, counted from 1, and with `andLater` all
// calls after it return the status without calling the system. Functions that return a pointer return null.
void Refuse(const std::string& prefix, unsigned nth, LONG status = ERROR_ACCESS_DENIED,
            bool andLater = false);
// Whether a call has been refused since Refuse.
inline bool hasRefused = false;
// The calls since the last Reset of functions whose names have the prefix. RegCloseKey is not listed.
std::vector<Call> Made(const std::string& prefix = {});
// The work area of a second screen, to the right of the first one, which is 1600 pixels wide. Empty if there
// is none, as after Reset. A window is on the screen that shows more of it.
inline RECT secondScreen = {};
// The number of keys that the program has open.
size_t OpenKeys();

// While a Pause exists, calls are neither listed nor refused: for a test's own access to the registry.
inline int pauses = 0;
struct Pause
{
    Pause() { ++pauses; }
    ~Pause() { --pauses; }
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;
};
}  // namespace calls
