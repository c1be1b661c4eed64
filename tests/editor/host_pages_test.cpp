// Drivers & Firmware, Chapter 9, Waivers and xHCI Settings: what each tool brings to life, and what stays
// untouched without it.
#include "support/host_settings.h"
#include "support/tips.h"

#include <algorithm>

namespace
{
// Values that nobody's page would store, of types and lengths that a page could only spoil.
StoredValue OddValue(size_t index)
{
    const StoredValue values[] = {
        Binary({1, 2, 3}),
        {REG_EXPAND_SZ, {'%', 0, 'x', 0, '%', 0, 7}},
        {REG_QWORD, {1, 0, 0, 0, 2, 0, 0, 0}},
        {REG_MULTI_SZ, {'a', 0, 0, 0, 'b', 0, 0, 0, 0, 0}},
        {REG_SZ, {}},
        Dword(1),
        Sz(_T("C:\\of another tool\\")),
    };
    return values[index % std::size(values)];
}

std::string NamesOf(const Tools& tools)
{
    std::string names;
    for (const ProductId& tool : tools)
    {
        names += Printable(tool) + ' ';
    }
    return names;
}

// What is stored once a script has run from an empty registry.
Tree TreeAfter(const std::function<void()>& script)
{
    ClearSettings();
    script();
    return StoredByHostPages();
}

// Settings that the tools need are not at their initial values, and all others hold something odd.
void StoreBeforeStart(const Tools& tools)
{
    const std::vector<HostSetting>& settings = HostSettings();
    for (size_t index = 0; index < settings.size(); ++index)
    {
        StoreHostSetting(settings[index],
                         settings[index].IsLiveFor(tools) ? settings[index].Changed() : OddValue(index));
    }
    // Only ever written: what stands there means nothing to the page.
    Store(keys::TestServices, FirmwareCopy, OddValue(0));
}

// Goes through the pages of the tools: what they need shows its value, the rest is as the page was laid out.
void ExpectPages(const Sheet& sheet, const Tools& tools)
{
    for (const Text& tab : HostTabs())
    {
        const std::vector<HostSetting> settings = HostSettingsOf(tab);
        const bool concerned =
            std::any_of(settings.begin(), settings.end(),
                        [&tools](const HostSetting& setting) { return setting.IsLiveFor(tools); });
        EXPECT_EQ(sheet.Select(tab), concerned) << Printable(tab);
        for (const HostSetting& setting : settings)
        {
            if (concerned)
            {
                SCOPED_TRACE(Printable(setting.name));
                const bool live = setting.IsLiveFor(tools);
                const StoredValue blank = setting.kind == HostSetting::Kind::Path ? Sz(_T("")) : Dword(0);
                setting.ExpectShown(sheet, live ? setting.Changed() : blank);
                // The stacks' switches are off here, and their paths with them.
                EXPECT_EQ(sheet.IsEnabled(setting.control), live && setting.name != _T("Path"));
            }
        }
        EXPECT_FALSE(sheet.CanApply());
    }
}

using HostPagesTest = SettingsTest;
}  // namespace

TEST_F(HostPagesTest, EachToolBringsItsOwnSettingsAndLeavesAllOthers)
{
    std::vector<Tools> sets = {{KauriQB, HazelQB}, {AlderQB, FirQB}, {}};
    std::transform(AllTools.begin(), AllTools.end(), std::back_inserter(sets),
                   [](const ProductId& tool) { return Tools{tool}; });
    for (const Tools& tools : sets)
    {
        SCOPED_TRACE(NamesOf(tools));
        ClearSettings();
        InstallTools(tools);
        StoreBeforeStart(tools);
        Tree stored = StoredByHostPages();
        RunEditor([&tools](const Sheet& sheet) { ExpectPages(sheet, tools); });
        EXPECT_EQ(StoredByHostPages(), stored) << "cancelled";
        RunEditor(
            [&](const Sheet& sheet)
            {
                ExpectPages(sheet, tools);
                for (const HostSetting& setting : HostSettings())
                {
                    if (setting.IsLiveFor(tools))
                    {
                        // Too late to be read, and overwritten.
                        StoreHostSetting(setting, OddValue(0));
                        if (setting.name == FirmwareName)
                        {
                            stored[keys::TestServices][FirmwareCopy] = setting.Changed();
                        }
                    }
                }
                sheet.Ok();
            });
        EXPECT_EQ(StoredByHostPages(), stored);
    }
}

