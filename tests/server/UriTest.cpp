// file: URIs and path normalisation.
#include <gtest/gtest.h>

#include "server/Uri.h"

using namespace stratagem::server;

namespace {

TEST(Uri, ConvertsFileUris)
{
    struct Row
    {
        std::string uri;
        std::string path;
    };
    Row const rows[] = {
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
    for (Row const &row : rows)
        EXPECT_EQ(row.path, UriToPath(row.uri)) << row.uri;
}

TEST(Uri, RoundTripsPaths)
{
    for (std::string const path : {"/a/b.per", "/a b/c#d%e.per", "/\xC3\xA9/x?.per", "/"})
        EXPECT_EQ(path, UriToPath(PathToUri(path))) << path;
    EXPECT_EQ("file:///a%20b/c.per", PathToUri("/a b/c.per"));
}

TEST(Uri, NormalisesPaths)
{
    struct Row
    {
        std::string path, base, normal;
    };
    Row const rows[] = {
        {"/a/./b//c.per", "", "/a/b/c.per"},       {"/a/b/../c.per", "", "/a/c.per"},        {"/../x", "", "/x"},
        {"sub/x.per", "/root", "/root/sub/x.per"}, {"../x.per", "/root/dir", "/root/x.per"}, {"/", "", "/"},
    };
    for (Row const &row : rows)
        EXPECT_EQ(row.normal, NormalPath(row.path, row.base)) << row.path;
    EXPECT_EQ("/a", DirectoryOf("/a/b.per"));
    EXPECT_EQ("", DirectoryOf("b.per"));
}

}  // namespace
