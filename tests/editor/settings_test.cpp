// All settings of all pages: what each shows, takes, stores and leaves alone, and what docs/settings.md says
// of it.
#include "support/calls.h"
#include "support/scripts.h"

#include <algorithm>
#include <array>
#include <set>
#include <sstream>

namespace
{
using Kind = Setting::Kind;
using Value = StoredValue Setting::*;

class AllSettingsTest : public SettingsTest
{
protected:
    // With the identifier that would be made up otherwise.
    void SetUp() override
    {
        SettingsTest::SetUp();
        StoreIdentifier();
    }

    static void StoreIdentifier()
    {
        Store(keys::Kauri, _T("RootHubUUID"), Binary(std::vector<BYTE>(16, 0x5A)));
    }

    static void ExpectShown(const Form& page, const Text& tab, Value value)
    {
        for (const Setting& setting : SettingsOf(tab))
        {
            setting.ExpectShown(page, setting.*value);
        }
    }

    // Finds all pages at one value, and turns everything to the other.
    static void ChangeAll(Value from, Value to, void (Sheet::*leave)() const)
    {
        RunEditor([&](const Sheet& sheet) {
            for (const Text& tab : AllTabs)
            {
                SCOPED_TRACE(Printable(tab));
                ASSERT_TRUE(sheet.Select(tab));
                ExpectShown(sheet, tab, from);
                for (const Setting& setting : SettingsOf(tab))
                {
                    setting.Enter(sheet, setting.*to);
                }
            }
            (sheet.*leave)();
            EXPECT_FALSE(sheet.IsOpen());
        });
    }
};

// The calls by which values are read or written, each value once.
using Places = std::vector<std::pair<Text, Text>>;

Places PlacesCalled(const char* function)
{
    Places places;
    for (const Call& call : calls::Made(function))
    {
        places.emplace_back(call.key, call.name);
    }
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

Places PlacesOf(const std::vector<Setting>& settings)
{
    Places places;
    for (const Setting& setting : settings)
    {
        places.emplace_back(setting.key, setting.name);
    }
    return places;
}

// General Settings comes up first and so is always stored.
std::vector<Setting> StoredWith(const Text& tab)
{
    std::vector<Setting> settings = AllSettings();
    std::erase_if(settings,
                  [&tab](const Setting& each) { return each.tab != tabs::General && each.tab != tab; });
    return settings;
}

// An emptied number prompts whenever it is to be taken, and holds the page.
void ExpectEmptyHolds(const Sheet& sheet, const Setting& number)
{
    const Text before = sheet.TextOf(number.control);
    EXPECT_EQ(CountPrompts([&] { sheet.Retype(number.control, {}); }), 1);
    EXPECT_FALSE(sheet.CanApply()) << "the member has not changed";
    EXPECT_EQ(CountPrompts([&] { sheet.Ok(); }), 1);
    EXPECT_TRUE(sheet.IsOpen());
    EXPECT_EQ(CountPrompts([&] { sheet.SelectIndex(number.tab == tabs::General ? 1 : 0); }), 1);
    EXPECT_EQ(Form(sheet.Page()).Title(), number.tab);
    EXPECT_EQ(GetFocus(), sheet.Control(number.control));
    sheet.SetText(number.control, before);
    EXPECT_FALSE(sheet.CanApply()) << "the member has kept that number";
}

// The cells of a row that hold the type and the default.
std::string CellsOf(const StoredValue& value)
{
    if (value.type == REG_DWORD)
    {
        return " REG_DWORD  " + std::to_string(*reinterpret_cast<const int*>(value.data.data())) + ' ';
    }
    if (value.type == REG_SZ)
    {
        return " REG_SZ  \"" + Printable(reinterpret_cast<LPCTSTR>(value.data.data())) + "\" ";
    }
    return " REG_BINARY  " + std::to_string(value.data.size()) + " bytes ";
}

std::string CellsOf(Tools tools)
{
    if (tools.empty())
    {
        return " any ";
    }
    std::sort(tools.begin(), tools.end());
    std::string cell;
    for (const ProductId& tool : tools)
    {
        cell += (cell.empty() ? " " : ", ") + Printable(tool);
    }
    return cell + ' ';
}
}  // namespace

TEST_F(AllSettingsTest, AllChangedAndOkThenBackAndOkThenChangedAndCancel)
{
    ChangeAll(&Setting::initial, &Setting::changed, &Sheet::Ok);
    EXPECT_EQ(StoredSettings(), TreeOf(AllSettings(), &Setting::changed));
    ChangeAll(&Setting::changed, &Setting::initial, &Sheet::Ok);
    EXPECT_EQ(StoredSettings(), TreeOf(AllSettings(), &Setting::initial));
    ChangeAll(&Setting::initial, &Setting::changed, &Sheet::Cancel);
    EXPECT_EQ(StoredSettings(), TreeOf(AllSettings(), &Setting::initial));
}

TEST_F(AllSettingsTest, PageThatWasShownStoresItsDefaultsAndNoOtherDoes)
{
    for (const Text& tab : AllTabs)
    {
        SCOPED_TRACE(Printable(tab));
        SettingsTest::SetUp();
        if (tab == tabs::Identity)
        {
            StoreIdentifier();
        }
        RunOnTab(tab, [&](const Sheet& sheet) {
            ExpectShown(sheet, tab, &Setting::initial);
            EXPECT_EQ(sheet.CanApply(), tab == tabs::Media) << "marked by its own texts";
            sheet.Ok();
        });
        EXPECT_EQ(StoredSettings(), TreeOf(StoredWith(tab), &Setting::initial));
    }
}

TEST_F(AllSettingsTest, EachChangeMarksItsPageUnlessItLeavesTheValue)
{
    for (const Text& tab : AllTabs)
    {
        RunOnTab(tab, [&tab](const Sheet& sheet) {
            sheet.Apply();
            for (const Setting& setting : SettingsOf(tab))
            {
                if (!setting.IsChangeable())
                {
                    continue;
                }
                SCOPED_TRACE(Printable(setting.name));
                setting.Enter(sheet, setting.changed);
                EXPECT_EQ(sheet.CanApply(), setting.kind != Kind::Path);
                sheet.Apply();
                EXPECT_FALSE(sheet.CanApply());
                if (setting.kind != Kind::Path)
                {
                    EXPECT_EQ(Stored(setting.key, setting.name), setting.changed);
                    setting.Enter(sheet, setting.initial);
                    EXPECT_TRUE(sheet.CanApply());
                }
                if (setting.kind == Kind::Check)
                {
                    sheet.Click(setting.control);
                    sheet.Click(setting.control);
                    EXPECT_TRUE(sheet.CanApply()) << "each click changed it";
                }
                else if (setting.kind == Kind::Number || setting.kind == Kind::Hex)
                {
                    sheet.TypeInFront(setting.control, _T("0"));
                    EXPECT_FALSE(sheet.CanApply()) << "the same number";
                }
                else if (setting.kind == Kind::Radio || setting.kind == Kind::List)
                {
                    setting.Enter(sheet, setting.initial);
                    EXPECT_FALSE(sheet.CanApply()) << "selected again";
                }
                sheet.Apply();
                if (setting.kind == Kind::Number && sheet.IsEnabled(setting.control))
                {
                    ExpectEmptyHolds(sheet, setting);
                }
            }
        });
    }
}

TEST_F(AllSettingsTest, EachToolBringsItsPagesAndSettingsAndLeavesAllOthers)
{
    std::vector<Tools> sets = {{KauriQB, HazelQB}, {AlderQB, FirQB}, {_T("OtherQB")}, {}};
    std::transform(AllTools.begin(), AllTools.end(), std::back_inserter(sets),
                   [](const ProductId& tool) { return Tools{tool}; });
    for (const Tools& tools : sets)
    {
        SCOPED_TRACE(tools.empty() ? "none" : Printable(tools.front()));
        SettingsTest::SetUp();
        InstallTools(tools);
        Tree expected;
        std::vector<Text> expectedTabs;
        for (const Setting& setting : AllSettings())
        {
            const bool live = setting.IsLiveFor(tools);
            // What nobody's page would store, and a page could only spoil.
            Store(setting.key, setting.name,
                  live && setting.kind != Kind::Copy ? setting.changed : Binary({1, 2, 3}));
            expected[setting.key][setting.name] = live ? setting.changed : Binary({1, 2, 3});
            if (live && (expectedTabs.empty() || expectedTabs.back() != setting.tab))
            {
                expectedTabs.push_back(setting.tab);
            }
        }
        RunEditor([&](const Sheet& sheet) {
            EXPECT_EQ(sheet.Tabs(), expectedTabs);
            EXPECT_EQ(Form(sheet.Page()).Title(), tabs::General) << "in front";
            for (const Text& tab : sheet.Tabs())
            {
                ASSERT_TRUE(sheet.Select(tab));
                for (const Setting& setting : SettingsOf(tab))
                {
                    const bool live = setting.IsLiveFor(tools);
                    const StoredValue blank = setting.kind == Kind::Path ? Sz({}) : Dword(0);
                    setting.ExpectShown(sheet, live ? setting.changed : blank);
                    EXPECT_TRUE(setting.kind != Kind::Check || sheet.IsEnabled(setting.control) == live)
                        << Printable(setting.name);
                }
            }
            sheet.Ok();
        });
        EXPECT_EQ(StoredSettings(), expected);
    }
}

TEST_F(AllSettingsTest, EachPageReadsWhenItIsFirstShownAndWritesWhenItIsAppliedInOrder)
{
    StoreTree(TreeOf(AllSettings(), &Setting::initial));
    for (const Text& tab : AllTabs)
    {
        SCOPED_TRACE(Printable(tab));
        std::vector<Setting> read = SettingsOf(tab);
        std::erase_if(read, [](const Setting& setting) { return setting.kind == Kind::Copy; });
        // Here the last two come before the four that skip parts of the interrupt test.
        if (tab == tabs::Xhci)
        {
            std::rotate(read.end() - 6, read.end() - 2, read.end());
        }
        RunEditor([&](const Sheet& sheet) {
            calls::Reset();
            ASSERT_TRUE(sheet.Select(tab));
            EXPECT_EQ(PlacesCalled("RegQueryValueExW"), tab == tabs::General ? Places() : PlacesOf(read));
            EXPECT_EQ(PlacesCalled("RegSetValueExW"), Places());
            calls::Reset();
            sheet.Ok();
            EXPECT_EQ(PlacesCalled("RegQueryValueExW"), Places());
            EXPECT_EQ(PlacesCalled("RegSetValueExW"), PlacesOf(StoredWith(tab)));
            // Each key is opened for one value.
            EXPECT_EQ(calls::Made("RegSetValueExW").size() + (tab == tabs::Media ? 2 : 0),
                      calls::Made("RegCreateKeyExW").size());
            EXPECT_EQ(calls::OpenKeys(), 0U);
        });
    }
}

TEST(SettingsReferenceTest, ListsEachSetting)
{
    std::set<std::string> settings;
    for (const Setting& setting : AllSettings())
    {
        settings.insert(Printable(setting.key) + " `" + Printable(setting.name) + "` " +
                        CellsOf(setting.initial) + CellsOf(setting.tools));
    }
    std::string key;
    std::istringstream file(FileBeside(_T("settings.md")));
    for (std::string line; std::getline(file, line);)
    {
        // What stands before a row; name, type, default, meaning, control, tools; before the name the key,
        // where the page has several.
        std::array<std::string, 8> cells;
        std::istringstream text(line);
        for (std::string& cell : cells)
        {
            std::getline(text, cell, '|');
        }
        if (const size_t start = line.find("Key `"); start != std::string::npos)
        {
            key = line.substr(start + 5, line.size() - start - 6);
        }
        else if (cells[1].rfind(" `", 0) == 0)
        {
            if (cells[2].rfind(" `", 0) == 0)
            {
                key = cells[1].substr(2, cells[1].size() - 4);
                std::copy(cells.begin() + 2, cells.end(), cells.begin() + 1);
            }
            EXPECT_EQ(settings.erase(key + cells[1] + cells[2] + cells[3] + cells[6]), 1U) << line;
        }
    }
    EXPECT_EQ(settings, std::set<std::string>());
}
