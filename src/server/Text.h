// Text positions as the protocol counts them and as the checker counts
// them. The protocol addresses a character by line and UTF-16 code unit;
// the checker by line and byte. Lines end at LF, CR LF or a lone CR.
#ifndef STRATAGEM_SERVER_TEXT_H
#define STRATAGEM_SERVER_TEXT_H

#include <cstddef>
#include <string>
#include <vector>

namespace stratagem::server {

struct Position
{
    int line = 0;       // 0-based
    int character = 0;  // 0-based, UTF-16 code units
};

struct TextRange
{
    Position start;
    Position end;  // exclusive
};

// A document's text with an index of its lines.
class Text
{
public:
    Text() = default;
    explicit Text(std::string content);

    std::string const &Content() const { return m_content; }
    int LineCount() const { return static_cast<int>(m_lineStarts.size()); }

    // The byte offset of a protocol position. A line past the end gives the
    // end of the text; a character past the end of its line gives the end
    // of the line; a position inside a surrogate pair gives the start of
    // its character.
    std::size_t Offset(Position position) const;
    // The protocol position of a 0-based line and byte column. A column
    // inside a character gives the position before that character, or after
    // it when `after` (the end of a range that ends inside it).
    Position ToPosition(int line, int byteColumn, bool after = false) const;
    // The protocol position of a byte offset.
    Position PositionAt(std::size_t offset) const;
    // The 0-based byte column of a protocol position within its line.
    int ByteColumn(Position position) const;
    // The bytes of a 0-based line, without its terminator.
    std::string Line(int line) const;

    // Replaces the text between two positions (in either order).
    void Replace(TextRange range, std::string const &replacement);
    void Assign(std::string content);

private:
    void IndexLines();
    std::size_t LineEnd(int line) const;

    std::string m_content;
    std::vector<std::size_t> m_lineStarts {0};
};

}  // namespace stratagem::server

#endif
