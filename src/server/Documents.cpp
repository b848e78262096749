#include "Documents.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <string>

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

namespace {

// How far back a command's first line is looked for before the whole
// beginning of the text is read instead.
int const kMaxCommandLines = 5000;

std::uintmax_t const kMaxFileBytes = 256u * 1024 * 1024;

// A line that starts a top-level command: its first word opens a rule, a
// constant, a load or a directive. Such words stand nowhere else at the
// start of a line in a well-formed script.
bool StartsCommand(std::string const &line)
{
    std::size_t const first = line.find_first_not_of(" \t");
    if (first == std::string::npos)
        return false;
    if (line[first] == '#')
        return true;
    for (char const *keyword : {"(defrule", "(defconst", "(load"})
        if (line.compare(first, std::char_traits<char>::length(keyword), keyword) == 0)
            return true;
    return false;
}

}  // namespace

// Editor requests look at one command, so only that command is scanned,
// not a text of thousands of rules. A string the end of the text cuts
// yields no token while one a line end cuts does: the line end added makes
// the string being typed at the very end of a buffer a token too.
std::vector<Token> DocumentStore::TokensAround(Document const &document, int line)
{
    Text const &text = document.text;
    int const last = std::min(std::max(line - 1, 0), text.LineCount() - 1);
    int first = last;
    while (first > 0 && last - first < kMaxCommandLines && !StartsCommand(text.Line(first)))
        --first;
    if (!StartsCommand(text.Line(first)))
        first = 0;
    std::size_t const begin = text.Offset({first, 0});
    std::size_t const end = last + 1 < text.LineCount() ? text.Offset({last + 1, 0}) : text.Content().size();
    std::vector<Token> tokens = Tokenize(text.Content().substr(begin, end - begin) + "\n");
    for (Token &token : tokens) {
        token.range.line += first;
        token.range.endLine += first;
    }
    return tokens;
}

// A script names the files it loads, so it can name a device or a pipe
// (the server's own standard input among them) or a huge file: only
// regular files of a script's size are read.
bool DocumentStore::Read(std::string const &name, std::string &bytes, int &error) const
{
    if (Document const *document = FindPath(NormalPath(name))) {
        bytes = document->text.Content();
        return true;
    }
    if (m_disk)
        return m_disk->Read(name, bytes, error);
    std::error_code status;
    std::filesystem::file_status const file = std::filesystem::status(name, status);
    if (!status && std::filesystem::exists(file)) {
        int refusal = 0;
        if (std::filesystem::is_directory(file))
            refusal = EISDIR;
        else if (!std::filesystem::is_regular_file(file))
            refusal = EINVAL;
        else if (std::filesystem::file_size(name, status) > kMaxFileBytes)
            refusal = EFBIG;
        if (refusal) {
            error = refusal;
            return false;
        }
    }
    return ReadDisk(name, bytes, error);
}

namespace {

std::size_t const kMaxCachedBytes = 64u * 1024 * 1024;

// A file modified this recently may be modified again within the same
// timestamp tick, unseen: it is not kept.
long long const kSettledNanoseconds = 2'000'000'000;

long long Nanoseconds(timespec const &time) { return time.tv_sec * 1'000'000'000LL + time.tv_nsec; }

}  // namespace

// Every analysis reads every file of its strategy, and an edit changes
// one: the others are read again only when their status changes.
bool DocumentStore::ReadDisk(std::string const &name, std::string &bytes, int &error) const
{
    struct stat status;
    if (::stat(name.c_str(), &status) != 0)
        return SourceProvider::Read(name, bytes, error);
    auto const cached = m_cache.find(name);
    if (cached != m_cache.end()) {
        CachedFile const &file = cached->second;
        if (file.size == status.st_size && file.modified == Nanoseconds(status.st_mtim)
            && file.changed == Nanoseconds(status.st_ctim) && file.inode == status.st_ino) {
            bytes = file.bytes;
            return true;
        }
        m_cachedBytes -= file.bytes.size();
        m_cache.erase(cached);
    }
    if (!SourceProvider::Read(name, bytes, error))
        return false;
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    bool const settled
        = Nanoseconds(now) - std::max(Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim)) > kSettledNanoseconds;
    if (!settled || static_cast<long long>(bytes.size()) != status.st_size || bytes.size() > kMaxCachedBytes)
        return true;
    if (m_cachedBytes + bytes.size() > kMaxCachedBytes) {
        m_cache.clear();
        m_cachedBytes = 0;
    }
    CachedFile &file = m_cache[name];
    file = {bytes, status.st_size, Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim),
            static_cast<unsigned long long>(status.st_ino)};
    m_cachedBytes += bytes.size();
    return true;
}

}  // namespace stratagem::server
