// A refused key is heard.
#include "framework/SuperEdit.h"

#include "headless.h"
#include "support/controls.h"

using SuperEditBeepTest = ControlTest;

TEST_F(SuperEditBeepTest, EachRefusedKeyBeepsOnce)
{
    CSuperEdit edit;
    const HWND window = Make(_T("EDIT"), ES_AUTOHSCROLL);
    edit.SubclassWindow(window);
    headless::ResetCallCounts();
    Type(window, _T("g"));
    edit.SetBase(16);
    Type(window, _T("0aF\b"));
    EXPECT_EQ(headless::CallCount("MessageBeep"), 0U);
    Type(window, _T("gG -"));
    EXPECT_EQ(headless::CallCount("MessageBeep"), 4U);
}
