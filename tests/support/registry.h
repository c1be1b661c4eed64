// What users and tools know things by, spelled out and not taken from the program; and what tests put into
// the registry and find there, by the registry's own calls.
#pragma once

#include "driver/form.h"
#include "framework/ProductId.h"

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <vector>

// Relative to HKEY_LOCAL_MACHINE.
namespace keys
{
inline const Text Halvane = _T("SOFTWARE\\Halvane");
inline const Text Ostrel = _T("SOFTWARE\\Ostrel");
inline const Text Installed = Halvane + _T("\\Installed");
inline const Text Bench = Halvane + _T("\\QuorvexBench");
inline const Text Kauri = Halvane + _T("\\KauriQB");
inline const Text ClientPorts = Kauri + _T("\\TCPPortsClient");
inline const Text ServerPorts = Kauri + _T("\\TCPPortsServer");
inline const Text TestServices = Ostrel + _T("\\TestServices");
inline const Text EhciDriver = Ostrel + _T("\\ehci_driver");
inline const Text PortDriver = _T("System\\CurrentControlSet\\SERVICES\\xHCIPort\\Parameters");
}  // namespace keys

namespace tabs
{
inline const Text General = _T("General Settings");
inline const Text Drivers = _T("Drivers && Firmware");
inline const Text Chapter9 = _T("Chapter 9");
inline const Text Waivers = _T("Waivers");
inline const Text Xhci = _T("xHCI Settings");
inline const Text Identity = _T("MAUSB Settings");
inline const Text Media = _T("MAUSB Media Settings");
inline const Text Protocol = _T("MAUSB Protocol Settings");
inline const Text HostUnderTest = _T("MAUSB HUT Params");
}  // namespace tabs

// Of windows.
namespace titles
{
inline const Text AdvancedTCP = _T("Advanced TCP Settings");
inline const Text ClientPorts = _T("Client Port Numbers");
inline const Text ServerPorts = _T("Server Port Numbers");
}  // namespace titles

// What stands in the error box.
inline const Text NoProductList =
    _T("Unable to get Installed Product List.\n\nPlease make sure that you have at least one QB app ")
    _T("installed, that you are running with administrative privileges, and you have UAC turned off.");

// The system's number for a message box's text.
constexpr int IdMessageText = 0xFFFF;

struct StoredValue
{
    DWORD type = REG_NONE;
    std::vector<BYTE> data;

    bool operator==(const StoredValue&) const = default;
};

StoredValue Dword(DWORD number);
// With its terminator.
StoredValue Sz(const Text& text);
StoredValue Binary(std::vector<BYTE> data);
// What stands for a value that is not there.
inline const StoredValue Absent = {};

// Whether the system is Wine. A test that would not be right on Windows asks, and says why.
bool IsWine();

// The whole file of that name beside the test program; fails the test if there is none.
std::string FileBeside(const Text& name);

std::string Printable(const Text& text);
Text Decimal(long long number);
void PrintTo(const StoredValue& value, std::ostream* out);

using Tools = std::vector<ProductId>;
extern const Tools AllTools;

// Leaves nothing stored that the editor reads or writes, and no call refused or listed.
void ClearSettings();
// Lists just these tools as installed, each with data 1; the key of installed tools exists afterwards.
void InstallTools(const Tools& tools);

// Keys are relative to HKEY_LOCAL_MACHINE. A value of no type makes the key alone.
void Store(const Text& key, const Text& name, const StoredValue& value);
StoredValue Stored(const Text& key, const Text& name);
bool KeyExists(const Text& key);

// Values by the paths of their keys, of a key and all below it. A key without values is there as well.
using Values = std::map<Text, StoredValue>;
using Tree = std::map<Text, Values>;
Tree StoredTree(const Text& key);
// All keys with values that the editor writes.
Tree StoredSettings();
// Whether a key that ClearSettings would delete is there.
bool HasSettingsKeys();
void StoreTree(const Tree& tree);

// A test that starts with all tools installed and nothing else stored, and ends with nothing stored; no call
// is refused.
class SettingsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ClearSettings();
        InstallTools(AllTools);
    }
    void TearDown() override { ClearSettings(); }
};
