// The real program: how it starts, what a second one does, what it leaves in the registry, and where its
// libraries come from.
#include "driver/editor.h"
#include "resource.h"
#include "support/registry.h"

#include <psapi.h>

#include <filesystem>
#include <set>

namespace
{
using Titles = std::vector<Text>;

class StartJourney : public SettingsTest
{
protected:
    // Runs a further instance to its end; fails the test if it shows anything.
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
};

// The names of the files that a process has loaded from the folder, in small letters.
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

TEST_F(StartJourney, SheetOpensOnGeneralSettingsAndStoresWhatWasShown)
{
    // A command line makes no difference.
    const EditorProcess editor(L"/? -page 3 \"C:\\settings.txt\"");
    const Sheet sheet = editor.WaitForSheet();
    EXPECT_EQ(editor.Windows(), Titles{SheetTitle});
    EXPECT_EQ(Form(sheet.Page()).Title(), tabs::General);
    const LONG style = GetWindowLongW(sheet.Window(), GWL_STYLE);
    EXPECT_EQ(style & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX), WS_MINIMIZEBOX | WS_MAXIMIZEBOX);
    const HWND help = GetDlgItem(sheet.Window(), IDHELP);
    EXPECT_FALSE(help != nullptr && IsWindowVisible(help));
    EXPECT_EQ(sheet.OpenAll().size(), 9U);
    ASSERT_TRUE(sheet.SelectIndex(0));
    sheet.Click(IDC_CERTIFICATION_MODE);
    EXPECT_FALSE(KeyExists(keys::Bench));
    sheet.Apply();
    const Tree applied = StoredSettings();
    EXPECT_EQ(applied.at(keys::Bench).at(L"CertificationMode"), Dword(1));
    // What is edited after Apply goes with the window.
    sheet.Retype(IDC_DISPLAY_UPDATE_TIME, L"7");
    // An emptied number is asked for under the program's name.
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
    const HWND cover = CreateWindowExW(0, L"STATIC", L"Cover", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1200,
                                       900, nullptr, nullptr, nullptr, nullptr);
    for (const bool minimised : {false, true})
    {
        SCOPED_TRACE(minimised);
        ShowWindow(sheet.Window(), minimised ? SW_MINIMIZE : SW_SHOWNORMAL);
        SetForegroundWindow(cover);
        ASSERT_EQ(GetForegroundWindow(), cover);
        RunSecondInstance();
        EXPECT_EQ(GetForegroundWindow(), sheet.Window());
        EXPECT_FALSE(IsIconic(sheet.Window()));
    }
    DestroyWindow(cover);
    // The sheet is as usable as before; with it gone, the next is first.
    sheet.Click(IDC_CERTIFICATION_MODE);
    EXPECT_TRUE(first.EndBy(IDOK, sheet));
    const EditorProcess next;
    EXPECT_EQ(next.WaitForSheet().CheckOf(IDC_CERTIFICATION_MODE), BST_CHECKED);
}

TEST_F(StartJourney, WithoutTheListOfToolsThereIsAMessageAndNoSheet)
{
    ClearSettings();
    const EditorProcess editor;
    const Form box(editor.WaitForWindow(titles::Error));
    EXPECT_EQ(box.TextOf(IdMessageText), NoProductList);
    RunSecondInstance();
    EXPECT_EQ(editor.Windows(), Titles{titles::Error});
    box.ClickToOpen(IDOK);
    EXPECT_TRUE(editor.WaitForEnd());
    EXPECT_FALSE(KeyExists(keys::Bench));
}

// Copies of the system's own, which do no harm: it shows in their paths where they were found.
TEST_F(StartJourney, LibrariesLaidBesideTheProgramAreNotLoaded)
{
    const std::filesystem::path folder = EditorProcess::Path(L"planted");
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(EditorProcess::Path(), folder / L"QBSettings.exe");
    for (const wchar_t* library :
         {L"version.dll", L"shell32.dll", L"uxtheme.dll", L"msvcrt.dll", L"comctl32.dll", L"comdlg32.dll",
          L"oleacc.dll", L"propsys.dll", L"dwmapi.dll", L"winspool.drv"})
    {
        std::filesystem::copy_file(std::filesystem::path(L"C:\\windows\\system32") / library,
                                   folder / library);
    }
    {
        const EditorProcess editor(L"", L"planted\\QBSettings.exe");
        const Sheet sheet = editor.WaitForSheet();
        sheet.OpenAll();
        ASSERT_TRUE(sheet.SelectIndex(1));
        sheet.ClickToOpen(IDC_EHCI_BROWSE);
        ASSERT_NE(editor.WaitForWindowBeside(sheet.Window()), nullptr);
        std::set<std::wstring> planted = LoadedFrom(folder, editor.Handle());
        EXPECT_TRUE(planted.erase(L"qbsettings.exe"));
        // Wine knows no libraries as Windows does, and its own user32 needs version.dll.
        planted.erase(L"msvcrt.dll");
        planted.erase(L"version.dll");
        EXPECT_EQ(planted, std::set<std::wstring>());
    }
    std::filesystem::remove_all(folder);
}
