// QBSettings.exe as a file: what Windows, and whoever installs it, go by.
#include "driver/editor.h"
#include "resource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <set>

namespace
{
constexpr size_t MaximumSize = size_t{400} * 1024;

// Windows takes each of these from its own folders even where a file of that name lies beside the program; of
// comctl32 that holds by the manifest. The shell is not among them: it is loaded when it is first called.
const std::set<std::string> SystemLibraries = {"advapi32.dll", "comctl32.dll", "comdlg32.dll",
                                               "gdi32.dll",    "kernel32.dll", "msvcrt.dll",
                                               "ole32.dll",    "rpcrt4.dll",   "user32.dll"};

std::string ReadProgram()
{
    const HANDLE file = CreateFileW(EditorProcess::Path().c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    EXPECT_TRUE(ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr));
    CloseHandle(file);
    return bytes;
}

class ProgramFile : public testing::Test
{
protected:
    void SetUp() override
    {
        const auto start = reinterpret_cast<const IMAGE_DOS_HEADER*>(m_bytes.data())->e_lfanew;
        m_headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(m_bytes.data() + start);
        ASSERT_EQ(m_headers->Signature, DWORD{IMAGE_NT_SIGNATURE});
        ASSERT_EQ(m_headers->FileHeader.Machine, IMAGE_FILE_MACHINE_AMD64);
    }

    // What the loader would put at that address.
    const char* At(DWORD address) const
    {
        const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(m_headers);
        for (WORD index = 0; index < m_headers->FileHeader.NumberOfSections; ++index, ++section)
        {
            if (address >= section->VirtualAddress && address - section->VirtualAddress < section->SizeOfRawData)
            {
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
class ProgramResources : public testing::Test
{
protected:
    void SetUp() override { ASSERT_NE(m_module, nullptr); }
    void TearDown() override { FreeLibrary(m_module); }

    std::string Resource(int id, LPCWSTR type) const
    {
        const HRSRC resource = FindResourceW(m_module, MAKEINTRESOURCEW(id), type);
        const auto* data = static_cast<const char*>(LockResource(LoadResource(m_module, resource)));
        return data != nullptr ? std::string(data, SizeofResource(m_module, resource)) : std::string();
    }

    const HMODULE m_module = LoadLibraryExW(EditorProcess::Path().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
};
}  // namespace

TEST_F(ProgramFile, IsASmallStrippedGuiProgramForWindows10)
{
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

TEST_F(ProgramFile, IsHardened)
{
    const WORD wanted = IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA | IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE |
                        IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_EQ(m_headers->OptionalHeader.DllCharacteristics & wanted, wanted);
    // Randomising the address takes the relocations, too.
    EXPECT_FALSE(m_headers->FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED);
    EXPECT_GT(Directory(IMAGE_DIRECTORY_ENTRY_BASERELOC).Size, 0U);
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(m_headers);
    for (WORD index = 0; index < m_headers->FileHeader.NumberOfSections; ++index, ++section)
    {
        const DWORD both = IMAGE_SCN_MEM_WRITE | IMAGE_SCN_MEM_EXECUTE;
        EXPECT_NE(section->Characteristics & both, both) << section->Name;
    }
    // The message of the stack protector is there when functions call it.
    EXPECT_NE(m_bytes.find("stack smashing detected"), std::string::npos);
}

TEST_F(ProgramFile, HoldsNothingOfWhereAndWhenItWasBuilt)
{
    EXPECT_EQ(m_headers->FileHeader.TimeDateStamp, 0U);
    for (const char* trace : {"/home/", "/build/", ".cpp:"})
    {
        EXPECT_EQ(m_bytes.find(trace), std::string::npos) << trace;
    }
}

TEST_F(ProgramFile, ImportsFromTheSystemAlone)
{
    const auto* library =
        reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(At(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress));
    ASSERT_NE(library->Name, 0U);
    for (; library->Name != 0; ++library)
    {
        std::string name = At(library->Name);
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
        EXPECT_TRUE(SystemLibraries.contains(name)) << name;
    }
    EXPECT_EQ(Directory(IMAGE_DIRECTORY_ENTRY_DELAY_IMPORT).Size, 0U);
}

TEST_F(ProgramResources, IconComesInTheSizesThatWindowsShows)
{
    const std::string group = Resource(IDR_MAINFRAME, RT_GROUP_ICON);
    std::set<int> sizes;
    // A header of six bytes, then fourteen for each image, which begin with its width; 0 stands for 256.
    for (size_t at = 6; at + 14 <= group.size(); at += 14)
    {
        sizes.insert(static_cast<unsigned char>(group[at]));
    }
    EXPECT_EQ(sizes, (std::set<int>{0, 16, 20, 24, 32, 48}));
}

TEST_F(ProgramResources, ManifestAsksForWhatTheProgramRelies)
{
    const std::string manifest = Resource(1, RT_MANIFEST);
    for (const char* wanted : {"<requestedExecutionLevel level=\"requireAdministrator\"", ">true</dpiAware>",
                               "name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\"",
                               "<supportedOS Id=\"{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}\"/>"})
    {
        EXPECT_NE(manifest.find(wanted), std::string::npos) << wanted;
    }
}

TEST_F(ProgramResources, VersionIsTheProjects)
{
    const std::string version = Resource(VS_VERSION_INFO, RT_VERSION);
    // The texts lie in it as "name", padding, "value"; both in UTF-16.
    const auto* units = reinterpret_cast<const wchar_t*>(version.data());
    std::wstring text(units, version.size() / sizeof(wchar_t));
    text.erase(std::remove(text.begin(), text.end(), L'\0'), text.end());
    for (const wchar_t* wanted :
         {L"FileVersion" QB_VERSION, L"ProductVersion" QB_VERSION, L"FileDescriptionQuorvex Bench Settings",
          L"OriginalFilenameQBSettings.exe", L"ProductNameQuorvex Bench", L"CompanyNameHalvane"})
    {
        EXPECT_NE(text.find(wanted), std::wstring::npos) << wanted;
    }
}
