// The whole editor while the system refuses it something: nothing crashes, no key stays open, and what can be
// stored is stored.
#include "headless.h"
#include "support/form.h"
#include "support/settings_test.h"
#include "support/tips.h"

#include <afxwin.h>
#include <commctrl.h>

namespace
{
class FaultsTest : public SettingsTest
{
protected:
    void SetUp() override
    {
        headless::ClearFaults();
        StartAfresh();
    }

    void TearDown() override
    {
        headless::ClearFaults();
        SettingsTest::TearDown();
    }

    // With nothing stored, so that what a save leaves out shows; but a missing identifier would be replaced
    // by a random one.
    static void StartAfresh()
    {
        ClearSettings();
        InstallTools(AllTools);
        Store(keys::Kauri, _T("RootHubUUID"), Binary(std::vector<BYTE>(16, 0x5A)));
    }
};

void OpenAllPages(const Sheet& sheet)
{
    for (const Text& tab : sheet.Tabs())
    {
        EXPECT_TRUE(sheet.Select(tab)) << Printable(tab);
    }
}

// Opens every page and stores all of them.
bool StoreAllPages()
{
    return TryRunEditor(
        [](Sheet& sheet)
        {
            OpenAllPages(sheet);
            sheet.Ok();
            EXPECT_FALSE(sheet.IsOpen());
        });
}

size_t CountValues(const Tree& tree)
{
    size_t count = 0;
    for (const auto& [key, values] : tree)
    {
        count += values.size();
    }
    return count;
}

// How many of the values do not stand in the other tree, or stand there with other data.
size_t CountMissing(const Tree& tree, const Tree& other)
{
    size_t missing = 0;
    for (const auto& [key, values] : tree)
    {
        const auto found = other.find(key);
        for (const auto& [name, value] : values)
        {
            missing +=
                found == other.end() || !found->second.contains(name) || !(found->second.at(name) == value);
        }
    }
    return missing;
}
}  // namespace

TEST_F(FaultsTest, EachRegistryCallInTurn)
{
    headless::ResetCallCounts();
    ASSERT_TRUE(StoreAllPages());
    const unsigned calls = headless::RegistryCallCount();
    const Tree whole = StoredSettings();
    ASSERT_GT(calls, 3U);
    ASSERT_GT(CountValues(whole), 2U);

    bool sawErrorBox = false;
    for (unsigned nth = 1; nth <= calls; ++nth)
    {
        SCOPED_TRACE(testing::Message() << "call " << nth);
        StartAfresh();
        headless::FailAnyRegistryCall(nth, ERROR_ACCESS_DENIED);
        const bool shown = StoreAllPages();
        headless::ClearFaults();
        sawErrorBox = sawErrorBox || !shown;
        EXPECT_EQ(headless::OpenKeyCount(), 0U);
        if (shown)
        {
            // One refused call costs one value at the most, or the ports of one table.
            EXPECT_LE(CountMissing(whole, StoredSettings()), 1U);
        }
        if (HasFailure())
        {
            break;
        }
    }
    EXPECT_TRUE(sawErrorBox);
}

TEST_F(FaultsTest, RegistryThatRefusesEveryWrite)
{
    const Tree before = StoredSettings();
    headless::FailCallsFrom("RegCreateKeyExW", 1, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(StoreAllPages());
    headless::ClearFaults();
    EXPECT_EQ(StoredSettings(), before);
    EXPECT_EQ(headless::OpenKeyCount(), 0U);

    headless::FailCallsFrom("RegSetValueExW", 1, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(StoreAllPages());
    headless::ClearFaults();
    EXPECT_EQ(CountValues(StoredSettings()), CountValues(before));
    EXPECT_EQ(headless::OpenKeyCount(), 0U);
}

TEST_F(FaultsTest, PagesWithoutTheTooltipsThatCannotBeMade)
{
    ASSERT_TRUE(StoreAllPages());
    const Tree whole = StoredSettings();
    StartAfresh();
    for (unsigned nth = 1; nth <= 20; ++nth)
    {
        headless::FailWindowClass(TOOLTIPS_CLASSW, nth, ERROR_NOT_ENOUGH_MEMORY);
    }
    EXPECT_TRUE(TryRunEditor(
        [](Sheet& sheet)
        {
            OpenAllPages(sheet);
            EXPECT_EQ(CountTipControls(), 0);
            // The page has its eye on mouse moves all the same.
            MSG move = {};
            move.hwnd = sheet.Page();
            move.message = WM_MOUSEMOVE;
            EXPECT_FALSE(CWnd::FromHandlePermanent(sheet.Page())->PreTranslateMessage(&move));
            sheet.Ok();
        }));
    EXPECT_EQ(StoredSettings(), whole);
}
