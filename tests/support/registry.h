// Names that users and tools know, written out here and not taken from the program; and access to the
// registry for tests, by the registry's own calls.
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

// The text of the error box.
inline const Text NoProductList =
    _T("Unable to get Installed Product List.\n\nPlease make sure that you have at least one QB app ")
    _T("installed, that you are running with administrative privileges, and you have UAC turned off.");

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
// Stands for a missing value.
inline const StoredValue Absent = {};

// Whether this is Wine. A test that cannot be right on Windows asks, and gives the reason.
bool IsWine();

Text Decimal(long long number);
void PrintTo(const StoredValue& value, std::ostream* out);

using Tools = std::vector<ProductId>;
extern const Tools AllTools;

// Deletes all that the editor reads or writes, and resets the list of calls.
void ClearSettings();
// Makes these tools, and no others, the installed ones, each with the number 1. The key exists even if there
// are none.
void InstallTools(const Tools& tools);

// Keys are relative to HKEY_LOCAL_MACHINE. Storing Absent creates the key only.
void Store(const Text& key, const Text& name, const StoredValue& value);
StoredValue Stored(const Text& key, const Text& name);
bool KeyExists(const Text& key);

// The values of a key and of all keys below it, by key. Keys without values are included.
using Values = std::map<Text, StoredValue>;
using Tree = std::map<Text, Values>;
Tree StoredTree(const Text& key);
// The keys that the editor writes to, those without values left out.
Tree StoredSettings();
// Whether there is a key that ClearSettings would delete.
bool HasSettingsKeys();
void StoreTree(const Tree& tree);

// A test that starts with all tools installed and no other value stored, and that leaves no value behind.
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
