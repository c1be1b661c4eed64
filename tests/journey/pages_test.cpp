// Which pages the real program shows for the tools that are installed, and that it stores what they show.
#include "journey/editor.h"
#include "resource.h"
#include "support/registry.h"

#include <gtest/gtest.h>

namespace
{
using Titles = std::vector<std::wstring>;

class PagesJourney : public testing::Test
{
protected:
    void SetUp() override { ClearSettings(); }
    void TearDown() override { ClearSettings(); }
};

Titles TitlesOfAllPages()
{
    const EditorProcess editor;
    const EditorSheet sheet = editor.WaitForSheet();
    Titles titles = sheet.OpenAll();
    EXPECT_TRUE(sheet.Cancel());
    EXPECT_TRUE(editor.WaitForEnd());
    return titles;
}
}  // namespace

TEST_F(PagesJourney, TabsFollowTheToolsFromOneStartToTheNext)
{
    InstallTools({AlderQB});
    EXPECT_EQ(TitlesOfAllPages(),
              (Titles{L"General Settings", L"Drivers && Firmware", L"Chapter 9", L"Waivers"}));
    InstallTools({GinkgoQB, IvyRig});
    EXPECT_EQ(TitlesOfAllPages(), (Titles{L"General Settings", L"Drivers && Firmware", L"xHCI Settings"}));
    InstallAllTools();
    EXPECT_EQ(TitlesOfAllPages(),
              (Titles{L"General Settings", L"Drivers && Firmware", L"Chapter 9", L"Waivers", L"xHCI Settings",
                      L"MAUSB Settings", L"MAUSB Media Settings", L"MAUSB Protocol Settings",
                      L"MAUSB HUT Params"}));
    // A tool that is listed with 0 has been removed.
    InstallTools({});
    Store(L"SOFTWARE\\Halvane\\Installed", L"KauriQB", Dword(0));
    EXPECT_EQ(TitlesOfAllPages(), (Titles{L"General Settings"}));
}

TEST_F(PagesJourney, PagesThatWereNotOpenedAreNotStored)
{
    InstallAllTools();
    const EditorProcess editor;
    const EditorSheet sheet = editor.WaitForSheet();
    ASSERT_TRUE(sheet.Select(IDD_CHAPTER9));
    EXPECT_TRUE(sheet.Ok());
    EXPECT_TRUE(editor.WaitForEnd());
    EXPECT_TRUE(KeyExists(L"SOFTWARE\\Halvane\\QuorvexBench"));
    EXPECT_EQ(StoredValues(L"SOFTWARE\\Halvane\\AlderQB"),
              (std::map<Text, StoredValue>{{L"SkipBOSDescriptorLegacyDevicesAlderQB", Dword(0)}}));
    EXPECT_FALSE(KeyExists(L"SOFTWARE\\Ostrel\\TestServices"));
    EXPECT_FALSE(KeyExists(L"SOFTWARE\\Halvane\\KauriQB"));
}
