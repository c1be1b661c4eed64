// Formatting and scanning of TCHAR text.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "tchar.h"

namespace
{
enum class Size
{
    Char,
    Short,
    Int,  // of 32 bits, and so is long
    Wide,
};

// The h, l and their like of a conversion. `narrow` and `wide` tell what they mean for text.
struct SizeMark
{
    Size size = Size::Int;
    bool narrow = false;
    bool wide = false;
};

bool Skip(LPCTSTR* format, std::u16string_view mark)
{
    bool found = std::u16string_view(*format).starts_with(mark);
    *format += found ? mark.size() : 0;
    return found;
}

SizeMark ReadSize(LPCTSTR* format)
{
    if (Skip(format, u"hh"))
    {
        return {Size::Char, true, false};
    }
    if (Skip(format, u"h"))
    {
        return {Size::Short, true, false};
    }
    if (Skip(format, u"ll") || Skip(format, u"I64") || Skip(format, u"z") || Skip(format, u"j"))
    {
        return {Size::Wide, false, false};
    }
    if (Skip(format, u"l") || Skip(format, u"w"))
    {
        return {Size::Int, false, true};
    }
    return {};
}

// One call's arguments. A class, so that functions can share the list by reference.
struct Arguments
{
    explicit Arguments(va_list start) { va_copy(list, start); }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;
    ~Arguments() { va_end(list); }

    std::int64_t Signed(Size size)
    {
        std::int64_t value = size == Size::Wide ? va_arg(list, long long) : va_arg(list, int);
        return size == Size::Char    ? static_cast<signed char>(value)
               : size == Size::Short ? static_cast<std::int16_t>(value)
                                     : value;
    }

    std::uint64_t Unsigned(Size size)
    {
        std::uint64_t value =
            size == Size::Wide ? va_arg(list, unsigned long long) : va_arg(list, unsigned int);
        return size == Size::Char    ? static_cast<std::uint8_t>(value)
               : size == Size::Short ? static_cast<std::uint16_t>(value)
                                     : value;
    }

    template <class Pointer>
    Pointer* Address()
    {
        return static_cast<Pointer*>(va_arg(list, void*));
    }

    void StoreNumber(Size size, std::uint64_t value)
    {
        void* target = va_arg(list, void*);
        std::size_t bytes = size == Size::Char ? 1 : size == Size::Short ? 2 : size == Size::Int ? 4 : 8;
        std::memcpy(target, &value, bytes);
    }

