// MAUSB Settings while the system has no identifier to give.
#include "headless.h"
#include "support/tool_page.h"

#include <rpc.h>

namespace
{
constexpr LPCTSTR Identifier = _T("RootHubUUID");
constexpr int IdContainer = 1130;
constexpr int IdNew = 1132;
const Text NilText = _T("{00000000-0000-0000-0000-000000000000}");
constexpr DWORD OtherStatus = 1824;  // RPC_S_UUID_LOCAL_ONLY, say

class IdentityFaultTest : public ToolPageTest
{
protected:
    void SetUp() override
    {
        headless::ClearFaults();
        ToolPageTest::SetUp();
    }
    void TearDown() override
    {
        headless::ClearFaults();
        ToolPageTest::TearDown();
    }
    static void RemoveIdentifier()
    {
        const RegistryKey key(keys::Kauri, RegistryKey::Access::Write);
        EXPECT_EQ(RegDeleteValueW(key.Get(), Identifier), ERROR_SUCCESS);
    }
};

const StoredValue Nil = Binary(std::vector<BYTE>(16, 0));
const StoredValue Some = Binary(std::vector<BYTE>(16, 0x5A));
}  // namespace

TEST_F(IdentityFaultTest, NoAddressAtDisplayStoresNilOnceAndTriesAgainNextTime)
{
    headless::FailCall("UuidCreate", 1, RPC_S_UUID_NO_ADDRESS);
    RunOnTab(tabs::Identity,
             [](Sheet& sheet)
             {
                 EXPECT_EQ(sheet.TextOf(IdContainer), NilText);
                 EXPECT_FALSE(sheet.CanApply());
                 EXPECT_EQ(StoredByTool(), (Values{{Identifier, Nil}}));
                 // Saving leaves it alone.
                 RemoveIdentifier();
                 sheet.Ok();
                 EXPECT_EQ(StoredUnder(Identifier), Absent);
                 EXPECT_EQ(StoredByTool().size(), 6U);
             });
    StoreValue(Identifier, Nil);
    RunOnTab(tabs::Identity,
             [](Sheet& sheet)
             {
                 EXPECT_NE(sheet.TextOf(IdContainer), NilText);
                 EXPECT_FALSE(StoredUnder(Identifier) == Nil);
             });
}

TEST_F(IdentityFaultTest, NoAddressKeepsTheOldIdentifier)
{
    StoreValue(Identifier, Some);
    RunOnTab(tabs::Identity,
             [](Sheet& sheet)
             {
                 const Text before = sheet.TextOf(IdContainer);
                 headless::FailCall("UuidCreate", 1, RPC_S_UUID_NO_ADDRESS);
                 EventRecord record(sheet.Page());
                 sheet.Click(IdNew);
                 EXPECT_EQ(record.Take(), (PageEvents{"1132 clicked"}));
                 EXPECT_EQ(sheet.TextOf(IdContainer), before);
                 EXPECT_FALSE(sheet.CanApply());
                 // Nor does it take away a mark.
                 sheet.Click(1133);
                 headless::FailCall("UuidCreate", 1, RPC_S_UUID_NO_ADDRESS);
                 sheet.Click(IdNew);
                 EXPECT_TRUE(sheet.CanApply());
                 sheet.Ok();
             });
    EXPECT_EQ(StoredUnder(Identifier), Some);
}

TEST_F(IdentityFaultTest, AnyOtherStatusCountsAsAnIdentifier)
{
    // What came of it here is nil, which is shown and marks the page, but is not saved.
    StoreValue(Identifier, Some);
    RunOnTab(tabs::Identity,
             [](Sheet& sheet)
             {
                 headless::FailCall("UuidCreate", 1, OtherStatus);
                 EventRecord record(sheet.Page());
                 sheet.Click(IdNew);
                 EXPECT_EQ(record.Take(), (PageEvents{"1132 clicked", "1130 changed", "marked"}));
                 EXPECT_EQ(sheet.TextOf(IdContainer), NilText);
                 EXPECT_TRUE(sheet.CanApply());
                 // The same again is no change.
                 headless::FailCall("UuidCreate", 1, OtherStatus);
                 sheet.Click(IdNew);
                 EXPECT_EQ(record.Take(), (PageEvents{"1132 clicked", "1130 changed"}));
                 sheet.Ok();
             });
    EXPECT_EQ(StoredUnder(Identifier), Some);
}

TEST_F(IdentityFaultTest, RefusedWriteAtDisplayIsMadeUpForByOk)
{
    headless::FailCall("RegSetValueExW", 1, ERROR_ACCESS_DENIED);
    RunOnTab(tabs::Identity,
             [](Sheet& sheet)
             {
                 EXPECT_EQ(StoredUnder(Identifier), Absent);
                 EXPECT_NE(sheet.TextOf(IdContainer), NilText);
                 sheet.Ok();
             });
    EXPECT_EQ(StoredUnder(Identifier).data.size(), 16U);
}
