// MAUSB Settings: the tool's version, alignment, sleep and its Container ID, which is made and stored when
// the page is first displayed.
#include "support/tips.h"
#include "support/tool_page.h"

#include <tuple>

namespace
{
constexpr int IdVersion = 1138;
constexpr int IdByte = 1123;
constexpr int IdDword = 1124;
constexpr int IdContainer = 1130;
constexpr int IdNew = 1132;
constexpr int IdRefuseSleep = 1133;
constexpr int IdLinkSleep = 1134;
constexpr int IdSizeLabel = 1148;
constexpr int IdSize = 1149;
constexpr int IdUseDefaultSize = 1150;

constexpr LPCTSTR Version = _T("MAUSBProtocolVersion");
constexpr LPCTSTR Alignment = _T("IsochPayloadAlignment");
constexpr LPCTSTR Identifier = _T("RootHubUUID");
constexpr LPCTSTR RefuseSleep = _T("RefuseSleepRequests");
constexpr LPCTSTR LinkSleep = _T("LinkSleepCapability");
constexpr LPCTSTR Size = _T("MaxUSBTransferSize");
constexpr LPCTSTR UseDefaultSize = _T("UseDefaultMaxUSBTransferSize");

using Bytes = std::vector<BYTE>;
const Bytes SomeBytes = {0x78, 0x56, 0x34, 0x12, 0xBC, 0x9A, 0xF0, 0xDE,
                         0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC, 0xDE, 0xF0};
constexpr LPCTSTR SomeText = _T("{12345678-9ABC-DEF0-1234-56789ABCDEF0}");

// The text of an identifier; each of its three numbers has its least byte first.
Text ShownAs(const Bytes& bytes)
{
    const int order[] = {3, 2, 1, 0, -1, 5, 4, -1, 7, 6, -1, 8, 9, -1, 10, 11, 12, 13, 14, 15};
    Text text = _T("{");
    for (const int index : order)
    {
        if (index < 0)
        {
            text += _T('-');
            continue;
        }
        const BYTE byte = bytes.at(static_cast<size_t>(index));
        text += _T("0123456789ABCDEF")[byte / 16];
        text += _T("0123456789ABCDEF")[byte % 16];
    }
    return text + _T("}");
}

class IdentityTest : public ToolPageTest
{
protected:
    // What an OK stores over an empty key.
    static Values Defaults(const StoredValue& identifier)
    {
        return {{Version, Sz(_T("MAUSB 1.0a"))}, {Alignment, Dword(1)}, {Identifier, identifier},
                {RefuseSleep, Dword(0)},         {LinkSleep, Dword(0)}, {Size, Dword(0)},
                {UseDefaultSize, Dword(1)}};
    }
    static int CheckedRadio(const Sheet& sheet)
    {
        EXPECT_NE(sheet.CheckOf(IdByte), sheet.CheckOf(IdDword));
        return sheet.CheckOf(IdDword) == BST_CHECKED ? IdDword : IdByte;
    }
    static void ClickAndExpect(const Sheet& sheet, int id, bool marked)
    {
        SCOPED_TRACE(id);
        sheet.Click(id);
        EXPECT_EQ(sheet.CanApply(), marked);
    }
};
}  // namespace

TEST_F(IdentityTest, FirstDisplayStoresANewIdentifierAlone)
{
    RunOnTab(tabs::Identity,
             [](Sheet& sheet)
             {
                 EXPECT_FALSE(sheet.CanApply());
                 sheet.Cancel();
             });
    const StoredValue made = StoredUnder(Identifier);
    EXPECT_EQ(StoredByTool(), (Values{{Identifier, made}}));
    EXPECT_EQ(made.type, DWORD{REG_BINARY});
    ASSERT_EQ(made.data.size(), 16U);
    EXPECT_NE(made.data, Bytes(16, 0));
    RunOnTab(tabs::Identity,
             [&made](Sheet& sheet)
             {
                 EXPECT_EQ(sheet.TextOf(IdContainer), ShownAs(made.data));
                 EXPECT_EQ(sheet.ItemsOf(IdVersion), std::vector<Text>{_T("MAUSB 1.0a")});
                 EXPECT_EQ(sheet.SelectionOf(IdVersion), 0);
                 EXPECT_EQ(CheckedRadio(sheet), IdByte);
                 EXPECT_EQ(sheet.CheckOf(IdRefuseSleep), BST_UNCHECKED);
                 EXPECT_EQ(sheet.CheckOf(IdLinkSleep), BST_UNCHECKED);
                 sheet.Ok();
             });
    EXPECT_EQ(StoredByTool(), Defaults(made));
}

