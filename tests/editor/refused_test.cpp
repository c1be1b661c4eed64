// The editor while the system refuses a call: nothing crashes, no key stays open, and all that can be stored
// is stored.
#include "resource.h"
#include "support/calls.h"
#include "support/scripts.h"

#include <afxwin.h>
#include <commctrl.h>
#include <prsht.h>

namespace
{
class RefusedTest : public SettingsTest
{
protected:
    // With every setting changed, so that a lost one shows.
    void SetUp() override
    {
        SettingsTest::SetUp();
        StoreTree(TreeOf(AllSettings(), &Setting::changed));
    }

    // The page's settings that the registry has otherwise.
    static size_t CountLost(const Text& tab)
    {
        size_t lost = 0;
        for (const Setting& setting : SettingsOf(tab))
        {
            lost += Stored(setting.key, setting.name) == setting.changed ? 0 : 1;
        }
        EXPECT_EQ(calls::OpenKeys(), 0U);
        return lost;
    }

    // Applies the initial values' page while a call is refused. Whether one was.
    static bool ApplyRefused(const Sheet& sheet, const Text& tab, const char* function, unsigned call,
                             bool andLater = false)
    {
        StoreTree(TreeOf(SettingsOf(tab), &Setting::initial));
        calls::Refuse(function, call, ERROR_ACCESS_DENIED, andLater);
        SendMessageW(sheet.Window(), PSM_APPLY, 0, 0);
        const bool struck = calls::HasStruck();
        calls::Reset();
        return struck;
    }
};
}  // namespace

// A page that cannot read a value stores its default: at most one value is lost, or one with its copy.
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
            struck = calls::HasStruck() && tab != tabs::General;
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
                // A port table is emptied before its first port is refused.
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
    // To open, to count, two names and two values: without any of them there is no sheet.
    EXPECT_EQ(call, 7U);
    EXPECT_EQ(calls::OpenKeys(), 0U);
}

TEST_F(RefusedTest, TooltipsAndTheFileDialog)
{
    Store(keys::Kauri, _T("NetworkType"), Sz(_T("TCP/IP")));
    calls::Refuse(std::string("CreateWindowExW ") + Printable(TOOLTIPS_CLASSW), 1, ERROR_NOT_ENOUGH_MEMORY,
                  true);
    ForEachForm([](const Form& form, const Text&) {
        // The window relays mouse moves all the same.
        MSG move = {};
        move.hwnd = form.Page();
        move.message = WM_MOUSEMOVE;
        CWnd::FromHandlePermanent(form.Page())->PreTranslateMessage(&move);
        EXPECT_TRUE(calls::HasStruck());
        EXPECT_TRUE(TipsOf(form.Page()).empty());
    });
    const Editor sheet(tabs::Drivers);
    const Text before = sheet.TextOf(IDC_FIRMWARE_PATH);
    calls::Refuse("CoCreateInstance", 1, E_FAIL, true);
    sheet.Click(IDC_FIRMWARE_BROWSE);
    EXPECT_TRUE(calls::HasStruck());
    EXPECT_EQ(sheet.TextOf(IDC_FIRMWARE_PATH), before) << "as if it was cancelled";
}
