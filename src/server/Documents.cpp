#include "Documents.h"

#include <algorithm>

#include "Uri.h"

namespace stratagem::server {

bool DocumentStore::Open(std::string const &uri, std::string text, int version)
{
    std::string const path = UriToPath(uri);
    if (path.empty())
        return false;
    Close(uri);
    Document &document = m_byUri[uri];
    document.uri = uri;
    document.path = NormalPath(path);
    document.text.Assign(std::move(text));
    document.version = version;
    document.opened = m_nextOrder++;
    m_uriByPath[document.path] = uri;
    return true;
}

bool DocumentStore::Change(std::string const &uri, int version, std::vector<ContentChange> const &changes)
{
    Document *document = Find(uri);
    if (!document)
        return false;
    for (ContentChange const &change : changes) {
        if (change.range)
            document->text.Replace(*change.range, change.text);
        else
            document->text.Assign(change.text);
    }
    document->version = version;
    document->tokens.reset();
    return true;
}

bool DocumentStore::Close(std::string const &uri)
{
    auto const found = m_byUri.find(uri);
    if (found == m_byUri.end())
        return false;
    m_uriByPath.erase(found->second.path);
    m_byUri.erase(found);
    return true;
}

Document *DocumentStore::Find(std::string const &uri)
{
    auto const found = m_byUri.find(uri);
    return found == m_byUri.end() ? nullptr : &found->second;
}

Document const *DocumentStore::FindPath(std::string const &path) const
{
    auto const uri = m_uriByPath.find(path);
    if (uri == m_uriByPath.end())
        return nullptr;
    return &m_byUri.at(uri->second);
}

std::vector<Document const *> DocumentStore::All() const
{
    std::vector<Document const *> documents;
    for (auto const &entry : m_byUri)
        documents.push_back(&entry.second);
    std::sort(documents.begin(), documents.end(),
              [](Document const *a, Document const *b) { return a->opened < b->opened; });
    return documents;
}

std::vector<Token> const &DocumentStore::Tokens(Document &document) const
{
    // A string the end of the text cuts yields no token, one a line end
    // cuts does: with a line end added, the string being typed at the very
    // end of a buffer is seen too. Positions do not change.
    if (!document.tokens)
        document.tokens = Tokenize(document.text.Content() + "\n");
    return *document.tokens;
}

bool DocumentStore::Read(std::string const &name, std::string &bytes, int &error) const
{
    if (Document const *document = FindPath(NormalPath(name))) {
        bytes = document->text.Content();
        return true;
    }
    return m_disk ? m_disk->Read(name, bytes, error) : SourceProvider::Read(name, bytes, error);
}

}  // namespace stratagem::server
