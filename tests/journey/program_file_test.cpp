// QBSettings.exe as a file: what Windows, and whoever installs it, go by.
#include "driver/editor.h"
#include "resource.h"
#include "support/registry.h"

#include <psapi.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <set>

namespace {
constexpr size_t MaximumSize = size_t{400} * 1024;

// Windows keeps these mapped for all programs, with all that they import, and looks at no file of their name
// beside a program: no call has to come before, nor DependentLoadFlags, which GNU's linker cannot write. Not
// so what they load by name while they run; that the program's first call keeps to the system's folder. The
// common controls load some as soon as they are there, so they themselves are loaded after that call, and by
// the manifest.
const std::set<std::string> KnownLibraries = {"advapi32.dll", "kernel32.dll", "msvcrt.dll",
                                              "ole32.dll",    "rpcrt4.dll",   "user32.dll"};

std::string ReadProgram() {
    const HANDLE file = CreateFileW(EditorProcess::Path().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    EXPECT_TRUE(ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr));
    CloseHandle(file);
    return bytes;
}

class ProgramFile : public testing::Test {
protected:
    void SetUp() override {
        const auto start = reinterpret_cast<const IMAGE_DOS_HEADER*>(m_bytes.data())->e_lfanew;
        m_headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(m_bytes.data() + start);
        ASSERT_EQ(m_headers->Signature, DWORD{IMAGE_NT_SIGNATURE});
        ASSERT_EQ(m_headers->FileHeader.Machine, IMAGE_FILE_MACHINE_AMD64);
    }

    // What the loader would put at that address.
    const char* At(DWORD address) const {
        const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(m_headers);
        for (WORD index = 0; index < m_headers->FileHeader.NumberOfSections; ++index, ++section) {
            if (address >= section->VirtualAddress && address - section->VirtualAddress < section->SizeOfRawData) {
                return m_bytes.data() + section->PointerToRawData + (address - section->VirtualAddress);
            }
        }
        ADD_FAILURE() << "no section holds " << address;
        return m_bytes.data();
    }

    const IMAGE_DATA_DIRECTORY& Directory(int index) const { return m_headers->OptionalHeader.DataDirectory[index]; }

    const std::string m_bytes = ReadProgram();
    const IMAGE_NT_HEADERS64* m_headers = nullptr;
};

// The program's resources, loaded as data.
class ProgramResources : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(m_module, nullptr); }
    void TearDown() override { FreeLibrary(m_module); }

    std::string Resource(int id, LPCWSTR type) const {
        const HRSRC resource = FindResourceW(m_module, MAKEINTRESOURCEW(id), type);
        const auto* data = static_cast<const char*>(LockResource(LoadResource(m_module, resource)));
        return data != nullptr ? std::string(data, SizeofResource(m_module, resource)) : std::string();
    }

    const HMODULE m_module = LoadLibraryExW(EditorProcess::Path().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
};

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

TEST_F(ProgramFile, IsASmallStrippedGuiProgramForWindows10) {
    EXPECT_LE(m_bytes.size(), MaximumSize);
    const IMAGE_OPTIONAL_HEADER64& header = m_headers->OptionalHeader;
    EXPECT_EQ(header.Subsystem, IMAGE_SUBSYSTEM_WINDOWS_GUI);
    EXPECT_EQ(header.MajorOperatingSystemVersion, 10);
    EXPECT_EQ(header.MinorOperatingSystemVersion, 0);
    EXPECT_EQ(header.MajorSubsystemVersion, 10);
    EXPECT_EQ(header.MinorSubsystemVersion, 0);
    EXPECT_EQ(m_headers->FileHeader.NumberOfSymbols, 0U);
    EXPECT_TRUE(m_headers->FileHeader.Characteristics & IMAGE_FILE_DEBUG_STRIPPED);
    EXPECT_EQ(Directory(IMAGE_DIRECTORY_ENTRY_DEBUG).Size, 0U);
}

