// The documents the editor has open: their text as the editor holds it,
// kept in step with incremental changes. The store is also where the
// checker reads script text: an open document's buffer, else the disk.
#ifndef STRATAGEM_SERVER_DOCUMENTS_H
#define STRATAGEM_SERVER_DOCUMENTS_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "../check/Check.h"
#include "Text.h"

namespace stratagem::server {

struct Document
{
    std::string uri;
    std::string path;  // normal absolute path
    Text text;
    int version = 0;
    std::uint64_t opened = 0;  // order of opening, for stable choices between documents
};

// One content change of didChange: a range edit, or the whole text when
// `range` is empty.
struct ContentChange
{
    std::optional<TextRange> range;
    std::string text;
};

class DocumentStore : public SourceProvider
{
public:
    // Files that are not open are read from `disk` (null: the file system).
    explicit DocumentStore(SourceProvider const *disk = nullptr) : m_disk(disk) {}

    // Opens (or reopens) a document; false for a URI that is not a file.
    bool Open(std::string const &uri, std::string text, int version);
    // Applies changes in order; false when the document is not open.
    bool Change(std::string const &uri, int version, std::vector<ContentChange> const &changes);
    bool Close(std::string const &uri);

    Document *Find(std::string const &uri);
    Document const *FindPath(std::string const &path) const;
    std::vector<Document const *> All() const;  // in order of opening

    // The tokens of the top-level command around a 1-based line, through
    // the end of that line, with their positions in the whole text.
    static std::vector<Token> TokensAround(Document const &document, int line);

    bool Read(std::string const &name, std::string &bytes, int &error) const override;

private:
    // A file read from the disk, kept while its status stays the same.
    struct CachedFile
    {
        std::string bytes;
        long long size = 0;
        long long modified = 0;  // nanoseconds
        long long changed = 0;   // status change, nanoseconds
        unsigned long long inode = 0;
    };
    bool ReadDisk(std::string const &name, std::string &bytes, int &error) const;

    SourceProvider const *m_disk;
    mutable std::map<std::string, CachedFile> m_cache;
    mutable std::size_t m_cachedBytes = 0;
    std::map<std::string, Document> m_byUri;
    std::map<std::string, std::string> m_uriByPath;
    std::uint64_t m_nextOrder = 0;
};

}  // namespace stratagem::server

#endif
