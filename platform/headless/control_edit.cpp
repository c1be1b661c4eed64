// Edits of a single line.
#include <algorithm>
#include <string>

#include "control.h"
#include "edit_text.h"
#include "unicode.h"

namespace headless
{
namespace
{
using Undo = EditText::Undo;

constexpr std::size_t DefaultLimit = 30000;
constexpr std::size_t NoLimit = 0x7FFFFFFE;

std::u16string ClipboardText(HWND owner)
{
    std::u16string text;
    if (OpenClipboard(owner))
    {
        if (HANDLE block = GetClipboardData(CF_UNICODETEXT); block != nullptr)
        {
            text = static_cast<LPCWSTR>(GlobalLock(block));
            GlobalUnlock(block);
        }
        CloseClipboard();
    }
    return text;
}

void SetClipboardText(HWND owner, std::u16string_view text)
{
    if (!OpenClipboard(owner))
    {
        return;
    }
    EmptyClipboard();
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(WCHAR));
    auto* target = static_cast<LPWSTR>(GlobalLock(block));
    target[text.copy(target, text.size())] = u'\0';
    GlobalUnlock(block);
    SetClipboardData(CF_UNICODETEXT, block);
    CloseClipboard();
}

class Edit : public Control
{
public:
    using Control::Control;

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message)
        {
        case WM_NCCREATE:
            if (LPCWSTR name = reinterpret_cast<LPCREATESTRUCTW>(lParam)->lpszName; name != nullptr)
            {
                m_text.Set(name);
            }
            return Control::Handle(message, wParam, lParam);
        case WM_GETDLGCODE:
            return DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
        case WM_SETTEXT:
            OnSetText(reinterpret_cast<LPCWSTR>(lParam));
            return TRUE;
        case WM_GETTEXT:
            return static_cast<LRESULT>(CopyText(reinterpret_cast<LPWSTR>(lParam), wParam, m_text.Text()));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(m_text.Size());
        case WM_SETFOCUS:
            static_cast<void>(Notify(EN_SETFOCUS));
            return 0;
        case WM_KILLFOCUS:
            static_cast<void>(Notify(EN_KILLFOCUS));
            return 0;
        case WM_CHAR:
            OnChar(static_cast<WCHAR>(wParam));
            return 0;
        case WM_KEYDOWN:
            OnKey(wParam);
            return 0;
        case WM_LBUTTONDOWN:
            if (TakeFocus())
            {
                m_text.MoveCaret(CharactersIn(MouseX(lParam)), IsKeyDown(VK_SHIFT));
            }
            return 0;
        case WM_LBUTTONDBLCLK:
            m_text.MoveCaret(m_text.WordStart(), false);
            m_text.MoveCaret(m_text.NextWord(), true);
            return 0;
        default:
            return HandleEditing(message, wParam, lParam);
        }
    }

