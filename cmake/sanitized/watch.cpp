// Tells the sanitizers the bounds of the stack that Wine made for a test program, and checks for leaks at its
// end.
#include <gtest/gtest.h>
#include <windows.h>

// The sanitizers' library is a Linux library, so its headers must be compiled without _WIN32.
#pragma push_macro("_WIN32")
#undef _WIN32
#include <sanitizer/common_interface_defs.h>
#include <sanitizer/lsan_interface.h>
#pragma pop_macro("_WIN32")

#include <cstdlib>

namespace
{
// The default of winegcc.
constexpr size_t StackSize = 1 << 20;

class Watch : public testing::Environment
{
public:
    // Without the bounds, the sanitizers do not unwind the stack, and ignore leaks of unknown origin.
    void SetUp() override
    {
        auto* top = static_cast<BYTE*>(reinterpret_cast<const NT_TIB*>(NtCurrentTeb())->StackBase);
        void* fake = nullptr;
        __sanitizer_start_switch_fiber(&fake, top - StackSize, StackSize);
        __sanitizer_finish_switch_fiber(fake, nullptr, nullptr);
    }
    // Wine ends a program without the leak check that usually runs at exit.
    void TearDown() override
    {
        EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0) << "blocks are left allocated";
    }
};

[[maybe_unused]] const testing::Environment* const g_watch = testing::AddGlobalTestEnvironment(new Watch);
}  // namespace

// Ends the program by the C library's exit. If Wine ended it, exit routines would run after its server has
// released the process. The first routine that calls Wine would then end the process with code 0, even if
// tests have failed.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    std::exit(RUN_ALL_TESTS());
}
