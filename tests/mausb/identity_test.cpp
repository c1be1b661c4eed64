// MAUSB Settings: the Container ID, which is made and stored when the page is first shown, and what is never
// shown.
#include "support/calls.h"
#include "support/scripts.h"

#include <rpc.h>

namespace
{
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

class IdentityTest : public SettingsTest
{
protected:
    static void StoreIdentifier(const StoredValue& value) { Store(keys::Kauri, _T("RootHubUUID"), value); }
    static StoredValue Identifier() { return Stored(keys::Kauri, _T("RootHubUUID")); }
    static Text Shown()
    {
        Text shown;
        RunOnTab(tabs::Identity, [&shown](const Sheet& sheet) {
            shown = sheet.TextOf(IdContainer);
            EXPECT_FALSE(sheet.CanApply());
        });
        return shown;
    }
};
}  // namespace

TEST_F(IdentityTest, IdentifierThatIsMissingOrNilIsMadeAndStoredAtOnceAlone)
{
    for (const StoredValue& none : {Absent, Binary({}), Binary(Bytes(7, 0)), Binary(Bytes(16, 0)), Sz({})})
    {
        StoreIdentifier(none);
        const Text shown = Shown();
        EXPECT_NE(shown, NilText);
        const StoredValue made = Identifier();
        EXPECT_EQ(made.data.size(), 16U);
        EXPECT_EQ(StoredSettings(), (Tree{{keys::Kauri, {{_T("RootHubUUID"), Binary(made.data)}}}}));
        EXPECT_EQ(Shown(), shown);
        EXPECT_EQ(Identifier(), made) << "not made again";
    }
}

TEST_F(IdentityTest, IdentifierOfAnyTypeAndLengthIsShownAndStoredWhole)
{
    Bytes longer = SomeBytes;
    longer.resize(20, 0xEE);
    for (const auto& [stored, text] : {std::pair{Binary(SomeBytes), SomeText},
                                       {Binary(longer), SomeText},
                                       {Binary({0, 0, 0, 1}), _T("{01000000") + NilText.substr(9)},
                                       {Sz(_T("{12")), _T("{0031007B-0032-0000") + NilText.substr(19)}})
    {
        StoreIdentifier(stored);
        EXPECT_EQ(Shown(), text);
        EXPECT_EQ(Identifier(), stored);
        RunOnTab(tabs::Identity, [](const Sheet& sheet) { sheet.Ok(); });
        Bytes whole = stored.data;
        whole.resize(16);
        EXPECT_EQ(Identifier(), Binary(whole));
    }
}

TEST_F(IdentityTest, NewIdentifierMarksThePageAndIsStoredByApplyOnly)
{
    StoreIdentifier(Binary(SomeBytes));
    RunOnTab(tabs::Identity, [](const Sheet& sheet) {
        EXPECT_TRUE(sheet.IsShown(IdContainer) && !sheet.IsEnabled(IdContainer));
        EXPECT_EQ(EventsOf(sheet, [&] { sheet.Click(IdNew); }),
                  (Events{"1132 clicked", "1130 changed", "marked"}));
        EXPECT_NE(sheet.TextOf(IdContainer), SomeText);
        EXPECT_EQ(Identifier(), Binary(SomeBytes));
        sheet.Apply();
        EXPECT_NE(Identifier(), Binary(SomeBytes));
    });
}

TEST_F(IdentityTest, NoAddressLeavesNoneAtDisplayAndTheOldOneLater)
{
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
        // Any other status counts as an identifier: what came of it here is nil, which is not saved.
        calls::Refuse("UuidCreate", 1, RPC_S_UUID_LOCAL_ONLY, true);
        EXPECT_EQ(EventsOf(sheet, [&] { sheet.Click(IdNew); }),
                  (Events{"1132 clicked", "1130 changed", "marked"}));
        EXPECT_EQ(sheet.TextOf(IdContainer), NilText);
        EXPECT_EQ(EventsOf(sheet, [&] { sheet.Click(IdNew); }), (Events{"1132 clicked", "1130 changed"}))
            << "no change";
        sheet.Ok();
    });
    EXPECT_EQ(Identifier(), Binary(SomeBytes));
}

