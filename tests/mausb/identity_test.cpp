// MAUSB Settings: the Container ID, which is made and stored when the page is first shown, and what is never
// shown.
#include "support/calls.h"
#include "support/marks.h"

#include <rpc.h>

namespace {
constexpr int IdContainer = 1130;
constexpr int IdNew = 1132;
constexpr int IdSizeLabel = 1148;
constexpr int IdSize = 1149;
constexpr int IdUseDefaultSize = 1150;

using Bytes = std::vector<BYTE>;
const Bytes SomeBytes = {0x78, 0x56, 0x34, 0x12, 0xBC, 0x9A, 0xF0, 0xDE,
                         0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC, 0xDE, 0xF0};
const Text SomeText = _T("{12345678-9ABC-DEF0-1234-56789ABCDEF0}");
const Text NilText = _T("{00000000-0000-0000-0000-000000000000}");

// The text of an identifier; each of its three numbers has its least byte first.
Text ShownAs(const Bytes& bytes) {
    Text text = _T("{");
    for (const int index : {3, 2, 1, 0, -1, 5, 4, -1, 7, 6, -1, 8, 9, -1, 10, 11, 12, 13, 14, 15}) {
        text += index < 0 ? Text(_T("-"))
                          : Text{_T("0123456789ABCDEF")[bytes.at(static_cast<size_t>(index)) / 16],
                                 _T("0123456789ABCDEF")[bytes.at(static_cast<size_t>(index)) % 16]};
    }
    return text + _T("}");
}

class IdentityTest : public SettingsTest {
protected:
    void SetUp() override {
        SettingsTest::SetUp();
        InstallTools({KauriQB});
    }

    static void StoreIdentifier(const StoredValue& value) { Store(keys::Kauri, _T("RootHubUUID"), value); }
    static StoredValue Identifier() { return Stored(keys::Kauri, _T("RootHubUUID")); }
};
}  // namespace

TEST_F(IdentityTest, FirstDisplayStoresANewIdentifierAlone) {
    RunOnTab(tabs::Identity, [](const Sheet& sheet) { EXPECT_FALSE(sheet.CanApply()); });
    const StoredValue made = Identifier();
    EXPECT_EQ(StoredSettings(), (Tree{{keys::Kauri, {{_T("RootHubUUID"), made}}}}));
    EXPECT_EQ(made.type, DWORD{REG_BINARY});
    ASSERT_EQ(made.data.size(), 16U);
    EXPECT_NE(made.data, Bytes(16, 0));
    RunOnTab(tabs::Identity, [&made](const Sheet& sheet) {
        EXPECT_EQ(sheet.TextOf(IdContainer), ShownAs(made.data));
        EXPECT_FALSE(sheet.IsEnabled(IdContainer));
        EXPECT_TRUE(sheet.IsShown(IdContainer));
        EXPECT_EQ(sheet.ItemsOf(1138), std::vector<Text>{_T("MAUSB 1.0a")});
    });
    EXPECT_EQ(Identifier(), made);
}

