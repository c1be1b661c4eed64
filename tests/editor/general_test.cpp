// General Settings and the road of an edit: from the registry to the page and back.
#include "support/form.h"
#include "support/settings_test.h"

#include <cstdlib>

namespace
{
constexpr LPCTSTR Mode = _T("CertificationMode");
constexpr LPCTSTR Verbosity = _T("QBLogVerbosity");
constexpr LPCTSTR UpdateTime = _T("QBMinimumDisplayUpdateTime");
constexpr int IdMode = 1006;
constexpr int IdVerbosity = 1053;
constexpr int IdUpdateTime = 1127;

// getenv of the program is what is asked for, so it is the program's own variable that is set.
void AllowDiagnostic(const char* value)
{
    static std::string variable;
    variable = std::string("QB_ALLOW_DIAGNOSTIC_LOGGING=") + (value != nullptr ? value : "");
    putenv(variable.data());
}

class GeneralTest : public SettingsTest
{
protected:
    void SetUp() override
    {
        SettingsTest::SetUp();
        InstallTools({});
    }

    void TearDown() override
    {
        AllowDiagnostic(nullptr);
        SettingsTest::TearDown();
    }
};
}  // namespace

TEST_F(GeneralTest, ShowsDefaultsAndStoresThemAllOnOk)
{
    RunEditor(
        [](Sheet& sheet)
        {
            EXPECT_EQ(sheet.Title(), titles::Sheet);
            EXPECT_EQ(sheet.Tabs(), std::vector<Text>{tabs::General});
            EXPECT_EQ(sheet.CheckOf(IdMode), BST_UNCHECKED);
            EXPECT_EQ(sheet.ItemsOf(IdVerbosity), (std::vector<Text>{_T("Quiet"), _T("Minimal"), _T("Low"),
                                                                     _T("Normal"), _T("Verbose")}));
            EXPECT_EQ(sheet.SelectionOf(IdVerbosity), 3);
            EXPECT_EQ(sheet.TextOf(IdUpdateTime), _T("300"));
            EXPECT_FALSE(sheet.CanApply());
            sheet.Ok();
            EXPECT_FALSE(sheet.IsOpen());
        });
    EXPECT_EQ(StoredValues(keys::Bench),
              (Values{{Mode, Dword(0)}, {Verbosity, Dword(3)}, {UpdateTime, Dword(300)}}));
}

TEST_F(GeneralTest, ShowsAndRewritesWhatIsStored)
{
    const Values stored = {{Mode, Dword(1)}, {Verbosity, Dword(0)}, {UpdateTime, Dword(0)}};
    Store(keys::Bench, stored);
    RunEditor(
        [](Sheet& sheet)
        {
            EXPECT_EQ(sheet.CheckOf(IdMode), BST_CHECKED);
            EXPECT_EQ(sheet.SelectionOf(IdVerbosity), 0);
            EXPECT_EQ(sheet.TextOf(IdUpdateTime), _T("0"));
            sheet.Ok();
        });
    EXPECT_EQ(StoredValues(keys::Bench), stored);
}

TEST_F(GeneralTest, EditsAreAppliedAndCancelDropsLaterOnes)
{
    RunEditor(
        [](Sheet& sheet)
        {
            sheet.Click(IdMode);
            EXPECT_TRUE(sheet.CanApply());
            sheet.Pick(IdVerbosity, 1);
            sheet.Retype(IdUpdateTime, _T("1250"));
            EXPECT_FALSE(KeyExists(keys::Bench));
            sheet.Apply();
            EXPECT_FALSE(sheet.CanApply());
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDOK) << "the button that was clicked takes no keys now";
            EXPECT_EQ(StoredValues(keys::Bench),
                      (Values{{Mode, Dword(1)}, {Verbosity, Dword(1)}, {UpdateTime, Dword(1250)}}));
            sheet.Click(IdMode);
            sheet.Cancel();
        });
    EXPECT_EQ(Stored(keys::Bench, Mode), Dword(1));
}

