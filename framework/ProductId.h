// The tools of the family. A tool's id is the name of its value under SOFTWARE\Halvane\Installed.
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

// Whether SOFTWARE\Halvane\Installed had a value of this exact name (case-sensitive) with nonzero data when
// the program started. It is defined in shell/, which owns the list, but declared here because pages call it
// and must not include headers of shell/.
bool IsProductInstalled(const ProductId& product);

// Sets `path` to the tool's own key: "SOFTWARE\Halvane\" followed by the tool's id.
void MakeProductKeyPath(WideString& path, const ProductId& product);
