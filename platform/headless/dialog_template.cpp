#include "dialog_template.h"

#include <cstring>

namespace headless
{
namespace
{
constexpr WORD Ordinal = 0xFFFF;

// A template has no length of its own: it is as long as what it says.
class TemplateReader
{
public:
    explicit TemplateReader(const void* start) : m_start(static_cast<const BYTE*>(start)), m_at(m_start) {}

    template <class Number>
    Number Read()
    {
        Number number = 0;
        std::memcpy(&number, m_at, sizeof(number));
        m_at += sizeof(number);
        return number;
    }

    WORD Peek() const
    {
        WORD word = 0;
        std::memcpy(&word, m_at, sizeof(word));
        return word;
    }

    std::u16string ReadText()
    {
        std::u16string text;
        for (WORD unit = Read<WORD>(); unit != 0; unit = Read<WORD>())
        {
            text.push_back(static_cast<char16_t>(unit));
        }
        return text;
    }

    TemplateName ReadName()
    {
        if (Peek() != Ordinal)
        {
            return {0, ReadText()};
        }
        Read<WORD>();
        return {Read<WORD>(), {}};
    }

    RECT ReadPlace()
    {
        RECT place = {};
        for (LONG* number : {&place.left, &place.top, &place.right, &place.bottom})
        {
            *number = Read<SHORT>();
        }
        return place;
    }

    std::vector<BYTE> ReadBytes(std::size_t count)
    {
        std::vector<BYTE> bytes(m_at, m_at + count);
        m_at += count;
        return bytes;
    }

    void Align() { m_at += (4 - static_cast<std::size_t>(m_at - m_start) % 4) % 4; }

private:
    const BYTE* m_start;
    const BYTE* m_at;
};

TemplateControl ReadControl(TemplateReader& reader, bool extended)
{
    TemplateControl control;
    reader.Align();
    if (extended)
    {
        reader.Read<DWORD>();  // help id
        control.exStyle = reader.Read<DWORD>();
        control.style = reader.Read<DWORD>();
    }
    else
    {
        control.style = reader.Read<DWORD>();
        control.exStyle = reader.Read<DWORD>();
    }
    control.rect = reader.ReadPlace();
    control.id = extended ? reader.Read<LONG>() : reader.Read<WORD>();
    control.className = reader.ReadName();
    control.text = reader.ReadName();
    const auto dataSize = reader.Read<WORD>();
    // In the old kind the size counts itself.
    const std::size_t ownSize = !extended && dataSize != 0 ? sizeof(WORD) : 0;
    control.data = reader.ReadBytes(dataSize - ownSize);
    return control;
}
}  // namespace

DialogTemplate ReadTemplate(LPCDLGTEMPLATEW source)
{
    DialogTemplate result;
    TemplateReader reader(source);
    WORD head[2] = {};
    std::memcpy(head, source, sizeof(head));
    const bool extended = head[0] == 1 && head[1] == 0xFFFF;
    if (extended)
    {
        reader.Read<DWORD>();  // version and signature
        reader.Read<DWORD>();  // help id
        result.exStyle = reader.Read<DWORD>();
        result.style = reader.Read<DWORD>();
    }
    else
    {
        result.style = reader.Read<DWORD>();
        result.exStyle = reader.Read<DWORD>();
    }
    const auto controls = reader.Read<WORD>();
    result.rect = reader.ReadPlace();
    reader.ReadName();  // menu
    result.className = reader.ReadName();
    result.title = reader.ReadText();
    result.hasFont = (result.style & DS_SETFONT) != 0;
    if (result.hasFont)
    {
        result.pointSize = reader.Read<WORD>();
        if (extended)
        {
            reader.Read<DWORD>();  // weight, italic, character set
        }
        result.fontName = reader.ReadText();
    }
    for (WORD i = 0; i < controls; ++i)
    {
        result.controls.push_back(ReadControl(reader, extended));
    }
    return result;
}
}  // namespace headless
