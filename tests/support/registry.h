// What tests put into the registry and find there, by the registry's own calls.
#pragma once

#include "framework/ProductId.h"

#include <map>
#include <ostream>
#include <vector>

using Text = WideString;

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

// Removes everything that the editor reads or writes.
void ClearSettings();
// Lists just these tools as installed, each with data 1; the key of installed tools exists afterwards.
void InstallTools(const std::vector<ProductId>& tools);
void InstallAllTools();

// Keys are relative to HKEY_LOCAL_MACHINE.
void Store(const Text& key, LPCTSTR name, const StoredValue& value);
StoredValue Stored(const Text& key, LPCTSTR name);
// All values of a key by name; empty also if there is no such key.
std::map<Text, StoredValue> StoredValues(const Text& key);
std::vector<Text> StoredSubkeys(const Text& key);
bool KeyExists(const Text& key);

// Values by their keys' paths, of a key and all below it.
using Tree = std::map<Text, std::map<Text, StoredValue>>;
Tree StoredTree(const Text& key);
// All that the editor writes.
Tree StoredSettings();
