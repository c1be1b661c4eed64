// The real program: its start, a second instance, the values that it stores, and where its libraries come
// from.
#include "resource.h"
#include "support/registry.h"
#include "user.h"

#include <psapi.h>

#include <filesystem>
#include <set>

namespace
{
using Titles = std::vector<Text>;

class StartJourney : public SettingsTest
{
protected:
    // Runs a second instance to its end. Fails the test if it shows a window.
    static void RunSecondInstance()
    {
        const EditorProcess second;
        while (second.Runs())
        {
            ASSERT_EQ(second.Windows(), Titles());
            Sleep(1);
        }
        EXPECT_TRUE(second.WaitForEnd());
    }

    static void ExpectSecondInstanceBrings(HWND window)
    {
        RunSecondInstance();
        EXPECT_TRUE(WaitUntil([window] { return GetForegroundWindow() == window; }));
    }
};

// The names of the files that a process has loaded from the folder, in lower case.
std::set<std::wstring> LoadedFrom(const std::filesystem::path& folder, HANDLE process)
{
    std::set<std::wstring> names;
    HMODULE modules[256] = {};
    DWORD size = 0;
    EXPECT_TRUE(EnumProcessModules(process, modules, sizeof(modules), &size) && size < sizeof(modules));
    for (DWORD index = 0; index < size / sizeof(HMODULE); ++index)
    {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameExW(process, modules[index], path, MAX_PATH);
        const std::filesystem::path file = _wcslwr(path);
        if (_wcsicmp(file.parent_path().c_str(), folder.c_str()) == 0)
        {
            names.insert(file.filename());
        }
    }
    return names;
}
}  // namespace

