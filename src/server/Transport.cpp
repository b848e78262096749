#include "Transport.h"

#include <cctype>
#include <cstring>

namespace stratagem::server {

namespace {

char const kLengthField[] = "content-length";

std::string Lower(std::string text)
{
    for (char &c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::string Trim(std::string const &text)
{
    std::size_t const first = text.find_first_not_of(" \t");
    if (first == std::string::npos)
        return {};
    std::size_t const last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

// A decimal count without sign or other characters; -1 when there is none
// or it does not fit.
long long ParseLength(std::string const &text)
{
    if (text.empty() || text.size() > 18)
        return -1;
    long long value = 0;
    for (char c : text) {
        if (c < '0' || c > '9')
            return -1;
        value = value * 10 + (c - '0');
    }
    return value;
}

}  // namespace

MessageReader::MessageReader(std::istream &in, ReadLimits limits) : m_in(in), m_limits(limits) {}

ReadStatus MessageReader::Next(std::string &body)
{
    body.clear();
    long long length = -1;
    switch (ReadHeader(length)) {
    case HeaderStatus::End:
        return ReadStatus::End;
    case HeaderStatus::Malformed:
        SkipToNextHeader();
        return ReadStatus::BadHeader;
    case HeaderStatus::Complete:
        break;
    }
    if (static_cast<unsigned long long>(length) > m_limits.maxBodyBytes)
        return Skip(static_cast<unsigned long long>(length)) ? ReadStatus::TooLarge : ReadStatus::End;
    body.resize(static_cast<std::size_t>(length));
    m_in.read(body.data(), length);
    if (m_in.gcount() != length) {
        body.clear();
        return ReadStatus::End;
    }
    return ReadStatus::Message;
}

// Reads header lines up to the empty line. Lines end with CR LF; a bare LF
// is accepted too. Fields other than Content-Length are ignored.
MessageReader::HeaderStatus MessageReader::ReadHeader(long long &contentLength)
{
    std::size_t total = 0;
    bool any = false;
    bool malformed = false;
    std::string line;
    for (;;) {
        bool overlong = false;
        if (!ReadLine(line, overlong))
            return any ? HeaderStatus::Malformed : HeaderStatus::End;
        if (line.empty() && !overlong) {
            if (!any)
                continue;  // blank lines between messages
            break;
        }
        any = true;
        total += line.size() + 2;
        if (overlong || total > m_limits.maxHeaderBytes)
            return HeaderStatus::Malformed;
        std::size_t const colon = line.find(':');
        if (colon == std::string::npos) {
            malformed = true;
            continue;
        }
        if (Lower(Trim(line.substr(0, colon))) != kLengthField)
            continue;
        long long const value = ParseLength(Trim(line.substr(colon + 1)));
        if (value < 0 || contentLength >= 0)
            malformed = true;
        contentLength = value;
    }
    if (malformed || contentLength < 0)
        return HeaderStatus::Malformed;
    return HeaderStatus::Complete;
}

// One line without its terminator; false at the end of input with nothing
// read. A line longer than the header limit is consumed but not kept.
bool MessageReader::ReadLine(std::string &line, bool &overlong)
{
    line.swap(m_resumed);
    m_resumed.clear();
    overlong = false;
    bool readAny = !line.empty();
    for (;;) {
        int const c = m_in.get();
        if (c == std::char_traits<char>::eof())
            return readAny;
        readAny = true;
        if (c == '\n')
            break;
        if (line.size() < m_limits.maxHeaderBytes)
            line.push_back(static_cast<char>(c));
        else
            overlong = true;
    }
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return true;
}

// After a malformed header the stream position is anywhere: inside the
// header, or in a body whose length is unknown. The next message starts
// with its Content-Length field, so input is dropped up to the first one.
void MessageReader::SkipToNextHeader()
{
    std::size_t const fieldLength = std::strlen(kLengthField);
    std::size_t matched = 0;
    for (;;) {
        int const c = m_in.peek();
        if (c == std::char_traits<char>::eof())
            return;
        char const lower = static_cast<char>(std::tolower(c));
        if (lower == kLengthField[matched]) {
            if (++matched == fieldLength) {
                // The field name is consumed; the next header line starts
                // with it (streams put back one character only).
                m_in.get();
                m_resumed = "Content-Length";
                return;
            }
        } else {
            matched = lower == kLengthField[0] ? 1 : 0;
        }
        m_in.get();
    }
}

bool MessageReader::Skip(unsigned long long count)
{
    char buffer[64 * 1024];
    while (count > 0) {
        std::streamsize const chunk = static_cast<std::streamsize>(count < sizeof buffer ? count : sizeof buffer);
        m_in.read(buffer, chunk);
        if (m_in.gcount() != chunk)
            return false;
        count -= static_cast<unsigned long long>(chunk);
    }
    return true;
}

void WriteMessage(std::ostream &out, std::string const &body)
{
    out << "Content-Length: " << body.size() << "\r\n\r\n" << body;
    out.flush();
}

}  // namespace stratagem::server
