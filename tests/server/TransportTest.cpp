// The message layer: framing, header variants, oversized and malformed
// messages, and finding the next message after a broken one.
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ServerTestSupport.h"
#include "server/Transport.h"

using stratagem::server::MessageReader;
using stratagem::server::ReadLimits;
using stratagem::server::ReadStatus;

namespace {

using servertest::Frame;

// Every status the reader gives for the input, with the body of each message.
std::vector<std::string> ReadAll(std::string const &input, ReadLimits limits = {})
{
    std::istringstream in(input);
    MessageReader reader(in, limits);
    std::vector<std::string> results;
    std::string body;
    for (int guard = 0; guard < 100; ++guard) {
        ReadStatus const status = reader.Next(body);
        if (status == ReadStatus::End)
            return results;
        results.push_back(status == ReadStatus::Message        ? "msg:" + body
                              : status == ReadStatus::TooLarge ? "too-large"
                                                               : "bad-header");
    }
    ADD_FAILURE() << "the reader does not reach the end";
    return results;
}

TEST(Transport, ReadsFramedMessagesAndRecoversFromMalformedHeaders)
{
    std::tuple<char const *, std::string, std::vector<std::string>> const rows[] = {
        {"one", Frame("{}"), {"msg:{}"}},
        {"two back to back", Frame("[1]") + Frame("{\"a\":2}"), {"msg:[1]", "msg:{\"a\":2}"}},
        {"content type",
         "Content-Length: 2\r\nContent-Type: application/vscode-jsonrpc; charset=utf-8\r\n\r\n{}",
         {"msg:{}"}},
        {"field name in any case, LF only", "content-length:2\n\n{}", {"msg:{}"}},
        {"spaces around the value", "Content-Length:   2  \r\n\r\n{}", {"msg:{}"}},
        {"blank lines between messages", "\r\n\r\n" + Frame("{}"), {"msg:{}"}},
        {"empty body", "Content-Length: 0\r\n\r\n", {"msg:"}},
        {"body with CR LF inside", Frame("{\r\n}"), {"msg:{\r\n}"}},
        {"nothing", "", {}},
        {"body cut short", "Content-Length: 10\r\n\r\n{}", {}},
        {"header cut short", "Content-Length: 10\r\n", {"bad-header"}},
        // Malformed headers: reported, then the next message is found.
        {"no length", "Content-Type: x\r\n\r\n{}" + Frame("{}"), {"bad-header", "msg:{}"}},
        {"length not a number", "Content-Length: ten\r\n\r\n{}" + Frame("[]"), {"bad-header", "msg:[]"}},
        {"negative length", "Content-Length: -5\r\n\r\n" + Frame("[]"), {"bad-header", "msg:[]"}},
        {"huge number", "Content-Length: 99999999999999999999999\r\n\r\n" + Frame("[]"), {"bad-header", "msg:[]"}},
        {"two lengths", "Content-Length: 2\r\nContent-Length: 3\r\n\r\n{}" + Frame("[]"), {"bad-header", "msg:[]"}},
        {"line without colon", "garbage\r\n\r\n" + Frame("[]"), {"bad-header", "msg:[]"}},
        {"body glued to the next header", "Content-Length: x\r\n\r\n{\"a\":1}" + Frame("[]"), {"bad-header", "msg:[]"}},
        {"garbage to the end", "Content-Length: x\r\n\r\nno more", {"bad-header"}},
    };
    for (auto const &[name, input, expected] : rows)
        EXPECT_EQ(expected, ReadAll(input)) << name;
}

TEST(Transport, BoundsHeaderAndBody)
{
    ReadLimits limits;
    limits.maxHeaderBytes = 64;
    limits.maxBodyBytes = 16;
    std::string const longLine = "X-Padding: " + std::string(1000, 'p') + "\r\n";
    EXPECT_EQ((std::vector<std::string> {"too-large", "msg:{}"}),
              ReadAll(Frame(std::string(17, ' ')) + Frame("{}"), limits));
    EXPECT_EQ((std::vector<std::string> {"msg:0123456789abcdef"}), ReadAll(Frame("0123456789abcdef"), limits));
    EXPECT_EQ((std::vector<std::string> {"bad-header", "msg:{}"}), ReadAll(longLine + "\r\n" + Frame("{}"), limits));
    // An oversized body that never arrives ends the input rather than waiting.
    EXPECT_EQ((std::vector<std::string> {}), ReadAll("Content-Length: 1000\r\n\r\nshort", limits));
}

TEST(Transport, WritesFrames)
{
    std::ostringstream out;
    stratagem::server::WriteMessage(out, "{\"é\":1}");
    EXPECT_EQ("Content-Length: 8\r\n\r\n{\"é\":1}", out.str());
}

}  // namespace