private:
    LRESULT HandleEditing(UINT message, WPARAM wParam, LPARAM lParam)
    {
        switch (message)
        {
        case EM_GETSEL:
            return OnGetSelection(reinterpret_cast<LPDWORD>(wParam), reinterpret_cast<LPDWORD>(lParam));
        case EM_SETSEL:
            m_text.Select(static_cast<int>(wParam), static_cast<int>(lParam));
            return TRUE;
        case EM_REPLACESEL:
            Replace(reinterpret_cast<LPCWSTR>(lParam), wParam != 0 ? Undo::Whole : Undo::None);
            return TRUE;
        case EM_GETLIMITTEXT:
            return static_cast<LRESULT>(m_limit);
        case EM_SETLIMITTEXT:
            m_limit = wParam == 0 ? NoLimit : std::min<std::size_t>(wParam, NoLimit);
            return 0;
        case EM_GETMODIFY:
            return m_modified;
        case EM_SETMODIFY:
            m_modified = wParam != 0;
            return 0;
        case EM_SETREADONLY:
            SetStyle(wParam != 0 ? Style() | ES_READONLY : Style() & ~static_cast<DWORD>(ES_READONLY));
            return TRUE;
        case EM_CANUNDO:
            return m_text.CanUndo();
        case EM_EMPTYUNDOBUFFER:
            m_text.DropUndo();
            return 0;
        case EM_UNDO:
        case WM_UNDO:
            TakeBack();
            return TRUE;
        case WM_COPY:
            Copy();
            return 0;
        case WM_CUT:
            Copy();
            Clear();
            return 0;
        case WM_PASTE:
            Paste();
            return 0;
        case WM_CLEAR:
            Clear();
            return 0;
        default:
            return Control::Handle(message, wParam, lParam);
        }
    }

    bool IsReadOnly() const { return (Style() & ES_READONLY) != 0; }

    // The same text again is news too.
    void OnSetText(LPCWSTR text)
    {
        m_text.Set(text == nullptr ? u"" : text);
        m_modified = false;
        TellChange();
    }

    LRESULT OnGetSelection(LPDWORD start, LPDWORD end) const
    {
        auto from = static_cast<DWORD>(m_text.Start());
        auto to = static_cast<DWORD>(m_text.End());
        if (start != nullptr)
        {
            *start = from;
        }
        if (end != nullptr)
        {
            *end = to;
        }
        return to > 0xFFFF ? -1 : MAKELONG(from, to);
    }

    void TellChange() const
    {
        if (Notify(EN_UPDATE))
        {
            static_cast<void>(Notify(EN_CHANGE));
        }
    }

    // Puts the text in the place of the selection, as much of it as fits.
    void Replace(std::u16string_view text, Undo undo)
    {
        if (text.empty() && !m_text.HasSelection())
        {
            return;
        }
        if (text.size() > Room())
        {
            if (!Notify(EN_MAXTEXT))
            {
                return;
            }
            text = text.substr(0, Room());
        }
        m_text.Replace(text, undo);
        m_modified = true;
        TellChange();
    }

    // How many characters may come in place of the selection. A text that cannot scroll ends with the window.
    std::size_t Room() const
    {
        RECT rect = {};
        GetClientRect(Window(), &rect);
        bool scrolls = (Style() & ES_AUTOHSCROLL) != 0;
        std::size_t limit = scrolls ? m_limit : std::min(m_limit, CharactersIn(rect.right));
        std::size_t kept = m_text.Size() - m_text.Selected().size();
        return limit > kept ? limit - kept : 0;
    }

    // All characters are of one width.
    std::size_t CharactersIn(int width) const
    {
        TEXTMETRICW metrics = {};
        HDC dc = GetDC(Window());
        GetTextMetricsW(dc, &metrics);
        ReleaseDC(Window(), dc);
        return static_cast<std::size_t>(std::max(width, 0) / std::max<LONG>(metrics.tmAveCharWidth, 1));
    }

    void Clear()
    {
        if (!IsReadOnly())
        {
            Replace({}, Undo::Whole);
        }
    }

    void TakeBack()
    {
        if (m_text.CanUndo() && !IsReadOnly())
        {
            m_text.TakeBack();
            m_modified = true;
            TellChange();
        }
    }

    void Copy() const
    {
        if (m_text.HasSelection())
        {
            SetClipboardText(Window(), m_text.Selected());
        }
    }

    // The clipboard's first line.
    void Paste()
    {
        if (!IsReadOnly())
        {
            std::u16string text = ClipboardText(Window());
            Replace(std::u16string_view(text).substr(0, text.find_first_of(u"\r\n")), Undo::Whole);
        }
    }

    void OnChar(WCHAR character)
    {
        constexpr WCHAR CtrlC = 3;
        constexpr WCHAR CtrlV = 22;
        constexpr WCHAR CtrlX = 24;
        constexpr WCHAR CtrlZ = 26;
        switch (character)
        {
        case CtrlC:
            Copy();
            break;
        case CtrlV:
            Paste();
            break;
        case CtrlX:
            Copy();
            Clear();
            break;
        case CtrlZ:
            TakeBack();
            break;
        case u'\b':
            OnRubout(m_text.Before());
            break;
        default:
            if (!IsReadOnly() && IsAccepted(character))
            {
                Replace({&character, 1}, Undo::Typing);
            }
            break;
        }
    }

    bool IsAccepted(WCHAR character) const
    {
        constexpr WCHAR CtrlBackspace = 127;
        bool printable = character >= u' ' && character != CtrlBackspace;
        bool digit = character >= u'0' && character <= u'9';
        return (Style() & ES_NUMBER) != 0 ? digit : printable;
    }

    // Deletes the selection, or else from the caret to `other`.
    void OnRubout(std::size_t other)
    {
        if (IsReadOnly())
        {
            return;
        }
        if (!m_text.HasSelection())
        {
            m_text.MoveCaret(other, true);
        }
        Replace({}, Undo::Whole);
    }

    void OnKey(WPARAM key)
    {
        bool shift = IsKeyDown(VK_SHIFT);
        bool control = IsKeyDown(VK_CONTROL);
        switch (key)
        {
        case VK_HOME:
            m_text.MoveCaret(0, shift);
            break;
        case VK_END:
            m_text.MoveCaret(m_text.Size(), shift);
            break;
        case VK_LEFT:
        case VK_UP:
            m_text.MoveCaret(control ? m_text.WordStart() : m_text.Before(), shift);
            break;
        case VK_RIGHT:
        case VK_DOWN:
            m_text.MoveCaret(control ? m_text.NextWord() : m_text.Behind(), shift);
            break;
        case VK_DELETE:
            if (shift)
            {
                Copy();
                Clear();
            }
            else
            {
                OnRubout(control ? m_text.Size() : m_text.Behind());
            }
            break;
        case VK_INSERT:
            if (shift)
            {
                Paste();
            }
            else if (control)
            {
                Copy();
            }
            break;
        case 'A':
            if (control)
            {
                m_text.Select(0, -1);
            }
            break;
        default:
            break;
        }
    }

    EditText m_text;
    std::size_t m_limit = DefaultLimit;
    bool m_modified = false;
};
}  // namespace

void RegisterEdit()
{
    RegisterControl<Edit>(u"Edit");
}
}  // namespace headless
