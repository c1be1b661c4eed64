// What tests put into the registry and find there, by the registry's own calls.
#pragma once

#include "framework/ProductId.h"
#include "support/names.h"

#include <map>
#include <ostream>
#include <vector>

struct StoredValue
{
    DWORD type = REG_NONE;
    std::vector<BYTE> data;

    bool operator==(const StoredValue& other) const { return type == other.type && data == other.data; }
};

StoredValue Dword(DWORD number);
// With its terminator.
StoredValue Sz(LPCTSTR text);
StoredValue Binary(std::vector<BYTE> data);
// What stands for a value that is not there.
inline const StoredValue Absent = {};

std::string Printable(const Text& text);
Text Decimal(long long number);
void PrintTo(const StoredValue& value, std::ostream* out);

using Tools = std::vector<ProductId>;
extern const Tools AllTools;

// Removes everything that the editor reads or writes.
void ClearSettings();
// Lists just these tools as installed, each with data 1; the key of installed tools exists afterwards.
void InstallTools(const Tools& tools);

// Keys are relative to HKEY_LOCAL_MACHINE.
void Store(const Text& key, const Text& name, const StoredValue& value);
StoredValue Stored(const Text& key, const Text& name);

// Of one key, by their names.
using Values = std::map<Text, StoredValue>;
void Store(const Text& key, const Values& values);
// Empty also if there is no such key.
Values StoredValues(const Text& key);
std::vector<Text> StoredSubkeys(const Text& key);
bool KeyExists(const Text& key);

// Values by their keys' paths, of a key and all below it.
using Tree = std::map<Text, Values>;
Tree StoredTree(const Text& key);
// All that the editor writes.
Tree StoredSettings();
