// The commands that tools/check-scripts needs under Wine. The name under which this program is started
// selects one of them:
//   tasklist    lists the processes; Wine 8's own lists none
//   compare     compares two keys as "reg compare" does on Windows; Wine's reg cannot
//   state       prints the values below the keys that are its arguments
//   QBSettings  keeps running, as an open editor does
#include "support/calls.h"
#include "support/registry.h"

#include <tlhelp32.h>

#include <cstdio>
#include <iostream>

static int ListProcesses()
{
    const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W process = {};
    process.dwSize = sizeof(process);
    for (BOOL more = Process32FirstW(processes, &process); more; more = Process32NextW(processes, &process))
    {
        std::printf("\"%ls\",\"%lu\",\"Console\",\"1\",\"0 K\"\n", process.szExeFile, process.th32ProcessID);
    }
    CloseHandle(processes);
    return 0;
}

// The values of a key, which begins with HKLM\, and of the keys below it, by the path from there.
static Tree TreeBelow(const std::string& key)
{
    const Text path(key.begin() + 5, key.end());
    Tree tree;
    for (const auto& [whole, values] : StoredTree(path))
    {
        tree[whole.substr(path.size())] = values;
    }
    return tree;
}

int main(int argc, char** argv)
{
    calls::useMachineSettings = true;
    const std::string program = argv[0];
    if (program.find("QBSettings") != std::string::npos)
    {
        Sleep(600000);
    }
    if (program.find("tasklist") != std::string::npos)
    {
        return ListProcesses();
    }
    if (program.find("compare") != std::string::npos)
    {
        const Tree one = TreeBelow(argv[1]);
        return !one.empty() && one == TreeBelow(argv[2]) ? 0 : 2;
    }
    for (int argument = 1; argument < argc; ++argument)
    {
        for (const auto& [path, values] : TreeBelow(argv[argument]))
        {
            for (const auto& [name, value] : values)
            {
                std::cout << argv[argument] << Printable(path) << ": " << Printable(name) << ", ";
                PrintTo(value, &std::cout);
                std::cout << '\n';
            }
        }
    }
    return 0;
}
