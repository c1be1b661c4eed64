// The list of installed tools, and how the program starts with it.
#include "shell/InstalledProducts.h"
#include "support/calls.h"
#include "support/scripts.h"

using StartTest = SettingsTest;

TEST_F(StartTest, ToolsAreThoseWithANumberOtherThanZero)
{
    const std::tuple<Text, StoredValue, DWORD> tools[] = {{_T("AlderQB"), Dword(1), 1},
                                                          {_T("BirchQB"), Dword(0), 0},
                                                          {_T("cedarqb"), Dword(1), 1},
                                                          {_T("ElmQB"), Sz(_T("x")), 'x'},
                                                          {_T("FirQB"), Binary({0, 0, 1}), 65536},
                                                          {_T("GinkgoQB"), Binary({}), 0},
                                                          {_T("Somebody else"), Dword(3), 3},
                                                          {{}, Dword(2), 2}};
    InstallTools({});
    std::map<ProductId, DWORD> expected;
    for (const auto& [name, stored, number] : tools)
    {
        Store(keys::Installed, name, stored);
        expected[name] = number;
    }
    ASSERT_TRUE(LoadInstalledProducts());
    EXPECT_TRUE(IsProductInstalled(AlderQB));
    EXPECT_FALSE(IsProductInstalled(BirchQB));
    EXPECT_FALSE(IsProductInstalled(CedarQB)) << "names are compared with their case";
    EXPECT_FALSE(IsProductInstalled(KauriQB));
    EXPECT_EQ(InstalledProductMap, expected) << "IsProductInstalled adds nothing";
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
        const Editor box;
        EXPECT_EQ(box.Title(), ErrorTitle);
        EXPECT_EQ(Form(box.Window()).TextOf(IdMessageText), NoProductList);
        EXPECT_EQ(InstalledProductMap.size(), 2U);
    }
    InstallTools({});
    EXPECT_TRUE(LoadInstalledProducts());
    EXPECT_TRUE(InstalledProductMap.empty());
    EXPECT_EQ(calls::OpenKeys(), 0U);
}
