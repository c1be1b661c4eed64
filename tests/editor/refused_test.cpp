// The editor when a call of the system fails: it does not crash, closes its keys, and stores all other
// values.
#include "resource.h"
#include "support/calls.h"
#include "support/scripts.h"

#include <afxwin.h>
#include <prsht.h>

namespace
{
class RefusedTest : public SettingsTest
{
protected:
    // Every setting has a value other than its default, so that a loss is visible.
    void SetUp() override
    {
        SettingsTest::SetUp();
        StoreTree(TreeOf(AllSettings(), &Setting::changed));
    }

    // The number of the page's settings that are not stored as changed.
    static size_t CountLost(const Text& tab)
    {
        EXPECT_EQ(calls::OpenKeys(), 0U);
        std::vector<Setting> lost = SettingsOf(tab);
        std::erase_if(lost, [](const Setting& each) { return Stored(each.key, each.name) == each.changed; });
        return lost.size();
    }

    // Presses Apply on the page while a call is refused. Returns whether one was.
    static bool ApplyRefused(const Sheet& sheet, const Text& tab, const char* function, unsigned call,
                             bool andLater = false)
    {
        StoreTree(TreeOf(SettingsOf(tab), &Setting::initial));
        calls::Refuse(function, call, ERROR_ACCESS_DENIED, andLater);
        SendMessageW(sheet.Window(), PSM_APPLY, 0, 0);
        const bool struck = calls::hasRefused;
        calls::Reset();
        return struck;
    }
};
}  // namespace

// A page that cannot read a value stores the default. So one value is lost at most, or one and its copy.
TEST_F(RefusedTest, AnyReadOfAPage)
{
    for (const Text& tab : AllTabs())
    {
        bool struck = true;
        for (unsigned call = 1; struck; ++call)
        {
            SCOPED_TRACE(Printable(tab) + ' ' + std::to_string(call));
            StoreTree(TreeOf(SettingsOf(tab), &Setting::changed));
            const Editor sheet;
            calls::Refuse(calls::AnyOfTheRegistry, call);
            EXPECT_TRUE(sheet.Select(tab));
            struck = calls::hasRefused && tab != tabs::General;
            calls::Reset();
            sheet.Ok();
            EXPECT_LE(CountLost(tab), struck ? 2U : 0U);
        }
    }
}

TEST_F(RefusedTest, AnyWriteOfAPageAndAll)
{
    for (const Text& tab : AllTabs())
    {
        const Editor sheet(tab);
        bool struck = true;
        for (unsigned call = 1; struck; ++call)
        {
            SCOPED_TRACE(Printable(tab) + ' ' + std::to_string(call));
            struck = ApplyRefused(sheet, tab, calls::AnyOfTheRegistry, call);
            EXPECT_LE(CountLost(tab), struck ? 1U : 0U);
        }
        for (const char* function : {"RegCreateKeyExW", "RegSetValueExW"})
        {
            ApplyRefused(sheet, tab, function, 1, true);
            for (const Setting& setting : SettingsOf(tab))
            {
                // A port table is deleted before the call for its first port fails.
                const bool isGone =
                    setting.name == _T("PacketType") && function == std::string("RegSetValueExW");
                EXPECT_EQ(Stored(setting.key, setting.name), isGone ? Absent : setting.initial);
            }
        }
    }
}

TEST_F(RefusedTest, AnyReadOfTheInstalledTools)
{
    InstallTools({KauriQB, ElmQB});
    unsigned call = 0;
    do
    {
        calls::Refuse(calls::AnyOfTheRegistry, ++call);
    } while (!Editor().HasSheet());
    // Six calls open the key, count its values, and read two names and two values. The sheet needs them all.
    EXPECT_EQ(call, 7U);
    EXPECT_EQ(calls::OpenKeys(), 0U);
}

TEST_F(RefusedTest, TooltipsAndTheFileDialog)
{
    Store(keys::Kauri, _T("NetworkType"), Sz(_T("TCP/IP")));
    calls::Refuse("CreateWindowExW", 1, ERROR_NOT_ENOUGH_MEMORY, true);
    ForEachForm([](const Form& form, const Text&) {
        // The window relays mouse messages to the object in any case.
        MSG move = {};
        move.hwnd = form.Page();
        move.message = WM_MOUSEMOVE;
        CWnd::FromHandlePermanent(form.Page())->PreTranslateMessage(&move);
        EXPECT_TRUE(calls::hasRefused);
        EXPECT_TRUE(TipsOf(form.Page()).empty());
    });
    const Editor sheet(tabs::Drivers);
    const Text before = sheet.TextOf(IDC_FIRMWARE_PATH);
    calls::Refuse("CoCreateInstance", 1, E_FAIL, true);
    sheet.Click(IDC_FIRMWARE_BROWSE);
    EXPECT_TRUE(calls::hasRefused);
    EXPECT_EQ(sheet.TextOf(IDC_FIRMWARE_PATH), before) << "a failure counts as Cancel";
}
