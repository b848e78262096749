#include "CheckText.h"

#include <algorithm>
#include <cstring>

namespace stratagem {

namespace {

char const kByteOrderMark[] = "\xEF\xBB\xBF";
char const kEndOfText = 0x1A;
char const kDirective[] = "stratagem:";
char const kDisable[] = "disable=";

bool IsBlank(char ch)
{
    return ch == ' ' || ch == '\t' || ch == '\n' || ch == '\r';
}

// Skips a string literal starting at the quote; answers the offset after
// it (or the end of its line when it is not closed there).
std::size_t SkipString(std::string const &text, std::size_t i)
{
    for (++i; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size())
            ++i;
        else if (text[i] == '"' || text[i] == '\n')
            return i + 1;
    }
    return i;
}

std::vector<std::string> SplitCodes(std::string const &list)
{
    std::vector<std::string> codes;
    std::size_t nStart = 0;
    while (nStart <= list.size()) {
        std::size_t nComma = list.find(',', nStart);
        if (nComma == std::string::npos)
            nComma = list.size();
        std::string code = list.substr(nStart, nComma - nStart);
        code.erase(std::remove_if(code.begin(), code.end(), IsBlank), code.end());
        if (!code.empty())
            codes.push_back(code);
        nStart = nComma + 1;
    }
    return codes;
}

// The codes of a comment's text if it is a disable directive.
bool ParseDirective(std::string const &comment, std::vector<std::string> &codes)
{
    std::size_t i = comment.find_first_not_of("; \t");
    if (i == std::string::npos || comment.compare(i, std::strlen(kDirective), kDirective) != 0)
        return false;
    i = comment.find_first_not_of(" \t", i + std::strlen(kDirective));
    if (i == std::string::npos || comment.compare(i, std::strlen(kDisable), kDisable) != 0)
        return false;
    codes = SplitCodes(comment.substr(i + std::strlen(kDisable)));
    return !codes.empty();
}

}  // namespace

ScriptText ReadTextMode(std::string const &bytes)
{
    ScriptText result;
    std::size_t nStart = 0;
    if (bytes.compare(0, 3, kByteOrderMark) == 0) {
        result.bByteOrderMark = true;
        nStart = 3;
    }
    result.text.reserve(bytes.size());
    bool bShifted = nStart > 0;
    for (std::size_t i = nStart; i < bytes.size(); ++i) {
        char ch = bytes[i];
        if (ch == kEndOfText)
            break;
        if (ch == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') {
            if (!bShifted) {
                // From here on offsets differ: record where each byte came from.
                bShifted = true;
                result.origins.resize(result.text.size());
                for (std::size_t k = 0; k < result.text.size(); ++k)
                    result.origins[k] = static_cast<int>(k);
            }
            continue;
        }
        if (bShifted)
            result.origins.push_back(static_cast<int>(i));
        result.text += ch;
    }
    if (bShifted)
        result.origins.push_back(static_cast<int>(bytes.size()));
    else
        result.origins.clear();
    return result;
}

LineMap::LineMap(std::string const &text)
{
    m_starts.push_back(0);
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\n')
            m_starts.push_back(static_cast<int>(i + 1));
}

void LineMap::Position(int nOffset, int &nLine, int &nColumn) const
{
    auto it = std::upper_bound(m_starts.begin(), m_starts.end(), nOffset);
    nLine = static_cast<int>(it - m_starts.begin());
    nColumn = nOffset - *(it - 1) + 1;
}

Range LineMap::ToRange(AI_Span span) const
{
    Range range;
    Position(span.nBegin, range.line, range.column);
    if (span.nEnd > span.nBegin)
        Position(span.nEnd - 1, range.endLine, range.endColumn);
    else {
        range.endLine = range.line;
        range.endColumn = range.column;
    }
    return range;
}

std::vector<Suppression> FindSuppressions(std::string const &text)
{
    std::vector<Suppression> found;
    std::size_t i = 0;
    while (i < text.size()) {
        char ch = text[i];
        if (ch == '"') {
            i = SkipString(text, i);
        } else if (ch == ';') {
            std::size_t nEnd = text.find('\n', i);
            if (nEnd == std::string::npos)
                nEnd = text.size();
            Suppression suppression;
            if (ParseDirective(text.substr(i, nEnd - i), suppression.codes)) {
                suppression.nOffset = static_cast<int>(nEnd);
                found.push_back(suppression);
            }
            i = nEnd;
        } else {
            ++i;
        }
    }
    return found;
}

std::string Normalized(std::string const &text, AI_Span span)
{
    std::string result;
    bool bBlank = false;
    for (int i = span.nBegin; i < span.nEnd; ++i) {
        char ch = text[i];
        if (ch == '"') {
            int nEnd = std::min(static_cast<int>(SkipString(text, i)), span.nEnd);
            result.append(text, i, nEnd - i);
            i = nEnd - 1;
            bBlank = false;
            continue;
        }
        if (ch == ';') {
            while (i < span.nEnd && text[i] != '\n')
                ++i;
            ch = '\n';
        }
        if (IsBlank(ch)) {
            bBlank = true;
            continue;
        }
        if (bBlank && !result.empty())
            result += ' ';
        bBlank = false;
        result += ch;
    }
    return result;
}

}  // namespace stratagem
