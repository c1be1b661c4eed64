// When a page loads, fills, adjusts, marks and saves.
#include "framework/SettingsPage.h"
#include "resource.h"
#include "shell/InstalledProducts.h"
#include "support/form.h"
#include "support/tips.h"

#include <prsht.h>

namespace {
using Steps = std::vector<std::string>;
Steps steps;

Steps TakeSteps() { return std::exchange(steps, {}); }

// A page over the template of General Settings that notes what it is asked for.
class NotedPage : public CSettingsPage {
public:
    explicit NotedPage(std::string name) : CSettingsPage(IDD_GENERAL_SETTINGS), m_name(std::move(name)) {}

    using CSettingsPage::AddProduct;
    using CSettingsPage::CheckModified;

    int number = 300;
    bool hasTip = true;
    bool marksItself = false;

protected:
    void DoDataExchange(CDataExchange* pDX) override {
        Note(pDX->m_bSaveAndValidate ? "to members" : "to controls");
        DDX_Text(pDX, IDC_DISPLAY_UPDATE_TIME, number);
    }
    void InitToolTips() override {
        Note("tips");
        if (hasTip) {
            AddToolTip(IDC_DISPLAY_UPDATE_TIME, _T("A tip"));
        }
    }
    void SaveSettings() override { Note("save"); }
    void LoadSettings() override {
        Note("load");
        number = 250;
    }
    void UpdateControlStates() override {
        Note("states");
        EXPECT_EQ(Form(m_hWnd).TextOf(IDC_DISPLAY_UPDATE_TIME), _T("250"));
        if (marksItself) {
            SetModified();
        }
    }

private:
    void Note(const std::string& step) const { steps.push_back(m_name + " " + step); }

    std::string m_name;
};

class LifecycleTest : public testing::Test {
protected:
    // A sheet of the two pages, with the script run while it waits.
    void RunSheet(const std::function<void(const Sheet&)>& script) {
        steps.clear();
        CPropertySheet sheet(_T("Noted"));
        sheet.AddPage(&first);
        sheet.AddPage(&second);
        WithDialog(
            _T("Noted"),
            [&script](const Form& form) {
                const Sheet shown(form.Window());
                script(shown);
                if (shown.IsOpen()) {
                    shown.Cancel();
                }
            },
            [&sheet] { sheet.DoModal(); });
    }
    static void Turn(const Sheet& sheet, WPARAM page) { SendMessageW(sheet.Window(), PSM_SETCURSEL, page, 0); }

    NotedPage first{"1"};
    NotedPage second{"2"};
};

int relayed;

LRESULT CALLBACK CountRelays(HWND tips, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    relayed += message == TTM_RELAYEVENT ? 1 : 0;
    return DefSubclassProc(tips, message, wParam, lParam);
}
}  // namespace

TEST_F(LifecycleTest, PageComesAliveAtFirstDisplayOnly) {
    RunSheet([](const Sheet& sheet) {
        EXPECT_EQ(TakeSteps(), (Steps{"1 load", "1 to controls", "1 states", "1 tips"}));
        Turn(sheet, 1);
        EXPECT_EQ(TakeSteps(), (Steps{"1 to members", "2 load", "2 to controls", "2 states", "2 tips"}));
        Turn(sheet, 0);
        EXPECT_EQ(TakeSteps(), (Steps{"2 to members", "1 to controls"})) << "loaded once only";
        sheet.Ok();
        EXPECT_EQ(TakeSteps(), (Steps{"1 to members", "1 save", "2 save"}));
    });
    EXPECT_EQ(TakeSteps(), Steps{});
}

TEST_F(LifecycleTest, PageThatWasNeverDisplayedTakesNoPart) {
    RunSheet([this](const Sheet& sheet) {
        TakeSteps();
        first.SetModified();
        sheet.Apply();
        // The sheet makes the page active again afterwards.
        EXPECT_EQ(TakeSteps(), (Steps{"1 to members", "1 save", "1 to controls"}));
        EXPECT_FALSE(sheet.CanApply());
        sheet.Cancel();
        EXPECT_EQ(TakeSteps(), Steps{});
    });
    EXPECT_EQ(second.number, 300);
}

