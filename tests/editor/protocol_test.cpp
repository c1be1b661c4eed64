// MAUSB Protocol Settings: sixteen numbers, and three buttons that put a group of them back.
#include "support/tips.h"
#include "support/tool_page.h"

namespace
{
const NumberField Fields[] = {
    {1099, _T("aManagementResponseTime"), 5},      {1100, _T("aTransferResponseTime"), 10},
    {1087, _T("aDataChannelDelayTCP"), 100},       {1088, _T("aManagementChannelDelayTCP"), 100},
    {1089, _T("aMaxIsochLinkDelayTCP"), 100},      {1090, _T("aDataChannelDelayUDP"), 100},
    {1091, _T("aManagementChannelDelayUDP"), 100}, {1092, _T("aMaxIsochLinkDelayUDP"), 100},
    {1094, _T("aDataChannelDelaySNAP"), 25},       {1095, _T("aManagementChannelDelaySNAP"), 25},
    {1093, _T("aMaxIsochLinkDelaySNAP"), 25},      {1106, _T("aBulkTransferRetries"), 5},
    {1107, _T("aControlTransferRetries"), 5},      {1108, _T("aInterruptTransferRetries"), 3},
    {1111, _T("aManagementRetries"), 4},           {1112, _T("aTransferSetupRetries"), 4}};
constexpr size_t FieldCount = std::size(Fields);

// A button and its group: the fields from `first` up to `end`.
struct Button
{
    int id;
    size_t first;
    size_t end;

    bool Serves(size_t field) const { return field >= first && field < end; }
};
constexpr Button SetToDefault = {1177, 0, 2};
constexpr Button SetToSuggested = {1178, 2, 11};
constexpr Button SetToMinimum = {1179, 11, 16};
constexpr Button Buttons[] = {SetToDefault, SetToSuggested, SetToMinimum};

// What a button's click brings about: each edit of the group tells of its new text, and finds no difference.
PageEvents ClickEvents(const Button& button, bool marks)
{
    PageEvents events = {std::to_string(button.id) + " clicked"};
    for (size_t field = button.first; field < button.end; ++field)
    {
        events.push_back(std::to_string(Fields[field].id) + " changed");
        events.emplace_back("unmarked");
    }
    if (marks)
    {
        events.emplace_back("marked");
    }
    return events;
}

class ProtocolTest : public ToolPageTest
{
protected:
    using Numbers = std::vector<int>;

    static Numbers Initial()
    {
        Numbers numbers;
        for (const NumberField& field : Fields)
        {
            numbers.push_back(static_cast<int>(field.initial));
        }
        return numbers;
    }
    // No two alike, and none the initial one.
    static Numbers Distinct(int base)
    {
        Numbers numbers(FieldCount);
        for (size_t field = 0; field < FieldCount; ++field)
        {
            numbers[field] = base + static_cast<int>(field);
        }
        return numbers;
    }
    static Numbers Shown(const Sheet& sheet)
    {
        Numbers numbers;
        for (const NumberField& field : Fields)
        {
            numbers.push_back(static_cast<int>(_tcstol(sheet.TextOf(field.id).c_str(), nullptr, 10)));
            EXPECT_EQ(sheet.TextOf(field.id), Decimal(numbers.back()));
        }
        return numbers;
    }
    static Values AsStored(const Numbers& numbers)
    {
        Values values;
        for (size_t field = 0; field < FieldCount; ++field)
        {
            values[Fields[field].name] = Dword(static_cast<DWORD>(numbers[field]));
        }
        return values;
    }
};
}  // namespace

TEST_F(ProtocolTest, ShowsDefaultsAndStoresThemAllOnOk)
{
    RunOnTab(tabs::Protocol,
             [](Sheet& sheet)
             {
                 EXPECT_EQ(Shown(sheet), Initial());
                 EXPECT_FALSE(sheet.CanApply());
                 EXPECT_FALSE(KeyExists(keys::Kauri)) << "reading creates nothing";
                 sheet.Ok();
             });
    EXPECT_EQ(StoredByTool(), AsStored(Initial()));
}

TEST_F(ProtocolTest, ShowsAndRewritesWhatIsStored)
{
    Numbers numbers = Distinct(1000);
    numbers[0] = 0;
    numbers[3] = -1;
    numbers[10] = INT_MIN;
    numbers[15] = INT_MAX;
    Store(keys::Kauri, AsStored(numbers));
    RunOnTab(tabs::Protocol,
             [&numbers](Sheet& sheet)
             {
                 EXPECT_EQ(Shown(sheet), numbers);
                 EXPECT_FALSE(sheet.CanApply());
                 // Another program's change is not picked up, and is overwritten.
                 Store(keys::Kauri, AsStored(Initial()));
                 EXPECT_TRUE(sheet.Select(tabs::General));
                 EXPECT_TRUE(sheet.Select(tabs::Protocol));
                 EXPECT_EQ(Shown(sheet), numbers);
                 sheet.Ok();
             });
    EXPECT_EQ(StoredByTool(), AsStored(numbers));
}

