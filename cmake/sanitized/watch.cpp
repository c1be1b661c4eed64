// Makes the sanitizers watch a test program wholly: its stack, which Wine made, and what it leaves allocated.
#include <gtest/gtest.h>
#include <windows.h>

// The sanitizers' library is the machine's own, with its calling convention, and not one of Windows.
#pragma push_macro("_WIN32")
#undef _WIN32
#include <sanitizer/common_interface_defs.h>
#include <sanitizer/lsan_interface.h>
#pragma pop_macro("_WIN32")

#include <cstdlib>

namespace
{
// As winegcc gives a program, unless it asks for more.
constexpr size_t StackSize = 1 << 20;

class Watch : public testing::Environment
{
public:
    // Without its bounds no stack is unwound, and blocks of unknown origin are not taken for leaks.
    void SetUp() override
    {
        auto* top = static_cast<BYTE*>(reinterpret_cast<const NT_TIB*>(NtCurrentTeb())->StackBase);
        void* fake = nullptr;
        __sanitizer_start_switch_fiber(&fake, top - StackSize, StackSize);
        __sanitizer_finish_switch_fiber(fake, nullptr, nullptr);
    }
    // Wine ends a program without the check that comes at exit elsewhere.
    void TearDown() override
    {
        EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0) << "blocks are left allocated";
    }
};

[[maybe_unused]] const testing::Environment* const g_watch = testing::AddGlobalTestEnvironment(new Watch);
}  // namespace

// Ends by the C library. On Wine's own way out exit routines run when its server has let go of the process,
// and the first of them that calls Wine ends it with 0, whatever has failed.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    std::exit(RUN_ALL_TESTS());
}