TEST_F(LifecycleTest, MarkComparesWithTheMemberBeforeTheEvent) {
    RunSheet([this](const Sheet& sheet) {
        sheet.SetText(IDC_DISPLAY_UPDATE_TIME, _T("9"));
        first.CheckModified(first.number);
        EXPECT_EQ(first.number, 9);
        EXPECT_TRUE(sheet.CanApply());
        // Another page's mark counts as well, and each takes away its own only.
        Turn(sheet, 1);
        second.CheckModified(second.number);
        EXPECT_TRUE(sheet.CanApply());
        second.SetModified(TRUE);
        first.CheckModified(first.number);
        EXPECT_TRUE(sheet.CanApply());
        second.SetModified(FALSE);
        EXPECT_FALSE(sheet.CanApply());
        first.SetModified(TRUE);
        CString text(_T("same"));
        first.CheckModified(text);
        EXPECT_FALSE(sheet.CanApply());
    });
}

// The common control knows nothing of a page whose dialog is being made.
TEST_F(LifecycleTest, MarkOfAPageBeingCreatedStaysUntilItIsApplied) {
    first.marksItself = true;
    second.marksItself = true;
    RunSheet([this](const Sheet& sheet) {
        EXPECT_TRUE(sheet.CanApply());
        Turn(sheet, 1);
        first.SetModified(FALSE);
        EXPECT_TRUE(sheet.CanApply());
        second.SetModified(FALSE);
        EXPECT_FALSE(sheet.CanApply());
        first.SetModified(TRUE);
        sheet.Apply();
        Turn(sheet, 0);
        EXPECT_FALSE(sheet.CanApply());
    });
}

TEST_F(LifecycleTest, TipsWrapAndStayAndSeeWhatThePageGets) {
    second.hasTip = false;
    RunSheet([](const Sheet& sheet) {
        EXPECT_EQ(TipsOf(sheet.Page()), std::vector<int>{IDC_DISPLAY_UPDATE_TIME});
        EXPECT_EQ(TipText(sheet.Page(), IDC_DISPLAY_UPDATE_TIME), _T("A tip"));
        const HWND tips = TipControlOf(sheet.Page());
        EXPECT_EQ(SendMessageW(tips, TTM_GETMAXTIPWIDTH, 0, 0), 300);
        EXPECT_EQ(SendMessageW(tips, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0), 30000);
        SetWindowSubclass(tips, CountRelays, 0, 0);
        relayed = 0;
        MSG move = {};
        move.hwnd = sheet.Control(IDC_DISPLAY_UPDATE_TIME);
        move.message = WM_MOUSEMOVE;
        EXPECT_FALSE(CWnd::FromHandlePermanent(sheet.Page())->PreTranslateMessage(&move));
        EXPECT_EQ(relayed, 1);
        RemoveWindowSubclass(tips, CountRelays, 0);
        const int count = CountTipControls();
        Turn(sheet, 1);
        EXPECT_EQ(CountTipControls(), count + 1) << "made although nothing has a tip";
    });
}

TEST_F(LifecycleTest, PageIsShownForTheFirstInstalledOfItsTools) {
    InstalledProductMap = {};
    EXPECT_TRUE(first.ConcernsInstalledTool());
    first.AddProduct(BirchQB);
    EXPECT_FALSE(first.ConcernsInstalledTool());
    InstalledProductMap = {{BirchQB, 0}, {ElmQB, 1}};
    EXPECT_FALSE(first.ConcernsInstalledTool());
    first.AddProduct(ElmQB);
    EXPECT_TRUE(first.ConcernsInstalledTool());
}
