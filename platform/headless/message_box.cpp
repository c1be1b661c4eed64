// Message boxes: dialogs over a template made for the occasion.
#include <algorithm>

#include "window.h"

using namespace headless;

namespace
{
struct Button
{
    int id;
    LPCWSTR text;
};

constexpr int TextId = 0xFFFF;
constexpr Button Ok = {IDOK, u"OK"};
constexpr Button Cancel = {IDCANCEL, u"Cancel"};
constexpr Button Abort = {IDABORT, u"&Abort"};
constexpr Button Retry = {IDRETRY, u"&Retry"};
constexpr Button Ignore = {IDIGNORE, u"&Ignore"};
constexpr Button Yes = {IDYES, u"&Yes"};
constexpr Button No = {IDNO, u"&No"};
constexpr Button TryAgain = {IDTRYAGAIN, u"&Try Again"};
constexpr Button Continue = {IDCONTINUE, u"&Continue"};

// In dialog units.
constexpr SHORT Margin = 7;
constexpr SHORT ButtonWidth = 50;
constexpr SHORT ButtonHeight = 14;
constexpr SHORT LineHeight = 8;
constexpr SHORT CharacterWidth = 4;

std::vector<Button> Buttons(UINT type)
{
    switch (type & MB_TYPEMASK)
    {
    case MB_OKCANCEL:
        return {Ok, Cancel};
    case MB_ABORTRETRYIGNORE:
        return {Abort, Retry, Ignore};
    case MB_YESNOCANCEL:
        return {Yes, No, Cancel};
    case MB_YESNO:
        return {Yes, No};
    case MB_RETRYCANCEL:
        return {Retry, Cancel};
    case MB_CANCELTRYCONTINUE:
        return {Cancel, TryAgain, Continue};
    default:
        return {Ok};
    }
}

class TemplateWriter
{
public:
    void Dialog(DWORD style, WORD controls, SHORT width, SHORT height, LPCWSTR title)
    {
        Long(style);
        Long(0);
        Words({controls, 0, 0, static_cast<WORD>(width), static_cast<WORD>(height), 0, 0});
        Text(title);
    }

    void Control(WORD classNumber, DWORD style, const RECT& place, int id, LPCWSTR text)
    {
        if (m_words.size() % 2 != 0)
        {
            m_words.push_back(0);
        }
        Long(style | WS_CHILD | WS_VISIBLE);
        Long(0);
        Words({static_cast<WORD>(place.left), static_cast<WORD>(place.top), static_cast<WORD>(place.right),
               static_cast<WORD>(place.bottom), static_cast<WORD>(id), 0xFFFF, classNumber});
        Text(text);
        m_words.push_back(0);
    }

    LPCDLGTEMPLATEW Template() const { return reinterpret_cast<LPCDLGTEMPLATEW>(m_words.data()); }

private:
    void Words(std::initializer_list<WORD> words) { m_words.insert(m_words.end(), words); }
    void Long(DWORD number) { Words({LOWORD(number), HIWORD(number)}); }
    void Text(LPCWSTR text) { m_words.insert(m_words.end(), text, text + lstrlenW(text) + 1); }

    std::vector<WORD> m_words;
};

// As many lines and as wide as the text has them.
SIZE Measure(LPCWSTR text)
{
    SIZE size = {0, 1};
    LONG width = 0;
    for (; *text != 0; ++text)
    {
        width = *text == u'\n' ? 0 : width + 1;
        size.cy += *text == u'\n' ? 1 : 0;
        size.cx = std::max(size.cx, width);
    }
    return {size.cx * CharacterWidth, size.cy * LineHeight};
}

// Closing the box, or Escape, is Cancel where there is one, and OK where there is nothing else.
int CommandOf(HWND box, int id)
{
    if (id == IDCANCEL && GetDlgItem(box, IDCANCEL) == nullptr)
    {
        const auto type = static_cast<UINT>(GetWindowLongPtrW(box, DWLP_USER));
        return (type & MB_TYPEMASK) == MB_OK ? IDOK : 0;
    }
    return id;
}

INT_PTR CALLBACK BoxProc(HWND box, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_INITDIALOG:
    {
        const auto type = static_cast<UINT>(lParam);
        const std::vector<Button> buttons = Buttons(type);
        const std::size_t index = std::min<std::size_t>((type & MB_DEFMASK) >> 8, buttons.size() - 1);
        SetWindowLongPtrW(box, DWLP_USER, lParam);
        Send(box, DM_SETDEFID, static_cast<WPARAM>(buttons[index].id));
        SetFocus(GetDlgItem(box, buttons[index].id));
        return FALSE;
    }
    case WM_COMMAND:
        if (const int id = CommandOf(box, LOWORD(wParam)))
        {
            EndDialog(box, id);
        }
        return TRUE;
    default:
        return FALSE;
    }
}

// The windows that a box without an owner keeps from input.
std::vector<HWND> DisableAll()
{
    std::vector<HWND> windows = TopLevelWindows();
    std::erase_if(windows, [](HWND window) { return !IsWindowVisible(window) || !IsWindowEnabled(window); });
    for (HWND window : windows)
    {
        EnableWindow(window, FALSE);
    }
    return windows;
}
}  // namespace

int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type)
{
    text = text == nullptr ? u"" : text;
    const std::vector<Button> buttons = Buttons(type);
    const SIZE extent = Measure(text);
    const auto count = static_cast<SHORT>(buttons.size());
    const auto buttonsWidth = static_cast<SHORT>(count * (ButtonWidth + 4) - 4);
    const auto width = static_cast<SHORT>(std::max<LONG>(extent.cx, buttonsWidth) + 2 * Margin);
    const auto height = static_cast<SHORT>(extent.cy + ButtonHeight + 3 * Margin);

    TemplateWriter writer;
    writer.Dialog(DS_MODALFRAME | DS_CENTER | DS_NOIDLEMSG | WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE,
                  static_cast<WORD>(count + 1), width, height, caption == nullptr ? u"Error" : caption);
    writer.Control(0x82, SS_LEFT | SS_NOPREFIX | WS_GROUP, {Margin, Margin, extent.cx, extent.cy}, TextId,
                   text);
    LONG left = (width - buttonsWidth) / 2;
    for (const Button& button : buttons)
    {
        writer.Control(0x80, BS_PUSHBUTTON | WS_TABSTOP,
                       {left, height - Margin - ButtonHeight, ButtonWidth, ButtonHeight}, button.id,
                       button.text);
        left += ButtonWidth + 4;
    }

    const std::vector<HWND> disabled =
        owner == nullptr && (type & MB_TASKMODAL) != 0 ? DisableAll() : std::vector<HWND>();
    const INT_PTR result = DialogBoxIndirectParamW(nullptr, writer.Template(), owner, BoxProc, type);
    for (HWND window : disabled)
    {
        EnableWindow(window, TRUE);
    }
    return result < 0 ? 0 : static_cast<int>(result);
}