TEST_F(ProtocolTest, OtherTypesAndLengthsBecomeNumbers)
{
    StoreValue(Fields[0].name, Binary({}));
    StoreValue(Fields[1].name, Sz(_T("7")));              // four bytes with its terminator
    StoreValue(Fields[2].name, Sz(_T("70")));             // six
    StoreValue(Fields[3].name, Binary({0x2C, 0x01}));     // the low half
    StoreValue(Fields[4].name, Binary({9, 0, 0, 0, 0}));  // one too many
    StoreValue(Fields[8].name, Binary({7}));              // the low byte of 25
    Numbers expected = Initial();
    expected[1] = _T('7');
    expected[3] = 300;
    expected[8] = 7;
    RunOnTab(tabs::Protocol,
             [&expected](Sheet& sheet)
             {
                 EXPECT_EQ(Shown(sheet), expected);
                 sheet.Ok();
             });
    EXPECT_EQ(StoredByTool(), AsStored(expected));
}

TEST_F(ProtocolTest, EachEditMarksAndStoresItsOwnNumber)
{
    const Numbers typed = Distinct(200);
    Store(keys::Kauri, AsStored(Initial()));
    RunOnTab(tabs::Protocol,
             [&typed](Sheet& sheet)
             {
                 for (size_t field = 0; field < FieldCount; ++field)
                 {
                     const int id = Fields[field].id;
                     SCOPED_TRACE(id);
                     sheet.Retype(id, Decimal(typed[field]));
                     EXPECT_TRUE(sheet.CanApply());
                     // The number is the same, and this event the last: the fields before it do not count.
                     sheet.TypeInFront(id, _T("0"));
                     EXPECT_FALSE(sheet.CanApply());
                 }
                 // A digit more and taken away again: two changes.
                 sheet.Type(1112, _T("1\b"));
                 EXPECT_TRUE(sheet.CanApply());
                 EXPECT_EQ(StoredByTool(), AsStored(Initial()));
                 sheet.Apply();
                 EXPECT_FALSE(sheet.CanApply());
                 EXPECT_EQ(StoredByTool(), AsStored(typed));
                 sheet.Retype(1099, _T("9999"));
             });
    EXPECT_EQ(StoredByTool(), AsStored(typed));
}

TEST_F(ProtocolTest, ButtonPutsItsGroupBackAndNoOther)
{
    const Numbers stored = Distinct(300);
    for (const Button& button : Buttons)
    {
        SCOPED_TRACE(button.id);
        Numbers expected = stored;
        for (size_t field = button.first; field < button.end; ++field)
        {
            expected[field] = static_cast<int>(Fields[field].initial);
        }
        Store(keys::Kauri, AsStored(stored));
        RunOnTab(tabs::Protocol,
                 [&](Sheet& sheet)
                 {
                     EventRecord record(sheet.Page());
                     sheet.Click(button.id);
                     EXPECT_EQ(record.Take(), ClickEvents(button, true));
                     EXPECT_TRUE(sheet.CanApply());
                     EXPECT_EQ(Shown(sheet), expected);
                     EXPECT_EQ(StoredByTool(), AsStored(stored));
                     // There is nothing left to change, and what was changed before does not count.
                     sheet.Click(button.id);
                     EXPECT_EQ(record.Take(), ClickEvents(button, false));
                     EXPECT_FALSE(sheet.CanApply());
                     EXPECT_EQ(Shown(sheet), expected);
                 });
        EXPECT_EQ(StoredByTool(), AsStored(stored)) << "cancelled";
        RunOnTab(tabs::Protocol,
                 [&button](Sheet& sheet)
                 {
                     sheet.Click(button.id);
                     sheet.Apply();
                     EXPECT_FALSE(sheet.CanApply());
                 });
        EXPECT_EQ(StoredByTool(), AsStored(expected));
    }
}