TEST_F(IdentityTest, ShowsAndRewritesWhatIsStored)
{
    const Values stored = {{Version, Sz(_T("MAUSB 1.0a"))}, {Alignment, Dword(4)},
                           {Identifier, Binary(SomeBytes)}, {RefuseSleep, Dword(1)},
                           {LinkSleep, Dword(1)},           {Size, Dword(0xFFFFFFFF)},
                           {UseDefaultSize, Dword(0)}};
    Store(keys::Kauri, stored);
    RunOnTab(tabs::Identity,
             [](Sheet& sheet)
             {
                 EXPECT_FALSE(sheet.CanApply());
                 EXPECT_EQ(CheckedRadio(sheet), IdDword);
                 EXPECT_EQ(sheet.TextOf(IdContainer), SomeText);
                 EXPECT_EQ(sheet.CheckOf(IdRefuseSleep), BST_CHECKED);
                 EXPECT_EQ(sheet.CheckOf(IdLinkSleep), BST_CHECKED);
                 EXPECT_EQ(sheet.TextOf(IdSize), _T("-1"));
                 EXPECT_EQ(sheet.CheckOf(IdUseDefaultSize), BST_UNCHECKED);
                 sheet.Ok();
             });
    EXPECT_EQ(StoredByTool(), stored);
}

TEST_F(IdentityTest, TransferSizeIsEnabledByItsSwitchAndNeverShown)
{
    for (const DWORD useDefault : {0U, 1U})
    {
        SCOPED_TRACE(useDefault);
        StoreValue(Size, Dword(512));
        StoreValue(UseDefaultSize, Dword(useDefault));
        RunOnTab(tabs::Identity,
                 [useDefault](Sheet& sheet)
                 {
                     EXPECT_EQ(sheet.IsEnabled(IdSize), useDefault == 0);
                     EXPECT_EQ(sheet.IsEnabled(IdSizeLabel), useDefault == 0);
                     for (const int id : {IdSizeLabel, IdSize, IdUseDefaultSize})
                     {
                         EXPECT_FALSE(sheet.IsShown(id)) << id;
                     }
                     EXPECT_FALSE(sheet.IsEnabled(IdUseDefaultSize));
                     EXPECT_FALSE(sheet.IsEnabled(IdContainer));
                     EXPECT_TRUE(sheet.IsShown(IdContainer));
                     // What nobody sees follows its switch all the same.
                     const HWND page = sheet.Page();
                     const HWND box = sheet.Control(IdUseDefaultSize);
                     SendMessageW(box, BM_SETCHECK, useDefault == 0 ? BST_CHECKED : BST_UNCHECKED, 0);
                     SendMessageW(page, WM_COMMAND, MAKEWPARAM(IdUseDefaultSize, BN_CLICKED),
                                  reinterpret_cast<LPARAM>(box));
                     EXPECT_EQ(sheet.IsEnabled(IdSize), useDefault != 0);
                     EXPECT_EQ(sheet.IsEnabled(IdSizeLabel), useDefault != 0);
                     EXPECT_TRUE(sheet.CanApply());
                     SetWindowTextW(sheet.Control(IdSize), _T("4096"));
                     EXPECT_TRUE(sheet.CanApply());
                     sheet.Apply();
                     EXPECT_EQ(StoredUnder(Size), Dword(4096));
                     EXPECT_EQ(StoredUnder(UseDefaultSize), Dword(1 - useDefault));
                     SetWindowTextW(sheet.Control(IdSize), _T("04096"));
                     EXPECT_FALSE(sheet.CanApply());
                 });
    }
}

