// What tests put into the registry and find there, by the registry's own calls.
#pragma once

#include "framework/ProductId.h"
#include "support/names.h"

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <vector>

struct StoredValue {
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
void StoreTree(const Tree& tree);

// A test that starts with all tools installed and nothing else stored, and ends with nothing stored; no call is
// refused.
class SettingsTest : public testing::Test {
protected:
    void SetUp() override {
        ClearSettings();
        InstallTools(AllTools);
    }
    void TearDown() override { ClearSettings(); }
};
