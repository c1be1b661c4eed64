// Which pages join the sheet for which tools.
#include "support/form.h"
#include "support/settings_test.h"

namespace
{
using Texts = std::vector<Text>;

class TabsTest : public SettingsTest
{
protected:
    // The tabs, of which the first must be in front.
    static Texts TabsShown()
    {
        Texts shown;
        RunEditor(
            [&shown](Sheet& sheet)
            {
                shown = sheet.Tabs();
                EXPECT_EQ(Form(sheet.Page()).Title(), shown.front());
            });
        return shown;
    }
};
}  // namespace

TEST_F(TabsTest, EachToolBringsThePagesThatConcernIt)
{
    const std::map<ProductId, Texts> expectedTabs = {
        {AlderQB, {tabs::General, tabs::Drivers, tabs::Chapter9, tabs::Waivers}},
        {BirchQB, {tabs::General, tabs::Drivers, tabs::Chapter9, tabs::Waivers, tabs::Xhci}},
        {CedarQB, {tabs::General, tabs::Drivers}},
        {DogwoodQB, {tabs::General}},
        {ElmQB, {tabs::General, tabs::Drivers}},
        {FirQB, {tabs::General, tabs::Drivers, tabs::Waivers, tabs::Xhci}},
        {GinkgoQB, {tabs::General, tabs::Drivers, tabs::Xhci}},
        {HazelQB, {tabs::General, tabs::Drivers}},
        {IvyRig, {tabs::General}},
        {JuniperRig, {tabs::General}},
        {KauriQB,
         {tabs::General, tabs::Drivers, tabs::Identity, tabs::Media, tabs::Protocol, tabs::HostUnderTest}},
        {_T("OtherQB"), {tabs::General}}};
    for (const auto& [tool, expected] : expectedTabs)
    {
        SCOPED_TRACE(Printable(tool));
        InstallTools({tool});
        EXPECT_EQ(TabsShown(), expected);
        // As a removed tool is listed.
        Store(keys::Installed, tool, Dword(0));
        EXPECT_EQ(TabsShown(), Texts{tabs::General});
    }
    InstallTools(AllTools);
    EXPECT_EQ(TabsShown(), (Texts{tabs::General, tabs::Drivers, tabs::Chapter9, tabs::Waivers, tabs::Xhci,
                                  tabs::Identity, tabs::Media, tabs::Protocol, tabs::HostUnderTest}));
}

TEST_F(TabsTest, OkStoresNothingOfPagesThatWereNotDisplayed)
{
    InstallTools(AllTools);
    RunEditor([](Sheet& sheet) { sheet.Ok(); });
    Tree stored = StoredSettings();
    EXPECT_EQ(stored[keys::Bench].size(), 3U);
    stored.erase(keys::Bench);
    // The key that lies above.
    EXPECT_EQ(stored, (Tree{{keys::Halvane, {}}}));
}
