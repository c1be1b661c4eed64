// What each Browse button of Drivers & Firmware asks the system's dialog for.
#include "headless.h"
#include "support/host_settings.h"

#include <shobjidl.h>

namespace
{
struct Browser
{
    int button;
    int path;
    std::u16string extension;
    int startPath;               // the edit with the folder that the dialog's own start folder lies in
    std::u16string startFolder;  // empty: the system's choice
};

const Browser Browsers[] = {
    {1035, 1034, u"inf", 1034, u"hcdriver"}, {1039, 1038, u"inf", 1038, u"xhcidrv"},
    {1054, 1053, u"inf", 1053, u"USB4_HI"},  {1203, 1202, u"inf", 1202, u"RVSK"},
    {1052, 1051, u"inf", 1038, u"net2280"},  {1049, 1048, u"hex", 1048, u""},
};

class BrowseRequestTest : public SettingsTest
{
protected:
    void SetUp() override
    {
        SettingsTest::SetUp();
        InstallTools(AllTools);
    }

    // Runs the script with the page in front for each button.
    static void ForEachButton(const std::function<void(const Sheet&, const Browser&)>& script)
    {
        RunOnTab(tabs::Drivers,
                 [&script](const Sheet& sheet)
                 {
                     for (const Browser& browser : Browsers)
                     {
                         SCOPED_TRACE(browser.button);
                         script(sheet, browser);
                     }
                 });
    }

    static const headless::FileDialogRequest& Browse(const Sheet& sheet, const Browser& browser,
                                                     const std::u16string& answer)
    {
        headless::AnswerFileDialog(answer);
        sheet.Click(browser.button);
        return headless::LastFileDialog();
    }
};
}  // namespace

TEST_F(BrowseRequestTest, NamesTheFilesThatItIsFor)
{
    using Filters = std::vector<std::pair<std::u16string, std::u16string>>;
    ForEachButton(
        [](const Sheet& sheet, const Browser& browser)
        {
            const headless::FileDialogRequest& request = Browse(sheet, browser, u"C:\\a.b\\c d\\file.any");
            EXPECT_EQ(request.defaultExtension, browser.extension);
            EXPECT_EQ(request.fileName, u"*." + browser.extension);
            const bool isInf = browser.extension == u"inf";
            EXPECT_EQ(
                request.filters,
                (Filters{{isInf ? u"INF Files (*.inf)" : u"HEX Files (*.hex)", u"*." + browser.extension},
                         {u"All Files (*.*)", u"*.*"}}));
            EXPECT_NE(request.options & FOS_OVERWRITEPROMPT, 0U);
            EXPECT_EQ(request.owner, sheet.Window());
            EXPECT_EQ(request.folder, u"") << "nothing to start from yet";
            // The file's name goes, and the edit of no other button changes.
            EXPECT_EQ(sheet.TextOf(browser.path), u"C:\\a.b\\c d\\");
            SetWindowTextW(sheet.Control(browser.path), u"");
            for (const Browser& other : Browsers)
            {
                EXPECT_EQ(sheet.TextOf(other.path), u"");
            }
            EXPECT_FALSE(sheet.CanApply());
        });
}

TEST_F(BrowseRequestTest, StartsInTheFolderBelowItsPathWhereThatExists)
{
    for (const Browser& browser : Browsers)
    {
        headless::DeclareFolder(u"F:\\stacks\\" + browser.startFolder);
    }
    ForEachButton(
        [](const Sheet& sheet, const Browser& browser)
        {
            const HWND start = sheet.Control(browser.startPath);
            SetWindowTextW(start, u"F:\\stacks\\");
            EXPECT_EQ(Browse(sheet, browser, u"").folder,
                      browser.startFolder.empty() ? u"" : u"F:\\stacks\\" + browser.startFolder);
            EXPECT_EQ(sheet.TextOf(browser.startPath), u"F:\\stacks\\") << "cancelled";
            SetWindowTextW(start, u"F:\\elsewhere\\");
            EXPECT_EQ(Browse(sheet, browser, u"").folder, u"");
            SetWindowTextW(start, u"");
        });
}