TEST_F(StartJourney, SheetOpensOnGeneralSettingsAndStoresByApplyOnly)
{
    // The program ignores its command line.
    const EditorProcess editor(L"/? -page 3 \"C:\\settings.txt\"");
    const Sheet sheet = editor.WaitForSheet();
    EXPECT_EQ(editor.Windows(), Titles{SheetTitle});
    EXPECT_EQ(Form(sheet.Page()).Title(), tabs::General);
    const LONG style = GetWindowLongW(sheet.Window(), GWL_STYLE);
    EXPECT_EQ(style & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX), WS_MINIMIZEBOX | WS_MAXIMIZEBOX);
    const HWND help = GetDlgItem(sheet.Window(), IDHELP);
    EXPECT_FALSE(help != nullptr && IsWindowVisible(help));
    EXPECT_EQ(sheet.OpenAll().size(), static_cast<size_t>(sheet.PageCount()));
    ASSERT_TRUE(sheet.SelectIndex(0));
    sheet.Click(IDC_CERTIFICATION_MODE);
    EXPECT_FALSE(KeyExists(keys::Bench));
    sheet.Apply();
    const Tree applied = StoredSettings();
    EXPECT_EQ(applied.at(keys::Bench).at(L"CertificationMode"), Dword(1));
    // A change after Apply is lost when the window is closed.
    sheet.Retype(IDC_DISPLAY_UPDATE_TIME, L"7");
    // The prompt for an empty number has the program's name as its title.
    SendMessageW(sheet.Control(IDC_DISPLAY_UPDATE_TIME), EM_SETSEL, 0, -1);
    PostMessageW(sheet.Control(IDC_DISPLAY_UPDATE_TIME), WM_CHAR, L'\b', 1);
    const Form prompt(editor.WaitForWindow(L"QBSettings"));
    prompt.ClickToOpen(IDOK);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(prompt.Window()); }));
    PostMessageW(sheet.Window(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(editor.WaitForEnd());
    EXPECT_EQ(StoredSettings(), applied);
}

TEST_F(StartJourney, SecondInstanceBringsTheFirstToTheFront)
{
    const EditorProcess first;
    const Sheet sheet = first.WaitForSheet();
    for (const bool minimised : {false, true})
    {
        SCOPED_TRACE(minimised);
        ShowWindow(sheet.Window(), minimised ? SW_MINIMIZE : SW_SHOWNORMAL);
        const Cover cover;
        ExpectSecondInstanceBrings(sheet.Window());
        EXPECT_FALSE(IsIconic(sheet.Window()));
    }
    // The sheet is as usable as before, and when it is closed the next instance is a first one.
    sheet.Click(IDC_CERTIFICATION_MODE);
    EXPECT_TRUE(first.EndBy(IDOK, sheet));
    const EditorProcess next;
    EXPECT_EQ(next.WaitForSheet().CheckOf(IDC_CERTIFICATION_MODE), BST_CHECKED);
}

TEST_F(StartJourney, SecondInstanceBringsTheDialogOverTheSheetToTheFront)
{
    const EditorProcess first;
    const Sheet sheet = first.WaitForSheet();
    for (const auto& [page, button] :
         {std::pair{tabs::Media, IDC_ADVANCED_TCP}, {tabs::Drivers, IDC_EHCI_BROWSE}})
    {
        SCOPED_TRACE(button);
        ASSERT_NO_FATAL_FAILURE(OpenPage(sheet, page));
        sheet.ClickToOpen(button);
        HWND top = first.WaitForWindowBeside(sheet.Window());
        if (button == IDC_ADVANCED_TCP)
        {
            // A prompt over the dialog.
            Form(top).SetText(IDC_TCP_SNDBUF, L"");
            Form(top).ClickToOpen(IDOK);
            top = first.WaitForWindow(L"QBSettings");
        }
        const Cover cover;
        ExpectSecondInstanceBrings(top);
        Press(VK_ESCAPE);
        EXPECT_TRUE(WaitUntil([top] { return !IsWindow(top); }));
        Press(VK_ESCAPE);
        EXPECT_TRUE(button != IDC_ADVANCED_TCP || WaitUntil([&] { return IsWindowEnabled(sheet.Window()); }));
    }
}

TEST_F(StartJourney, WithoutTheListOfToolsThereIsAMessageAndNoSheet)
{
    ClearSettings();
    const EditorProcess editor;
    const Form box(editor.WaitForWindow(ErrorTitle));
    EXPECT_EQ(box.TextOf(0xFFFF), NoProductList) << "0xFFFF is the id of a message box's text";
    RunSecondInstance();
    EXPECT_EQ(editor.Windows(), Titles{ErrorTitle});
    box.ClickToOpen(IDOK);
    EXPECT_TRUE(editor.WaitForEnd());
    EXPECT_FALSE(KeyExists(keys::Bench));
}

// The libraries beside the program are copies of the system's: the path of a loaded one tells which it is.
TEST_F(StartJourney, LibrariesBesideTheProgramAreNotLoaded)
{
    const std::filesystem::path folder = EditorProcess::Path(L"planted");
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(EditorProcess::Path(), folder / L"QBSettings.exe");
    wchar_t system[MAX_PATH] = {};
    GetSystemDirectoryW(system, MAX_PATH);
    // Wine or Windows loads these by name.
    for (const wchar_t* library : {
             L"bcrypt.dll",   L"bcryptprimitives.dll", L"comctl32.dll",    L"comdlg32.dll",
             L"compstui.dll", L"crypt32.dll",          L"cryptbase.dll",   L"cryptsp.dll",
             L"dwmapi.dll",   L"explorerframe.dll",    L"oleacc.dll",      L"oleaut32.dll",
             L"propsys.dll",  L"rsaenh.dll",           L"shcore.dll",      L"shell32.dll",
             L"shlwapi.dll",  L"uxtheme.dll",          L"textshaping.dll", L"windowscodecs.dll",
             L"winspool.drv", L"version.dll",          L"msimg32.dll",
         })
    {
        std::error_code notThere;
        std::filesystem::copy_file(std::filesystem::path(system) / library, folder / library, notThere);
    }
    {
        const EditorProcess editor(L"", L"planted\\QBSettings.exe");
        const Sheet sheet = editor.WaitForSheet();
        sheet.OpenAll();
        for (const auto& [page, button] : {std::pair{tabs::Media, IDC_ADVANCED_TCP},
                                           {tabs::Media, IDC_TCP_CLIENT_PORTS},
                                           {tabs::Drivers, IDC_EHCI_BROWSE}})
        {
            ASSERT_NO_FATAL_FAILURE(OpenPage(sheet, page));
            sheet.ClickToOpen(button);
            const Form dialog(editor.WaitForWindowBeside(sheet.Window()));
            ASSERT_NE(dialog.Window(), nullptr);
            std::set<std::wstring> planted = LoadedFrom(folder, editor.Handle());
            EXPECT_TRUE(planted.erase(L"qbsettings.exe"));
            if (IsWine())
            {
                // Other libraries import these two, and Wine searches the program's folder first for imports.
                planted.erase(L"version.dll");
                planted.erase(L"msimg32.dll");
            }
            EXPECT_EQ(planted, std::set<std::wstring>());
            dialog.ClickToOpen(IDCANCEL);
            ASSERT_TRUE(WaitUntil([&] { return !IsWindow(dialog.Window()); }));
        }
    }
    std::filesystem::remove_all(folder);
}