TEST_F(GeneralTest, MarkIsThatOfTheLastEvent)
{
    RunEditor(
        [](Sheet& sheet)
        {
            // Back where it was loaded, and still marked: each click changed something.
            sheet.Click(IdMode);
            sheet.Click(IdMode);
            EXPECT_TRUE(sheet.CanApply());
            // A leading zero changes the text and not the number.
            sheet.TypeInFront(IdUpdateTime, _T("0"));
            EXPECT_EQ(sheet.TextOf(IdUpdateTime), _T("0300"));
            EXPECT_FALSE(sheet.CanApply());
            sheet.Pick(IdVerbosity, 2);
            EXPECT_TRUE(sheet.CanApply());
            sheet.Pick(IdVerbosity, 2);
            EXPECT_FALSE(sheet.CanApply());
        });
    EXPECT_FALSE(KeyExists(keys::Bench));
}

TEST_F(GeneralTest, EmptiedNumberPromptsAndHoldsThePage)
{
    int prompts = 0;
    RunEditor(
        [&prompts](Sheet& sheet)
        {
            sheet.Click(IdMode);
            sheet.Click(IdMode);
            EXPECT_TRUE(sheet.CanApply());
            ExpectPrompt(&prompts);
            sheet.Empty(IdUpdateTime);
            EXPECT_EQ(prompts, 1);
            EXPECT_FALSE(sheet.CanApply()) << "the member has not changed";
            // Neither OK nor another way out: the number is missing still.
            ExpectPrompt(&prompts);
            sheet.Ok();
            EXPECT_EQ(prompts, 2);
            EXPECT_TRUE(sheet.IsOpen());
            EXPECT_FALSE(KeyExists(keys::Bench));
            EXPECT_EQ(GetFocus(), sheet.Control(IdUpdateTime));
            // Digits only are taken, and the number comes back with them.
            sheet.Type(IdUpdateTime, _T("x-4 2"));
            EXPECT_EQ(sheet.TextOf(IdUpdateTime), _T("42"));
            sheet.Ok();
        });
    EXPECT_EQ(Stored(keys::Bench, UpdateTime), Dword(42));
}

TEST_F(GeneralTest, LogLevelIsBoundedAtLoadByWhatIsOffered)
{
    struct Case
    {
        const char* variable;
        DWORD stored;
        LRESULT shown;
        DWORD saved;
        size_t items;
    };
    for (const Case& c : {Case{nullptr, 5, 4, 4, 5}, Case{"0123", 6, 4, 4, 5}, Case{"1", 5, 5, 5, 6},
                          Case{"no", 0x7FFFFFFF, 5, 5, 6}, Case{nullptr, 0x80000001, -1, 0xFFFFFFFF, 5},
                          Case{"false", 0xFFFFFFFF, -1, 0xFFFFFFFF, 6}})
    {
        SCOPED_TRACE(testing::Message() << c.stored);
        AllowDiagnostic(c.variable);
        Store(keys::Bench, Verbosity, Dword(c.stored));
        // The variable is asked when the page is made, which is at start.
        RunEditor(
            [&c](Sheet& sheet)
            {
                EXPECT_EQ(sheet.ItemsOf(IdVerbosity).size(), c.items);
                EXPECT_EQ(sheet.SelectionOf(IdVerbosity), c.shown);
                sheet.Ok();
            });
        EXPECT_EQ(Stored(keys::Bench, Verbosity), Dword(c.saved));
    }
}

TEST_F(GeneralTest, OtherTypesAndLengthsAreTakenAsBytesThatFit)
{
    Store(keys::Bench, Mode, Sz(_T("")));                                    // two bytes, 0
    Store(keys::Bench, Verbosity, Binary({1}));                              // the low byte of the default, 3
    Store(keys::Bench, UpdateTime, Binary({0x10, 0x27, 0, 0, 0, 0, 0, 0}));  // too long
    RunEditor(
        [](Sheet& sheet)
        {
            EXPECT_EQ(sheet.CheckOf(IdMode), BST_UNCHECKED);
            EXPECT_EQ(sheet.SelectionOf(IdVerbosity), 1);
            EXPECT_EQ(sheet.TextOf(IdUpdateTime), _T("300"));
        });
    // Read, and left as they were.
    EXPECT_EQ(Stored(keys::Bench, Verbosity), Binary({1}));
}
