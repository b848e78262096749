// The protocol's error paths and lifecycle: every broken or untimely
// message gets its JSON-RPC / LSP error (or is dropped, for notifications)
// and the server goes on to answer the next request.
#include "ServerTestSupport.h"

namespace {

using servertest::Json;
using servertest::ResponseTo;
using servertest::Session;

int const kProbe = 99;  // a request after the broken message proves the server goes on

class Protocol : public servertest::Vocabulary
{};

Json Envelope(Json const &fields)
{
    Json message = {{"jsonrpc", "2.0"}};
    message.update(fields);
    return message;
}

// The messages of a session that sends the bytes, then a probe request.
std::vector<Json> Probed(bool initialized, std::string const &bytes)
{
    Session session;
    if (initialized)
        session.Initialize();
    return session.Raw(bytes).Request(kProbe, initialized ? "shutdown" : "initialize").Run();
}

TEST_F(Protocol, AnswersBrokenMessagesAndGoesOn)
{
    auto const frame = [](std::string const &body) { return servertest::Frame(body); };
    // A framed request with id 5.
    auto const call = [](char const *method, Json params) {
        return servertest::Frame(Envelope({{"id", 5}, {"method", method}, {"params", params}}).dump());
    };
    auto const at = [](Json position) {
        return Json {{"textDocument", {{"uri", "file:///x.per"}}}, {"position", position}};
    };
    // Name, initialized first, the broken message (framed or not), the id and code of the error response.
    std::tuple<char const *, bool, std::string, Json, int> const rows[] = {
        {"body not JSON", true, frame("{\"jsonrpc\": \"2.0\", "), nullptr, -32700},
        {"body not UTF-8", true, frame("{\"a\": \"\xFF\"}"), nullptr, -32700},
        {"empty body", true, frame(""), nullptr, -32700},
        {"nested too deeply", true, frame(std::string(100000, '[') + std::string(100000, ']')), nullptr, -32700},
        {"header without length", true, "Content-Type: x\r\n\r\n{}", nullptr, -32700},
        {"length not a number", true, "Content-Length: abc\r\n\r\n{}", nullptr, -32700},
        {"array", true, frame("[1, 2]"), nullptr, -32600},
        {"number", true, frame("42"), nullptr, -32600},
        {"no jsonrpc", true, frame(R"({"id": 5, "method": "shutdown"})"), 5, -32600},
        {"wrong jsonrpc", true, frame(R"({"jsonrpc": "1.0", "id": 5, "method": "shutdown"})"), 5, -32600},
        {"id an object", true, frame(Envelope({{"id", {{"a", 1}}}, {"method", "shutdown"}}).dump()), nullptr, -32600},
        {"id null", true, frame(Envelope({{"id", nullptr}, {"method", "shutdown"}}).dump()), nullptr, -32600},
        {"method a number", true, frame(Envelope({{"id", 5}, {"method", 7}}).dump()), 5, -32600},
        {"no method", true, frame(Envelope({{"id", 5}}).dump()), 5, -32600},
        {"unknown method", true, frame(Envelope({{"id", 5}, {"method", "foo/bar"}}).dump()), 5, -32601},
        {"unknown $/ request", true, frame(Envelope({{"id", "s"}, {"method", "$/foo"}}).dump()), "s", -32601},
        {"params not an object", true, call("textDocument/hover", {1, 2}), 5, -32602},
        {"params missing fields", true, call("textDocument/hover", Json::object()), 5, -32602},
        {"position of the wrong type", true, call("textDocument/hover", at("here")), 5, -32602},
        {"negative position", true, call("textDocument/completion", at({{"line", -1}, {"character", 0}})), 5, -32602},
        {"position not an integer", true, call("textDocument/completion", at({{"line", 1e300}, {"character", 0}})), 5,
         -32602},
        {"position too large", true,
         call("textDocument/hover", at({{"line", 0}, {"character", 18446744073709551615ull}})), 5, -32602},
        {"initialize twice", true, call("initialize", Json::object()), 5, -32600},
        {"request before initialize", false, frame(Envelope({{"id", 5}, {"method", "textDocument/hover"}}).dump()), 5,
         -32002},
    };
    for (auto const &[name, initialized, raw, id, code] : rows) {
        SCOPED_TRACE(name);
        std::vector<Json> const messages = Probed(initialized, raw);
        Json error;
        for (Json const &message : messages)
            if (message.contains("error"))
                error = message;
        ASSERT_FALSE(error.is_null());
        EXPECT_EQ(id, error["id"]);
        EXPECT_EQ(code, error["error"]["code"]);
        EXPECT_TRUE(error["error"]["message"].is_string());
        EXPECT_TRUE(ResponseTo(messages, kProbe).contains("result")) << "the server did not go on";
    }
}

// Notifications never get a response, whatever their state or method.
TEST_F(Protocol, DropsNotificationsQuietly)
{
    std::tuple<char const *, bool, Json> const rows[] = {
        // name, initialized first, the notification
        {"cancel", true, Envelope({{"method", "$/cancelRequest"}, {"params", {{"id", 3}}}})},
        {"progress", true, Envelope({{"method", "$/progress"}, {"params", Json::object()}})},
        {"unknown", true, Envelope({{"method", "foo/bar"}})},
        {"before initialize", false, Envelope({{"method", "textDocument/didOpen"}, {"params", Json::object()}})},
        {"invalid params", true, Envelope({{"method", "textDocument/didChange"}, {"params", {{"x", 1}}}})},
        {"a response from the client", true, Envelope({{"id", 7}, {"result", nullptr}})},
    };
    for (auto const &[name, initialized, notification] : rows) {
        SCOPED_TRACE(name);
        for (Json const &message : Probed(initialized, servertest::Frame(notification.dump()))) {
            EXPECT_FALSE(message.contains("error")) << message.dump();
            if (message.value("method", "") == "window/showMessage") {
                EXPECT_STREQ("invalid params", name) << message.dump();
            }
        }
    }
}

TEST_F(Protocol, EndsWithTheStatusOfItsShutdown)
{
    // Shutdown sent, exit sent, the status.
    std::tuple<bool, bool, int> const rows[] = {{true, true, 0}, {false, true, 1}, {false, false, 1}, {true, false, 1}};
    for (auto const &[shutdown, exit, status] : rows) {
        SCOPED_TRACE(testing::Message() << "shutdown " << shutdown << ", exit " << exit);
        Session session;
        session.Initialize();
        if (shutdown)
            session.Request(1, "shutdown");
        if (exit)
            session.Notify("exit");
        session.Request(2, "shutdown");  // after exit nothing is read
        std::vector<Json> const messages = session.Run();
        EXPECT_EQ(status, session.Status());
        EXPECT_EQ(exit, ResponseTo(messages, 2).is_null());
    }
}

// Requests without params take "params": null or none; after shutdown
// every request is refused.
TEST_F(Protocol, RefusesRequestsAfterShutdown)
{
    Session session;
    session.Initialize()
        .Send(Envelope({{"id", 1}, {"method", "shutdown"}, {"params", nullptr}}))
        .Send(Envelope({{"id", 2}, {"method", "shutdown"}}))
        .Request(3, "textDocument/hover");
    std::vector<Json> const messages = session.Run();
    EXPECT_TRUE(ResponseTo(messages, 1).contains("result"));
    EXPECT_TRUE(ResponseTo(messages, 1)["result"].is_null());
    EXPECT_EQ(-32600, ResponseTo(messages, 2)["error"]["code"]);
    EXPECT_EQ(-32600, ResponseTo(messages, 3)["error"]["code"]);
}

TEST_F(Protocol, SkipsOversizedMessages)
{
    stratagem::server::ReadLimits limits;
    limits.maxBodyBytes = 1024;
    Session session;
    session.Initialize().Raw(servertest::Frame(std::string(4096, ' '))).Request(kProbe, "shutdown");
    std::vector<Json> const messages = session.Run(limits);
    ASSERT_GE(messages.size(), 2u);
    EXPECT_EQ(-32600, messages[messages.size() - 2]["error"]["code"]);
    EXPECT_TRUE(ResponseTo(messages, kProbe).contains("result"));
}

TEST_F(Protocol, AnnouncesItsCapabilities)
{
    Session session;
    std::vector<Json> const messages = session.Initialize().Run();
    Json const capabilities = ResponseTo(messages, 0)["result"]["capabilities"];
    EXPECT_EQ(2, capabilities["textDocumentSync"]["change"]);
    EXPECT_TRUE(capabilities["textDocumentSync"]["openClose"]);
    for (char const *provider : {"hoverProvider", "completionProvider", "signatureHelpProvider", "definitionProvider",
                                 "referencesProvider", "documentSymbolProvider", "codeActionProvider"})
        EXPECT_TRUE(capabilities.contains(provider)) << provider;
}

}  // namespace
