// The system's calls that a test can have refused, and the list of those that this program makes: it defines
// these functions itself, and its definitions call the system's. Below HKEY_LOCAL_MACHINE the program reads
// and writes a scratch key of the current user instead, which it deletes as it ends.
#pragma once

#include "driver/form.h"

#include <vector>

struct Call
{
    std::string function;  // for CreateWindowExW with its class: "CreateWindowExW tooltips_class32"
    Text key;              // of a registry call: the path under HKEY_LOCAL_MACHINE
    Text name;             // of a value
};

namespace calls
{
// Any registry call but RegCloseKey, from which nothing follows.
inline constexpr const char* AnyOfTheRegistry = "Reg";

// From now on HKEY_LOCAL_MACHINE is the machine's own.
void UseMachineSettings();
// Starts a new list, with nothing refused.
void Reset();
// From now on the n-th call of the function, from 1, and all later ones if so wanted, fail with the status,
// unmade.
void Refuse(const std::string& function, unsigned nth, LONG status = ERROR_ACCESS_DENIED,
            bool andLater = false);
// Whether the refusal has come to something.
bool HasStruck();
// Since the last Reset: those of functions whose names begin so.
std::vector<Call> Made(const std::string& prefix = {});
// Until the next Reset there are two screens: the second lies right of the first 1600 pixels, and this much
// of it is free of bars. A window is on the one that has more of it.
void AddScreen(const RECT& workArea = {1600, 40, 3200, 1200});
// The keys that the program has open.
size_t OpenKeys();

// For a test's own use of the registry amid the program's: neither refused nor listed while this lives.
struct Pause
{
    Pause();
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;
};
}  // namespace calls