TEST_F(IdentityTest, IdentifierOfAnyTypeAndLength)
{
    struct Case
    {
        StoredValue stored;
        Bytes taken;  // empty if it counts as none
    };
    Bytes longer = SomeBytes;
    longer.resize(20, 0xEE);
    const Case cases[] = {{Binary({0, 0, 0, 1}), {0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
                          {Binary(longer), SomeBytes},
                          {Dword(5), {5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
                          {Sz(_T("{12")), {'{', 0, '1', 0, '2', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
                          {Binary({}), {}},
                          {Binary(Bytes(7, 0)), {}},
                          {Binary(Bytes(16, 0)), {}},
                          {Sz(_T("")), {}}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(testing::PrintToString(c.stored));
        StoreValue(Identifier, c.stored);
        StoredValue atDisplay;
        RunOnTab(tabs::Identity,
                 [&](Sheet& sheet)
                 {
                     atDisplay = StoredUnder(Identifier);
                     EXPECT_EQ(atDisplay == c.stored, !c.taken.empty()) << "stored at once only for none";
                     const Bytes& shown = c.taken.empty() ? atDisplay.data : c.taken;
                     EXPECT_EQ(sheet.TextOf(IdContainer), ShownAs(shown));
                     EXPECT_NE(shown, Bytes(16, 0));
                     EXPECT_FALSE(sheet.CanApply());
                     sheet.Ok();
                     EXPECT_EQ(StoredUnder(Identifier), Binary(shown));
                 });
    }
}

TEST_F(IdentityTest, NewIdentifierIsStoredByApplyOnly)
{
    StoreValue(Identifier, Binary(SomeBytes));
    RunOnTab(tabs::Identity,
             [](Sheet& sheet)
             {
                 ClickAndExpect(sheet, IdNew, true);
                 EXPECT_NE(sheet.TextOf(IdContainer), SomeText);
                 EXPECT_EQ(StoredUnder(Identifier), Binary(SomeBytes));
             });
    EXPECT_EQ(StoredByTool(), (Values{{Identifier, Binary(SomeBytes)}}));
    Text shown;
    RunOnTab(tabs::Identity,
             [&shown](Sheet& sheet)
             {
                 sheet.Click(IdNew);
                 const Text first = sheet.TextOf(IdContainer);
                 ClickAndExpect(sheet, IdNew, true);
                 shown = sheet.TextOf(IdContainer);
                 EXPECT_NE(shown, first);
                 sheet.Apply();
                 EXPECT_FALSE(sheet.CanApply());
             });
    EXPECT_EQ(ShownAs(StoredUnder(Identifier).data), shown);
    EXPECT_EQ(StoredByTool(), Defaults(StoredUnder(Identifier)));
}

TEST_F(IdentityTest, MarkIsThatOfTheLastEvent)
{
    StoreValue(Identifier, Binary(SomeBytes));
    RunOnTab(tabs::Identity,
             [](Sheet& sheet)
             {
                 ClickAndExpect(sheet, IdByte, false);
                 ClickAndExpect(sheet, IdDword, true);
                 ClickAndExpect(sheet, IdDword, false);
                 ClickAndExpect(sheet, IdRefuseSleep, true);
                 ClickAndExpect(sheet, IdRefuseSleep, true);
                 ClickAndExpect(sheet, IdLinkSleep, true);
                 // The list's only entry is picked again.
                 sheet.Pick(IdVersion, 0);
                 EXPECT_FALSE(sheet.CanApply());
                 sheet.Ok();
             });
    Values expected = Defaults(Binary(SomeBytes));
    expected[Alignment] = Dword(4);
    expected[LinkSleep] = Dword(1);
    EXPECT_EQ(StoredByTool(), expected);
}

TEST_F(IdentityTest, AlignmentIsFourOrOneAndVersionTheListsText)
{
    struct Case
    {
        StoredValue alignment;
        LPCTSTR version;
        DWORD saved;
    };
    for (const Case& c :
         {Case{Dword(0), _T("MAUSB 2.0"), 1}, Case{Dword(2), _T("mausb 1.0A"), 1},
          Case{Dword(0xFFFFFFFF), _T(""), 1}, Case{Dword(4), _T("MAUSB 1.0"), 4},
          // One byte replaces the low byte of 1; eight bytes are no number.
          Case{Binary({4}), _T("0"), 4}, Case{Binary({4, 0, 0, 0, 0, 0, 0, 0}), _T("MAUSB 1.0ab"), 1}})
    {
        SCOPED_TRACE(testing::PrintToString(c.alignment));
        StoreValue(Alignment, c.alignment);
        StoreValue(Version, Sz(c.version));
        RunOnTab(tabs::Identity,
                 [&c](Sheet& sheet)
                 {
                     EXPECT_EQ(CheckedRadio(sheet), c.saved == 4 ? IdDword : IdByte);
                     EXPECT_EQ(sheet.SelectionOf(IdVersion), 0);
                     EXPECT_FALSE(sheet.CanApply());
                     EXPECT_EQ(StoredUnder(Alignment), c.alignment);
                     sheet.Ok();
                 });
        EXPECT_EQ(StoredUnder(Alignment), Dword(c.saved));
        EXPECT_EQ(StoredUnder(Version), Sz(_T("MAUSB 1.0a")));
    }
}

TEST_F(IdentityTest, SwitchThatIsNeitherOnNorOffIsSavedAsTheControlHoldsIt)
{
    // The page reads its controls while it comes up: a number that the control has taken as another one marks
    // it.
    for (const auto& [stored, saved, marked] :
         {std::tuple<DWORD, DWORD, bool>{2, 1, true}, {3, 0, false}, {0xFFFFFFFF, 0, false}})
    {
        SCOPED_TRACE(stored);
        for (const LPCTSTR name : {UseDefaultSize, RefuseSleep, LinkSleep})
        {
            StoreValue(name, Dword(stored));
        }
        RunOnTab(tabs::Identity,
                 [saved = saved, marked = marked](Sheet& sheet)
                 {
                     EXPECT_EQ(sheet.CanApply(), marked);
                     EXPECT_EQ(sheet.IsEnabled(IdSize), saved == 0);
                     for (const int id : {IdUseDefaultSize, IdRefuseSleep, IdLinkSleep})
                     {
                         EXPECT_EQ(sheet.CheckOf(id), static_cast<LRESULT>(saved)) << id;
                     }
                     sheet.Ok();
                 });
        for (const LPCTSTR name : {UseDefaultSize, RefuseSleep, LinkSleep})
        {
            EXPECT_EQ(StoredUnder(name), Dword(saved)) << Printable(name);
        }
    }
}

TEST_F(IdentityTest, TabKeyStopsAtTheCheckedRadioButtonAndChangesNothing)
{
    for (const DWORD alignment : {1U, 4U})
    {
        SCOPED_TRACE(alignment);
        StoreValue(Alignment, Dword(alignment));
        RunOnTab(tabs::Identity,
                 [alignment](Sheet& sheet)
                 {
                     ExpectTabOrder(sheet, {IdVersion, alignment == 4 ? IdDword : IdByte, IdNew,
                                            IdRefuseSleep, IdLinkSleep});
                     EXPECT_FALSE(sheet.CanApply());
                     sheet.Ok();
                 });
        EXPECT_EQ(StoredUnder(Alignment), Dword(alignment));
    }
}

TEST_F(IdentityTest, TipsOfShownAndHiddenControls)
{
    const std::map<int, Text> expected = {
        {IdVersion,
         _T("Select the MAUSB Protocol for the MA USB device. Currently, only MAUSB Version 1.0a is ")
         _T("supported.")},
        {IdSize, _T("The size of the largest USB transfer that the Dock can handle.")},
        {IdByte,
         _T("If checked, then MA USB device transmits and expects to receive byte-aligned isochronous ")
         _T("payload.")},
        {IdDword,
         _T("If checked, then MA USB device transmits and expects to receive DWORD-aligned isochronous ")
         _T("payload.")},
        {IdNew, _T("Generate a new Container ID for the Dock, and for all integrated devices.")},
        {IdRefuseSleep, _T("If checked, then respond to every SleepReq with REQUEST_DENIED.")},
        {IdLinkSleep, _T("If checked, then MA USB device has Link Sleep capability.")},
        {IdUseDefaultSize,
         _T("If checked, then use the default value for Max USB Transfer Size. The Max USB Transfer Size ")
         _T("field ")
         _T("below is ignored.")}};
    RunOnTab(tabs::Identity, [&expected](Sheet& sheet) { EXPECT_EQ(TipsOf(sheet.Page()), expected); });
}
