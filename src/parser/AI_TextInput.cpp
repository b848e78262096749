#include "AI_TextInput.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

int const kChunkSize = 8192;
char const kEndOfText = 0x1A;

// The raw bytes of the last read not yet handed out, and how the text ended.
struct RawInput
{
    char achBytes[kChunkSize];
    int nPos = 0;
    int nLength = 0;
    int nEndOfText = 0;       // where the first 0x1A of the bytes lies, else nLength
    bool bEndOfFile = false;  // the descriptor has nothing more
    bool bEndOfText = false;  // a 0x1A was met
    bool bFailed = false;
};

RawInput s_input;

// Makes sure a raw byte is waiting; false at the end of the file or on
// failure (then bFailed is set).
bool Fill(int nFile)
{
    if (s_input.nPos < s_input.nLength)
        return true;
    if (s_input.bEndOfFile)
        return false;
    ssize_t nRead;
    do
        nRead = read(nFile, s_input.achBytes, kChunkSize);
    while (nRead < 0 && errno == EINTR);
    s_input.nPos = 0;
    s_input.nLength = nRead > 0 ? static_cast<int>(nRead) : 0;
    s_input.bEndOfFile = nRead <= 0;
    s_input.bFailed = nRead < 0;
    void const *pEnd = std::memchr(s_input.achBytes, kEndOfText, s_input.nLength);
    s_input.nEndOfText = pEnd ? static_cast<int>(static_cast<char const *>(pEnd) - s_input.achBytes) : s_input.nLength;
    return nRead > 0;
}

// Copies the waiting bytes up to the next carriage return or 0x1A (at most
// nRoom of them) as they are; answers their number. Most text has no such
// byte for long stretches, so it moves in runs rather than byte by byte.
std::size_t CopyPlain(char *pOut, std::size_t nRoom)
{
    char const *pStart = s_input.achBytes + s_input.nPos;
    std::size_t nLimit = std::min(static_cast<std::size_t>(s_input.nEndOfText - s_input.nPos), nRoom);
    void const *pReturn = std::memchr(pStart, '\r', nLimit);
    std::size_t const nPlain = pReturn ? static_cast<std::size_t>(static_cast<char const *>(pReturn) - pStart) : nLimit;
    std::memcpy(pOut, pStart, nPlain);
    s_input.nPos += static_cast<int>(nPlain);
    return nPlain;
}

}  // namespace

int AI_ReadText(int nFile, char *pBuffer, std::size_t nMaxSize)
{
    std::size_t n = 0;
    while (n < nMaxSize && !s_input.bEndOfText && Fill(nFile)) {
        n += CopyPlain(pBuffer + n, nMaxSize - n);
        if (n == nMaxSize || s_input.nPos == s_input.nLength)
            continue;
        // The waiting byte is a carriage return or a 0x1A.
        char ch = s_input.achBytes[s_input.nPos++];
        if (ch == kEndOfText) {
            s_input.bEndOfText = true;
            break;
        }
        // A carriage return needs the next byte, which may be in the next
        // chunk: only a line feed right after it joins it.
        if (ch == '\r' && Fill(nFile) && s_input.achBytes[s_input.nPos] == '\n') {
            ch = '\n';
            ++s_input.nPos;
        }
        pBuffer[n++] = ch;
    }
    if (s_input.bFailed)
        return -1;
    return static_cast<int>(n);
}

void AI_ResetText()
{
    s_input.nPos = 0;
    s_input.nLength = 0;
    s_input.nEndOfText = 0;
    s_input.bEndOfFile = false;
    s_input.bEndOfText = false;
    s_input.bFailed = false;
}
