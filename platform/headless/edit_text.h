// What an edit holds: a line of text, the selection, and one step back.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace headless
{
class EditText
{
public:
    // How a replacement is taken back: not at all, for itself, or with the run of typing that it goes on.
    enum class Undo
    {
        None,
        Whole,
        Typing
    };

    const std::u16string& Text() const { return m_text; }
    std::size_t Size() const { return m_text.size(); }
    // Selects nothing, at the start, and forgets what could be taken back.
    void Set(std::u16string_view text);

    std::size_t Start() const { return m_anchor < m_caret ? m_anchor : m_caret; }
    std::size_t End() const { return m_anchor < m_caret ? m_caret : m_anchor; }
    bool HasSelection() const { return m_anchor != m_caret; }
    std::u16string_view Selected() const;
    // As EM_SETSEL: a start of -1 drops the selection where it ends, an end of -1 is the text's.
    void Select(int start, int end);
    // Moves the selection's moving end, and the other along unless the selection extends.
    void MoveCaret(std::size_t position, bool extend);

    // Places that the keys go to.
    std::size_t Before() const { return m_caret == 0 ? 0 : m_caret - 1; }
    std::size_t Behind() const { return m_caret == m_text.size() ? m_caret : m_caret + 1; }
    std::size_t WordStart() const;
    std::size_t NextWord() const;

    // Puts the text in place of the selection.
    void Replace(std::u16string_view text, Undo undo);

    bool CanUndo() const { return m_undo != Undo::None; }
    void DropUndo() { m_undo = Undo::None; }
    // Selects what has come back; taken back once more, the change stands again.
    void TakeBack();

private:
    void EndRun();

    std::u16string m_text;
    std::u16string m_before;  // the text that TakeBack brings back
    std::size_t m_anchor = 0;
    std::size_t m_caret = 0;
    Undo m_undo = Undo::None;
};
}  // namespace headless
