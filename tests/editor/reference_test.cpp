// The reference of all settings, docs/settings.md, against those that the editor is tested by.
#include "support/settings.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>

namespace {
// As the reference puts it.
std::string Described(const StoredValue& value) {
    if (value.type == REG_DWORD) {
        return "REG_DWORD " + std::to_string(*reinterpret_cast<const int*>(value.data.data()));
    }
    if (value.type == REG_SZ) { return "REG_SZ \"" + Printable(reinterpret_cast<LPCTSTR>(value.data.data())) + '"'; }
    return "REG_BINARY " + std::to_string(value.data.size()) + " bytes";
}

std::string Described(const Setting& setting) {
    Tools tools = setting.tools.empty() ? Tools{_T("any")} : setting.tools;
    std::sort(tools.begin(), tools.end());
    std::string row = Printable(setting.key) + ' ' + Printable(setting.name) + ' ' + Described(setting.initial);
    for (const ProductId& tool : tools) { row += (tool == tools.front() ? " " : ", ") + Printable(tool); }
    return row;
}
}  // namespace

TEST(ReferenceTest, ListsEachSetting) {
    std::set<std::string> settings;
    for (const Setting& setting : AllSettings()) { settings.insert(Described(setting)); }
    const std::regex heading(".*Key `(.*)`");
    const std::regex row(R"(\| `(.*?)` \| (.*?) \| (.*?) \| .* \| .* \| (.*?) \|)");
    std::string key;
    std::smatch found;
    std::ifstream file(QB_REFERENCE);
    for (std::string line; std::getline(file, line);) {
        if (std::regex_match(line, found, heading)) {
            key = found[1];
        } else if (std::regex_match(line, found, row)) {
            EXPECT_EQ(settings.erase(key + ' ' + found.format("$1 $2 $3 $4")), 1U) << line;
        }
    }
    EXPECT_EQ(settings, std::set<std::string>());
}
