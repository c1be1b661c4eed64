// Permits the journeys on this machine. The real program has the machine's own settings, and the tests delete
// them: where there are any, QB_DESTROY must be set.
#include "support/calls.h"
#include "support/registry.h"

#include <cstdlib>

namespace
{
class Machine : public testing::Environment
{
public:
    // What fails here fails the program before its first test.
    void SetUp() override
    {
        calls::UseMachineSettings();
        ASSERT_EQ(FindWindowW(nullptr, SheetTitle), nullptr) << "An editor runs: close it first.";
        ASSERT_TRUE(std::getenv("QB_DESTROY") != nullptr || !HasSettingsKeys())
            << "This machine has settings, which the tests would delete.";
        // Windows lets a program that another one has used last come to the front only after some time.
        SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0, nullptr, 0);
    }
};

[[maybe_unused]] const testing::Environment* const g_machine = testing::AddGlobalTestEnvironment(new Machine);
}  // namespace
