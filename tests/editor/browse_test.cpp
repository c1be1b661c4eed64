// Browse on Drivers & Firmware, with the system's real dialog opened and answered as a user does.
#include "support/host_settings.h"

#include <algorithm>

namespace
{
constexpr int IdPath = 1034;
constexpr int IdBrowse = 1035;
constexpr int IdFirmwareBrowse = 1049;

// A folder for the test alone, with a driver's file in it and in the folder that Browse starts in.
class DriverFolder
{
public:
    DriverFolder()
    {
        TCHAR temporary[MAX_PATH] = {};
        GetTempPathW(MAX_PATH, temporary);
        m_path = Text(temporary) + _T("qb browse\\");
        for (const Text& folder : Folders())
        {
            CreateDirectoryW(folder.c_str(), nullptr);
            const HANDLE file = CreateFileW((folder + File).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                            FILE_ATTRIBUTE_NORMAL, nullptr);
            EXPECT_NE(file, INVALID_HANDLE_VALUE);
            CloseHandle(file);
        }
    }
    ~DriverFolder()
    {
        std::vector<Text> folders = Folders();
        std::reverse(folders.begin(), folders.end());
        for (const Text& folder : folders)
        {
            DeleteFileW((folder + File).c_str());
            RemoveDirectoryW(folder.c_str());
        }
    }
    DriverFolder(const DriverFolder&) = delete;
    DriverFolder& operator=(const DriverFolder&) = delete;

    const Text& Path() const { return m_path; }
    Text Start() const { return m_path + _T("hcdriver\\"); }

    inline static const Text File = _T("driver.inf");

private:
    std::vector<Text> Folders() const { return {Path(), Start()}; }

    Text m_path;
};

struct Found
{
    LPCTSTR className;
    HWND window;
};

BOOL CALLBACK Take(HWND window, LPARAM parameter)
{
    auto* found = reinterpret_cast<Found*>(parameter);
    TCHAR name[32] = {};
    GetClassNameW(window, name, 32);
    if (_tcsicmp(name, found->className) == 0 && IsWindowVisible(window))
    {
        found->window = window;
        return FALSE;
    }
    return TRUE;
}

// The dialog's visible control of a class that lies deepest in reach.
HWND Descendant(HWND dialog, LPCTSTR className)
{
    Found found = {className, nullptr};
    EnumChildWindows(dialog, Take, reinterpret_cast<LPARAM>(&found));
    EXPECT_NE(found.window, nullptr) << Printable(className);
    return found.window;
}

// Answers the dialog that Browse opens next.
void Answer(const Text& file, int button)
{
    WhenOpened(_T("Open"),
               [=](const Form& dialog)
               {
                   const HWND edit = Descendant(dialog.Window(), _T("Edit"));
                   EXPECT_EQ(Form(edit).Title(), _T("*.inf"));
                   SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file.c_str()));
                   dialog.Click(button);
               });
}

class BrowseTest : public SettingsTest
{
protected:
    void SetUp() override
    {
        SettingsTest::SetUp();
        InstallTools({AlderQB});
    }

    const DriverFolder folder;
};
}  // namespace

TEST_F(BrowseTest, FolderOfTheChosenFileIsSavedByOkThoughApplyStaysDisabled)
{
    RunOnTab(tabs::Drivers,
             [this](const Sheet& sheet)
             {
                 Answer(folder.Path() + DriverFolder::File, IDCANCEL);
                 sheet.Click(IdBrowse);
                 EXPECT_EQ(sheet.TextOf(IdPath), _T(""));
                 Answer(folder.Path() + DriverFolder::File, IDOK);
                 sheet.Click(IdBrowse);
                 EXPECT_EQ(sheet.TextOf(IdPath), folder.Path());
                 EXPECT_FALSE(sheet.CanApply());
                 // A name alone is one in the folder that the dialog starts in.
                 Answer(DriverFolder::File, IDOK);
                 sheet.Click(IdBrowse);
                 EXPECT_EQ(sheet.TextOf(IdPath), folder.Start());
                 EXPECT_TRUE(IsWindowEnabled(sheet.Window()));
                 sheet.Ok();
             });
    EXPECT_EQ(Stored(keys::EhciDriver, _T("Path")), Sz(folder.Start().c_str()));
}

TEST_F(BrowseTest, FirmwareIsAHexFile)
{
    RunOnTab(tabs::Drivers,
             [](const Sheet& sheet)
             {
                 WhenOpened(_T("Open"),
                            [](const Form& dialog)
                            {
                                EXPECT_EQ(Form(Descendant(dialog.Window(), _T("Edit"))).Title(), _T("*.hex"));
                                dialog.Click(IDCANCEL);
                            });
                 sheet.Click(IdFirmwareBrowse);
                 EXPECT_FALSE(sheet.CanApply());
             });
}
