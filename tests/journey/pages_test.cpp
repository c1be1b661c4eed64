// Which pages the real program shows for the tools that are installed, and that it stores what they show.
#include "driver/editor.h"
#include "resource.h"
#include "support/settings_test.h"

namespace
{
using Titles = std::vector<std::wstring>;

using PagesJourney = SettingsTest;

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
    EXPECT_EQ(TitlesOfAllPages(), (Titles{tabs::General, tabs::Drivers, tabs::Chapter9, tabs::Waivers}));
    InstallTools({GinkgoQB, IvyRig});
    EXPECT_EQ(TitlesOfAllPages(), (Titles{tabs::General, tabs::Drivers, tabs::Xhci}));
    InstallTools(AllTools);
    EXPECT_EQ(TitlesOfAllPages(),
              (Titles{tabs::General, tabs::Drivers, tabs::Chapter9, tabs::Waivers, tabs::Xhci, tabs::Identity,
                      tabs::Media, tabs::Protocol, tabs::HostUnderTest}));
    // A tool that is listed with 0 has been removed.
    InstallTools({});
    Store(keys::Installed, L"KauriQB", Dword(0));
    EXPECT_EQ(TitlesOfAllPages(), (Titles{tabs::General}));
}

TEST_F(PagesJourney, PagesThatWereNotOpenedAreNotStored)
{
    InstallTools(AllTools);
    const EditorProcess editor;
    const EditorSheet sheet = editor.WaitForSheet();
    ASSERT_TRUE(sheet.Select(IDD_CHAPTER9));
    EXPECT_TRUE(sheet.Ok());
    EXPECT_TRUE(editor.WaitForEnd());
    EXPECT_TRUE(KeyExists(keys::Bench));
    EXPECT_EQ(StoredValues(keys::Alder), (Values{{L"SkipBOSDescriptorLegacyDevicesAlderQB", Dword(0)}}));
    EXPECT_FALSE(KeyExists(keys::TestServices));
    EXPECT_FALSE(KeyExists(keys::Kauri));
}
