// The directory of installed tools, and what the program does at start with each kind of it.
#include "shell/InstalledProducts.h"
#include "shell/QBSettingsApp.h"
#include "support/form.h"
#include "support/settings_test.h"

namespace
{
using InstalledTest = SettingsTest;

// Runs the program where it must show its error box and no sheet.
void ExpectErrorBox()
{
    bool seen = false;
    WhenOpened(titles::Error,
               [&seen](Form& box)
               {
                   seen = true;
                   EXPECT_EQ(box.TextOf(IdMessageText), NoProductList);
                   box.Click(IDOK);
               });
    // A mutex that could not be made at all marks no other instance.
    g_dwInstanceMutexError = ERROR_ACCESS_DENIED;
    EXPECT_FALSE(AfxGetApp()->InitInstance());
    g_dwInstanceMutexError = ERROR_SUCCESS;
    EXPECT_TRUE(seen);
    EndWaits();
}
}  // namespace

TEST_F(InstalledTest, ToolsAreThoseWithANumberOtherThanZero)
{
    Store(keys::Installed, _T("AlderQB"), Dword(1));
    Store(keys::Installed, _T("BirchQB"), Dword(0));
    Store(keys::Installed, _T("cedarqb"), Dword(1));
    Store(keys::Installed, _T("ElmQB"), Sz(_T("x")));
    Store(keys::Installed, _T("FirQB"), Binary({0, 0, 1}));
    Store(keys::Installed, _T("GinkgoQB"), Binary({}));
    Store(keys::Installed, _T("HazelQB"), Dword(0x80000000));
    Store(keys::Installed, _T("Somebody else"), Dword(3));
    Store(keys::Installed, _T(""), Dword(2));
    ASSERT_TRUE(LoadInstalledProducts());
    EXPECT_EQ(InstalledProductMap.size(), 9U);
    EXPECT_EQ(InstalledProductMap[_T("")], 2U);
    EXPECT_EQ(InstalledProductMap[_T("ElmQB")], DWORD{'x'});
    EXPECT_EQ(InstalledProductMap[_T("FirQB")], 0x10000U);
    EXPECT_TRUE(IsProductInstalled(AlderQB));
    EXPECT_FALSE(IsProductInstalled(BirchQB));
    EXPECT_FALSE(IsProductInstalled(CedarQB)) << "case counts";
    EXPECT_TRUE(IsProductInstalled(ElmQB));
    EXPECT_FALSE(IsProductInstalled(GinkgoQB));
    EXPECT_TRUE(IsProductInstalled(HazelQB));
    EXPECT_FALSE(IsProductInstalled(KauriQB));
    EXPECT_EQ(InstalledProductMap.size(), 9U) << "asking adds nothing";
}

TEST_F(InstalledTest, LoadsAnewAndNeedsTheKeyOnly)
{
    EXPECT_FALSE(LoadInstalledProducts());
    InstallTools({AlderQB});
    EXPECT_TRUE(LoadInstalledProducts());
    InstallTools({});
    EXPECT_TRUE(LoadInstalledProducts());
    EXPECT_TRUE(InstalledProductMap.empty());
}

TEST_F(InstalledTest, OneValueTooLongFailsTheLoadButNotTheOthers)
{
    InstallTools({AlderQB, KauriQB});
    Store(keys::Installed, _T("ElmQB"), Sz(_T("yes")));
    EXPECT_FALSE(LoadInstalledProducts());
    EXPECT_EQ(InstalledProductMap.size(), 2U);
    ExpectErrorBox();
}

TEST_F(InstalledTest, ManyAndLongNames)
{
    const Text longest(16382, _T('n'));
    Store(keys::Installed, longest, Dword(1));
    constexpr int Count = 3000;
    for (int i = 0; i < Count; ++i)
    {
        CString name;
        name.Format(_T("Tool %d"), i);
        Store(keys::Installed, name.GetString(), Dword(1));
    }
    Store(keys::Installed, _T("KauriQB"), Dword(1));
    EXPECT_TRUE(LoadInstalledProducts());
    EXPECT_EQ(InstalledProductMap.size(), size_t{Count} + 2);
    EXPECT_TRUE(IsProductInstalled(longest));
    // One character more leaves the enumeration no room for the terminator: nothing is shown then.
    Store(keys::Installed, longest + _T("n"), Dword(1));
    EXPECT_FALSE(LoadInstalledProducts());
    EXPECT_EQ(InstalledProductMap.size(), size_t{Count} + 2);
    EXPECT_TRUE(IsProductInstalled(KauriQB));
}

TEST_F(InstalledTest, ErrorBoxAndNoSheetWithoutTheKey)
{
    ExpectErrorBox();
    EXPECT_FALSE(KeyExists(keys::Bench));
}

TEST_F(InstalledTest, SecondInstanceShowsNothing)
{
    InstallTools({AlderQB});
    InstalledProductMap.clear();
    g_dwInstanceMutexError = ERROR_ALREADY_EXISTS;
    EXPECT_FALSE(AfxGetApp()->InitInstance());
    EXPECT_TRUE(InstalledProductMap.empty()) << "it does not even look";
    g_dwInstanceMutexError = ERROR_SUCCESS;
}
