// The list of installed tools, and how the program starts with it.
#include "shell/InstalledProducts.h"
#include "shell/QBSettingsApp.h"
#include "support/calls.h"
#include "support/scripts.h"

using StartTest = SettingsTest;

TEST_F(StartTest, ToolsAreThoseWithANumberOtherThanZero)
{
    const std::tuple<Text, StoredValue, bool> tools[] = {
        {_T("AlderQB"), Dword(1), true},        {_T("BirchQB"), Dword(0), false},
        {_T("cedarqb"), Dword(1), true},        {_T("ElmQB"), Sz(_T("x")), true},
        {_T("FirQB"), Binary({0, 0, 1}), true}, {_T("GinkgoQB"), Binary({}), false},
        {_T("Somebody else"), Dword(3), true},  {{}, Dword(2), true}};
    InstallTools({});
    for (const auto& [name, stored, installed] : tools)
    {
        Store(keys::Installed, name, stored);
    }
    ASSERT_TRUE(LoadInstalledProducts());
    for (const auto& [name, stored, installed] : tools)
    {
        EXPECT_EQ(IsProductInstalled(name), installed) << Printable(name);
    }
    EXPECT_FALSE(IsProductInstalled(CedarQB)) << "names are compared with their case";
}

TEST_F(StartTest, EveryValueIsReadAndAnyFailureCounts)
{
    ClearSettings();
    EXPECT_FALSE(LoadInstalledProducts()) << "no key";
    const Text longest(16382, _T('n'));
    InstallTools({AlderQB, KauriQB, longest});
    EXPECT_TRUE(LoadInstalledProducts());
    EXPECT_TRUE(IsProductInstalled(longest));
    // A value that is longer than a number, and a name whose terminator does not fit into the buffer.
    for (const auto& [name, value] :
         {std::pair{Text(_T("ElmQB")), Sz(_T("yes"))}, {longest + _T("n"), Dword(1)}})
    {
        InstallTools({AlderQB, KauriQB});
        Store(keys::Installed, name, value);
        EXPECT_FALSE(LoadInstalledProducts()) << Printable(name);
    }
    InstallTools({});
    EXPECT_TRUE(LoadInstalledProducts());
    EXPECT_EQ(calls::OpenKeys(), 0U);
}

TEST_F(StartTest, SecondInstanceShowsTheFirstAndReadsNothing)
{
    const HWND first = CreateWindowExW(0, _T("Static"), SheetTitle, WS_POPUP, 0, 0, 9, 9, nullptr, nullptr,
                                       nullptr, nullptr);
    calls::Reset();
    g_dwInstanceMutexError = ERROR_ALREADY_EXISTS;
    EXPECT_FALSE(AfxGetApp()->InitInstance());
    EXPECT_EQ(calls::Made("SetForegroundWindow").size(), 1U);
    EXPECT_EQ(calls::Made().size(), 1U);
    EXPECT_TRUE(IsWindowVisible(first));
    DestroyWindow(first);
}
