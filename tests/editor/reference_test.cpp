// The reference of all settings, docs/settings.md, against those that the editor is tested by, and against the texts
// beside the controls that it names.
#include "support/scripts.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>

namespace {
using Texts = std::set<std::string>;

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

using ReferenceTest = SettingsTest;
}  // namespace

TEST_F(ReferenceTest, ListsEachSettingAndTheControlThatShowsIt) {
    std::map<std::string, Texts> pages;
    ForEachForm([&pages](const Form& form, const Text& name) {
        Texts& page = pages[std::regex_replace(Printable(name), std::regex("&&"), "&")];
        for (const HWND control : ControlsOf(form.Page())) { page.insert(Printable(Form(control).Title())); }
    });
    Texts settings;
    for (const Setting& setting : AllSettings()) { settings.insert(Described(setting)); }
    std::string page;
    std::string key;
    std::ifstream file(QB_REFERENCE);
    std::smatch found;
    for (std::string line; std::getline(file, line);) {
        if (std::regex_match(line, found, std::regex("## (.*)"))) {
            page = found[1];
        } else if (std::regex_match(line, found, std::regex(".*Key `(.*)`"))) {
            key = found[1];
        } else if (std::regex_match(line, found,
                                    std::regex(R"(\| `(.*?)` \| (.*?) \| (.*?) \| .* \| (.*?) \| (.*?) \|)"))) {
            EXPECT_EQ(settings.erase(key + ' ' + found.format("$1 $2 $3 $5")), 1U) << line;
            // A box and a control in it, or two controls that stand for one value. A port's is on the page of another
            // heading.
            const std::string control = found[4];
            const std::regex part("[^:, ][^:,]*");
            for (std::sregex_iterator text(control.begin(), control.end(), part), end; text != end; ++text) {
                EXPECT_TRUE(control == "none" || !pages.contains(page) || pages[page].contains(text->str())) << line;
            }
        }
    }
    EXPECT_EQ(settings, Texts());
}
