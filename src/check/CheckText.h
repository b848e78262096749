// Script text as check mode reads it: the text-mode conversion, line and
// column arithmetic, and the comments that switch warnings off. Internal to
// the library.
#ifndef STRATAGEM_CHECK_CHECKTEXT_H
#define STRATAGEM_CHECK_CHECKTEXT_H

#include <cstdint>
#include <string>
#include <vector>

#include "../parser/AI_Span.h"
#include "Check.h"

namespace stratagem {

// The text a script file holds once read in text mode: a carriage return
// followed by a line feed becomes a line feed, a byte 0x1A ends the text.
// A UTF-8 byte-order mark at the start is dropped and noted.
struct ScriptText
{
    std::string text;
    std::vector<int> origins;  // for each byte of text, its offset in the raw bytes (empty: the same)
    bool bByteOrderMark = false;
};

// The bytes are taken over.
ScriptText ReadTextMode(std::string &&bytes);

// Lines and columns of offsets into one text (1-based, columns in bytes).
class LineMap
{
public:
    explicit LineMap(std::string const &text);
    void Position(int nOffset, int &nLine, int &nColumn) const;
    // The range of the span, its end inclusive; an empty span is the
    // position where it lies.
    Range ToRange(AI_Span span) const;

private:
    std::vector<int> m_starts;
    mutable std::size_t m_nLast = 0;  // the line of the last position asked for
};

// A comment `; stratagem: disable=CODE[,CODE]`: where it ends and what it
// switches off.
struct Suppression
{
    int nOffset = 0;
    std::vector<std::string> codes;
};

std::vector<Suppression> FindSuppressions(std::string const &text);

// The text of a command with comments left out and every run of blanks
// and line feeds made one space: two commands written alike compare equal.
std::string Normalized(std::string const &text, AI_Span span);
// A hash of the same text, without making it.
std::uint64_t NormalizedHash(std::string const &text, AI_Span span);

}  // namespace stratagem

#endif
