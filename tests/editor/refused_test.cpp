// The editor while the system refuses it something: nothing crashes, no key stays open, and what can be
// stored is.
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

    // How many of the page's settings the registry has otherwise.
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
};
}  // namespace

// A page that could not read a value stores its default: at most one value is lost, or one with its copy.
TEST_F(RefusedTest, AnyReadOfAPage)
{
    for (const Text& tab : AllTabs)
    {
        bool struck = true;
        for (unsigned call = 1; struck; ++call)
        {
            SCOPED_TRACE(Printable(tab) + ' ' + std::to_string(call));
            StoreTree(TreeOf(SettingsOf(tab), &Setting::changed));
            RunEditor([&](const Sheet& sheet) {
                calls::Refuse(calls::AnyOfTheRegistry, call);
                EXPECT_TRUE(sheet.Select(tab));
                struck = calls::HasStruck() && tab != tabs::General;
                calls::Reset();
                sheet.Ok();
            });
            EXPECT_LE(CountLost(tab), struck ? 2U : 0U);
        }
    }
}

TEST_F(RefusedTest, AnyWriteOfAPageAndAll)
{
    for (const Text& tab : AllTabs)
    {
        RunOnTab(tab, [&tab](const Sheet& sheet) {
            // What Apply leaves while something is refused it, from the initial values on; whether
            // that came to pass.
            const auto apply = [&sheet, &tab](const char* function, unsigned call, bool andLater) {
                StoreTree(TreeOf(SettingsOf(tab), &Setting::initial));
                calls::Refuse(function, call, ERROR_ACCESS_DENIED, andLater);
                SendMessageW(sheet.Window(), PSM_APPLY, 0, 0);
                const bool struck = calls::HasStruck();
                calls::Reset();
                return struck;
            };
            bool struck = true;
            for (unsigned call = 1; struck; ++call)
            {
                SCOPED_TRACE(Printable(tab) + ' ' + std::to_string(call));
                struck = apply(calls::AnyOfTheRegistry, call, false);
                EXPECT_LE(CountLost(tab), struck ? 1U : 0U);
            }
            for (const char* function : {"RegCreateKeyExW", "RegSetValueExW"})
            {
                apply(function, 1, true);
                for (const Setting& setting : SettingsOf(tab))
                {
                    // A table of ports is emptied before its first port is refused.
                    const bool isGone =
                        setting.name == _T("PacketType") && function == std::string("RegSetValueExW");
                    EXPECT_EQ(Stored(setting.key, setting.name), isGone ? Absent : setting.initial);
                }
            }
        });
    }
}

TEST_F(RefusedTest, AnyReadOfTheInstalledTools)
{
    InstallTools({KauriQB, ElmQB});
    unsigned call = 0;
    do
    {
        calls::Refuse(calls::AnyOfTheRegistry, ++call);
    } while (!TryRunEditor([](Sheet&) {}));
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
        // The window has its eye on the mouse all the same.
        MSG move = {};
        move.hwnd = form.Page();
        move.message = WM_MOUSEMOVE;
        CWnd::FromHandlePermanent(form.Page())->PreTranslateMessage(&move);
        EXPECT_TRUE(calls::HasStruck());
        EXPECT_TRUE(TipsOf(form.Page()).empty());
        if (form.Page() == form.Window())
        {
            form.Click(IDOK);
        }
    });
    calls::Refuse("CoCreateInstance", 1, E_FAIL, true);
    RunOnTab(tabs::Drivers, [](const Sheet& sheet) {
        // As if it was cancelled.
        sheet.Click(1049);
        EXPECT_TRUE(calls::HasStruck());
        EXPECT_EQ(sheet.TextOf(1048), _T("F:\\fw\\"));
    });
}
