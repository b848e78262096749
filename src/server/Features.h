// The requests about a document's content: hover, completion, signature
// help, definition, references, outline and quick fixes. Each takes the
// request's params and gives its result.
#ifndef STRATAGEM_SERVER_FEATURES_H
#define STRATAGEM_SERVER_FEATURES_H

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "Documents.h"
#include "Protocol.h"
#include "Workspace.h"

namespace stratagem::server {

class Features
{
public:
    Features(DocumentStore &documents, Workspace const &workspace);

    Json Hover(Json const &params);
    Json Completion(Json const &params);
    Json SignatureHelp(Json const &params);
    Json Definition(Json const &params);
    Json References(Json const &params);
    Json DocumentSymbols(Json const &params);
    Json CodeActions(Json const &params);

    // The text of a file: its open buffer, else the disk (empty when it
    // cannot be read).
    Text TextOf(std::string const &path) const;
    // Places the steps of load chains as protocol locations; each file's
    // text is read once for the locator's life.
    std::function<Json(LoadStep const &)> StepLocator() const;

private:
    struct Target
    {
        Document *document = nullptr;
        Cursor cursor;
    };
    Target Locate(Json const &params);
    Json CompletionItems(CursorContext const &context, Document const &document);
    Json FileItems(CursorContext const &context, Document const &document);
    Json ConstantLocations(std::string const &path, std::string const &name, bool definitions, bool uses);
    std::string HoverText(Document &document, Token const &token);

    DocumentStore &m_documents;
    Workspace const &m_workspace;
};

// The registered words of each kind, by SID, made once.
struct VocabularyWords
{
    std::vector<unsigned int> facts, actions, defines, params;
    static VocabularyWords const &Get();
};

}  // namespace stratagem::server

#endif
