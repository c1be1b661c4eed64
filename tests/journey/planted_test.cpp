// Libraries that somebody has laid beside the program.
#include "driver/editor.h"
#include "resource.h"
#include "support/registry.h"

#include <psapi.h>

#include <algorithm>
#include <filesystem>
#include <set>

namespace {
// The files from which a process has loaded its code, in small letters.
std::set<std::filesystem::path> LoadedFiles(DWORD id) {
    std::set<std::filesystem::path> files;
    const HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id);
    HMODULE modules[256] = {};
    DWORD size = 0;
    EXPECT_TRUE(EnumProcessModules(process, modules, sizeof(modules), &size));
    for (DWORD index = 0; index < std::min<DWORD>(size, sizeof(modules)) / sizeof(HMODULE); ++index) {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameExW(process, modules[index], path, MAX_PATH);
        files.insert(_wcslwr(path));
    }
    CloseHandle(process);
    return files;
}

using PlantedLibraries = SettingsTest;
}  // namespace

// Copies of the system's own, which do no harm: it shows in their paths where they were found.
TEST_F(PlantedLibraries, AreNotLoaded) {
    const std::filesystem::path folder = EditorProcess::Path(L"planted");
    const std::filesystem::path program = folder / L"QBSettings.exe";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(EditorProcess::Path(), program);
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
        std::set<std::string> planted;
        for (const std::filesystem::path& file : LoadedFiles(editor.Id())) {
            if (_wcsicmp(file.parent_path().c_str(), folder.c_str()) == 0) { planted.insert(file.filename().string()); }
        }
        EXPECT_TRUE(planted.erase("qbsettings.exe"));
        // Wine knows no libraries as Windows does, and its own user32 needs version.dll.
        planted.erase("msvcrt.dll");
        planted.erase("version.dll");
        EXPECT_EQ(planted, std::set<std::string>());
    }
    std::filesystem::remove_all(folder);
}
