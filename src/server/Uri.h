// `file:` URIs and the file names the checker reads.
#ifndef STRATAGEM_SERVER_URI_H
#define STRATAGEM_SERVER_URI_H

#include <string>

namespace stratagem::server {

// The absolute path of a `file:` URI, percent-decoded; empty for any other
// scheme or a malformed escape.
std::string UriToPath(std::string const &uri);
// The `file:` URI of an absolute path; reserved characters are escaped.
std::string PathToUri(std::string const &path);
// The path with "." and ".." steps and repeated separators removed, made
// absolute against `base` when relative.
std::string NormalPath(std::string const &path, std::string const &base = {});
// The directory part of a path, without the final separator ("" for none).
std::string DirectoryOf(std::string const &path);

}  // namespace stratagem::server

#endif
