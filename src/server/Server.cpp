#include "Server.h"

#include <new>

#include "../platform/CException.h"
#include "../vocabulary/AI_Vocabulary.h"
#include "Uri.h"

namespace stratagem::server {

namespace {

// Deeper JSON than this is refused before it is parsed.
int const kMaxNesting = 200;

char const kServerName[] = "stratagem-lsp";

// The bracket depth of JSON text, strings skipped; stops counting above the limit.
bool NestedTooDeep(std::string const &body)
{
    int depth = 0;
    bool inString = false;
    for (std::size_t i = 0; i < body.size(); ++i) {
        char const c = body[i];
        if (inString) {
            if (c == '\\')
                ++i;
            else if (c == '"')
                inString = false;
        } else if (c == '"') {
            inString = true;
        } else if (c == '[' || c == '{') {
            if (++depth > kMaxNesting)
                return true;
        } else if (c == ']' || c == '}') {
            --depth;
        }
    }
    return false;
}

bool ValidId(nlohmann::json const &id) { return id.is_number_integer() || id.is_string(); }

std::string PathOfUri(nlohmann::json const &params)
{
    return NormalPath(UriToPath(params.at("textDocument").at("uri").get<std::string>()));
}

}  // namespace

Server::Server(std::ostream &out, ReadLimits limits, SourceProvider const *disk)
    : m_out(out), m_limits(limits), m_documents(disk), m_workspace(m_documents), m_features(m_documents, m_workspace)
{
    m_requests = {
        {"initialize", [this](Json const &params) { return Initialize(params); }},
        {"shutdown",
         [this](Json const &) {
             m_shutdownRequested = true;
             m_state = State::ShutDown;
             return Json();
         }},
        {"textDocument/hover", [this](Json const &params) { return m_features.Hover(params); }},
        {"textDocument/completion", [this](Json const &params) { return m_features.Completion(params); }},
        {"textDocument/signatureHelp", [this](Json const &params) { return m_features.SignatureHelp(params); }},
        {"textDocument/definition", [this](Json const &params) { return m_features.Definition(params); }},
        {"textDocument/references", [this](Json const &params) { return m_features.References(params); }},
        {"textDocument/documentSymbol", [this](Json const &params) { return m_features.DocumentSymbols(params); }},
        {"textDocument/codeAction", [this](Json const &params) { return m_features.CodeActions(params); }},
    };
    m_notifications = {
        {"initialized", [](Json const &) {}},
        {"textDocument/didOpen", [this](Json const &params) { DidOpen(params); }},
        {"textDocument/didChange", [this](Json const &params) { DidChange(params); }},
        {"textDocument/didSave", [this](Json const &params) { Reanalyse({PathOfUri(params)}); }},
        {"textDocument/didClose", [this](Json const &params) { DidClose(params); }},
        {"workspace/didChangeConfiguration", [this](Json const &params) { DidChangeConfiguration(params); }},
        {"workspace/didChangeWatchedFiles", [this](Json const &params) { DidChangeWatchedFiles(params); }},
    };
}

int Server::Run(std::istream &in)
{
    MessageReader reader(in, m_limits);
    std::string body;
    while (!Exited()) {
        switch (reader.Next(body)) {
        case ReadStatus::Message:
            Handle(body);
            break;
        case ReadStatus::TooLarge:
            Fail(nullptr, kInvalidRequest,
                 "Message too large: the limit is " + std::to_string(m_limits.maxBodyBytes) + " bytes");
            break;
        case ReadStatus::BadHeader:
            Fail(nullptr, kParseError, "Malformed message header: a Content-Length field is required");
            break;
        case ReadStatus::End:
            return 1;  // the client went away without exit
        }
    }
    return ExitStatus();
}

void Server::Handle(std::string const &body)
{
    if (NestedTooDeep(body)) {
        Fail(nullptr, kParseError, "Parse error: JSON nested too deeply");
        return;
    }
    Json message;
    try {
        message = Json::parse(body);
    } catch (Json::exception const &error) {
        Fail(nullptr, kParseError, std::string("Parse error: ") + error.what());
        return;
    }
    Dispatch(message);
}

void Server::Dispatch(Json const &message)
{
    if (!message.is_object()) {
        Fail(nullptr, kInvalidRequest, "Invalid request: a message is a JSON object");
        return;
    }
    bool const hasId = message.contains("id");
    Json const id = hasId && ValidId(message["id"]) ? message["id"] : Json();
    if (message.value("jsonrpc", Json()) != "2.0" || (hasId && id.is_null())) {
        Fail(id, kInvalidRequest, "Invalid request: \"jsonrpc\" must be \"2.0\" and \"id\" an integer or a string");
        return;
    }
    if (!message.contains("method")) {
        if (hasId && (message.contains("result") || message.contains("error")))
            return;  // a response to a request of ours: there are none to wait for
        Fail(id, kInvalidRequest, "Invalid request: no \"method\"");
        return;
    }
    if (!message["method"].is_string()) {
        Fail(id, kInvalidRequest, "Invalid request: \"method\" must be a string");
        return;
    }
    std::string const method = message["method"].get<std::string>();
    Json params = message.value("params", Json::object());
    if (params.is_null())
        params = Json::object();  // "params": null, as some clients send with shutdown

    if (method == "exit") {
        m_state = State::Exited;
        return;
    }
    if (!hasId) {
        auto const handler = m_notifications.find(method);
        if (m_state != State::Running || handler == m_notifications.end())
            return;  // before initialize, after shutdown, unknown, or a "$/" notification
        try {
            handler->second(params);
        } catch (Json::exception const &) {
            Warn("Ignored " + method + ": invalid params");
        } catch (CException *error) {
            error->Delete();
            Warn("Out of memory while handling " + method);
        } catch (std::bad_alloc const &) {
            Warn("Out of memory while handling " + method);
        }
        return;
    }

    if (m_state == State::Uninitialized && method != "initialize") {
        Fail(id, kServerNotInitialized, "Server not initialized: send initialize first");
        return;
    }
    if (m_state == State::ShutDown) {
        Fail(id, kInvalidRequest, "Invalid request: the server is shutting down");
        return;
    }
    if (m_state == State::Running && method == "initialize") {
        Fail(id, kInvalidRequest, "Invalid request: initialize was already received");
        return;
    }
    auto const handler = m_requests.find(method);
    if (handler == m_requests.end()) {
        Fail(id, kMethodNotFound, "Method not found: " + method);
        return;
    }
    if (!params.is_object()) {
        Fail(id, kInvalidParams, "Invalid params: an object is expected");
        return;
    }
    try {
        Json result = handler->second(params);
        Respond(id, std::move(result));
    } catch (Json::exception const &error) {
        Fail(id, kInvalidParams, std::string("Invalid params: ") + error.what());
    } catch (CException *error) {
        error->Delete();
        Fail(id, kInternalError, "Out of memory");
    } catch (std::bad_alloc const &) {
        Fail(id, kInternalError, "Out of memory");
    }
}

// ---- messages to the client ------------------------------------------------------

void Server::Send(Json const &message)
{
    WriteMessage(m_out, message.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void Server::Respond(Json const &id, Json result)
{
    Send({{"jsonrpc", "2.0"}, {"id", id}, {"result", std::move(result)}});
}

void Server::Fail(Json const &id, int code, std::string const &message)
{
    Send({{"jsonrpc", "2.0"}, {"id", id}, {"error", {{"code", code}, {"message", message}}}});
}

void Server::Notify(std::string const &method, Json params)
{
    Send({{"jsonrpc", "2.0"}, {"method", method}, {"params", std::move(params)}});
}

void Server::Warn(std::string const &message)
{
    Notify("window/showMessage", {{"type", 2}, {"message", std::string(kServerName) + ": " + message}});
}

// ---- lifecycle and configuration ---------------------------------------------------

Server::Json Server::Initialize(Json const &params)
{
    // The workspace root: the first folder, else rootUri, else rootPath.
    Json const folders = params.value("workspaceFolders", Json());
    if (folders.is_array() && !folders.empty())
        m_root = UriToPath(folders[0].at("uri").get<std::string>());
    else if (params.contains("rootUri") && params["rootUri"].is_string())
        m_root = UriToPath(params["rootUri"].get<std::string>());
    else if (params.contains("rootPath") && params["rootPath"].is_string())
        m_root = params["rootPath"].get<std::string>();
    if (!m_root.empty())
        m_root = NormalPath(m_root);
    Json const options = params.value("initializationOptions", Json());
    if (options.is_object())
        m_options = options;
    Configure(m_options);
    m_state = State::Running;

    Json const triggers = {"(", "\"", "/", "#"};
    return {{"capabilities",
             {{"positionEncoding", "utf-16"},
              {"textDocumentSync", {{"openClose", true}, {"change", 2}, {"save", {{"includeText", false}}}}},
              {"hoverProvider", true},
              {"completionProvider", {{"triggerCharacters", triggers}}},
              {"signatureHelpProvider", {{"triggerCharacters", {"(", " "}}}},
              {"definitionProvider", true},
              {"referencesProvider", true},
              {"documentSymbolProvider", true},
              {"codeActionProvider", {{"codeActionKinds", {"quickfix"}}}}}},
            {"serverInfo", {{"name", kServerName}, {"version", "1.0.0"}}}};
}

// Settings as the command line takes them: fields by name first, then
// define words, each of which sets its field.
void Server::Configure(Json const &options)
{
    WorkspaceSettings settings;
    settings.root = m_root;
    Json mainFiles = options.value("mainFiles", Json::array());
    if (!mainFiles.is_array())
        mainFiles = Json::array({mainFiles});  // one name alone
    for (Json const &file : mainFiles) {
        if (file.is_string())
            settings.mainFiles.push_back(NormalPath(file.get<std::string>(), m_root));
        else
            Warn("mainFiles: " + file.dump() + " is not a file name");
    }
    Json fields = options.value("settings", Json::object());
    if (!fields.is_object()) {
        Warn("settings: " + fields.dump() + " is not an object of field names and integers");
        fields = Json::object();
    }
    for (auto const &field : fields.items()) {
        SettingsField const *known = FindSettingsField(field.key().c_str());
        if (!known) {
            Warn("settings: unknown field '" + field.key() + "'; the fields are " + SettingsFieldNames());
            continue;
        }
        ValueRange const range = FieldRange(*known);
        int value = range.nMin - 1;
        try {
            value = IntegerFrom(field.value());
        } catch (Json::exception const &) {
        }
        if (value < range.nMin || value > range.nMax) {
            Warn("settings: " + field.key() + " takes an integer from " + std::to_string(range.nMin) + " to "
                 + std::to_string(range.nMax));
            continue;
        }
        settings.settings.*known->pField = value;
    }
    Json defines = options.value("defines", Json::array());
    if (!defines.is_array())
        defines = Json::array({defines});  // one word alone
    for (Json const &word : defines) {
        unsigned int const sid = word.is_string() ? AI_Symbol(word.get<std::string>().c_str()) : 0;
        if (!AI_IsDefine(sid) || !ApplyDefine(sid, settings.settings))
            Warn("defines: " + word.dump() + " is not a define word");
    }
    m_workspace.Configure(std::move(settings));
}

// ---- documents -------------------------------------------------------------------------

void Server::DidOpen(Json const &params)
{
    Json const &document = params.at("textDocument");
    std::string const uri = document.at("uri").get<std::string>();
    std::string const path = PathOfUri(params);
    // A file no strategy reaches may be one a strategy could not read
    // before it was opened: then every strategy is checked again.
    bool const reached = m_workspace.ContextOf(path).report != nullptr;
    if (m_documents.Open(uri, document.at("text").get<std::string>(), IntegerFrom(document.at("version"))))
        Reanalyse({path}, !reached);
}

void Server::DidChange(Json const &params)
{
    Json const &document = params.at("textDocument");
    std::vector<ContentChange> changes;
    for (Json const &change : params.at("contentChanges")) {
        ContentChange content;
        if (change.contains("range"))
            content.range = RangeFromJson(change["range"]);
        content.text = change.at("text").get<std::string>();
        changes.push_back(std::move(content));
    }
    int const version
        = document.contains("version") && !document["version"].is_null() ? IntegerFrom(document["version"]) : 0;
    if (m_documents.Change(document.at("uri").get<std::string>(), version, changes))
        Reanalyse({PathOfUri(params)});
}

void Server::DidClose(Json const &params)
{
    if (m_documents.Close(params.at("textDocument").at("uri").get<std::string>()))
        Reanalyse({PathOfUri(params)});
}

// Files changed on disk: the strategies that read them are checked again.
void Server::DidChangeWatchedFiles(Json const &params)
{
    std::set<std::string> changed;
    for (Json const &change : params.at("changes"))
        changed.insert(NormalPath(UriToPath(change.at("uri").get<std::string>())));
    Reanalyse(changed);
}

void Server::DidChangeConfiguration(Json const &params)
{
    Json const settings = params.value("settings", Json());
    Json const section = settings.is_object() && settings.contains("stratagem") ? settings["stratagem"] : settings;
    if (!section.is_object())
        return;
    for (char const *key : {"mainFiles", "settings", "defines"})
        if (section.contains(key))
            m_options[key] = section[key];
    Configure(m_options);
    Reanalyse({}, true);
}

// Publishes the diagnostics of every file whose list differs from what
// the client holds.
void Server::Reanalyse(std::set<std::string> const &changed, bool all)
{
    auto const locate = m_features.StepLocator();
    for (FileDiagnostics const &file : m_workspace.Analyse(changed, all)) {
        Json diagnostics = Json::array();
        if (!file.diagnostics.empty()) {
            // An open document's text is used where it is, not copied.
            Document const *open = m_documents.FindPath(file.path);
            Text const read = open ? Text() : m_features.TextOf(file.path);
            Text const &text = open ? open->text : read;
            for (Diagnostic const *diagnostic : file.diagnostics)
                diagnostics.push_back(ToJson(text, *diagnostic, locate));
        }
        auto const sent = m_published.find(file.path);
        if (sent != m_published.end() && sent->second == diagnostics)
            continue;
        Json params = {{"uri", PathToUri(file.path)}, {"diagnostics", diagnostics}};
        if (Document const *document = m_documents.FindPath(file.path))
            params["version"] = document->version;
        Notify("textDocument/publishDiagnostics", std::move(params));
        m_published[file.path] = std::move(diagnostics);
    }
}

}  // namespace stratagem::server
