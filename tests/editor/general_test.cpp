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

class GeneralTest : public SettingsTest {
protected:
    void TearDown() override {
        AllowDiagnostic("");
        SettingsTest::TearDown();
    }
};
}  // namespace

TEST_F(GeneralTest, LogLevelIsBoundedAtLoadByWhatIsOffered) {
    std::vector<Text> levels = {_T("Quiet"), _T("Minimal"), _T("Low"), _T("Normal"), _T("Verbose"), _T("Diagnostic")};
    struct Case {
        const char* variable;
        DWORD stored;
        LRESULT shown;
        DWORD saved;
        size_t items;
    };
    for (const Case& c :
         {Case{"1", 5, 5, 5, 6}, Case{"no", 0x7FFFFFFF, 5, 5, 6}, Case{"false", 0xFFFFFFFF, -1, 0xFFFFFFFF, 6},
          Case{"", 5, 4, 4, 5}, Case{"0123", 6, 4, 4, 5}, Case{"", 0x80000001, -1, 0xFFFFFFFF, 5}}) {
        SCOPED_TRACE(testing::Message() << c.stored);
        AllowDiagnostic(c.variable);
        Store(keys::Bench, _T("QBLogVerbosity"), Dword(c.stored));
        levels.resize(c.items);
        // The variable is asked when the page is made, which is at start.
        RunEditor([&](const Sheet& sheet) {
            AllowDiagnostic(c.items == 6 ? "" : "1");
            EXPECT_EQ(sheet.ItemsOf(IdVerbosity), levels);
            EXPECT_EQ(sheet.SelectionOf(IdVerbosity), c.shown);
            EXPECT_FALSE(sheet.CanApply());
            sheet.Ok();
        });
        EXPECT_EQ(Stored(keys::Bench, _T("QBLogVerbosity")), Dword(c.saved));
    }
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
