// file: URIs and path normalisation.
#include <gtest/gtest.h>

#include "server/Uri.h"

using namespace stratagem::server;

namespace {

TEST(Uri, ConvertsFileUris)
{
    std::pair<std::string, std::string> const rows[] = {
        {"file:///home/a/main.per", "/home/a/main.per"},
        {"file:///home/a%20b/m%C3%A9.per", "/home/a b/m\xC3\xA9.per"},
        {"file://localhost/x.per", "/x.per"},
        {"file:///x.per?query#frag", "/x.per"},
        {"untitled:Untitled-1", ""},
        {"file://server/share/x.per", ""},
        {"file:///bad%2", ""},
        {"file:///bad%zz", ""},
        {"file:///nul%00.per", ""},
        {"", ""},
    };
    for (auto const &[uri, path] : rows)
        EXPECT_EQ(path, UriToPath(uri)) << uri;
}

TEST(Uri, RoundTripsPaths)
{
    for (std::string const path : {"/a/b.per", "/a b/c#d%e.per", "/\xC3\xA9/x?.per", "/"})
        EXPECT_EQ(path, UriToPath(PathToUri(path))) << path;
    EXPECT_EQ("file:///a%20b/c.per", PathToUri("/a b/c.per"));
}

TEST(Uri, NormalisesPaths)
{
    std::tuple<std::string, std::string, std::string> const rows[] = {
        {"/a/./b//c.per", "", "/a/b/c.per"},       {"/a/b/../c.per", "", "/a/c.per"},        {"/../x", "", "/x"},
        {"sub/x.per", "/root", "/root/sub/x.per"}, {"../x.per", "/root/dir", "/root/x.per"}, {"/", "", "/"},
    };
    for (auto const &[path, base, normal] : rows)
        EXPECT_EQ(normal, NormalPath(path, base)) << path;
    EXPECT_EQ("/a", DirectoryOf("/a/b.per"));
    EXPECT_EQ("", DirectoryOf("b.per"));
}

}  // namespace
