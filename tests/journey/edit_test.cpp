// Edits in the real program, and what is in the registry after Apply, OK and Cancel.
#include "driver/editor.h"
#include "resource.h"
#include "support/settings_test.h"

namespace
{
Values BenchValues(DWORD mode, DWORD level, DWORD updateTime)
{
    return {{L"CertificationMode", Dword(mode)},
            {L"QBLogVerbosity", Dword(level)},
            {L"QBMinimumDisplayUpdateTime", Dword(updateTime)}};
}

class EditJourney : public SettingsTest
{
protected:
    void SetUp() override
    {
        SettingsTest::SetUp();
        InstallTools({});
    }
};
}  // namespace

TEST_F(EditJourney, ApplyStoresAndTheNextStartShows)
{
    {
        const EditorProcess editor;
        const EditorSheet sheet = editor.WaitForSheet();
        sheet.Click(IDC_CERTIFICATION_MODE);
        sheet.MoveSelection(IDC_LOG_VERBOSITY, -2);
        sheet.Retype(IDC_DISPLAY_UPDATE_TIME, L"1500");
        EXPECT_TRUE(sheet.CanApply());
        EXPECT_FALSE(KeyExists(keys::Bench));
        sheet.Apply();
        EXPECT_FALSE(sheet.CanApply());
        EXPECT_EQ(StoredValues(keys::Bench), BenchValues(1, 1, 1500));
        // What is edited after Apply goes with Cancel.
        sheet.Retype(IDC_DISPLAY_UPDATE_TIME, L"7");
        EXPECT_TRUE(sheet.Cancel());
        EXPECT_TRUE(editor.WaitForEnd());
        EXPECT_EQ(StoredValues(keys::Bench), BenchValues(1, 1, 1500));
    }
    const EditorProcess again;
    const EditorSheet sheet = again.WaitForSheet();
    EXPECT_TRUE(sheet.IsChecked(IDC_CERTIFICATION_MODE));
    EXPECT_EQ(sheet.SelectionOf(IDC_LOG_VERBOSITY), 1);
    EXPECT_EQ(sheet.TextOf(IDC_DISPLAY_UPDATE_TIME), L"1500");
    EXPECT_FALSE(sheet.CanApply());
    // OK stores without a mark, and after an edit without Apply.
    sheet.Retype(IDC_DISPLAY_UPDATE_TIME, L"20");
    EXPECT_TRUE(sheet.Ok());
    EXPECT_TRUE(again.WaitForEnd());
    EXPECT_EQ(StoredValues(keys::Bench), BenchValues(1, 1, 20));
}

TEST_F(EditJourney, OkStoresDefaultsAndClosingStoresNothing)
{
    {
        const EditorProcess closed;
        const EditorSheet sheet = closed.WaitForSheet();
        sheet.Click(IDC_CERTIFICATION_MODE);
        PostMessageW(sheet.Window(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(closed.WaitForEnd());
        EXPECT_FALSE(KeyExists(keys::Bench));
    }
    const EditorProcess confirmed;
    EXPECT_TRUE(confirmed.WaitForSheet().Ok());
    EXPECT_TRUE(confirmed.WaitForEnd());
    EXPECT_EQ(StoredValues(keys::Bench), BenchValues(0, 3, 300));
}

TEST_F(EditJourney, DiagnosticLevelIsOfferedWhenTheEnvironmentAllowsIt)
{
    Store(keys::Bench, L"QBLogVerbosity", Dword(5));
    for (const LPCWSTR allowed : {L"1", L"0", LPCWSTR{nullptr}})
    {
        SetEnvironmentVariableW(L"QB_ALLOW_DIAGNOSTIC_LOGGING", allowed);
        const EditorProcess editor;
        const EditorSheet sheet = editor.WaitForSheet();
        EXPECT_EQ(sheet.SelectionOf(IDC_LOG_VERBOSITY), allowed != nullptr && *allowed == L'1' ? 5 : 4);
        EXPECT_TRUE(sheet.Cancel());
        EXPECT_TRUE(editor.WaitForEnd());
    }
}
