// The dialogs of MAUSB Media Settings where their tooltips cannot be made.
#include "headless.h"
#include "resource.h"
#include "support/tips.h"
#include "support/tool_page.h"

#include <afxwin.h>
#include <commctrl.h>

namespace
{
class DialogsTest : public ToolPageTest
{
protected:
    void TearDown() override
    {
        headless::ClearFaults();
        ToolPageTest::TearDown();
    }

    // Opens a dialog without tooltips, types into an edit of it and confirms it.
    static void Confirm(const Sheet& sheet, int button, const Text& title, int edit, LPCTSTR typed)
    {
        SCOPED_TRACE(Printable(title));
        const int tips = CountTipControls();
        headless::FailWindowClass(TOOLTIPS_CLASSW, 1, ERROR_NOT_ENOUGH_MEMORY);
        WhenOpened(title,
                   [&](Form& form)
                   {
                       EXPECT_EQ(CountTipControls(), tips);
                       // The dialog has its eye on mouse moves all the same.
                       MSG move = {};
                       move.hwnd = form.Control(edit);
                       move.message = WM_MOUSEMOVE;
                       EXPECT_NE(CWnd::FromHandlePermanent(form.Window()), nullptr);
                       CWnd::FromHandlePermanent(form.Window())->PreTranslateMessage(&move);
                       form.Retype(edit, typed);
                       form.Click(IDOK);
                   });
        sheet.Click(button);
        EndWaits();
        headless::ClearFaults();
    }
};
}  // namespace

TEST_F(DialogsTest, WorkWithoutTooltips)
{
    RunOnTab(tabs::Media,
             [](Sheet& sheet)
             {
                 Confirm(sheet, IDC_ADVANCED_TCP, titles::AdvancedTCP, IDC_TCP_SEND_DELAY, _T("7"));
                 Confirm(sheet, IDC_TCP_CLIENT_PORTS, titles::ClientPorts, IDC_PORT_EDIT_2, _T("80"));
                 sheet.Ok();
             });
    EXPECT_EQ(StoredUnder(_T("AdvancedTCP_SocketSendDelay")), Dword(7));
    EXPECT_EQ(StoredSubkeys(keys::ClientPorts), (std::vector<Text>{_T("80"), _T("9001")}));
}