TEST_F(ProtocolTest, ButtonMarksForAnyOneFieldOfItsGroup)
{
    RunOnTab(tabs::Protocol,
             [](Sheet& sheet)
             {
                 EventRecord record(sheet.Page());
                 for (const Button& button : Buttons)
                 {
                     for (size_t field = 0; field < FieldCount; ++field)
                     {
                         SCOPED_TRACE(testing::Message() << button.id << ' ' << Fields[field].id);
                         sheet.Retype(Fields[field].id, _T("8"));
                         record.Take();
                         sheet.Click(button.id);
                         EXPECT_EQ(record.Take(), ClickEvents(button, button.Serves(field)));
                         EXPECT_EQ(sheet.CanApply(), button.Serves(field));
                         const auto initial = static_cast<int>(Fields[field].initial);
                         EXPECT_EQ(sheet.TextOf(Fields[field].id),
                                   Decimal(button.Serves(field) ? initial : 8));
                         sheet.Retype(Fields[field].id, Decimal(initial));
                     }
                 }
                 EXPECT_EQ(Shown(sheet), Initial());
             });
}

TEST_F(ProtocolTest, EmptiedFieldPromptsAtOnceAndHoldsThePage)
{
    int prompts = 0;
    RunOnTab(tabs::Protocol,
             [&prompts](Sheet& sheet)
             {
                 EventRecord record(sheet.Page());
                 ExpectPrompt(&prompts);
                 sheet.Empty(1091);
                 EXPECT_EQ(prompts, 1);
                 EXPECT_EQ(record.Take(), (PageEvents{"1091 changed", "unmarked"}));
                 EXPECT_EQ(GetFocus(), sheet.Control(1091));
                 ExpectPrompt(&prompts);
                 EXPECT_FALSE(sheet.Select(tabs::General));
                 ExpectPrompt(&prompts);
                 sheet.Ok();
                 EXPECT_EQ(prompts, 3);
                 EXPECT_TRUE(sheet.IsOpen());
                 EXPECT_FALSE(KeyExists(keys::Kauri));
                 // So does a number that is too great, at the digit that makes it so.
                 ExpectPrompt(&prompts);
                 sheet.Type(1091, _T("2147483648"));
                 EXPECT_EQ(prompts, 4);
                 // The prompt has left the text selected: the next digit replaces it.
                 sheet.Type(1091, _T("6"));
                 EXPECT_EQ(sheet.TextOf(1091), _T("6"));
                 sheet.Ok();
             });
    Numbers expected = Initial();
    expected[6] = 6;
    EXPECT_EQ(StoredByTool(), AsStored(expected));
}

TEST_F(ProtocolTest, ButtonFillsAnEmptiedField)
{
    int prompts = 0;
    RunOnTab(tabs::Protocol,
             [&prompts](Sheet& sheet)
             {
                 // The member has kept its number, which is the one that the button puts there.
                 ExpectPrompt(&prompts);
                 sheet.Empty(1099);
                 sheet.Click(1177);
                 EXPECT_EQ(prompts, 1);
                 EXPECT_EQ(Shown(sheet), Initial());
                 EXPECT_FALSE(sheet.CanApply());
                 // Each field that is filled before it reads all fields and stumbles over the empty one.
                 ExpectPrompt(&prompts);
                 sheet.Empty(1088);
                 ExpectPrompt(&prompts);
                 sheet.Click(1178);
                 EXPECT_EQ(prompts, 3);
                 EXPECT_EQ(Shown(sheet), Initial());
                 EXPECT_FALSE(sheet.CanApply());
                 EXPECT_TRUE(sheet.Select(tabs::General));
             });
}

TEST_F(ProtocolTest, TabKeyGoesDownTheColumns)
{
    RunOnTab(tabs::Protocol,
             [](Sheet& sheet)
             {
                 std::vector<int> ids;
                 for (const NumberField& field : Fields)
                 {
                     ids.push_back(field.id);
                 }
                 ids.insert(ids.end(), {1177, 1178, 1179});
                 ExpectTabOrder(sheet, ids);
             });
}

TEST_F(ProtocolTest, EveryEditAndButtonHasItsTip)
{
    const LPCTSTR tables[] = {_T("Table 70"), _T("Tables 70 and 73"), _T("Table 71")};
    const LPCTSTR kinds[] = {_T("values as"), _T("suggested values as"), _T("minimum values as")};
    std::map<int, Text> expected;
    for (size_t group = 0; group < std::size(Buttons); ++group)
    {
        const Text place = tables[group] + Text(_T(" of the MAUSB 1.0a specification"));
        for (size_t field = Buttons[group].first; field < Buttons[group].end; ++field)
        {
            expected[Fields[field].id] = _T("See ") + place;
        }
        expected[Buttons[group].id] = Text(_T("Reset to ")) + kinds[group] + _T(" defined in ") + place;
    }
    RunOnTab(tabs::Protocol, [&expected](Sheet& sheet) { EXPECT_EQ(TipsOf(sheet.Page()), expected); });
}
