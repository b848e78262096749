// The language server: the protocol's lifecycle and dispatch over the
// message layer, the document store and the workspace. One message is
// handled completely before the next is read; a check runs to its end.
#ifndef STRATAGEM_SERVER_SERVER_H
#define STRATAGEM_SERVER_SERVER_H

#include <functional>
#include <istream>
#include <map>
#include <ostream>
#include <set>
#include <string>

#include <nlohmann/json.hpp>

#include "Documents.h"
#include "Features.h"
#include "Transport.h"
#include "Workspace.h"

namespace stratagem::server {

// JSON-RPC and protocol error codes.
enum ErrorCode
{
    kParseError = -32700,
    kInvalidRequest = -32600,
    kMethodNotFound = -32601,
    kInvalidParams = -32602,
    kInternalError = -32603,
    kServerNotInitialized = -32002,
    kRequestFailed = -32803
};

class Server
{
public:
    // Messages to the client go to `out`, framed. Files no editor holds
    // open are read from `disk` (null: the file system).
    explicit Server(std::ostream &out, ReadLimits limits = {}, SourceProvider const *disk = nullptr);

    // Reads and handles messages until `exit` or the end of input; returns
    // the process's exit status: 0 after shutdown and exit, else 1.
    int Run(std::istream &in);

    // Handles one message body (what one frame carries).
    void Handle(std::string const &body);

    bool Exited() const { return m_state == State::Exited; }
    int ExitStatus() const { return m_shutdownRequested ? 0 : 1; }

private:
    enum class State
    {
        Uninitialized,
        Running,
        ShutDown,
        Exited
    };
    using Json = nlohmann::json;
    using Handler = std::function<Json(Json const &params)>;

    void Dispatch(Json const &message);
    void Notify(std::string const &method, Json params);
    void Respond(Json const &id, Json result);
    void Fail(Json const &id, int code, std::string const &message);
    void Send(Json const &message);

    Json Initialize(Json const &params);
    void Configure(Json const &options);
    void Warn(std::string const &message);
    void DidOpen(Json const &params);
    void DidChange(Json const &params);
    void DidClose(Json const &params);
    void DidChangeConfiguration(Json const &params);
    void DidChangeWatchedFiles(Json const &params);
    void Reanalyse(std::set<std::string> const &changed, bool all = false);

    std::ostream &m_out;
    ReadLimits m_limits;
    State m_state = State::Uninitialized;
    bool m_shutdownRequested = false;
    DocumentStore m_documents;
    Workspace m_workspace;
    Features m_features;
    std::string m_root;
    std::map<std::string, Handler> m_requests;
    std::map<std::string, std::function<void(Json const &)>> m_notifications;
    std::map<std::string, Json> m_published;  // last diagnostics sent, by path
    Json m_options = Json::object();          // the settings as last configured
};

}  // namespace stratagem::server

#endif
