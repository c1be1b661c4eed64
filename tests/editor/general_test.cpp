// General Settings: the levels of the log that are offered, and Apply.
#include "support/scripts.h"

#include <cstdlib>

namespace {
constexpr int IdMode = 1006;
constexpr int IdVerbosity = 1053;

// The program asks its C library, which has its own list.
void AllowDiagnostic(const char* value) {
    static std::string variable;
    variable = std::string("QB_ALLOW_DIAGNOSTIC_LOGGING=") + value;
    putenv(variable.data());
}

using GeneralTest = SettingsTest;
}  // namespace

TEST_F(GeneralTest, LogLevelIsBoundedAtLoadByWhatIsOffered) {
    std::vector<Text> levels = {_T("Quiet"), _T("Minimal"), _T("Low"), _T("Normal"), _T("Verbose"), _T("Diagnostic")};
    // What is shown, -1 for none, is saved.
    const std::tuple<const char*, size_t, DWORD, int> cases[] = {
        {"1", 6, 5, 5}, {"no", 6, 0x7FFFFFFF, 5}, {"false", 6, 0xFFFFFFFF, -1},
        {"", 5, 5, 4},  {"0123", 5, 6, 4},        {"", 5, 0x80000001, -1}};
    for (const auto& [variable, items, stored, shown] : cases) {
        AllowDiagnostic(variable);
        Store(keys::Bench, _T("QBLogVerbosity"), Dword(stored));
        levels.resize(items);
        // The variable is asked when the page is made, which is at start.
        RunEditor([&levels, level = shown, wasSix = items == 6](const Sheet& sheet) {
            AllowDiagnostic(wasSix ? "" : "1");
            EXPECT_EQ(sheet.ItemsOf(IdVerbosity), levels);
            EXPECT_EQ(sheet.SelectionOf(IdVerbosity), level);
            EXPECT_FALSE(sheet.CanApply());
            sheet.Ok();
        });
        EXPECT_EQ(Stored(keys::Bench, _T("QBLogVerbosity")), Dword(static_cast<DWORD>(shown)));
    }
    AllowDiagnostic("");
}

TEST_F(GeneralTest, ApplyHandsTheFocusOnAndCancelDropsWhatComesLater) {
    RunEditor([](const Sheet& sheet) {
        EXPECT_EQ(sheet.Title(), SheetTitle);
        EXPECT_EQ(GetFocus(), sheet.Control(IdMode));
        sheet.Click(IdMode);
        EXPECT_FALSE(KeyExists(keys::Bench));
        SetFocus(sheet.ApplyButton());
        sheet.Apply();
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDOK) << "the button that was clicked takes no keys now";
        sheet.Click(IdMode);
    });
    EXPECT_EQ(Stored(keys::Bench, _T("CertificationMode")), Dword(1));
}