TEST_F(IdentityTest, AlignmentIsFourOrOneAndVersionTheListsText)
{
    for (const auto& [alignment, version, saved] : {std::tuple{Dword(0), _T("MAUSB 2.0"), 1U},
                                                    {Dword(5), _T("mausb 1.0A"), 1},
                                                    {Binary({4}), _T("MAUSB 1.0"), 4}})
    {
        StoreTree({{keys::Kauri,
                    {{_T("IsochPayloadAlignment"), alignment}, {_T("MAUSBProtocolVersion"), Sz(version)}}}});
        RunOnTab(tabs::Identity, [isByte = saved == 1](const Sheet& sheet) {
            EXPECT_EQ(sheet.CheckOf(1123), isByte ? BST_CHECKED : BST_UNCHECKED);
            EXPECT_EQ(sheet.ItemsOf(1138), std::vector<Text>{_T("MAUSB 1.0a")});
            EXPECT_EQ(sheet.SelectionOf(1138), 0);
            sheet.Click(1133);
            sheet.Pick(1138, 0);
            EXPECT_FALSE(sheet.CanApply()) << "the only entry, picked again";
            sheet.Ok();
        });
        EXPECT_EQ(Stored(keys::Kauri, _T("IsochPayloadAlignment")), Dword(saved));
        EXPECT_EQ(Stored(keys::Kauri, _T("MAUSBProtocolVersion")), Sz(_T("MAUSB 1.0a")));
    }
}

TEST_F(IdentityTest, TransferSizeFollowsItsSwitchAndIsNeverShown)
{
    // The page reads its controls while it comes up: a number that the control holds as another one marks it.
    for (const auto& [stored, held] : {std::pair<DWORD, DWORD>{0, 0}, {1, 1}, {2, 1}, {0xFFFFFFFF, 0}})
    {
        SCOPED_TRACE(stored);
        StoreTree({{keys::Kauri,
                    {{_T("MaxUSBTransferSize"), Dword(0xFFFFFFFE)},
                     {_T("UseDefaultMaxUSBTransferSize"), Dword(stored)}}}});
        RunOnTab(tabs::Identity, [marked = stored == 2, was = held](const Sheet& sheet) {
            EXPECT_EQ(sheet.CanApply(), marked);
            EXPECT_EQ(sheet.TextOf(IdSize), _T("-2"));
            for (const int id : {IdSizeLabel, IdSize, IdUseDefaultSize})
            {
                EXPECT_FALSE(sheet.IsShown(id)) << id;
                EXPECT_EQ(sheet.IsEnabled(id), was == 0 && id != IdUseDefaultSize) << id;
            }
            // What nobody sees works all the same.
            SendMessageW(sheet.Control(IdUseDefaultSize), BM_SETCHECK, 1 - was, 0);
            SendMessageW(sheet.Page(), WM_COMMAND, MAKEWPARAM(IdUseDefaultSize, BN_CLICKED),
                         reinterpret_cast<LPARAM>(sheet.Control(IdUseDefaultSize)));
            EXPECT_TRUE(sheet.IsEnabled(IdSize) == (was != 0) && sheet.IsEnabled(IdSizeLabel) == (was != 0));
            EXPECT_TRUE(sheet.CanApply());
            sheet.SetText(IdSize, _T("4096"));
            EXPECT_TRUE(sheet.CanApply());
            sheet.SetText(IdSize, _T("04096"));
            EXPECT_FALSE(sheet.CanApply());
            sheet.Ok();
        });
        EXPECT_EQ(Stored(keys::Kauri, _T("MaxUSBTransferSize")), Dword(4096));
        EXPECT_EQ(Stored(keys::Kauri, _T("UseDefaultMaxUSBTransferSize")), Dword(1 - held));
    }
}