TEST_F(HostPagesTest, PageThatWasShownStoresItsDefaultsAndOthersNothing)
{
    for (const Text& tab : HostTabs())
    {
        SCOPED_TRACE(Printable(tab));
        const std::vector<HostSetting> settings = HostSettingsOf(tab);
        const Tree defaults = TreeAfter(
            [&settings]
            {
                InstallTools(AllTools);
                for (const HostSetting& setting : settings)
                {
                    StoreHostSetting(setting, setting.Initial());
                }
            });
        const Tree stored = TreeAfter(
            [&]
            {
                InstallTools(AllTools);
                RunEditor(
                    [&](const Sheet& sheet)
                    {
                        ASSERT_TRUE(sheet.Select(tab));
                        for (const HostSetting& setting : settings)
                        {
                            SCOPED_TRACE(Printable(setting.name));
                            setting.ExpectShown(sheet, setting.Initial());
                            EXPECT_TRUE(sheet.IsEnabled(setting.control));
                        }
                        sheet.Ok();
                    });
            });
        EXPECT_EQ(stored, defaults);
    }
}

TEST_F(HostPagesTest, EachControlChangesItsOwnValue)
{
    const Tree changed = TreeAfter(
        []
        {
            InstallTools(AllTools);
            for (const HostSetting& setting : HostSettings())
            {
                StoreHostSetting(setting, setting.Changed());
            }
        });
    ClearSettings();
    InstallTools(AllTools);
    RunEditor(
        [](const Sheet& sheet)
        {
            for (const Text& tab : HostTabs())
            {
                ASSERT_TRUE(sheet.Select(tab));
                for (const HostSetting& setting : HostSettingsOf(tab))
                {
                    SCOPED_TRACE(Printable(setting.name));
                    EXPECT_FALSE(sheet.CanApply());
                    setting.Change(sheet);
                    // A path is saved like everything else, but does not mark its page.
                    EXPECT_EQ(sheet.CanApply(), setting.kind != HostSetting::Kind::Path);
                    if (sheet.CanApply())
                    {
                        sheet.Apply();
                        EXPECT_EQ(Stored(setting.key, setting.name), setting.Changed());
                    }
                }
            }
            // The page with the paths is not in front any more.
            sheet.Ok();
        });
    EXPECT_EQ(StoredByHostPages(), changed);
}

TEST_F(HostPagesTest, SwitchesHaveTips)
{
    const Text bos =
        _T("If checked then do not run the BOS Descriptor test when the DUT reports USB Version less than ")
        _T("or ")
        _T("equal to 2.00.  The test will exit with a warning.");
    const auto stackTip = [](LPCTSTR stack, LPCTSTR host)
    {
        return Text(_T("If checked, QB will automatically install the ")) + stack + _T(" stack for your ") +
               host + _T(" Host.");
    };
    const std::map<Text, std::map<int, Text>> tips = {
        {tabs::Drivers,
         {{1032, stackTip(_T("compliance driver"), _T("EHCI"))},
          {1036, stackTip(_T("compliance driver"), _T("xHCI"))},
          {1045, stackTip(_T("compliance driver"), _T("USB4"))},
          {1200, stackTip(_T("RVSK"), _T("USB4"))}}},
        {tabs::Chapter9, {{1182, bos}, {1183, bos}}},
        {tabs::Waivers, {}},
        {tabs::Xhci, {}},
    };
    InstallTools(AllTools);
    RunEditor(
        [&tips](const Sheet& sheet)
        {
            for (const Text& tab : HostTabs())
            {
                ASSERT_TRUE(sheet.Select(tab));
                EXPECT_EQ(TipsOf(sheet.Page()), tips.at(tab)) << Printable(tab);
            }
        });
}

TEST_F(HostPagesTest, TabGoesThroughThePageInReadingOrder)
{
    const std::map<Text, std::vector<int>> stops = {
        {tabs::Drivers,
         {1032, 1034, 1035, 1036, 1038, 1039, 1045, 1053, 1054, 1200, 1202, 1203, 1048, 1049, 1051, 1052,
          IDOK}},
        {tabs::Chapter9, {1182, 1183, IDOK}},
        {tabs::Waivers, {1024, 1031, IDOK}},
        {tabs::Xhci, {1002, 1000, 1003, 1004, 1005, 1020, 1021, 1022, 1023, 1008, 1009, 1012, 1013, IDOK}},
    };
    InstallTools(AllTools);
    RunEditor(
        [&stops](const Sheet& sheet)
        {
            for (const Text& tab : HostTabs())
            {
                SCOPED_TRACE(Printable(tab));
                ASSERT_TRUE(sheet.Select(tab));
                ExpectTabOrder(sheet, stops.at(tab));
            }
        });
}
