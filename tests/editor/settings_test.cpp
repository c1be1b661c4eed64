// All settings of all pages: what their controls show and accept, and when and in which order the pages read
// and store them.
#include "support/calls.h"
#include "support/scripts.h"

#include <algorithm>

namespace
{
using Kind = Setting::Kind;
using Value = StoredValue Setting::*;

class AllSettingsTest : public SettingsTest
{
protected:
    void SetUp() override
    {
        SettingsTest::SetUp();
        StoreIdentifier();
    }

    // MAUSB Settings would make a new one.
    static void StoreIdentifier()
    {
        Store(keys::Kauri, _T("RootHubUUID"), Binary(std::vector<BYTE>(16, 0x5A)));
    }

    static void ExpectShown(const Sheet& sheet, Value value)
    {
        for (const Setting& setting : SettingsOf(Form(sheet.Page()).Title()))
        {
            setting.ExpectShown(sheet, setting.*value);
        }
    }

    static void ChangeAll(Value from, Value to, void (Sheet::*leave)() const)
    {
        const Editor sheet;
        for (const Text& tab : AllTabs())
        {
            SCOPED_TRACE(Printable(tab));
            ASSERT_TRUE(sheet.Select(tab));
            ExpectShown(sheet, from);
            for (const Setting& setting : SettingsOf(tab))
            {
                setting.Enter(sheet, setting.*to);
            }
        }
        (sheet.*leave)();
        EXPECT_FALSE(sheet.IsOpen());
    }
};

using Places = std::vector<std::pair<Text, Text>>;

// The keys and names of settings or calls. A value that follows itself counts once.
template <class Item>
Places PlacesOf(const std::vector<Item>& items)
{
    Places places;
    for (const Item& item : items)
    {
        places.emplace_back(item.key, item.name);
    }
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

void ExpectStored(const Tree& expected)
{
    for (const auto& [key, values] : expected)
    {
        for (const auto& [name, value] : values)
        {
            ASSERT_EQ(Stored(key, name), value)
                << Printable(key + _T("\\") + name)
                << " is not stored as entered: see SaveSettings, LoadSettings, DoDataExchange and, for a "
                << "list, UpdateControlStates; and its row in docs/settings.md";
        }
    }
    EXPECT_TRUE(StoredSettings() == expected) << "Roots in registry.cpp lacks a key of docs/settings.md, "
                                                 "or the editor stores values that are not there";
}

// The settings of this page and of General Settings, which opens first and so is always stored too.
std::vector<Setting> StoredWith(const Text& tab)
{
    std::vector<Setting> settings = AllSettings();
    std::erase_if(settings,
                  [&](const Setting& each) { return each.tab != tabs::General && each.tab != tab; });
    return settings;
}

// An edit without a number prompts at each exchange, and the sheet stays on the page.
void ExpectEmptyHolds(const Sheet& sheet, const Setting& number)
{
    const Text before = sheet.TextOf(number.id);
    EXPECT_EQ(CountPrompts([&] { sheet.Retype(number.id, {}); }), 1);
    EXPECT_FALSE(sheet.CanApply()) << "the member has not changed";
    EXPECT_EQ(CountPrompts([&] { sheet.Ok(); }), 1);
    EXPECT_TRUE(sheet.IsOpen());
    EXPECT_EQ(CountPrompts([&] { sheet.SelectIndex(number.tab == tabs::General ? 1 : 0); }), 1);
    EXPECT_EQ(Form(sheet.Page()).Title(), number.tab);
    EXPECT_EQ(GetFocus(), sheet.Control(number.id));
    sheet.SetText(number.id, before);
    EXPECT_FALSE(sheet.CanApply()) << "the member has kept that number";
}

// A change marks the page, and an event that does not change the value removes the mark.
void ExpectMarks(const Sheet& sheet, const Setting& setting)
{
    SCOPED_TRACE(Printable(setting.name));
    // The paths of Drivers & Firmware have no handler.
    const bool marks = setting.tab != tabs::Drivers || setting.kind != Kind::Line;
    setting.Enter(sheet, setting.changed);
    ASSERT_EQ(sheet.CanApply(), marks)
        << "the message map must have a handler of the change, which calls CheckModified";
    sheet.Apply();
    EXPECT_FALSE(sheet.CanApply());
    if (marks)
    {
        EXPECT_EQ(Stored(setting.key, setting.name), setting.changed);
        setting.Enter(sheet, setting.initial);
        EXPECT_TRUE(sheet.CanApply());
    }
    if (setting.kind == Kind::Check)
    {
        sheet.Click(setting.id);
        sheet.Click(setting.id);
        EXPECT_TRUE(sheet.CanApply()) << "each click changed it";
    }
    else if (setting.kind == Kind::Number || setting.kind == Kind::Hex)
    {
        sheet.TypeInFront(setting.id, _T("0"));
        EXPECT_FALSE(sheet.CanApply()) << "the same number";
    }
    else if (setting.kind != Kind::Line)
    {
        setting.Enter(sheet, setting.initial);
        EXPECT_FALSE(sheet.CanApply()) << "selected again";
    }
    sheet.Apply();
    if (setting.kind == Kind::Number && sheet.IsEnabled(setting.id))
    {
        ExpectEmptyHolds(sheet, setting);
    }
}
}  // namespace

TEST_F(AllSettingsTest, AllChangedAndOkThenBackAndOkThenChangedAndCancel)
{
    ChangeAll(&Setting::initial, &Setting::changed, &Sheet::Ok);
    ExpectStored(TreeOf(AllSettings(), &Setting::changed));
    ChangeAll(&Setting::changed, &Setting::initial, &Sheet::Ok);
    ExpectStored(TreeOf(AllSettings(), &Setting::initial));
    ChangeAll(&Setting::initial, &Setting::changed, &Sheet::Cancel);
    ExpectStored(TreeOf(AllSettings(), &Setting::initial));
}

TEST_F(AllSettingsTest, EachChangeMarksItsPageUnlessTheValueIsTheSame)
{
    for (const Text& tab : AllTabs())
    {
        const Editor sheet(tab);
        sheet.Apply();
        for (const Setting& setting : SettingsOf(tab))
        {
            if (setting.kind != Kind::Fixed)
            {
                ExpectMarks(sheet, setting);
            }
        }
    }
}

TEST_F(AllSettingsTest, EachToolHasItsPagesAndSettingsAndNoOthersAreTouched)
{
    std::vector<Tools> sets = {{KauriQB, HazelQB}, {AlderQB, FirQB}, {_T("OtherQB")}, {}};
    for (const ProductId& tool : AllTools)
    {
        sets.push_back({tool});
    }
    const StoredValue foreign = Binary({1, 2, 3});  // no page stores this
    for (const Tools& tools : sets)
    {
        SCOPED_TRACE(testing::PrintToString(tools));
        SettingsTest::SetUp();
        InstallTools(tools);
        Tree expected;
        std::vector<Text> expectedTabs;
        for (const Setting& setting : AllSettings())
        {
            const bool live = setting.IsLiveFor(tools);
            Store(setting.key, setting.name, live && setting.IsRead() ? setting.changed : foreign);
            expected[setting.key][setting.name] = live ? setting.changed : foreign;
            if (live && (expectedTabs.empty() || expectedTabs.back() != setting.tab))
            {
                expectedTabs.push_back(setting.tab);
            }
        }
        const Editor sheet;
        ASSERT_EQ(sheet.Tabs(), expectedTabs)
            << "the tools in a page's rows of docs/settings.md are not those that its constructor adds";
        EXPECT_EQ(Form(sheet.Page()).Title(), tabs::General);
        for (const Text& tab : expectedTabs)
        {
            ASSERT_TRUE(sheet.Select(tab));
            for (const Setting& setting : SettingsOf(tab))
            {
                const bool live = setting.IsLiveFor(tools);
                const StoredValue blank = setting.kind == Kind::Line ? Sz({}) : Dword(0);
                setting.ExpectShown(sheet, live ? setting.changed : blank);
                EXPECT_TRUE(setting.kind != Kind::Check || sheet.IsEnabled(setting.id) == live)
                    << Printable(setting.name);
            }
        }
        sheet.Ok();
        ExpectStored(expected);
    }
}

TEST_F(AllSettingsTest, EachPageReadsAtItsFirstDisplayAndStoresItsDefaultsAtOkBothInOrder)
{
    for (const Text& tab : AllTabs())
    {
        SCOPED_TRACE(Printable(tab));
        SettingsTest::SetUp();
        std::vector<Setting> read = SettingsOf(tab);
        // The port tables are empty.
        std::erase_if(read,
                      [](const Setting& each) { return !each.IsRead() || each.name == _T("PacketType"); });
        for (const Setting& setting : read)
        {
            Store(setting.key, {}, Absent);  // without the key there is no query
        }
        // This page reads its last two values before the four that skip parts of the interrupt test, and
        // stores them last.
        if (tab == tabs::Xhci)
        {
            std::rotate(read.end() - 6, read.end() - 2, read.end());
        }
        if (tab == tabs::Identity)
        {
            StoreIdentifier();
        }
        const Editor sheet;
        calls::Reset();
        ASSERT_TRUE(sheet.Select(tab));
        EXPECT_EQ(PlacesOf(calls::Made("RegQueryValueExW")), tab == tabs::General ? Places() : PlacesOf(read))
            << "LoadSettings must read in the order of the rows of docs/settings.md";
        EXPECT_EQ(PlacesOf(calls::Made("RegSetValueExW")), Places());
        ExpectShown(sheet, &Setting::initial);
        EXPECT_EQ(sheet.CanApply(), tab == tabs::Media)
            << "only this page marks itself when it sets its texts";
        calls::Reset();
        sheet.Ok();
        EXPECT_EQ(PlacesOf(calls::Made("RegQueryValueExW")), Places());
        EXPECT_EQ(PlacesOf(calls::Made("RegSetValueExW")), PlacesOf(StoredWith(tab)))
            << "SaveSettings must store in the order of the rows of docs/settings.md";
        // A page opens a key for each value. The keys of the two port tables have no values.
        EXPECT_EQ(calls::Made("RegSetValueExW").size() + (tab == tabs::Media ? 2 : 0),
                  calls::Made("RegCreateKeyExW").size());
        EXPECT_EQ(calls::OpenKeys(), 0U);
        ExpectStored(TreeOf(StoredWith(tab), &Setting::initial));
    }
}