TEST_F(ProgramFile, IsHardened) {
    const WORD wanted = IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA | IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE |
                        IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_EQ(m_headers->OptionalHeader.DllCharacteristics & wanted, wanted);
    // Randomising the address takes the relocations, too.
    EXPECT_FALSE(m_headers->FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED);
    EXPECT_GT(Directory(IMAGE_DIRECTORY_ENTRY_BASERELOC).Size, 0U);
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(m_headers);
    for (WORD index = 0; index < m_headers->FileHeader.NumberOfSections; ++index, ++section) {
        const DWORD both = IMAGE_SCN_MEM_WRITE | IMAGE_SCN_MEM_EXECUTE;
        EXPECT_NE(section->Characteristics & both, both) << section->Name;
    }
    // The message of the stack protector is there when functions call it.
    EXPECT_NE(m_bytes.find("stack smashing detected"), std::string::npos);
}

TEST_F(ProgramFile, HoldsNothingOfWhereAndWhenItWasBuilt) {
    EXPECT_EQ(m_headers->FileHeader.TimeDateStamp, 0U);
    for (const char* trace : {"/home/", "/build/", ".cpp:"}) {
        EXPECT_EQ(m_bytes.find(trace), std::string::npos) << trace;
    }
}

TEST_F(ProgramFile, ImportsWhatNobodyCanPlant) {
    const auto* library =
        reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(At(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress));
    ASSERT_NE(library->Name, 0U);
    for (; library->Name != 0; ++library) {
        std::string name = At(library->Name);
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
        EXPECT_TRUE(KnownLibraries.contains(name)) << name;
    }
    EXPECT_EQ(Directory(IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT).Size, 0U);
}

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
    InstallTools(AllTools);
    {
        const EditorProcess editor(L"", L"planted\\QBSettings.exe");
        const EditorSheet sheet = editor.WaitForSheet();
        sheet.OpenAll();
        ASSERT_TRUE(sheet.Select(IDD_DRIVERS_AND_FIRMWARE));
        sheet.ClickToOpen(IDC_EHCI_BROWSE);
        ASSERT_NE(editor.WaitForWindowBeside(sheet.Window()), nullptr);
        std::set<std::string> planted;
        for (const std::filesystem::path& file : LoadedFiles(editor.Id())) {
            if (_wcsicmp(file.parent_path().c_str(), folder.c_str()) == 0) {
                planted.insert(file.filename().string());
            }
        }
        EXPECT_TRUE(planted.erase("qbsettings.exe"));
        // Wine knows no libraries as Windows does, and its own user32 needs version.dll.
        planted.erase("msvcrt.dll");
        planted.erase("version.dll");
        EXPECT_EQ(planted, std::set<std::string>());
    }
    std::filesystem::remove_all(folder);
}

TEST_F(ProgramResources, IconComesInTheSizesThatWindowsShows) {
    const std::string group = Resource(IDR_MAINFRAME, RT_GROUP_ICON);
    std::set<int> sizes;
    // A header of six bytes, then fourteen for each image, which begin with its width; 0 stands for 256.
    for (size_t at = 6; at + 14 <= group.size(); at += 14) {
        sizes.insert(static_cast<unsigned char>(group[at]));
    }
    EXPECT_EQ(sizes, (std::set<int>{0, 16, 20, 24, 32, 48}));
}

TEST_F(ProgramResources, ManifestAsksForWhatTheProgramRelies) {
    const std::string manifest = Resource(1, RT_MANIFEST);
    for (const char* wanted : {"<requestedExecutionLevel level=\"requireAdministrator\"", ">true</dpiAware>",
                               "name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\"",
                               "<supportedOS Id=\"{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}\"/>"}) {
        EXPECT_NE(manifest.find(wanted), std::string::npos) << wanted;
    }
}

TEST_F(ProgramResources, VersionIsTheProjects) {
    const std::string version = Resource(VS_VERSION_INFO, RT_VERSION);
    // The texts lie in it as "name", padding, "value"; both in UTF-16.
    const auto* units = reinterpret_cast<const wchar_t*>(version.data());
    std::wstring text(units, version.size() / sizeof(wchar_t));
    text.erase(std::remove(text.begin(), text.end(), L'\0'), text.end());
    for (const wchar_t* wanted :
         {L"FileVersion" QB_VERSION, L"ProductVersion" QB_VERSION, L"FileDescriptionQuorvex Bench Settings",
          L"OriginalFilenameQBSettings.exe", L"ProductNameQuorvex Bench", L"CompanyNameHalvane"}) {
        EXPECT_NE(text.find(wanted), std::wstring::npos) << wanted;
    }
}
