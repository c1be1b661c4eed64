// Protects the machine's settings, which the real program uses and the journeys delete: if there are any,
// QB_DESTROY must be set.
#include "support/calls.h"
#include "support/registry.h"

#include <cstdlib>

namespace
{
class Machine : public testing::Environment
{
public:
    // A failure here fails the test program before its first test.
    void SetUp() override
    {
        calls::useMachineSettings = true;
        ASSERT_EQ(FindWindowW(nullptr, SheetTitle), nullptr) << "An editor is running: close it first.";
        ASSERT_TRUE(std::getenv("QB_DESTROY") != nullptr || !HasSettingsKeys())
            << "This machine has settings, which the tests would delete.";
        // Otherwise Windows lets a program come to the front only some time after input to another program.
        SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0, nullptr, 0);
    }
};

[[maybe_unused]] const testing::Environment* const g_machine = testing::AddGlobalTestEnvironment(new Machine);
}  // namespace
