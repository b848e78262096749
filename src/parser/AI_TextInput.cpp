#include "AI_TextInput.h"

#include <cerrno>
#include <unistd.h>

namespace {

int const kChunkSize = 8192;
char const kEndOfText = 0x1A;

// The raw bytes of the last read not yet handed out, and how the text ended.
struct RawInput
{
    char achBytes[kChunkSize];
    int nPos = 0;
    int nLength = 0;
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
    return nRead > 0;
}

}  // namespace

int AI_ReadText(int nFile, char *pBuffer, std::size_t nMaxSize)
{
    std::size_t n = 0;
    while (n < nMaxSize && !s_input.bEndOfText && Fill(nFile)) {
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
    s_input.bEndOfFile = false;
    s_input.bEndOfText = false;
    s_input.bFailed = false;
}
