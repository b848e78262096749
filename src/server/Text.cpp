#include "Text.h"

#include <algorithm>
#include <cstring>

namespace stratagem::server {

namespace {

// The length of the UTF-8 sequence that starts with `lead` and the UTF-16
// units it takes; a malformed or cut sequence is one byte, one unit.
struct Sequence
{
    std::size_t bytes;
    int units;
};

Sequence SequenceAt(char const *text, std::size_t size)
{
    auto const byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    unsigned char const lead = byte(0);
    std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 && lead < 0xF5 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
    if (length == 0 || length > size)
        return {1, 1};
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0) != 0x80)
            return {1, 1};
    return {length, length == 4 ? 2 : 1};
}

}  // namespace

Text::Text(std::string content) : m_content(std::move(content)) { IndexLines(); }

void Text::Assign(std::string content)
{
    m_content = std::move(content);
    IndexLines();
}

void Text::IndexLines()
{
    m_lineStarts.assign(1, 0);
    std::size_t const size = m_content.size();
    char const *const data = m_content.data();
    // Without carriage returns a line ends only at a line feed, and the
    // line feeds are found a word at a time.
    if (!std::memchr(data, '\r', size)) {
        for (void const *found = std::memchr(data, '\n', size); found;) {
            std::size_t const next = static_cast<char const *>(found) - data + 1;
            m_lineStarts.push_back(next);
            found = std::memchr(data + next, '\n', size - next);
        }
        return;
    }
    for (std::size_t i = 0; i < size; ++i) {
        char const c = m_content[i];
        if (c == '\r' && i + 1 < size && m_content[i + 1] == '\n')
            ++i;
        if (c == '\n' || c == '\r')
            m_lineStarts.push_back(i + 1);
    }
}

std::size_t Text::LineEnd(int line) const
{
    std::size_t const next = line + 1 < LineCount() ? m_lineStarts[line + 1] : m_content.size();
    std::size_t end = next;
    if (end > m_lineStarts[line] && line + 1 < LineCount() && m_content[end - 1] == '\n')
        --end;
    if (end > m_lineStarts[line] && line + 1 < LineCount() && m_content[end - 1] == '\r')
        --end;
    return end;
}

std::string Text::Line(int line) const
{
    if (line < 0 || line >= LineCount())
        return {};
    return m_content.substr(m_lineStarts[line], LineEnd(line) - m_lineStarts[line]);
}

std::size_t Text::Offset(Position position) const
{
    if (position.line < 0)
        return 0;
    if (position.line >= LineCount())
        return m_content.size();
    std::size_t i = m_lineStarts[position.line];
    std::size_t const end = LineEnd(position.line);
    int units = 0;
    while (i < end) {
        Sequence const s = SequenceAt(m_content.data() + i, end - i);
        if (units + s.units > position.character)
            break;
        units += s.units;
        i += s.bytes;
    }
    return i;
}

int Text::ByteColumn(Position position) const
{
    if (position.line < 0 || position.line >= LineCount())
        return 0;
    return static_cast<int>(Offset(position) - m_lineStarts[position.line]);
}

Position Text::ToPosition(int line, int byteColumn, bool after) const
{
    if (line < 0)
        return {0, 0};
    if (line >= LineCount())
        return PositionAt(m_content.size());
    std::size_t const start = m_lineStarts[line];
    std::size_t const end = LineEnd(line);
    std::size_t const column = start + std::min<std::size_t>(std::max(byteColumn, 0), end - start);
    int units = 0;
    for (std::size_t i = start; i < column;) {
        Sequence const s = SequenceAt(m_content.data() + i, end - i);
        if (i + s.bytes > column && !after)
            break;
        units += s.units;
        i += s.bytes;
    }
    return {line, units};
}

Position Text::PositionAt(std::size_t offset) const
{
    offset = std::min(offset, m_content.size());
    auto const after = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), offset);
    int const line = static_cast<int>(after - m_lineStarts.begin()) - 1;
    return ToPosition(line, static_cast<int>(offset - m_lineStarts[line]));
}

void Text::Replace(TextRange range, std::string const &replacement)
{
    std::size_t start = Offset(range.start);
    std::size_t end = Offset(range.end);
    if (end < start)
        std::swap(start, end);
    m_content.replace(start, end - start, replacement);
    IndexLines();
}

}  // namespace stratagem::server