    va_list list;
};

struct Conversion
{
    std::string flags;
    int width = 0;
    int precision = -1;
    SizeMark size;
    TCHAR kind = 0;
};

int ReadCount(LPCTSTR* format, Arguments& arguments)
{
    if (Skip(format, u"*"))
    {
        return static_cast<int>(arguments.Signed(Size::Int));
    }
    LPTSTR end = nullptr;
    int count = _istdigit(**format) ? _tcstol(*format, &end, 10) : 0;
    *format = end == nullptr ? *format : end;
    return count;
}

Conversion ReadConversion(LPCTSTR* format, Arguments& arguments)
{
    Conversion conversion;
    while (**format != 0 && std::u16string_view(u"-+ #0").find(**format) != std::u16string_view::npos)
    {
        conversion.flags += static_cast<char>(*(*format)++);
    }
    conversion.width = ReadCount(format, arguments);
    if (conversion.width < 0)
    {
        conversion.flags += '-';
        conversion.width = -conversion.width;
    }
    if (Skip(format, u"."))
    {
        conversion.precision = ReadCount(format, arguments);
    }
    conversion.size = ReadSize(format);
    conversion.kind = **format;
    *format += conversion.kind != 0 ? 1 : 0;
    return conversion;
}

// The C runtime formats numbers; only the size of the argument is settled before.
std::u16string FormatNumber(const Conversion& conversion, Arguments& arguments)
{
    std::string format = "%" + conversion.flags + std::to_string(conversion.width);
    format += conversion.precision >= 0 ? "." + std::to_string(conversion.precision) : "";
    format += "ll";
    format += static_cast<char>(conversion.kind);
    bool isSigned = conversion.kind == u'd' || conversion.kind == u'i';
    auto value = isSigned ? static_cast<std::uint64_t>(arguments.Signed(conversion.size.size))
                          : arguments.Unsigned(conversion.size.size);
    std::string text(static_cast<std::size_t>(std::max(conversion.width, conversion.precision)) + 32, '\0');
    int length = std::snprintf(text.data(), text.size(), format.c_str(), value);
    return {text.begin(), text.begin() + length};
}

std::u16string FormatText(const Conversion& conversion, Arguments& arguments)
{
    auto limit = static_cast<std::size_t>(conversion.precision);  // none when there is no precision
    bool narrow = conversion.size.narrow || (conversion.kind == u'S' && !conversion.size.wide);
    if (!narrow)
    {
        auto* text = arguments.Address<const TCHAR>();
        text = text == nullptr ? u"(null)" : text;
        return {text, _tcsnlen(text, limit)};
    }
    auto* text = arguments.Address<const char>();
    text = text == nullptr ? "(null)" : text;
    return {text, text + strnlen(text, limit)};
}

std::u16string FormatItem(const Conversion& conversion, Arguments& arguments)
{
    std::u16string text;
    switch (conversion.kind)
    {
    case u'd':
    case u'i':
    case u'u':
    case u'x':
    case u'X':
    case u'o':
        return FormatNumber(conversion, arguments);
    case u'p':
        return FormatNumber({"0", 16, -1, {Size::Wide, false, false}, u'X'}, arguments);
    case u'c':
        text.assign(1, static_cast<TCHAR>(arguments.Unsigned(Size::Short)));
        break;
    case u's':
    case u'S':
        text = FormatText(conversion, arguments);
        break;
    default:
        return std::u16string(1, conversion.kind);  // %% and what is no conversion
    }
    auto width = static_cast<std::size_t>(conversion.width);
    if (text.size() < width)
    {
        bool left = conversion.flags.find('-') != std::string::npos;
        text.insert(left ? text.size() : 0, width - text.size(), u' ');
    }
    return text;
}

std::u16string Format(LPCTSTR format, va_list list)
{
    Arguments arguments(list);
    std::u16string text;
    while (*format != 0)
    {
        if (!Skip(&format, u"%"))
        {
            text += *format++;
            continue;
        }
        Conversion conversion = ReadConversion(&format, arguments);
        if (conversion.kind == u'n')
        {
            arguments.StoreNumber(conversion.size.size, text.size());
        }
        else if (conversion.kind != 0)
        {
            text += FormatItem(conversion, arguments);
        }
    }
    return text;
}

void SkipBlanks(LPCTSTR* text)
{
    while (_istspace(**text))
    {
        ++*text;
    }
}

}  // namespace

int _vsntprintf(LPTSTR buffer, size_t size, LPCTSTR format, va_list arguments)
{
    std::u16string text = Format(format, arguments);
    std::size_t copied = text.copy(buffer, size);
    if (copied < size)
    {
        buffer[copied] = 0;
    }
    return copied < text.size() ? -1 : static_cast<int>(copied);
}

int _sntprintf(LPTSTR buffer, size_t size, LPCTSTR format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    int length = _vsntprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

int _sntscanf(LPCTSTR text, size_t size, LPCTSTR format, ...)
{
    if (_tcscmp(format, u"%x") != 0)
    {
        std::abort();
    }
    const std::u16string input(text, _tcsnlen(text, size));
    LPCTSTR at = input.c_str();
    SkipBlanks(&at);
    if (*at == 0)
    {
        return EOF;
    }
    const bool isNegative = *at == u'-';
    at += isNegative || *at == u'+' ? 1 : 0;
    if (!Skip(&at, u"0x"))
    {
        Skip(&at, u"0X");
    }
    if (!_istxdigit(*at))
    {
        return 0;
    }
    unsigned number = 0;
    for (; _istxdigit(*at); ++at)
    {
        number = number << 4 | static_cast<unsigned>(_istdigit(*at) ? *at - u'0' : (*at & 0x5F) - u'A' + 10);
    }
    va_list arguments;
    va_start(arguments, format);
    *va_arg(arguments, unsigned*) = isNegative ? 0 - number : number;
    va_end(arguments);
    return 1;
}
