// Comparing, searching and copying of TCHAR text, and the numbers in it.
#include <cstring>
#include <limits>
#include <string_view>

#include "tchar.h"

namespace
{
using View = std::u16string_view;

template <class Character>
Character* At(Character* text, std::size_t position)
{
    return position == View::npos ? nullptr : text + position;
}

int Compare(LPCTSTR left, LPCTSTR right, std::size_t count, bool ignoreCase)
{
    for (std::size_t i = 0; i < count; ++i)
    {
        _TINT a = ignoreCase ? _totlower(left[i]) : left[i];
        _TINT b = ignoreCase ? _totlower(right[i]) : right[i];
        if (a != b)
        {
            return a < b ? -1 : 1;
        }
        if (a == 0)
        {
            break;
        }
    }
    return 0;
}

int DigitValue(TCHAR character)
{
    if (_istdigit(character))
    {
        return character - u'0';
    }
    return _istalpha(character) ? static_cast<int>(_totlower(character)) - 'a' + 10 : 36;
}

struct ParsedNumber
{
    std::uint64_t magnitude;  // the largest number there is, if the text has a larger one
    bool negative;
    LPCTSTR end;  // the start of the text when there is no number
};

ParsedNumber ParseNumber(LPCTSTR text, int base)
{
    constexpr std::uint64_t limit = std::numeric_limits<std::uint64_t>::max();
    LPCTSTR at = text;
    while (_istspace(*at))
    {
        ++at;
    }
    bool negative = *at == u'-';
    at += *at == u'-' || *at == u'+' ? 1 : 0;
    bool hexMark = at[0] == u'0' && (at[1] | 0x20) == u'x' && DigitValue(at[2]) < 16;
    if (base == 0)
    {
        base = hexMark ? 16 : *at == u'0' ? 8 : 10;
    }
    at += base == 16 && hexMark ? 2 : 0;
    ParsedNumber number = {0, negative, text};
    for (; DigitValue(*at) < base; ++at)
    {
        const auto digit = static_cast<std::uint64_t>(DigitValue(*at));
        const auto factor = static_cast<std::uint64_t>(base);
        number.magnitude =
            number.magnitude > (limit - digit) / factor ? limit : number.magnitude * factor + digit;
        number.end = at + 1;
    }
    return number;
}

void StoreEnd(LPTSTR* end, LPCTSTR position)
{
    if (end != nullptr)
    {
        *end = const_cast<LPTSTR>(position);
    }
}
}  // namespace

size_t _tcslen(LPCTSTR text)
{
    return View(text).size();
}

size_t _tcsnlen(LPCTSTR text, size_t limit)
{
    size_t length = 0;
    while (length < limit && text[length] != 0)
    {
        ++length;
    }
    return length;
}

int _tcscmp(LPCTSTR left, LPCTSTR right)
{
    return Compare(left, right, View::npos, false);
}

int _tcsicmp(LPCTSTR left, LPCTSTR right)
{
    return Compare(left, right, View::npos, true);
}

int _tcsnicmp(LPCTSTR left, LPCTSTR right, size_t count)
{
    return Compare(left, right, count, true);
}

const TCHAR* _tcschr(const TCHAR* text, TCHAR character)
{
    return character == 0 ? text + _tcslen(text) : At(text, View(text).find(character));
}

TCHAR* _tcschr(TCHAR* text, TCHAR character)
{
    return const_cast<TCHAR*>(_tcschr(static_cast<const TCHAR*>(text), character));
}

const TCHAR* _tcsrchr(const TCHAR* text, TCHAR character)
{
    return character == 0 ? text + _tcslen(text) : At(text, View(text).rfind(character));
}

TCHAR* _tcsrchr(TCHAR* text, TCHAR character)
{
    return const_cast<TCHAR*>(_tcsrchr(static_cast<const TCHAR*>(text), character));
}

const TCHAR* _tcsstr(const TCHAR* text, const TCHAR* part)
{
    return At(text, View(text).find(part));
}

TCHAR* _tcsstr(TCHAR* text, const TCHAR* part)
{
    return At(text, View(text).find(part));
}

const TCHAR* _tcspbrk(const TCHAR* text, const TCHAR* characters)
{
    return At(text, View(text).find_first_of(characters));
}

TCHAR* _tcspbrk(TCHAR* text, const TCHAR* characters)
{
    return At(text, View(text).find_first_of(characters));
}

LPTSTR _tcscpy(LPTSTR target, LPCTSTR source)
{
    std::memcpy(target, source, (_tcslen(source) + 1) * sizeof(TCHAR));
    return target;
}

LONG _tcstol(LPCTSTR text, LPTSTR* end, int base)
{
    ParsedNumber number = ParseNumber(text, base);
    StoreEnd(end, number.end);
    // Beyond both ends of LONG.
    constexpr std::uint64_t enough = std::uint64_t{1} << 40;
    auto value = static_cast<std::int64_t>(number.magnitude < enough ? number.magnitude : enough);
    value = number.negative ? -value : value;
    value = value < std::numeric_limits<LONG>::min() ? std::numeric_limits<LONG>::min() : value;
    return static_cast<LONG>(value > std::numeric_limits<LONG>::max() ? std::numeric_limits<LONG>::max()
                                                                      : value);
}

ULONG _tcstoul(LPCTSTR text, LPTSTR* end, int base)
{
    ParsedNumber number = ParseNumber(text, base);
    StoreEnd(end, number.end);
    constexpr ULONG max = std::numeric_limits<ULONG>::max();
    ULONG value = number.magnitude > max ? max : static_cast<ULONG>(number.magnitude);
    return number.negative ? 0 - value : value;
}

int _istdigit(_TINT character)
{
    return character >= u'0' && character <= u'9';
}

int _istxdigit(_TINT character)
{
    _TINT lower = _totlower(character);
    return _istdigit(character) || (lower >= u'a' && lower <= u'f');
}

int _istspace(_TINT character)
{
    return character == u' ' || (character >= u'\t' && character <= u'\r');
}

int _istalpha(_TINT character)
{
    _TINT lower = _totlower(character);
    return lower >= u'a' && lower <= u'z';
}

_TINT _totlower(_TINT character)
{
    return character >= u'A' && character <= u'Z' ? character + 32 : character;
}
