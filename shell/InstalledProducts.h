// The list of installed tools. Other programs write its registry key; this program reads it once, at start.
#pragma once

#include "framework/ProductId.h"

#include <map>

// Maps value names to their data. Lookup is case-sensitive, although the registry's names are not.
extern std::map<ProductId, DWORD> InstalledProductMap;

// Fills InstalledProductMap from the values of SOFTWARE\Halvane\Installed. Returns false if the key or one of
// its values cannot be read, or if a value is longer than four bytes; the map must not be used then.
bool LoadInstalledProducts();
