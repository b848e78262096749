#include "CheckText.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace stratagem {

namespace {

char const kByteOrderMark[] = "\xEF\xBB\xBF";
char const kEndOfText = 0x1A;
char const kDirective[] = "stratagem:";
char const kDisable[] = "disable=";

bool IsBlank(char ch) { return ch == ' ' || ch == '\t' || ch == '\n' || ch == '\r'; }

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

ScriptText ReadTextMode(std::string &&bytes)
{
    ScriptText result;
    std::size_t nStart = 0;
    if (bytes.compare(0, 3, kByteOrderMark) == 0) {
        result.bByteOrderMark = true;
        nStart = 3;
    }
    std::size_t nEnd = bytes.find(kEndOfText, nStart);
    if (nEnd == std::string::npos)
        nEnd = bytes.size();
    bool bShifted = nStart > 0 || bytes.find("\r\n", nStart) < nEnd;
    if (!bShifted) {
        // The common case: the text is the bytes.
        bytes.resize(nEnd);
        result.text = std::move(bytes);
        return result;
    }
    result.text.reserve(nEnd - nStart);
    result.origins.reserve(nEnd - nStart + 1);
    for (std::size_t i = nStart; i < nEnd; ++i) {
        if (bytes[i] == '\r' && i + 1 < nEnd && bytes[i + 1] == '\n')
            continue;
        result.origins.push_back(static_cast<int>(i));
        result.text += bytes[i];
    }
    result.origins.push_back(static_cast<int>(nEnd));
    return result;
}

LineMap::LineMap(std::string const &text)
{
    m_starts.push_back(0);
    for (std::size_t i = text.find('\n'); i != std::string::npos; i = text.find('\n', i + 1))
        m_starts.push_back(static_cast<int>(i + 1));
}

void LineMap::Position(int nOffset, int &nLine, int &nColumn) const
{
    // Positions are mostly asked for in the order of the text: look near
    // the last answer first.
    std::size_t nLast = m_nLast;
    if (m_starts[nLast] <= nOffset) {
        for (std::size_t n = 0; n < 8 && nLast + 1 < m_starts.size() && m_starts[nLast + 1] <= nOffset; ++n)
            ++nLast;
    }
    if (m_starts[nLast] > nOffset || (nLast + 1 < m_starts.size() && m_starts[nLast + 1] <= nOffset))
        nLast = static_cast<std::size_t>(std::upper_bound(m_starts.begin(), m_starts.end(), nOffset) - m_starts.begin())
            - 1;
    m_nLast = nLast;
    nLine = static_cast<int>(nLast + 1);
    nColumn = nOffset - m_starts[nLast] + 1;
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
    if (text.find(kDirective) == std::string::npos)
        return found;
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

namespace {

// How the normalization treats each byte.
enum CharKind : unsigned char
{
    kOrdinary,
    kBlank,
    kQuote,
    kComment
};

struct CharKinds
{
    CharKind kinds[256] = {};
    CharKinds()
    {
        for (char ch : {' ', '\t', '\n', '\r'})
            kinds[static_cast<unsigned char>(ch)] = kBlank;
        kinds[static_cast<unsigned char>('"')] = kQuote;
        kinds[static_cast<unsigned char>(';')] = kComment;
    }
};

CharKinds const kCharKinds;

// Feeds the characters of the normalized text to the sink.
template <class Sink>
void Normalize(std::string const &text, AI_Span span, Sink &sink)
{
    bool bBlank = false, bStarted = false;
    char const *pText = text.data();
    for (int i = span.nBegin; i < span.nEnd; ++i) {
        char ch = pText[i];
        switch (kCharKinds.kinds[static_cast<unsigned char>(ch)]) {
        case kOrdinary:
            if (bBlank && bStarted)
                sink(' ');
            bBlank = false;
            bStarted = true;
            sink(ch);
            break;
        case kQuote: {
            int nEnd = std::min(static_cast<int>(SkipString(text, i)), span.nEnd);
            if (bBlank && bStarted)
                sink(' ');
            for (int k = i; k < nEnd; ++k)
                sink(pText[k]);
            i = nEnd - 1;
            bBlank = false;
            bStarted = true;
            break;
        }
        case kComment:
            while (i < span.nEnd && pText[i] != '\n')
                ++i;
            bBlank = true;
            break;
        case kBlank:
            bBlank = true;
            break;
        }
    }
}

// Mixes words of up to eight characters into a hash.
class WordHash
{
public:
    void Add(char const *pText, std::size_t nLength)
    {
        for (std::size_t i = 0; i < nLength; i += 8) {
            std::uint64_t nWord = 0;
            std::memcpy(&nWord, pText + i, std::min<std::size_t>(8, nLength - i));
            Mix(nWord);
        }
        Mix(nLength);
    }
    std::uint64_t Value() const { return m_nHash; }

private:
    void Mix(std::uint64_t nWord)
    {
        m_nHash = (m_nHash ^ nWord) * 0x9E3779B97F4A7C15ull;
        m_nHash ^= m_nHash >> 29;
    }
    std::uint64_t m_nHash = 14695981039346656037ull;
};

}  // namespace

std::string Normalized(std::string const &text, AI_Span span)
{
    std::string result;
    auto append = [&](char ch) { result += ch; };
    Normalize(text, span, append);
    return result;
}

// The hash of the runs of characters between blanks and comments, a
// string being one run: the same runs whatever blanks and comments stand
// between them, so equal normalized texts have equal hashes; the few other
// rules that meet at a hash are told apart by their texts.
std::uint64_t NormalizedHash(std::string const &text, AI_Span span)
{
    WordHash hash;
    char const *pText = text.data();
    auto const kindAt = [&](int i) { return kCharKinds.kinds[static_cast<unsigned char>(pText[i])]; };
    for (int i = span.nBegin; i < span.nEnd;) {
        int nEnd = i + 1;
        switch (kindAt(i)) {
        case kBlank:
            i = nEnd;
            continue;
        case kComment:
            while (nEnd < span.nEnd && pText[nEnd] != '\n')
                ++nEnd;
            i = nEnd;
            continue;
        case kQuote:
            nEnd = std::min(static_cast<int>(SkipString(text, i)), span.nEnd);
            break;
        case kOrdinary:
            while (nEnd < span.nEnd && kindAt(nEnd) == kOrdinary)
                ++nEnd;
            break;
        }
        hash.Add(pText + i, static_cast<std::size_t>(nEnd - i));
        i = nEnd;
    }
    return hash.Value();
}

}  // namespace stratagem
