// Dialog templates of sheets and pages.
#include <cstring>

#include "commctrl.h"
#include "propertysheet.h"

namespace
{
constexpr WORD ButtonClass = 0x80;

// Steps through a template, which is a row of words of both kinds: the older, and the extended.
class TemplateReader
{
public:
    explicit TemplateReader(LPCDLGTEMPLATEW given)
        : m_begin(reinterpret_cast<const WORD*>(given)), m_at(m_begin)
    {
    }

    bool IsExtended() const { return m_begin[0] == 1 && m_begin[1] == 0xFFFF; }
    std::size_t Bytes() const { return static_cast<std::size_t>(m_at - m_begin) * sizeof(WORD); }
    WORD Read() { return *m_at++; }
    DWORD ReadLong()
    {
        const DWORD low = Read();
        return low | static_cast<DWORD>(Read()) << 16;
    }
    void Skip(std::size_t words) { m_at += words; }
    void Align() { m_at += (m_at - m_begin) % 2; }

    // A text, or the number that stands for one.
    std::u16string ReadName()
    {
        std::u16string text;
        if (*m_at == 0xFFFF)
        {
            Skip(2);
            return text;
        }
        while (const WORD unit = Read())
        {
            text.push_back(unit);
        }
        return text;
    }

private:
    const WORD* m_begin;
    const WORD* m_at;
};

class TemplateWriter
{
public:
    void Add(int word) { m_words.push_back(static_cast<WORD>(word)); }
    void AddLong(DWORD number)
    {
        Add(LOWORD(number));
        Add(HIWORD(number));
    }
    void AddText(LPCWSTR text)
    {
        for (; *text != 0; ++text)
        {
            Add(*text);
        }
        Add(0);
    }
    void AddItem(LPCWSTR className, LPCWSTR text, int id, DWORD style)
    {
        m_words.resize((m_words.size() + 1) / 2 * 2);
        AddLong(style | WS_CHILD);
        AddLong(WS_EX_NOPARENTNOTIFY);
        // The size of a button; the sheet lays its controls out when it knows its pages.
        for (const int word : {0, 0, 50, 14, id})
        {
            Add(word);
        }
        if (className == nullptr)
        {
            Add(0xFFFF);
            Add(ButtonClass);
        }
        else
        {
            AddText(className);
        }
        AddText(text);
        Add(0);
    }
    std::vector<WORD> Take() { return std::move(m_words); }

private:
    std::vector<WORD> m_words;
};
}  // namespace

headless::TemplateFacts headless::ReadPageTemplate(LPCDLGTEMPLATEW dialogTemplate)
{
    TemplateFacts facts = {};
    TemplateReader reader(dialogTemplate);
    const bool extended = reader.IsExtended();
    reader.Skip(extended ? 6 : 0);
    const DWORD style = reader.ReadLong();
    reader.Skip(extended ? 0 : 2);
    const WORD items = reader.Read();
    reader.Skip(2);
    facts.size = {static_cast<short>(reader.Read()), 0};
    facts.size.cy = static_cast<short>(reader.Read());
    reader.ReadName();
    reader.ReadName();
    facts.title = reader.ReadName();
    if ((style & DS_SETFONT) != 0)
    {
        reader.Skip(extended ? 3 : 1);
        reader.ReadName();
    }
    for (WORD item = 0; item < items; ++item)
    {
        reader.Align();
        reader.Skip(extended ? 12 : 9);
        reader.ReadName();
        reader.ReadName();
        const WORD extra = reader.Read();
        // The older kind counts the length's own word.
        const std::size_t bytes = extended || extra == 0 ? extra : extra - sizeof(WORD);
        reader.Skip((bytes + 1) / sizeof(WORD));
    }
    facts.bytes = reader.Bytes();
    return facts;
}

std::vector<BYTE> headless::MakePageTemplate(LPCDLGTEMPLATEW dialogTemplate)
{
    const auto* begin = reinterpret_cast<const BYTE*>(dialogTemplate);
    std::vector<BYTE> copy(begin, begin + ReadPageTemplate(dialogTemplate).bytes);
    const bool extended = TemplateReader(dialogTemplate).IsExtended();
    BYTE* exStyleAt = copy.data() + (extended ? 8 : 4);
    BYTE* styleAt = copy.data() + (extended ? 12 : 0);
    DWORD style = 0;
    DWORD exStyle = 0;
    std::memcpy(&style, styleAt, sizeof(style));
    std::memcpy(&exStyle, exStyleAt, sizeof(exStyle));
    style &= ~static_cast<DWORD>(DS_MODALFRAME | WS_CAPTION | WS_SYSMENU | WS_POPUP | WS_DISABLED |
                                 WS_VISIBLE | WS_THICKFRAME);
    style |= WS_CHILD | WS_TABSTOP | DS_CONTROL | DS_3DLOOK;
    exStyle |= WS_EX_CONTROLPARENT;
    std::memcpy(styleAt, &style, sizeof(style));
    std::memcpy(exStyleAt, &exStyle, sizeof(exStyle));
    return copy;
}

std::vector<WORD> headless::MakeSheetTemplate(LPCWSTR caption)
{
    TemplateWriter writer;
    writer.AddLong(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_3DLOOK | DS_SETFONT |
                   DS_CONTEXTHELP);
    writer.AddLong(WS_EX_CONTROLPARENT);
    for (const int word : {5, 0, 0, 100, 100, 0, 0})  // count of controls, place, size, no menu, usual class
    {
        writer.Add(word);
    }
    writer.AddText(caption);
    writer.Add(8);
    writer.AddText(u"MS Shell Dlg");
    writer.AddItem(nullptr, u"OK", IDOK, BS_DEFPUSHBUTTON | WS_VISIBLE | WS_GROUP | WS_TABSTOP);
    writer.AddItem(nullptr, u"Cancel", IDCANCEL, WS_VISIBLE | WS_TABSTOP);
    writer.AddItem(nullptr, u"&Apply", 0x3021, WS_VISIBLE | WS_TABSTOP | WS_DISABLED);
    writer.AddItem(nullptr, u"Help", 9, WS_TABSTOP | WS_GROUP | WS_DISABLED);
    writer.AddItem(WC_TABCONTROLW, u"", 0x3020,
                   WS_VISIBLE | WS_CLIPSIBLINGS | WS_GROUP | WS_TABSTOP | TCS_MULTILINE);
    return writer.Take();
}
