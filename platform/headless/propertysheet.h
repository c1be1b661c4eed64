// The inside of a property sheet.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "prsht.h"

// A page: the caller's record, with copies of its texts, and what becomes of it. HPROPSHEETPAGE points to
// one.
struct _PSP
{
    explicit _PSP(const PROPSHEETPAGEW& given);
    ~_PSP();
    _PSP(const _PSP&) = delete;
    _PSP& operator=(const _PSP&) = delete;

    // False: the page is not to be created.
    bool Call(UINT message);
    // The dialog, or null before it has been made and after it was destroyed.
    HWND Window() const { return IsWindow(m_window) ? m_window : nullptr; }
    LPCDLGTEMPLATEW Template() const;

    PROPSHEETPAGEW record = {};
    std::u16string title;
    std::u16string templateName;
    HWND m_window = nullptr;
    bool marked = false;
};

namespace headless
{
// What a dialog template says of its dialog, and how long it is.
struct TemplateFacts
{
    std::u16string title;
    SIZE size;  // dialog units
    std::size_t bytes;
};
TemplateFacts ReadPageTemplate(LPCDLGTEMPLATEW dialogTemplate);
// A copy that makes a page: a child without a frame.
std::vector<BYTE> MakePageTemplate(LPCDLGTEMPLATEW dialogTemplate);
std::vector<WORD> MakeSheetTemplate(LPCWSTR caption);

// One sheet. Pages are told things in their own code, which may destroy the sheet's window: the object
// outlives it, without pages, as long as one of its functions runs.
class PropertySheet : public std::enable_shared_from_this<PropertySheet>
{
public:
    explicit PropertySheet(const PROPSHEETHEADERW& header);

    // False if no window came of it.
    bool Open();
    LRESULT RunModal();

    HWND Window() const { return m_window; }

    static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

private:
    using Page = std::shared_ptr<_PSP>;
    static constexpr int IdHelp = 9;
    static constexpr int IdTabs = 0x3020;
    static constexpr int IdApply = 0x3021;

    // The dialog's messages; false for one that is not the sheet's.
    bool Handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    bool HandlePageMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    LRESULT HandleTabs(const NMHDR& header);
    void Initialise();
    void LayOut();
    void Press(int button);
    void Destroyed();

    LRESULT Notify(const Page& page, UINT code, LPARAM lParam = 0) const;
    Page ActivePage() const;
    int IndexOf(HWND window) const;
    int IndexOf(const _PSP* page) const;
    bool CreatePage(const Page& page);
    // Asks the page in front first.
    bool Turn(int index);
    // Goes from page to page, forwards, until one does not refuse.
    bool Activate(int index);
    void Show(int index);
    bool LeaveActivePage();
    bool Apply(bool closing);
    void Ok();
    void Cancel(bool byTitleBar);
    void Mark(HWND page, bool marked);
    bool TranslateKeys(MSG* message);

    PROPSHEETHEADERW m_header;
    std::u16string m_caption;
    std::vector<Page> m_pages;
    HWND m_window = nullptr;
    HWND m_tabs = nullptr;
    int m_active = -1;
    bool m_closed = false;  // by OK or Cancel: the window stands, but has no page in front
    bool m_pageWasCreated = false;
    LRESULT m_result = 0;
};
}  // namespace headless
