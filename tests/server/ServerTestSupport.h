// Drives the server in-process: framed messages in, framed messages out,
// with the vocabulary registered for the test.
#ifndef STRATAGEM_TESTS_SERVER_SERVERTESTSUPPORT_H
#define STRATAGEM_TESTS_SERVER_SERVERTESTSUPPORT_H

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "../objects/TestSupport.h"
#include "server/Server.h"
#include "server/Uri.h"
#include "stratagem.h"

namespace servertest {

using Json = nlohmann::json;

inline std::string Frame(std::string const &body)
{
    return "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

inline std::string DataPath(std::string const &name) { return std::string(STRATAGEM_TEST_DATA) + "/" + name; }
inline std::string DataUri(std::string const &name) { return stratagem::server::PathToUri(DataPath(name)); }

inline std::string ReadFile(std::string const &path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// The built-in vocabulary registered around each test.
using Vocabulary = ObjectsTest;

// A conversation: messages are queued, then the server runs over all of
// them at once, as over a pipe the client has closed.
class Session
{
public:
    Session &Raw(std::string const &bytes)
    {
        m_input += bytes;
        return *this;
    }
    Session &Send(Json const &message) { return Raw(Frame(message.dump())); }
    Session &Request(int id, std::string const &method, Json params = Json::object())
    {
        return Send({{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", params}});
    }
    Session &Notify(std::string const &method, Json params = Json::object())
    {
        return Send({{"jsonrpc", "2.0"}, {"method", method}, {"params", params}});
    }
    Session &Initialize(Json options = Json::object(), std::string const &root = STRATAGEM_TEST_DATA)
    {
        Request(0, "initialize",
                {{"processId", nullptr},
                 {"rootUri", stratagem::server::PathToUri(root)},
                 {"capabilities", Json::object()},
                 {"initializationOptions", options}});
        return Notify("initialized");
    }
    Session &Open(std::string const &name, std::string const &text, int version = 1)
    {
        return Notify("textDocument/didOpen",
                      {{"textDocument",
                        {{"uri", DataUri(name)}, {"languageId", "stratagem"}, {"version", version}, {"text", text}}}});
    }
    Session &OpenFromDisk(std::string const &name) { return Open(name, ReadFile(DataPath(name))); }

    // Runs the server over everything queued; the messages it wrote, parsed.
    std::vector<Json> Run(stratagem::server::ReadLimits limits = {})
    {
        std::istringstream in(m_input);
        std::ostringstream out;
        m_status = stratagem::server::Server(out, limits).Run(in);
        std::istringstream written(out.str());
        stratagem::server::MessageReader reader(written);
        std::vector<Json> messages;
        for (std::string body; reader.Next(body) == stratagem::server::ReadStatus::Message;)
            messages.push_back(Json::parse(body));
        return messages;
    }
    int Status() const { return m_status; }

private:
    std::string m_input;
    int m_status = -1;
};

// The response to request `id`, or null.
inline Json ResponseTo(std::vector<Json> const &messages, int id)
{
    for (Json const &message : messages)
        if (message.contains("id") && message["id"] == id && !message.contains("method"))
            return message;
    return nullptr;
}

// The last diagnostics published for a URI, or null when none were.
inline Json LastDiagnostics(std::vector<Json> const &messages, std::string const &uri)
{
    Json last;
    for (Json const &message : messages)
        if (message.value("method", "") == "textDocument/publishDiagnostics" && message["params"]["uri"] == uri)
            last = message["params"]["diagnostics"];
    return last;
}

}  // namespace servertest

#endif