TEST_F(IdentityTest, IdentifierOfAnyTypeAndLength) {
    struct Case {
        StoredValue stored;
        Bytes taken;  // empty if it counts as none
    };
    Bytes longer = SomeBytes;
    longer.resize(20, 0xEE);
    const Case cases[] = {{Binary({0, 0, 0, 1}), {0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
                          {Binary(longer), SomeBytes},
                          {Sz(_T("{12")), {'{', 0, '1', 0, '2', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
                          {Binary({}), {}},
                          {Binary(Bytes(7, 0)), {}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.stored));
        StoreIdentifier(c.stored);
        RunOnTab(tabs::Identity, [&](const Sheet& sheet) {
            const StoredValue atDisplay = Identifier();
            EXPECT_EQ(atDisplay == c.stored, !c.taken.empty()) << "stored at once only for none";
            const Bytes& shown = c.taken.empty() ? atDisplay.data : c.taken;
            EXPECT_EQ(sheet.TextOf(IdContainer), ShownAs(shown));
            EXPECT_NE(shown, Bytes(16, 0));
            sheet.Ok();
            EXPECT_EQ(Identifier(), Binary(shown));
        });
    }
}

TEST_F(IdentityTest, NewIdentifierMarksThePageAndIsStoredByApplyOnly) {
    StoreIdentifier(Binary(SomeBytes));
    RunOnTab(tabs::Identity, [](const Sheet& sheet) {
        EXPECT_EQ(sheet.TextOf(IdContainer), SomeText);
        EXPECT_EQ(EventsOf(sheet, [&] { sheet.Click(IdNew); }), (Events{"1132 clicked", "1130 changed", "marked"}));
        const Text first = sheet.TextOf(IdContainer);
        EXPECT_NE(first, SomeText);
        EXPECT_EQ(Identifier(), Binary(SomeBytes));
        sheet.Apply();
        EXPECT_EQ(ShownAs(Identifier().data), first);
        sheet.Click(IdNew);
        EXPECT_NE(sheet.TextOf(IdContainer), first);
    });
    EXPECT_NE(Identifier(), Binary(SomeBytes));
}

TEST_F(IdentityTest, NoAddressLeavesNoneAtDisplayAndTheOldOneLater) {
    calls::Refuse("UuidCreate", 1, RPC_S_UUID_NO_ADDRESS, true);
    RunOnTab(tabs::Identity, [](const Sheet& sheet) {
        EXPECT_EQ(sheet.TextOf(IdContainer), NilText);
        EXPECT_EQ(StoredSettings(), (Tree{{keys::Kauri, {{_T("RootHubUUID"), Binary(Bytes(16, 0))}}}}));
        // Saving leaves it alone.
        StoreIdentifier(Binary({1}));
        sheet.Ok();
    });
    EXPECT_EQ(Identifier(), Binary({1}));
    StoreIdentifier(Binary(SomeBytes));
    RunOnTab(tabs::Identity, [](const Sheet& sheet) {
        EXPECT_EQ(EventsOf(sheet, [&] { sheet.Click(IdNew); }), Events{"1132 clicked"});
        EXPECT_EQ(sheet.TextOf(IdContainer), SomeText);
        sheet.Click(1133);
        sheet.Click(IdNew);
        EXPECT_TRUE(sheet.CanApply()) << "nor does it take away a mark";
    });
    // Any other status counts as an identifier: what came of it here is nil, which is not saved.
    calls::Refuse("UuidCreate", 1, RPC_S_UUID_LOCAL_ONLY, true);
    RunOnTab(tabs::Identity, [](const Sheet& sheet) {
        EXPECT_EQ(EventsOf(sheet, [&] { sheet.Click(IdNew); }), (Events{"1132 clicked", "1130 changed", "marked"}));
        EXPECT_EQ(sheet.TextOf(IdContainer), NilText);
        EXPECT_EQ(EventsOf(sheet, [&] { sheet.Click(IdNew); }), (Events{"1132 clicked", "1130 changed"}))
            << "the same again";
        sheet.Ok();
    });
    EXPECT_EQ(Identifier(), Binary(SomeBytes));
}

TEST_F(IdentityTest, AlignmentIsFourOrOneAndVersionTheListsText) {
    struct Case {
        StoredValue alignment;
        LPCTSTR version;
        DWORD saved;
    };
    for (const Case& c : {Case{Dword(0), _T("MAUSB 2.0"), 1}, Case{Dword(2), _T("mausb 1.0A"), 1},
                          Case{Dword(5), _T(""), 1}, Case{Binary({4}), _T("MAUSB 1.0"), 4}}) {
        SCOPED_TRACE(testing::PrintToString(c.alignment));
        StoreTree(
            {{keys::Kauri, {{_T("IsochPayloadAlignment"), c.alignment}, {_T("MAUSBProtocolVersion"), Sz(c.version)}}}});
        RunOnTab(tabs::Identity, [&c](const Sheet& sheet) {
            EXPECT_EQ(sheet.CheckOf(1123), c.saved == 1 ? BST_CHECKED : BST_UNCHECKED);
            EXPECT_EQ(sheet.SelectionOf(1138), 0);
            EXPECT_FALSE(sheet.CanApply());
            sheet.Click(1133);
            sheet.Pick(1138, 0);
            EXPECT_FALSE(sheet.CanApply()) << "the only entry, picked again";
            sheet.Ok();
        });
        EXPECT_EQ(Stored(keys::Kauri, _T("IsochPayloadAlignment")), Dword(c.saved));
        EXPECT_EQ(Stored(keys::Kauri, _T("MAUSBProtocolVersion")), Sz(_T("MAUSB 1.0a")));
    }
}

TEST_F(IdentityTest, TransferSizeFollowsItsSwitchAndIsNeverShown) {
    struct Case {
        DWORD stored;
        DWORD held;   // by the control, which the page reads while it comes up
        bool marked;  // for that is another number
    };
    for (const Case& c : {Case{0, 0, false}, Case{1, 1, false}, Case{2, 1, true}, Case{0xFFFFFFFF, 0, false}}) {
        SCOPED_TRACE(c.stored);
        StoreTree(
            {{keys::Kauri,
              {{_T("MaxUSBTransferSize"), Dword(0xFFFFFFFE)}, {_T("UseDefaultMaxUSBTransferSize"), Dword(c.stored)}}}});
        RunOnTab(tabs::Identity, [&c](const Sheet& sheet) {
            EXPECT_EQ(sheet.CanApply(), c.marked);
            EXPECT_EQ(sheet.TextOf(IdSize), _T("-2"));
            for (const int id : {IdSizeLabel, IdSize, IdUseDefaultSize}) {
                EXPECT_FALSE(sheet.IsShown(id)) << id;
                EXPECT_EQ(sheet.IsEnabled(id), c.held == 0 && id != IdUseDefaultSize) << id;
            }
            // What nobody sees works all the same.
            SendMessageW(sheet.Control(IdUseDefaultSize), BM_SETCHECK, 1 - c.held, 0);
            SendMessageW(sheet.Page(), WM_COMMAND, MAKEWPARAM(IdUseDefaultSize, BN_CLICKED),
                         reinterpret_cast<LPARAM>(sheet.Control(IdUseDefaultSize)));
            EXPECT_EQ(sheet.IsEnabled(IdSize), c.held != 0);
            EXPECT_EQ(sheet.IsEnabled(IdSizeLabel), c.held != 0);
            EXPECT_TRUE(sheet.CanApply());
            sheet.SetText(IdSize, _T("4096"));
            EXPECT_TRUE(sheet.CanApply());
            sheet.SetText(IdSize, _T("04096"));
            EXPECT_FALSE(sheet.CanApply());
            sheet.Ok();
        });
        EXPECT_EQ(Stored(keys::Kauri, _T("MaxUSBTransferSize")), Dword(4096));
        EXPECT_EQ(Stored(keys::Kauri, _T("UseDefaultMaxUSBTransferSize")), Dword(1 - c.held));
    }
}
