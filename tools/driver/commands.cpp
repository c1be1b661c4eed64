// The commands that tools/check-scripts needs under Wine. The name under which this program is started
// selects one of them:
//   tasklist    lists the processes; Wine 8's own lists none
//   compare     compares two keys as "reg compare" does on Windows; Wine's reg cannot
//   state       prints the keys and values below the keys that are its arguments
//   QBSettings  keeps running, as an open editor does

#include <windows.h>

#include <tlhelp32.h>

#include <cstdio>
#include <string>

namespace
{
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

// A line for each key and value from root\path down, which names the path. Wine sorts both by name.
std::wstring List(const std::wstring& root, const std::wstring& path)
{
    static BYTE data[65536];
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, (root + path).c_str(), 0, KEY_READ, &key) != 0)
    {
        return L"";
    }
    std::wstring lines = L"[" + path + L"]\n";
    wchar_t name[256];
    DWORD length = 256;
    DWORD size = sizeof data;
    DWORD type = 0;
    for (DWORD i = 0; RegEnumValueW(key, i, name, &length, nullptr, &type, data, &size) == 0; ++i)
    {
        lines += path + L": " + name + L" of type " + std::to_wstring(type) + L":";
        for (DWORD byte = 0; byte < size; ++byte)
        {
            lines += L" " + std::to_wstring(data[byte]);
        }
        lines += L"\n";
        length = 256;
        size = sizeof data;
    }
    for (DWORD i = 0; RegEnumKeyW(key, i, name, 256) == 0; ++i)
    {
        lines += List(root, path + L"\\" + name);
    }
    RegCloseKey(key);
    return lines;
}
}  // namespace

int wmain(int argc, wchar_t** argv)
{
    const std::wstring program = argv[0];
    if (program.find(L"QBSettings") != std::wstring::npos)
    {
        Sleep(600000);
    }
    if (program.find(L"tasklist") != std::wstring::npos)
    {
        return ListProcesses();
    }
    if (program.find(L"compare") != std::wstring::npos)
    {
        // Both keys begin with HKLM\.
        const std::wstring one = List(argv[1] + 5, L"");
        return !one.empty() && one == List(argv[2] + 5, L"") ? 0 : 2;
    }
    for (int argument = 1; argument < argc; ++argument)
    {
        std::printf("%ls", List(L"", argv[argument]).c_str());
    }
    return 0;
}
