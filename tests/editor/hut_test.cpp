// MAUSB HUT Params: what the Host Under Test does, a set of retries apart from that of the tool.
#include "support/tips.h"
#include "support/tool_page.h"

#include <algorithm>

namespace
{
const NumberField Fields[] = {{1160, _T("aBulkTransferRetriesHUT"), 5},
                              {1164, _T("aControlTransferRetriesHUT"), 5},
                              {1168, _T("aInterruptTransferRetriesHUT"), 3},
                              {1162, _T("aManagementRetriesHUT"), 4},
                              {1166, _T("aTransferSetupRetriesHUT"), 4}};
constexpr int IdSends = 1181;
constexpr LPCTSTR Sends = _T("SendsGetPortBWReq");

using HutTest = ToolPageTest;

Values Settings(const std::vector<DWORD>& retries, DWORD sends)
{
    Values values = {{Sends, Dword(sends)}};
    for (size_t field = 0; field < std::size(Fields); ++field)
    {
        values[Fields[field].name] = Dword(retries[field]);
    }
    return values;
}

std::vector<Text> ShownRetries(const Sheet& sheet)
{
    std::vector<Text> texts;
    for (const NumberField& field : Fields)
    {
        texts.push_back(sheet.TextOf(field.id));
    }
    return texts;
}

std::vector<Text> Texts(const std::vector<int>& numbers)
{
    std::vector<Text> texts(numbers.size());
    std::transform(numbers.begin(), numbers.end(), texts.begin(), Decimal);
    return texts;
}
}  // namespace

TEST_F(HutTest, ShowsDefaultsAndStoresThemAllOnOk)
{
    RunOnTab(tabs::HostUnderTest,
             [](Sheet& sheet)
             {
                 EXPECT_EQ(ShownRetries(sheet), Texts({5, 5, 3, 4, 4}));
                 EXPECT_EQ(sheet.CheckOf(IdSends), BST_UNCHECKED);
                 EXPECT_FALSE(sheet.CanApply());
                 EXPECT_FALSE(KeyExists(keys::Kauri));
                 sheet.Ok();
             });
    EXPECT_EQ(StoredByTool(), Settings({5, 5, 3, 4, 4}, 0));
}

TEST_F(HutTest, ShowsRewritesAndReplacesWhatIsStored)
{
    const Values stored = Settings({0, 0xFFFFFFFF, 12, 13, 0x80000000}, 1);
    Store(keys::Kauri, stored);
    RunOnTab(tabs::HostUnderTest,
             [&stored](Sheet& sheet)
             {
                 EXPECT_EQ(ShownRetries(sheet), Texts({0, -1, 12, 13, INT_MIN}));
                 EXPECT_EQ(sheet.CheckOf(IdSends), BST_CHECKED);
                 EXPECT_FALSE(sheet.CanApply());
                 int number = 21;
                 for (const NumberField& field : Fields)
                 {
                     sheet.Retype(field.id, Decimal(number++));
                     EXPECT_TRUE(sheet.CanApply());
                     sheet.TypeInFront(field.id, _T("0"));
                     EXPECT_FALSE(sheet.CanApply()) << "the same number";
                 }
                 sheet.Click(IdSends);
                 EXPECT_TRUE(sheet.CanApply());
                 EXPECT_EQ(StoredByTool(), stored);
                 sheet.Apply();
                 EXPECT_EQ(StoredByTool(), Settings({21, 22, 23, 24, 25}, 0));
                 // Back and forth: each click changes the member.
                 sheet.Click(IdSends);
                 sheet.Click(IdSends);
                 EXPECT_TRUE(sheet.CanApply());
             });
    EXPECT_EQ(StoredByTool(), Settings({21, 22, 23, 24, 25}, 0)) << "cancelled";
}

TEST_F(HutTest, EmptiedFieldPromptsAtEveryEventAndHoldsThePage)
{
    int prompts = 0;
    RunOnTab(tabs::HostUnderTest,
             [&prompts](Sheet& sheet)
             {
                 ExpectPrompt(&prompts);
                 sheet.Empty(1162);
                 ExpectPrompt(&prompts);
                 EXPECT_FALSE(sheet.Select(tabs::Protocol));
                 // The click reads all controls and comes to the empty one before its own.
                 ExpectPrompt(&prompts);
                 sheet.Click(IdSends);
                 EXPECT_EQ(prompts, 3);
                 EXPECT_FALSE(sheet.CanApply());
                 sheet.Retype(1162, _T("4"));
                 EXPECT_FALSE(sheet.CanApply()) << "the member has kept that number";
                 sheet.Ok();
             });
    EXPECT_EQ(StoredByTool(), Settings({5, 5, 3, 4, 4}, 1));
}

TEST_F(HutTest, TwoSetsOfRetriesAreIndependent)
{
    // The page that is not opened leaves its values alone, whatever their type.
    const Values odd = {{_T("aBulkTransferRetries"), Sz(_T("five"))},
                        {_T("aTransferSetupRetries"), Binary({1, 2, 3, 4, 5})}};
    Store(keys::Kauri, odd);
    RunOnTab(tabs::HostUnderTest,
             [](Sheet& sheet)
             {
                 sheet.Retype(1160, _T("77"));
                 sheet.Ok();
             });
    Values expected = Settings({77, 5, 3, 4, 4}, 0);
    expected.insert(odd.begin(), odd.end());
    EXPECT_EQ(StoredByTool(), expected);

    // With both open, an edit and a button of the other page concern only that page.
    RunOnTab(tabs::Protocol,
             [](Sheet& sheet)
             {
                 sheet.Retype(1106, _T("66"));
                 EXPECT_TRUE(sheet.Select(tabs::HostUnderTest));
                 EXPECT_EQ(ShownRetries(sheet), Texts({77, 5, 3, 4, 4}));
                 sheet.Retype(1160, _T("88"));
                 sheet.Apply();
                 EXPECT_EQ(StoredUnder(_T("aBulkTransferRetries")), Dword(66));
                 EXPECT_TRUE(sheet.Select(tabs::Protocol));
                 sheet.Click(1179);
                 sheet.Ok();
             });
    EXPECT_EQ(StoredUnder(_T("aBulkTransferRetries")), Dword(5));
    EXPECT_EQ(StoredUnder(_T("aBulkTransferRetriesHUT")), Dword(88));
}

TEST_F(HutTest, TabKeyGoesDownTheColumns)
{
    RunOnTab(tabs::HostUnderTest,
             [](Sheet& sheet) {
                 ExpectTabOrder(sheet, {1160, 1164, 1168, 1162, 1166, IdSends});
             });
}

TEST_F(HutTest, EveryEditAndTheCheckBoxHaveTheirTips)
{
    std::map<int, Text> expected = {
        {IdSends, _T("If checked, then the Host Under Test has the ability to send GetPortBWReq packets.")}};
    const std::map<int, LPCTSTR> kinds = {{1160, _T("bulk transfer")},
                                          {1164, _T("control transfer")},
                                          {1168, _T("interrupt transfer")},
                                          {1162, _T("management packet")},
                                          {1166, _T("transfer setup")}};
    for (const auto& [id, kind] : kinds)
    {
        expected[id] = Text(_T("The number of ")) + kind +
                       _T(" retries the Host Under Test will send.\n")
                       _T("See Table 71 of the MAUSB 1.0a specification.");
    }
    RunOnTab(tabs::HostUnderTest, [&expected](Sheet& sheet) { EXPECT_EQ(TipsOf(sheet.Page()), expected); });
}
