// When a page loads, fills, adjusts, marks and saves.
#include "framework/SettingsPage.h"
#include "resource.h"
#include "shell/InstalledProducts.h"
#include "support/form.h"
#include "support/tips.h"

#include <commctrl.h>
#include <gtest/gtest.h>

namespace
{
std::vector<std::string> steps;

// A page over the template of General Settings that notes what it is asked for.
class NotedPage : public CSettingsPage
{
public:
    explicit NotedPage(std::string name) : CSettingsPage(IDD_GENERAL_SETTINGS), m_name(std::move(name)) {}

    using CSettingsPage::AddProduct;
    using CSettingsPage::CheckModified;

    int number = 300;
    bool hasTip = true;
    bool marksItself = false;

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        Note(pDX->m_bSaveAndValidate ? "to members" : "to controls");
        DDX_Text(pDX, IDC_DISPLAY_UPDATE_TIME, number);
    }
    void InitToolTips() override
    {
        Note("tips");
        if (hasTip)
        {
            AddToolTip(IDC_DISPLAY_UPDATE_TIME, _T("A tip"));
        }
    }
    void SaveSettings() override { Note("save"); }
    void LoadSettings() override
    {
        Note("load");
        number = 250;
    }
    void UpdateControlStates() override
    {
        Note("states");
        EXPECT_EQ(Form(m_hWnd).TextOf(IDC_DISPLAY_UPDATE_TIME), _T("250"));
        if (marksItself)
        {
            SetModified();
        }
    }

private:
    void Note(const std::string& step) const { steps.push_back(m_name + " " + step); }

    std::string m_name;
};

std::vector<std::string> TakeSteps()
{
    return std::exchange(steps, {});
}

// A sheet of the two pages, with the script run while it waits.
void RunSheet(NotedPage& first, NotedPage& second, const std::function<void(Sheet&)>& script)
{
    steps.clear();
    CPropertySheet sheet(_T("Noted"));
    sheet.AddPage(&first);
    sheet.AddPage(&second);
    WhenOpened(_T("Noted"),
               [&script](Form& form)
               {
                   Sheet shown(form.Window());
                   script(shown);
                   if (shown.IsOpen())
                   {
                       shown.Cancel();
                   }
               });
    sheet.DoModal();
    EndWaits();
}

void Turn(const Sheet& sheet, WPARAM page)
{
    SendMessageW(sheet.Window(), PSM_SETCURSEL, page, 0);
}

WNDPROC tipProcedure;
int relayed;

LRESULT CALLBACK CountRelays(HWND tips, UINT message, WPARAM wParam, LPARAM lParam)
{
    relayed += message == TTM_RELAYEVENT ? 1 : 0;
    return CallWindowProcW(tipProcedure, tips, message, wParam, lParam);
}

using Steps = std::vector<std::string>;
}  // namespace

