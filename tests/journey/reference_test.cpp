// The reference of all settings, docs/settings.md, against what the real editor shows and stores.
#include "driver/editor.h"
#include "resource.h"
#include "support/registry.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <set>

namespace {
using Texts = std::set<std::string>;

struct Row {
    std::string page;
    Text key;
    Text name;
    std::string value;  // type and default
    std::string control;
    std::string tools;

    bool IsFor(const Tools& installed) const {
        return tools == "any" || std::any_of(installed.begin(), installed.end(), [this](const ProductId& tool) {
                   return tools.find(Printable(tool)) != std::string::npos;
               });
    }
};

std::vector<Row> ReadReference() {
    const std::regex heading("## (.*)");
    const std::regex path("(.*)Key `(.*)`");
    const std::regex row(R"(\| `(.*?)` \| (.*?) \| (.*?) \| .* \| (.*?) \| (.*?) \|)");
    std::vector<Row> rows;
    std::string page;
    Text key;
    std::ifstream file(QB_REFERENCE);
    std::smatch found;
    for (std::string line; std::getline(file, line);) {
        if (std::regex_match(line, found, heading)) {
            page = found[1];
        } else if (std::regex_match(line, found, path)) {
            key.assign(found[2].first, found[2].second);
        } else if (std::regex_match(line, found, row)) {
            rows.push_back(
                {page, key, Text(found[1].first, found[1].second), found.format("$2 $3"), found[4], found[5]});
        }
    }
    return rows;
}

// As the reference puts it; empty for none.
std::string Described(const StoredValue& value) {
    const std::vector<BYTE>& data = value.data;
    if (value.type == REG_DWORD && data.size() == sizeof(DWORD)) {
        return "REG_DWORD " + std::to_string(*reinterpret_cast<const int*>(data.data()));
    }
    if (value.type == REG_SZ && !data.empty()) {
        return "REG_SZ \"" + Printable(reinterpret_cast<LPCTSTR>(data.data())) + '"';
    }
    // The one of this type is never nil.
    const bool isId = value.type == REG_BINARY && data != std::vector<BYTE>(data.size());
    return isId ? "REG_BINARY " + std::to_string(data.size()) + " bytes" : "";
}

Texts TextsOf(HWND dialog) {
    Texts texts;
    for (HWND control = nullptr; (control = FindWindowExW(dialog, control, nullptr, nullptr)) != nullptr;) {
        texts.insert(Printable(EditorDialog(control).Title()));
    }
    return texts;
}

// A box and a control in it, or two controls that stand for one value.
void ExpectControls(const Row& row, const Texts& page) {
    const std::regex part("[^:, ][^:,]*");
    for (std::sregex_iterator text(row.control.begin(), row.control.end(), part), end; text != end; ++text) {
        EXPECT_TRUE(row.control == "none" || page.contains(text->str())) << row.page << ": " << text->str();
    }
}

using ReferenceJourney = SettingsTest;
}  // namespace

TEST_F(ReferenceJourney, ListsWhatIsStoredForEachToolAndWhichControlsShowIt) {
    std::vector<Tools> installations = {{}, AllTools};
    std::transform(AllTools.begin(), AllTools.end(), std::back_inserter(installations),
                   [](const ProductId& tool) { return Tools{tool}; });
    for (const Tools& tools : installations) {
        SCOPED_TRACE(testing::PrintToString(tools));
        ClearSettings();
        InstallTools(tools);
        const EditorProcess editor;
        const EditorSheet sheet = editor.WaitForSheet();
        std::map<std::string, Texts> pages;
        for (int index = 0; sheet.SelectIndex(index); ++index) {
            const std::string title = Printable(EditorDialog(sheet.Page()).Title());
            pages[std::regex_replace(title, std::regex("&&"), "&")] = TextsOf(sheet.Page());
        }
        EXPECT_TRUE(sheet.Ok() && editor.WaitForEnd());
        Tree unlisted = StoredSettings();
        for (const Row& row : ReadReference()) {
            const bool isStored = row.IsFor(tools);
            EXPECT_EQ(Described(Stored(row.key, row.name)), isStored ? row.value : "") << Printable(row.name);
            unlisted[row.key].erase(row.name);
            // Those of a dialog are not among the page's.
            if (isStored && pages.contains(row.page)) { ExpectControls(row, pages[row.page]); }
        }
        std::erase_if(unlisted, [](const auto& key) { return key.second.empty(); });
        EXPECT_EQ(unlisted, Tree());
    }
}
