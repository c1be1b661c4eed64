// What users and tools know things by, spelled out once for all tests and not taken from the program.
#pragma once

#include "driver/form.h"

// Relative to HKEY_LOCAL_MACHINE.
namespace keys {
inline const Text Halvane = _T("SOFTWARE\\Halvane");
inline const Text Ostrel = _T("SOFTWARE\\Ostrel");
inline const Text Installed = Halvane + _T("\\Installed");
inline const Text Bench = Halvane + _T("\\QuorvexBench");
inline const Text Alder = Halvane + _T("\\AlderQB");
inline const Text Birch = Halvane + _T("\\BirchQB");
inline const Text Kauri = Halvane + _T("\\KauriQB");
inline const Text ClientPorts = Kauri + _T("\\TCPPortsClient");
inline const Text ServerPorts = Kauri + _T("\\TCPPortsServer");
inline const Text TestServices = Ostrel + _T("\\TestServices");
inline const Text EhciDriver = Ostrel + _T("\\ehci_driver");
inline const Text XhciDriver = Ostrel + _T("\\xhci_driver");
inline const Text Usb4Driver = Halvane + _T("\\Drivers\\usb4hi");
inline const Text RvskDriver = Halvane + _T("\\Drivers\\rvsk");
inline const Text PortDriver = _T("System\\CurrentControlSet\\SERVICES\\xHCIPort\\Parameters");
}  // namespace keys

namespace tabs {
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
namespace titles {
inline const Text Error = _T("QB Settings Error");
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
