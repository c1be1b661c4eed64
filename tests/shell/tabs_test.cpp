// Which pages join the sheet for which tools.
#include "support/form.h"

#include <gtest/gtest.h>

namespace
{
const Text General = _T("General Settings");
const Text Drivers = _T("Drivers && Firmware");
const Text Chapter9 = _T("Chapter 9");
const Text Waivers = _T("Waivers");
const Text Xhci = _T("xHCI Settings");
const Text Identity = _T("MAUSB Settings");
const Text Media = _T("MAUSB Media Settings");
const Text Protocol = _T("MAUSB Protocol Settings");
const Text HostUnderTest = _T("MAUSB HUT Params");

using Texts = std::vector<Text>;

class TabsTest : public testing::Test
{
protected:
    void SetUp() override { ClearSettings(); }
    void TearDown() override { ClearSettings(); }

    // The tabs, of which the first must be in front.
    static Texts TabsShown()
    {
        Texts tabs;
        RunEditor(
            [&tabs](Sheet& sheet)
            {
                tabs = sheet.Tabs();
                EXPECT_EQ(Form(sheet.Page()).Title(), tabs.front());
            });
        return tabs;
    }
};
}  // namespace

TEST_F(TabsTest, EachToolBringsThePagesThatConcernIt)
{
    const std::map<ProductId, Texts> tabs = {
        {AlderQB, {General, Drivers, Chapter9, Waivers}},
        {BirchQB, {General, Drivers, Chapter9, Waivers, Xhci}},
        {CedarQB, {General, Drivers}},
        {DogwoodQB, {General}},
        {ElmQB, {General, Drivers}},
        {FirQB, {General, Drivers, Waivers, Xhci}},
        {GinkgoQB, {General, Drivers, Xhci}},
        {HazelQB, {General, Drivers}},
        {IvyRig, {General}},
        {JuniperRig, {General}},
        {KauriQB, {General, Drivers, Identity, Media, Protocol, HostUnderTest}},
        {_T("OtherQB"), {General}}};
    for (const auto& [tool, expected] : tabs)
    {
        SCOPED_TRACE(Printable(tool));
        InstallTools({tool});
        EXPECT_EQ(TabsShown(), expected);
        // As a removed tool is listed.
        Store(_T("SOFTWARE\\Halvane\\Installed"), tool.c_str(), Dword(0));
        EXPECT_EQ(TabsShown(), Texts{General});
    }
    InstallAllTools();
    EXPECT_EQ(TabsShown(),
              (Texts{General, Drivers, Chapter9, Waivers, Xhci, Identity, Media, Protocol, HostUnderTest}));
}

TEST_F(TabsTest, OkStoresNothingOfPagesThatWereNotDisplayed)
{
    InstallAllTools();
    RunEditor([](Sheet& sheet) { sheet.Ok(); });
    Tree stored = StoredSettings();
    EXPECT_EQ(stored[_T("SOFTWARE\\Halvane\\QuorvexBench")].size(), 3U);
    stored.erase(_T("SOFTWARE\\Halvane\\QuorvexBench"));
    // The key that lies above.
    EXPECT_EQ(stored, (Tree{{_T("SOFTWARE\\Halvane"), {}}}));
}
