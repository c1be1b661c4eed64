// Keys. They come as posted messages only; which are held down is what SetKeyboardState says.
#include <algorithm>
#include <array>

#include "window.h"

namespace headless
{
namespace
{
std::array<BYTE, 256>& Keys()
{
    static std::array<BYTE, 256> keys = {};
    return keys;
}

bool Held(int key)
{
    return (Keys()[static_cast<std::size_t>(key)] & 0x80) != 0;
}

struct KeyCharacters
{
    int key;
    WCHAR plain;
    WCHAR shifted;
};

// The US layout, besides letters and the number pad.
constexpr KeyCharacters Layout[] = {
    {'0', u'0', u')'},          {'1', u'1', u'!'},           {'2', u'2', u'@'},
    {'3', u'3', u'#'},          {'4', u'4', u'$'},           {'5', u'5', u'%'},
    {'6', u'6', u'^'},          {'7', u'7', u'&'},           {'8', u'8', u'*'},
    {'9', u'9', u'('},          {VK_SPACE, u' ', u' '},      {VK_BACK, u'\b', u'\b'},
    {VK_TAB, u'\t', u'\t'},     {VK_RETURN, u'\r', u'\r'},   {VK_ESCAPE, 0x1B, 0x1B},
    {VK_OEM_1, u';', u':'},     {VK_OEM_PLUS, u'=', u'+'},   {VK_OEM_COMMA, u',', u'<'},
    {VK_OEM_MINUS, u'-', u'_'}, {VK_OEM_PERIOD, u'.', u'>'}, {VK_OEM_2, u'/', u'?'},
    {VK_OEM_3, u'`', u'~'},     {VK_OEM_4, u'[', u'{'},      {VK_OEM_5, u'\\', u'|'},
    {VK_OEM_6, u']', u'}'},     {VK_OEM_7, u'\'', u'"'},     {VK_MULTIPLY, u'*', u'*'},
    {VK_ADD, u'+', u'+'},       {VK_SUBTRACT, u'-', u'-'},   {VK_DECIMAL, u'.', u'.'},
    {VK_DIVIDE, u'/', u'/'},
};

const KeyCharacters* FindKey(int key)
{
    const auto* found = std::find_if(std::begin(Layout), std::end(Layout),
                                     [&](const KeyCharacters& candidate) { return candidate.key == key; });
    return found == std::end(Layout) ? nullptr : found;
}

WCHAR ControlCharacter(int key)
{
    if (key >= 'A' && key <= 'Z')
    {
        return static_cast<WCHAR>(key - 'A' + 1);
    }
    switch (key)
    {
    case VK_BACK:
        return 0x7F;
    case VK_RETURN:
        return u'\n';
    case VK_SPACE:
    case VK_ESCAPE:
        return static_cast<WCHAR>(key);
    default:
        return 0;
    }
}

// 0 for a key that makes no character.
WCHAR CharacterOf(int key)
{
    if (Held(VK_CONTROL) && !Held(VK_MENU))
    {
        return ControlCharacter(key);
    }
    if (key >= 'A' && key <= 'Z')
    {
        const bool capital = Held(VK_SHIFT) != ((GetKeyState(VK_CAPITAL) & 1) != 0);
        return static_cast<WCHAR>(capital ? key : key - 'A' + 'a');
    }
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9)
    {
        return static_cast<WCHAR>(key - VK_NUMPAD0 + '0');
    }
    const KeyCharacters* found = FindKey(key);
    if (found == nullptr)
    {
        return 0;
    }
    return Held(VK_SHIFT) ? found->shifted : found->plain;
}
}  // namespace
}  // namespace headless

using namespace headless;

BOOL WINAPI TranslateMessage(const MSG* message)
{
    const bool system = message->message == WM_SYSKEYDOWN;
    if (message->message != WM_KEYDOWN && !system)
    {
        return message->message == WM_KEYUP || message->message == WM_SYSKEYUP;
    }
    const WCHAR character = CharacterOf(static_cast<int>(message->wParam & 0xFF));
    if (character != 0)
    {
        PostMessageW(message->hwnd, system ? WM_SYSCHAR : WM_CHAR, character, message->lParam);
    }
    return TRUE;
}

SHORT WINAPI GetKeyState(int key)
{
    const BYTE state = Keys()[static_cast<std::size_t>(key) & 0xFF];
    return static_cast<SHORT>(((state & 0x80) != 0 ? -0x80 : 0) | (state & 1));
}

BOOL WINAPI GetKeyboardState(PBYTE state)
{
    std::copy(Keys().begin(), Keys().end(), state);
    return TRUE;
}

BOOL WINAPI SetKeyboardState(LPBYTE state)
{
    std::copy(state, state + Keys().size(), Keys().begin());
    return TRUE;
}
