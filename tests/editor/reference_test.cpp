// The reference of all settings, docs/settings.md, against those that the editor is tested by.
#include "support/settings.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <set>
#include <sstream>

namespace {
// The cells of a row that hold the type and the default.
std::string CellsOf(const StoredValue& value) {
    if (value.type == REG_DWORD) {
        return " REG_DWORD  " + std::to_string(*reinterpret_cast<const int*>(value.data.data())) + ' ';
    }
    if (value.type == REG_SZ) {
        return " REG_SZ  \"" + Printable(reinterpret_cast<LPCTSTR>(value.data.data())) + "\" ";
    }
    return " REG_BINARY  " + std::to_string(value.data.size()) + " bytes ";
}

std::string CellsOf(Tools tools) {
    if (tools.empty()) { return " any "; }
    std::sort(tools.begin(), tools.end());
    std::string cell;
    for (const ProductId& tool : tools) { cell += (cell.empty() ? " " : ", ") + Printable(tool); }
    return cell + ' ';
}
}  // namespace

TEST(ReferenceTest, ListsEachSetting) {
    std::set<std::string> settings;
    for (const Setting& setting : AllSettings()) {
        settings.insert(Printable(setting.key) + " `" + Printable(setting.name) + "` " + CellsOf(setting.initial) +
                        CellsOf(setting.tools));
    }
    std::string key;
    std::ifstream file(QB_REFERENCE);
    for (std::string line; std::getline(file, line);) {
        // What stands before a row; name, type, default, meaning, control, tools.
        std::array<std::string, 7> cells;
        std::istringstream text(line);
        for (std::string& cell : cells) { std::getline(text, cell, '|'); }
        if (const size_t start = line.find("Key `"); start != std::string::npos) {
            key = line.substr(start + 5, line.size() - start - 6);
        } else if (cells[1].rfind(" `", 0) == 0) {
            EXPECT_EQ(settings.erase(key + cells[1] + cells[2] + cells[3] + cells[6]), 1U) << line;
        }
    }
    EXPECT_EQ(settings, std::set<std::string>());
}
