// Stands under the name of a command of Windows in the test of save.cmd and restore.cmd: as tasklist, which
// Wine 8 has as an empty shell, as reg, whose "compare" Wine does not know (what else reg is asked for goes
// to Wine's own), and as an editor that is open. Fails where the command line holds the text of QB_FAIL.

#include <windows.h>

#include <tlhelp32.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace
{
using Values = std::map<std::wstring, std::pair<DWORD, std::vector<BYTE>>>;

int ListProcesses()
{
    const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W process{};
    process.dwSize = sizeof process;
    for (BOOL more = Process32FirstW(processes, &process); more; more = Process32NextW(processes, &process))
    {
        std::printf("\"%ls\",\"%lu\",\"Console\",\"1\",\"0 K\"\n", process.szExeFile, process.th32ProcessID);
    }
    CloseHandle(processes);
    return 0;
}

HKEY Open(HKEY parent, const std::wstring& name)
{
    HKEY key = nullptr;
    RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ, &key);
    return key;
}

Values ValuesOf(HKEY key)
{
    Values values;
    std::wstring name(16384, L'\0');
    std::vector<BYTE> data(4 << 20);
    DWORD length = 16384;
    DWORD size = 4 << 20;
    DWORD type = 0;
    for (DWORD i = 0; RegEnumValueW(key, i, name.data(), &length, nullptr, &type, data.data(), &size) == 0;
         ++i)
    {
        values[name.substr(0, length)] = {type, {data.begin(), data.begin() + size}};
        length = 16384;
        size = 4 << 20;
    }
    return values;
}

std::vector<std::wstring> KeysOf(HKEY key)
{
    std::vector<std::wstring> keys;
    wchar_t name[256];
    for (DWORD i = 0; RegEnumKeyW(key, i, name, 256) == 0; ++i)
    {
        keys.emplace_back(name);
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

bool AreSame(HKEY one, HKEY other)
{
    bool same = one && other && ValuesOf(one) == ValuesOf(other) && KeysOf(one) == KeysOf(other);
    for (const std::wstring& name : KeysOf(one))
    {
        same = same && AreSame(Open(one, name), Open(other, name));
    }
    return same;
}
}  // namespace

int wmain(int argc, wchar_t** argv)
{
    const std::wstring line = GetCommandLineW();
    const wchar_t* fault = _wgetenv(L"QB_FAIL");
    if (fault && *fault && line.find(fault) != std::wstring::npos)
    {
        return 1;
    }
    if (line.find(L"QBSettings.exe") != std::wstring::npos)
    {
        Sleep(600000);
    }
    if (line.find(L"tasklist") != std::wstring::npos)
    {
        return ListProcesses();
    }
    if (argc > 3 && std::wstring(argv[1]) == L"compare")
    {
        // HKLM\ stands before both.
        const HKEY one = Open(HKEY_LOCAL_MACHINE, argv[2] + 5);
        return AreSame(one, Open(HKEY_LOCAL_MACHINE, argv[3] + 5)) ? 0 : 2;
    }
    std::wstring forwarded = L"C:\\windows\\system32\\reg.exe" + line.substr(line.find(L' '));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    DWORD result = 1;
    CreateProcessW(nullptr, forwarded.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                   &process);
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &result);
    return static_cast<int>(result);
}
