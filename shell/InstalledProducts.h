// The directory of installed tools. Something else writes its key; it is read once, at start.
#pragma once

#include "framework/ProductId.h"

#include <map>

// Value name to data. Names are compared exactly, although the registry folds case.
extern std::map<ProductId, DWORD> InstalledProductMap;

// Fills InstalledProductMap from the values of SOFTWARE\Halvane\Installed. False if the key or any of its
// values could not be read, or a value has more than four bytes: the map is then not to be used.
bool LoadInstalledProducts();
