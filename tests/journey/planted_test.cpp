// Libraries that somebody has laid beside the program.
#include "driver/editor.h"
#include "resource.h"
#include "support/registry.h"

#include <psapi.h>

#include <filesystem>
#include <set>

namespace {
// The names of the files that a process has loaded from the folder, in small letters.
std::set<std::wstring> LoadedFrom(const std::filesystem::path& folder, HANDLE process) {
    std::set<std::wstring> names;
    HMODULE modules[256] = {};
    DWORD size = 0;
    EXPECT_TRUE(EnumProcessModules(process, modules, sizeof(modules), &size) && size < sizeof(modules));
    for (DWORD index = 0; index < size / sizeof(HMODULE); ++index) {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameExW(process, modules[index], path, MAX_PATH);
        const std::filesystem::path file = _wcslwr(path);
        if (_wcsicmp(file.parent_path().c_str(), folder.c_str()) == 0) { names.insert(file.filename()); }
    }
    return names;
}

using PlantedLibraries = SettingsTest;
}  // namespace

// Copies of the system's own, which do no harm: it shows in their paths where they were found.
TEST_F(PlantedLibraries, AreNotLoaded) {
    const std::filesystem::path folder = EditorProcess::Path(L"planted");
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(EditorProcess::Path(), folder / L"QBSettings.exe");
    for (const wchar_t* library : {L"version.dll", L"shell32.dll", L"uxtheme.dll", L"msvcrt.dll", L"comctl32.dll",
                                   L"comdlg32.dll", L"oleacc.dll", L"propsys.dll", L"dwmapi.dll", L"winspool.drv"}) {
        std::filesystem::copy_file(std::filesystem::path(L"C:\\windows\\system32") / library, folder / library);
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
