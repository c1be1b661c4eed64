// The editor while the system refuses it something: nothing crashes, no key stays open, and what can be
// stored is.
#include "support/calls.h"
#include "support/settings.h"
#include "support/tips.h"

#include <afxwin.h>
#include <commctrl.h>
#include <prsht.h>

namespace {
class RefusedTest : public SettingsTest {
protected:
    // With every setting changed, so that a lost one shows.
    void SetUp() override {
        SettingsTest::SetUp();
        InstallTools(AllTools);
        StoreTree(TreeOf(AllSettings(), &Setting::changed));
    }

    // How many of the page's settings the registry has otherwise.
    static size_t CountLost(const Text& tab) {
        size_t lost = 0;
        for (const Setting& setting : SettingsOf(tab)) {
            lost += Stored(setting.key, setting.name) == setting.changed ? 0 : 1;
        }
        return lost;
    }
};
}  // namespace

// A page that could not read a value stores its default: at most one value is lost, or one with its copy, or
// a whole table of ports.
TEST_F(RefusedTest, AnyReadOfAPage) {
    for (const Text& tab : AllTabs) {
        bool struck = true;
        for (unsigned call = 1; struck; ++call) {
            SCOPED_TRACE(Printable(tab) + ' ' + std::to_string(call));
            StoreTree(TreeOf(SettingsOf(tab), &Setting::changed));
            RunEditor([&](const Sheet& sheet) {
                calls::Reset();
                calls::Refuse(calls::AnyOfTheRegistry, call);
                EXPECT_TRUE(sheet.Select(tab));
                struck = calls::HasStruck() && tab != tabs::General;
                calls::Reset();
                sheet.Ok();
            });
            EXPECT_LE(CountLost(tab), struck ? 2U : 0U);
            ASSERT_EQ(calls::OpenKeys(), 0U);
        }
    }
}

TEST_F(RefusedTest, AnyWriteOfAPageAndAll) {
    for (const Text& tab : AllTabs) {
        RunOnTab(tab, [&tab](const Sheet& sheet) {
            bool struck = true;
            for (unsigned call = 1; struck; ++call) {
                SCOPED_TRACE(Printable(tab) + ' ' + std::to_string(call));
                StoreTree(TreeOf(SettingsOf(tab), &Setting::initial));
                calls::Reset();
                calls::Refuse(calls::AnyOfTheRegistry, call);
                SendMessageW(sheet.Window(), PSM_APPLY, 0, 0);
                struck = calls::HasStruck();
                calls::Reset();
                EXPECT_LE(CountLost(tab), struck ? 1U : 0U);
                ASSERT_EQ(calls::OpenKeys(), 0U);
            }
            for (const char* function : {"RegCreateKeyExW", "RegDeleteTreeW", "RegSetValueExW"}) {
                StoreTree(TreeOf(SettingsOf(tab), &Setting::initial));
                const Tree before = StoredSettings();
                calls::Refuse(function, 1, ERROR_ACCESS_DENIED, true);
                SendMessageW(sheet.Window(), PSM_APPLY, 0, 0);
                calls::Reset();
                // A table of ports is emptied before its first port is refused.
                EXPECT_EQ(StoredSettings() == before,
                          function == std::string("RegCreateKeyExW") ||
                              (function == std::string("RegSetValueExW") && tab != tabs::Media))
                    << function;
            }
        });
    }
}

TEST_F(RefusedTest, AnyReadOfTheInstalledTools) {
    InstallTools({KauriQB, ElmQB});
    unsigned call = 0;
    do {
        calls::Reset();
        calls::Refuse(calls::AnyOfTheRegistry, ++call);
    } while (!TryRunEditor([](Sheet&) {}));
    // To open, to count, two names and two values: without any of them there is no sheet.
    EXPECT_EQ(call, 7U);
    EXPECT_EQ(calls::OpenKeys(), 0U);
}

TEST_F(RefusedTest, TooltipsOfPagesAndDialogs) {
    calls::Refuse(std::string("CreateWindowExW ") + Printable(TOOLTIPS_CLASSW), 1, ERROR_NOT_ENOUGH_MEMORY, true);
    const auto moveMouse = [](const Form& form) {
        // The window has its eye on the mouse all the same.
        MSG move = {};
        move.hwnd = form.Page();
        move.message = WM_MOUSEMOVE;
        CWnd::FromHandlePermanent(form.Page())->PreTranslateMessage(&move);
        EXPECT_TRUE(TipsOf(form.Page()).empty());
    };
    RunEditor([&](const Sheet& sheet) {
        for (const Text& tab : AllTabs) {
            ASSERT_TRUE(sheet.Select(tab));
            moveMouse(sheet);
        }
        EXPECT_TRUE(calls::HasStruck());
        sheet.Select(tabs::Media);
        sheet.Click(1066);
        for (const auto& [button, title] : {std::pair{1139, titles::AdvancedTCP}, {1190, titles::ClientPorts}}) {
            WithDialog(
                title,
                [&](const Form& dialog) {
                    moveMouse(dialog);
                    dialog.Click(IDOK);
                },
                [&sheet, id = button] { sheet.Click(id); });
        }
        sheet.Ok();
    });
    EXPECT_EQ(StoredSettings()[keys::Bench], TreeOf(AllSettings(), &Setting::changed)[keys::Bench]);
}

TEST_F(RefusedTest, FileDialog) {
    calls::Refuse("CoCreateInstance", 1, E_FAIL, true);
    RunOnTab(tabs::Drivers, [](const Sheet& sheet) {
        // No file dialog: as if it was cancelled.
        sheet.Click(1049);
        EXPECT_TRUE(calls::HasStruck());
        EXPECT_EQ(sheet.TextOf(1048), _T("F:\\fw\\"));
    });
}
