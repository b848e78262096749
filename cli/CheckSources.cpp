#include "CheckSources.h"

#include <cstdio>

char const *const kStdinName = "<stdin>";

namespace {

// The lines of a text as the check reads them: text mode, and a UTF-8
// byte-order mark at the start skipped (columns count from after it).
std::vector<std::string> SplitLines(std::string const &bytes)
{
    static std::string const kByteOrderMark = "\xEF\xBB\xBF";
    std::size_t const start = bytes.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0 ? kByteOrderMark.size() : 0;
    std::vector<std::string> lines(1);
    for (char const ch : bytes.substr(start)) {
        if (ch == '\x1a')
            break;
        if (ch == '\n')
            lines.emplace_back();
        else
            lines.back() += ch;
    }
    for (std::string &line : lines)
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
    return lines;
}

}  // namespace

void CliSources::Add(std::string const &name, std::string bytes)
{
    m_memory[name] = std::move(bytes);
    m_lines.erase(name);
}

bool CliSources::Read(std::string const &name, std::string &bytes, int &error) const
{
    auto const found = m_memory.find(name);
    if (found == m_memory.end())
        return SourceProvider::Read(name, bytes, error);
    bytes = found->second;
    return true;
}

bool CliSources::Line(std::string const &name, int line, std::string &text) const
{
    auto cached = m_lines.find(name);
    if (cached == m_lines.end()) {
        std::string bytes;
        int error = 0;
        if (!Read(name, bytes, error))
            return false;
        cached = m_lines.emplace(name, SplitLines(bytes)).first;
    }
    if (line < 1 || static_cast<std::size_t>(line) > cached->second.size())
        return false;
    text = cached->second[static_cast<std::size_t>(line) - 1];
    return true;
}

bool ReadStandardInput(std::string &bytes)
{
    char buffer[65536];
    std::size_t count = 0;
    while ((count = std::fread(buffer, 1, sizeof buffer, stdin)) > 0)
        bytes.append(buffer, count);
    return !std::ferror(stdin);
}
