// MAUSB Settings: the Container ID, which the page makes and stores when it is first shown, and the hidden
// controls.
#include "resource.h"
#include "support/calls.h"
#include "support/scripts.h"

#include <rpc.h>

namespace
{
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
        const Editor sheet(tabs::Identity);
        EXPECT_FALSE(sheet.CanApply());
        return sheet.TextOf(IDC_CONTAINER_ID);
    }
};
}  // namespace

TEST_F(IdentityTest, MissingOrNilIdentifierIsMadeAndStoredAtOnce)
{
    for (const StoredValue& none : {Absent, Binary({}), Binary(Bytes(7, 0)), Binary(Bytes(16, 0))})
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

TEST_F(IdentityTest, IdentifierOfAnyTypeAndLengthIsShownAndStoredWithSixteenBytes)
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
        Editor(tabs::Identity).Ok();
        Bytes whole = stored.data;
        whole.resize(16);
        EXPECT_EQ(Identifier(), Binary(whole));
    }
}

TEST_F(IdentityTest, NewIdentifierMarksThePageAndIsStoredByApplyOnly)
{
    StoreIdentifier(Binary(SomeBytes));
    const Editor sheet(tabs::Identity);
    EXPECT_TRUE(sheet.IsShown(IDC_CONTAINER_ID) && !sheet.IsEnabled(IDC_CONTAINER_ID));
    EXPECT_EQ(EventsOf(sheet, [&] { sheet.Click(IDC_NEW_ID); }),
              (Events{"1132 clicked", "1130 changed", "marked"}));
    EXPECT_NE(sheet.TextOf(IDC_CONTAINER_ID), SomeText);
    EXPECT_EQ(Identifier(), Binary(SomeBytes));
    sheet.Apply();
    EXPECT_NE(Identifier(), Binary(SomeBytes));
}

TEST_F(IdentityTest, WithoutAnAddressThePageShowsNilOrKeepsTheOldIdentifier)
{
    calls::Refuse("UuidCreate", 1, RPC_S_UUID_NO_ADDRESS, true);
    {
        const Editor sheet(tabs::Identity);
        EXPECT_EQ(sheet.TextOf(IDC_CONTAINER_ID), NilText);
        EXPECT_EQ(StoredSettings(), (Tree{{keys::Kauri, {{_T("RootHubUUID"), Binary(Bytes(16, 0))}}}}));
        StoreIdentifier(Binary({1}));
        sheet.Ok();
        EXPECT_EQ(Identifier(), Binary({1})) << "OK does not store a nil identifier";
    }
    StoreIdentifier(Binary(SomeBytes));
    const Editor sheet(tabs::Identity);
    EXPECT_EQ(EventsOf(sheet, [&] { sheet.Click(IDC_NEW_ID); }), Events{"1132 clicked"});
    EXPECT_EQ(sheet.TextOf(IDC_CONTAINER_ID), SomeText);
    sheet.Ok();
    EXPECT_EQ(Identifier(), Binary(SomeBytes));
}

TEST_F(IdentityTest, AlignmentIsFourOrOneAndTheVersionIsTheTextInTheList)
{
    for (const auto& [alignment, version, stored] : {std::tuple{Dword(0), _T("MAUSB 2.0"), 1U},
                                                     {Dword(5), _T("mausb 1.0A"), 1},
                                                     {Binary({4}), _T("MAUSB 1.0"), 4}})
    {
        Store(keys::Kauri, _T("IsochPayloadAlignment"), alignment);
        Store(keys::Kauri, _T("MAUSBProtocolVersion"), Sz(version));
        const Editor sheet(tabs::Identity);
        EXPECT_EQ(sheet.CheckOf(IDC_ALIGNMENT_BYTE), stored == 1 ? BST_CHECKED : BST_UNCHECKED);
        EXPECT_EQ(sheet.ItemsOf(IDC_PROTOCOL_VERSION), std::vector<Text>{_T("MAUSB 1.0a")});
        EXPECT_EQ(sheet.SelectionOf(IDC_PROTOCOL_VERSION), 0);
        sheet.Click(IDC_REFUSE_SLEEP);
        sheet.Pick(IDC_PROTOCOL_VERSION, 0);
        EXPECT_FALSE(sheet.CanApply()) << "the only entry, selected again";
        sheet.Ok();
        EXPECT_EQ(Stored(keys::Kauri, _T("IsochPayloadAlignment")), Dword(stored));
        EXPECT_EQ(Stored(keys::Kauri, _T("MAUSBProtocolVersion")), Sz(_T("MAUSB 1.0a")));
    }
}

TEST_F(IdentityTest, TransferSizeIsNeverShownAndIsStoredAsItsControlsHoldIt)
{
    // The page reads its controls when it is created. If a check box cannot hold the number, this marks the
    // page.
    for (const auto& [stored, held] : {std::pair<DWORD, DWORD>{0, 0}, {1, 1}, {2, 1}, {0xFFFFFFFF, 0}})
    {
        Store(keys::Kauri, _T("MaxUSBTransferSize"), Dword(0xFFFFFFFE));
        Store(keys::Kauri, _T("UseDefaultMaxUSBTransferSize"), Dword(stored));
        const Editor sheet(tabs::Identity);
        EXPECT_EQ(sheet.CanApply(), stored == 2);
        for (const int id :
             {IDC_MAX_TRANSFER_SIZE_LABEL, IDC_MAX_TRANSFER_SIZE, IDC_USE_DEFAULT_MAX_TRANSFER_SIZE})
        {
            EXPECT_FALSE(sheet.IsShown(id)) << id;
            EXPECT_EQ(sheet.IsEnabled(id), held == 0 && id != IDC_USE_DEFAULT_MAX_TRANSFER_SIZE) << id;
        }
        sheet.Ok();
        EXPECT_EQ(Stored(keys::Kauri, _T("MaxUSBTransferSize")), Dword(0xFFFFFFFE));
        EXPECT_EQ(Stored(keys::Kauri, _T("UseDefaultMaxUSBTransferSize")), Dword(held));
    }
}
