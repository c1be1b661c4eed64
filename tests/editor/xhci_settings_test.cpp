// xHCI Settings: what its edits take.
#include "support/host_settings.h"

namespace
{
constexpr int IdDelay = 1012;
constexpr LPCTSTR Delay = _T("IsochDelayBeforeHSRead");
}  // namespace

using XhciSettingsTest = SettingsTest;

TEST_F(XhciSettingsTest, DelayAloneCanBeNegative)
{
    InstallTools({GinkgoQB});
    RunOnTab(tabs::Xhci,
             [](Sheet& sheet)
             {
                 for (const int edit : {1002, 1003, 1004, 1005})
                 {
                     sheet.Retype(edit, _T("-x7"));
                     EXPECT_EQ(sheet.TextOf(edit), _T("7")) << edit;
                 }
                 int prompts = 0;
                 ExpectPrompt(&prompts);
                 sheet.Retype(IdDelay, _T("-"));
                 EXPECT_EQ(prompts, 1) << "a minus sign alone is no number yet";
                 EXPECT_FALSE(sheet.CanApply());
                 // All is selected after the prompt.
                 sheet.Type(IdDelay, _T("250"));
                 sheet.TypeInFront(IdDelay, _T("-"));
                 EXPECT_EQ(sheet.TextOf(IdDelay), _T("-250"));
                 EXPECT_TRUE(sheet.CanApply());
                 sheet.Apply();
                 EXPECT_EQ(Stored(keys::TestServices, Delay), Dword(static_cast<DWORD>(-250)));
             });
    RunOnTab(tabs::Xhci,
             [](Sheet& sheet)
             {
                 EXPECT_EQ(sheet.TextOf(IdDelay), _T("-250"));
                 // What is no number keeps the page in front, and nothing is stored.
                 int prompts = 0;
                 ExpectPrompt(&prompts);
                 sheet.Type(IdDelay, _T("x"));
                 ExpectPrompt(&prompts);
                 sheet.Click(1013);
                 ExpectPrompt(&prompts);
                 EXPECT_FALSE(sheet.Select(tabs::Drivers));
                 ExpectPrompt(&prompts);
                 sheet.Ok();
                 EXPECT_EQ(prompts, 4);
                 EXPECT_TRUE(sheet.IsOpen());
             });
    EXPECT_EQ(Stored(keys::TestServices, _T("StopOnError")), Dword(0));
}