TEST(LifecycleTest, PageComesAliveAtFirstDisplayOnly)
{
    NotedPage first("1");
    NotedPage second("2");
    RunSheet(
        first, second,
        [](Sheet& sheet)
        {
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

TEST(LifecycleTest, PageThatWasNeverDisplayedTakesNoPart)
{
    NotedPage first("1");
    NotedPage second("2");
    RunSheet(first, second,
             [&first](Sheet& sheet)
             {
                 TakeSteps();
                 first.SetModified();
                 sheet.Apply();
                 // The sheet makes the page active again afterwards.
                 EXPECT_EQ(TakeSteps(), (Steps{"1 to members", "1 save", "1 to controls"}));
                 sheet.Cancel();
                 EXPECT_EQ(TakeSteps(), Steps{});
             });
    EXPECT_EQ(second.number, 300);
}

TEST(LifecycleTest, PageWithAnUnreadableNumberIsNeitherLeftNorApplied)
{
    NotedPage first("1");
    NotedPage second("2");
    RunSheet(first, second,
             [&](Sheet& sheet)
             {
                 sheet.Empty(IDC_DISPLAY_UPDATE_TIME);
                 TakeSteps();
                 int prompts = 0;
                 ExpectPrompt(&prompts);
                 Turn(sheet, 1);
                 ExpectPrompt(&prompts);
                 sheet.Ok();
                 EXPECT_EQ(prompts, 2);
                 EXPECT_EQ(TakeSteps(), (Steps{"1 to members", "1 to members"}));
                 EXPECT_TRUE(sheet.IsOpen());
                 EXPECT_EQ(first.number, 250);
             });
}

TEST(LifecycleTest, MarkComparesWithTheMemberBeforeTheEvent)
{
    NotedPage first("1");
    NotedPage second("2");
    RunSheet(first, second,
             [&](Sheet& sheet)
             {
                 const HWND edit = sheet.Control(IDC_DISPLAY_UPDATE_TIME);
                 SetWindowTextW(edit, _T("9"));
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
                 CString text(_T("same"));
                 first.SetModified(TRUE);
                 first.CheckModified(text);
                 EXPECT_FALSE(sheet.CanApply());
             });
}

// The common control knows nothing of a page whose dialog is being made.
TEST(LifecycleTest, MarkOfAPageBeingCreatedStays)
{
    NotedPage first("1");
    NotedPage second("2");
    first.marksItself = true;
    second.marksItself = true;
    RunSheet(first, second,
             [&](Sheet& sheet)
             {
                 EXPECT_TRUE(sheet.CanApply());
                 Turn(sheet, 1);
                 first.SetModified(FALSE);
                 EXPECT_TRUE(sheet.CanApply());
                 second.SetModified(FALSE);
                 EXPECT_FALSE(sheet.CanApply());
                 // Once applied, a mark does not come back with its page.
                 first.SetModified(TRUE);
                 sheet.Apply();
                 Turn(sheet, 0);
                 EXPECT_FALSE(sheet.CanApply());
             });
}

TEST(LifecycleTest, TipsWrapAndStayAndSeeWhatThePageGets)
{
    NotedPage first("1");
    NotedPage second("2");
    second.hasTip = false;
    RunSheet(
        first, second,
        [](Sheet& sheet)
        {
            EXPECT_EQ(TipsOf(sheet.Page()), (std::map<int, Text>{{IDC_DISPLAY_UPDATE_TIME, _T("A tip")}}));
            const HWND tips = TipControlOf(sheet.Page());
            ASSERT_NE(tips, nullptr);
            EXPECT_EQ(SendMessageW(tips, TTM_GETMAXTIPWIDTH, 0, 0), 300);
            EXPECT_EQ(SendMessageW(tips, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0), 30000);
            tipProcedure = reinterpret_cast<WNDPROC>(
                SetWindowLongPtrW(tips, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountRelays)));
            relayed = 0;
            MSG move = {};
            move.hwnd = sheet.Control(IDC_DISPLAY_UPDATE_TIME);
            move.message = WM_MOUSEMOVE;
            EXPECT_FALSE(CWnd::FromHandlePermanent(sheet.Page())->PreTranslateMessage(&move));
            EXPECT_EQ(relayed, 1);
            SetWindowLongPtrW(tips, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(tipProcedure));
            const int count = CountTipControls();
            Turn(sheet, 1);
            EXPECT_EQ(CountTipControls(), count + 1) << "made although nothing has a tip";
        });
}

TEST(LifecycleTest, PageIsShownForTheFirstInstalledOfItsTools)
{
    NotedPage page("1");
    InstalledProductMap = {};
    EXPECT_TRUE(page.ConcernsInstalledTool());
    page.AddProduct(BirchQB);
    EXPECT_FALSE(page.ConcernsInstalledTool());
    InstalledProductMap = {{BirchQB, 0}, {ElmQB, 1}};
    EXPECT_FALSE(page.ConcernsInstalledTool());
    page.AddProduct(ElmQB);
    EXPECT_TRUE(page.ConcernsInstalledTool());
}
