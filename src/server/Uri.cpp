#include "Uri.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace stratagem::server {

namespace {

char const kScheme[] = "file://";

int HexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

bool Unreserved(unsigned char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '.'
        || c == '_' || c == '~' || c == '/';
}

std::string CurrentDirectory()
{
    std::error_code error;
    std::string const directory = std::filesystem::current_path(error).string();
    return error ? std::string("/") : directory;
}

}  // namespace

std::string UriToPath(std::string const &uri)
{
    std::size_t const schemeLength = sizeof kScheme - 1;
    if (uri.compare(0, schemeLength, kScheme) != 0)
        return {};
    // file://host/path: only the local host (empty or "localhost") is a path here.
    std::size_t const slash = uri.find('/', schemeLength);
    if (slash == std::string::npos)
        return {};
    std::string const host = uri.substr(schemeLength, slash - schemeLength);
    if (!host.empty() && host != "localhost")
        return {};
    std::string path;
    for (std::size_t i = slash; i < uri.size(); ++i) {
        if (uri[i] == '?' || uri[i] == '#')
            break;
        if (uri[i] != '%') {
            path.push_back(uri[i]);
            continue;
        }
        int const high = i + 2 < uri.size() ? HexValue(uri[i + 1]) : -1;
        int const low = i + 2 < uri.size() ? HexValue(uri[i + 2]) : -1;
        if (high < 0 || low < 0)
            return {};
        path.push_back(static_cast<char>(high * 16 + low));
        i += 2;
    }
    if (path.find('\0') != std::string::npos)
        return {};
    return path;
}

std::string PathToUri(std::string const &path)
{
    static char const kDigits[] = "0123456789ABCDEF";
    std::string uri = kScheme;
    for (char c : path) {
        unsigned char const byte = static_cast<unsigned char>(c);
        if (Unreserved(byte)) {
            uri.push_back(c);
        } else {
            uri.push_back('%');
            uri.push_back(kDigits[byte >> 4]);
            uri.push_back(kDigits[byte & 15]);
        }
    }
    return uri;
}

std::string NormalPath(std::string const &path, std::string const &base)
{
    std::string const full
        = !path.empty() && path[0] == '/' ? path : (base.empty() ? CurrentDirectory() : base) + "/" + path;
    std::vector<std::string> steps;
    std::size_t i = 0;
    while (i <= full.size()) {
        std::size_t const next = std::min(full.find('/', i), full.size());
        std::string const step = full.substr(i, next - i);
        if (step == "..") {
            if (!steps.empty())
                steps.pop_back();
        } else if (!step.empty() && step != ".") {
            steps.push_back(step);
        }
        i = next + 1;
    }
    std::string normal;
    for (std::string const &step : steps)
        normal += "/" + step;
    return normal.empty() ? "/" : normal;
}

std::string DirectoryOf(std::string const &path)
{
    std::size_t const slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

}  // namespace stratagem::server
