// Positions in UTF-16 code units against byte columns, line terminators,
// clamping of positions outside the text, and incremental edits.
#include <gtest/gtest.h>

#include "server/Text.h"

using stratagem::server::Position;
using stratagem::server::Text;
using stratagem::server::TextRange;

namespace {

// "é" is 2 bytes and 1 unit; "€" 3 bytes, 1 unit; "😀" 4 bytes, 2 units.
std::string const kMixed = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z";

TEST(Text, ConvertsBetweenUnitsAndBytes)
{
    Text const text("(x)\n" + kMixed + "\r\nlast");
    // Rows: position, offset (from the start of the text).
    std::pair<Position, std::size_t> const rows[] = {
        {{0, 0}, 0},  {{0, 3}, 3},  {{0, 99}, 3},                              // past the end of a line: its end
        {{1, 0}, 4},  {{1, 1}, 5},  {{1, 2}, 7},  {{1, 3}, 10}, {{1, 4}, 10},  // inside the surrogate pair: its start
        {{1, 5}, 14}, {{1, 6}, 15}, {{1, 7}, 15},                              // CR LF is not part of the line
        {{2, 0}, 17}, {{2, 4}, 21}, {{9, 0}, 21},                              // past the last line: the end
    };
    for (auto const &[position, offset] : rows)
        EXPECT_EQ(offset, text.Offset(position)) << position.line << ":" << position.character;
    std::pair<std::size_t, Position> const backs[]
        = {{0, {0, 0}}, {5, {1, 1}}, {7, {1, 2}}, {14, {1, 5}}, {15, {1, 6}}, {17, {2, 0}}, {99, {2, 4}}};
    for (auto const &[offset, expectedPosition] : backs) {
        Position const position = text.PositionAt(offset);
        EXPECT_EQ(expectedPosition.line, position.line) << offset;
        EXPECT_EQ(expectedPosition.character, position.character) << offset;
    }
}

TEST(Text, CountsLinesOfEveryTerminator)
{
    std::tuple<std::string, int, std::string> const rows[]
        = {{"", 1, ""},       {"a", 1, "a"},  {"a\n", 2, ""},         {"a\r\nb", 2, "b"},    {"a\rb\rc", 3, "c"},
           {"\n\n\n", 4, ""}, {"a\r", 2, ""}, {"x\r\n\r\ny", 3, "y"}, {"a\nbb\n\nc", 4, "c"}};
    for (auto const &[content, lines, lastLine] : rows) {
        Text const text(content);
        EXPECT_EQ(lines, text.LineCount()) << content;
        EXPECT_EQ(lastLine, text.Line(text.LineCount() - 1)) << content;
    }
}

TEST(Text, AppliesRangeEdits)
{
    std::tuple<char const *, std::string, TextRange, std::string, std::string> const rows[] = {
        {"insert", "(a b)", {{0, 3}, {0, 3}}, "x ", "(a x b)"},
        {"delete across lines", "one\ntwo\nthree", {{0, 2}, {2, 1}}, "", "onhree"},
        {"replace after a wide character", kMixed, {{0, 3}, {0, 5}}, "!", "a\xC3\xA9\xE2\x82\xAC!z"},
        {"insert a line", "a\nb", {{1, 0}, {1, 0}}, "new\n", "a\nnew\nb"},
        {"append past the end", "a", {{5, 0}, {5, 0}}, "\nb", "a\nb"},
        {"reversed range", "abcdef", {{0, 4}, {0, 1}}, "-", "a-ef"},
        {"whole line with CR LF", "a\r\nb\r\nc", {{1, 0}, {2, 0}}, "", "a\r\nc"},
    };
    for (auto const &[name, before, range, replacement, after] : rows) {
        Text text(before);
        text.Replace(range, replacement);
        EXPECT_EQ(after, text.Content()) << name;
        // The line index follows the edit.
        EXPECT_EQ(Text(after).LineCount(), text.LineCount()) << name;
    }
}

TEST(Text, ConvertsByteColumnsOfMalformedText)
{
    // A lone continuation byte and a cut sequence count one unit per byte.
    Text const text("\x80x\xE2\x82");
    EXPECT_EQ(1, text.ToPosition(0, 1).character);
    EXPECT_EQ(4, text.ToPosition(0, 4).character);
    EXPECT_EQ(3u, text.Offset({0, 3}));
    EXPECT_EQ(2, text.ByteColumn({0, 2}));
}

}  // namespace
