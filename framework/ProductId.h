// The sibling tools, by the names of their values under the key of installed tools.
#pragma once

#include "framework/RegistryAccess.h"

using ProductId = WideString;

inline const ProductId AlderQB = _T("AlderQB");
inline const ProductId BirchQB = _T("BirchQB");
inline const ProductId CedarQB = _T("CedarQB");
inline const ProductId DogwoodQB = _T("DogwoodQB");
inline const ProductId ElmQB = _T("ElmQB");
inline const ProductId FirQB = _T("FirQB");
inline const ProductId GinkgoQB = _T("GinkgoQB");
inline const ProductId HazelQB = _T("HazelQB");
inline const ProductId IvyRig = _T("IvyRig");
inline const ProductId JuniperRig = _T("JuniperRig");
inline const ProductId KauriQB = _T("KauriQB");

// Whether the key of installed tools had a value of this name, in exact case, with a number other than 0 when
// the program started. Defined in shell/, which owns the list; declared here because pages ask, and includes
// point down only.
bool IsProductInstalled(const ProductId& product);

// Sets the path to the tool's own key, "SOFTWARE\Halvane\" and the tool's name.
void MakeProductKeyPath(WideString& path, const ProductId& product);
