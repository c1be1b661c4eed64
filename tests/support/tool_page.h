// What the tests of the MAUSB tool's pages share.
#pragma once

#include "support/form.h"
#include "support/settings_test.h"

#include <string>

using PageEvents = std::vector<std::string>;

class ToolPageTest : public SettingsTest
{
protected:
    // Starts with the one tool installed and nothing stored.
    void SetUp() override;

    // Of the tool's key.
    static void StoreValue(const Text& name, const StoredValue& value) { Store(keys::Kauri, name, value); }
    static StoredValue StoredUnder(const Text& name) { return Stored(keys::Kauri, name); }
    // All that is stored but for General Settings, which every OK stores. Fails the test if any of it lies
    // outside of the tool's key.
    static Values StoredByTool();
};

// A setting shown in an edit of digits.
struct NumberField
{
    int id;
    LPCTSTR name;
    DWORD initial;
};

// Notes, while it lives, which edits and buttons tell their page something and what the page tells the sheet
// of its mark, in order: "1099 changed", "1177 clicked", "marked", "unmarked".
class EventRecord
{
public:
    explicit EventRecord(HWND page);
    ~EventRecord();
    EventRecord(const EventRecord&) = delete;
    EventRecord& operator=(const EventRecord&) = delete;

    // Those since the last call.
    PageEvents Take();

private:
    struct Watched
    {
        HWND window;
        LONG_PTR procedure;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Note(UINT message, WPARAM wParam, LPARAM lParam);

    static EventRecord* s_current;
    std::vector<Watched> m_watched;
    PageEvents m_events;
};
