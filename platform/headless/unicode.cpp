#include "unicode.h"

#include "tchar.h"
#include "winbase.h"

namespace headless
{
namespace
{
constexpr char32_t Replacement = 0xFFFD;

bool IsSurrogate(char32_t character)
{
    return character >= 0xD800 && character <= 0xDFFF;
}

// Reads one character and moves past it, or past one byte that starts none.
char32_t TakeUtf8(std::string_view* text)
{
    auto first = static_cast<unsigned char>(text->front());
    std::size_t length = first < 0x80       ? 1
                         : first >> 5 == 6  ? 2
                         : first >> 4 == 14 ? 3
                         : first >> 3 == 30 ? 4
                                            : 0;
    char32_t character = length <= 1 ? first : first & (0x7F >> length);
    bool valid = length > 0 && length <= text->size();
    for (std::size_t i = 1; valid && i < length; ++i)
    {
        auto next = static_cast<unsigned char>((*text)[i]);
        valid = next >> 6 == 2;
        character = character << 6 | (next & 0x3F);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    valid = valid && character >= smallest[length] && character <= 0x10FFFF && !IsSurrogate(character);
    text->remove_prefix(valid ? length : 1);
    return valid ? character : Replacement;
}

char32_t TakeUtf16(std::u16string_view* text)
{
    char32_t first = text->front();
    text->remove_prefix(1);
    if (!IsSurrogate(first))
    {
        return first;
    }
    if (first >= 0xDC00 || text->empty() || text->front() >> 10 != 0x37)
    {
        return Replacement;
    }
    char32_t second = text->front();
    text->remove_prefix(1);
    return 0x10000 + ((first & 0x3FF) << 10) + (second & 0x3FF);
}
}  // namespace

std::u16string ToWide(std::string_view text)
{
    std::u16string wide;
    while (!text.empty())
    {
        char32_t character = TakeUtf8(&text);
        if (character < 0x10000)
        {
            wide += static_cast<char16_t>(character);
            continue;
        }
        wide += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
        wide += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    }
    return wide;
}

std::string ToNarrow(std::u16string_view text)
{
    std::string narrow;
    while (!text.empty())
    {
        char32_t character = TakeUtf16(&text);
        int following = character < 0x80 ? 0 : character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
        constexpr unsigned mark[] = {0, 0xC0, 0xE0, 0xF0};
        narrow += static_cast<char>(mark[following] | character >> (6 * following));
        for (int i = following - 1; i >= 0; --i)
        {
            narrow += static_cast<char>(0x80 | (character >> (6 * i) & 0x3F));
        }
    }
    return narrow;
}

std::size_t CopyText(char16_t* buffer, std::size_t size, std::u16string_view text)
{
    if (buffer == nullptr || size == 0)
    {
        return 0;
    }
    const std::size_t length = text.copy(buffer, size - 1);
    buffer[length] = u'\0';
    return length;
}
}  // namespace headless

int WINAPI lstrlenW(LPCWSTR text)
{
    return text == nullptr ? 0 : static_cast<int>(_tcslen(text));
}

int WINAPI lstrcmpiW(LPCWSTR left, LPCWSTR right)
{
    return _tcsicmp(left == nullptr ? u"" : left, right == nullptr ? u"" : right);
}
