#include "edit_text.h"

#include <algorithm>
#include <iterator>

namespace headless
{
namespace
{
bool IsBlank(char16_t character)
{
    return character == u' ' || character == u'\t';
}
}  // namespace

void EditText::Set(std::u16string_view text)
{
    m_text = text;
    m_anchor = m_caret = 0;
    m_undo = Undo::None;
}

std::u16string_view EditText::Selected() const
{
    return std::u16string_view(m_text).substr(Start(), End() - Start());
}

void EditText::Select(int start, int end)
{
    auto clamp = [this](int position)
    { return position < 0 ? m_text.size() : std::min<std::size_t>(position, m_text.size()); };
    std::size_t anchor = start == -1 ? End() : clamp(start);
    m_caret = start == -1 ? anchor : clamp(end);
    m_anchor = anchor;
    EndRun();
}

void EditText::MoveCaret(std::size_t position, bool extend)
{
    m_caret = std::min(position, m_text.size());
    if (!extend)
    {
        m_anchor = m_caret;
    }
    EndRun();
}

std::size_t EditText::WordStart() const
{
    std::size_t position = m_caret;
    while (position > 0 && IsBlank(m_text[position - 1]))
    {
        --position;
    }
    while (position > 0 && !IsBlank(m_text[position - 1]))
    {
        --position;
    }
    return position;
}

std::size_t EditText::NextWord() const
{
    std::size_t position = m_caret;
    while (position < m_text.size() && !IsBlank(m_text[position]))
    {
        ++position;
    }
    while (position < m_text.size() && IsBlank(m_text[position]))
    {
        ++position;
    }
    return position;
}

void EditText::Replace(std::u16string_view text, Undo undo)
{
    if (undo == Undo::Whole || undo != m_undo)
    {
        m_before = m_text;
    }
    m_undo = undo;
    std::size_t start = Start();
    m_text.replace(start, End() - start, text);
    m_anchor = m_caret = start + text.size();
}

void EditText::TakeBack()
{
    m_text.swap(m_before);
    m_undo = Undo::Whole;
    auto [now, then] = std::mismatch(m_text.begin(), m_text.end(), m_before.begin(), m_before.end());
    auto tail = std::mismatch(m_text.rbegin(), std::make_reverse_iterator(now), m_before.rbegin(),
                              std::make_reverse_iterator(then));
    m_anchor = static_cast<std::size_t>(now - m_text.begin());
    m_caret = static_cast<std::size_t>(m_text.rend() - tail.first);
}

void EditText::EndRun()
{
    if (m_undo != Undo::None)
    {
        m_undo = Undo::Whole;
    }
}
}  // namespace headless
