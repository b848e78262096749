// The message layer of the language server: JSON-RPC messages framed by a
// `Content-Length` header, as editors send them over standard input and
// output. Reading never trusts the peer: header lines and the header as a
// whole are bounded, a body above the limit is skipped rather than stored,
// and after a malformed header the reader finds the next message by its
// `Content-Length` field.
#ifndef STRATAGEM_SERVER_TRANSPORT_H
#define STRATAGEM_SERVER_TRANSPORT_H

#include <cstddef>
#include <istream>
#include <ostream>
#include <string>

namespace stratagem::server {

struct ReadLimits
{
    std::size_t maxHeaderBytes = 8 * 1024;
    std::size_t maxBodyBytes = 64u * 1024 * 1024;
};

enum class ReadStatus
{
    Message,    // `body` holds one message
    TooLarge,   // a body above the limit was skipped
    BadHeader,  // the header was malformed; the reader has moved past it
    End         // the input has ended
};

class MessageReader
{
public:
    explicit MessageReader(std::istream &in, ReadLimits limits = {});

    ReadStatus Next(std::string &body);

private:
    enum class HeaderStatus
    {
        Complete,
        Malformed,
        End
    };

    HeaderStatus ReadHeader(long long &contentLength);
    bool ReadLine(std::string &line, bool &overlong);
    void SkipToNextHeader();
    bool Skip(unsigned long long count);

    std::istream &m_in;
    ReadLimits m_limits;
    std::string m_resumed;  // the start of a header line found while resynchronising
};

// Writes one framed message.
void WriteMessage(std::ostream &out, std::string const &body);

}  // namespace stratagem::server

#endif
