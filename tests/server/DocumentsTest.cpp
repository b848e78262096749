// The document store: changes of one didChange applied in order, whole-text
// changes, reopening, and what the checker reads through it.
#include <cerrno>
#include <chrono>
#include <filesystem>

#include "ServerTestSupport.h"
#include "server/Documents.h"

namespace {

using namespace stratagem::server;

ContentChange Edit(int line, int from, int toLine, int to, std::string text)
{
    return {TextRange {{line, from}, {toLine, to}}, std::move(text)};
}

TEST(Documents, AppliesChangesInOrder)
{
    std::tuple<char const *, std::string, std::vector<ContentChange>, std::string> const rows[] = {
        {"typing a word", "(defrule\n    (tr", {Edit(1, 7, 1, 7, "a"), Edit(1, 8, 1, 8, "in")}, "(defrule\n    (train"},
        {"each change sees the one before", "abc", {Edit(0, 0, 0, 1, "xy"), Edit(0, 2, 0, 3, "Z")}, "xyZc"},
        {"whole text, then a range", "old", {{std::nullopt, "new\ntext"}, Edit(1, 0, 1, 4, "line")}, "new\nline"},
        {"joining lines", "a\r\nb\r\nc", {Edit(0, 1, 2, 0, " ")}, "a c"},
        {"after an astral character", "\xF0\x9F\x98\x80x", {Edit(0, 2, 0, 3, "y")}, "\xF0\x9F\x98\x80y"},
    };
    for (auto const &[name, before, changes, after] : rows) {
        DocumentStore store;
        std::string const uri = "file:///w/a.per";
        ASSERT_TRUE(store.Open(uri, before, 1));
        ASSERT_TRUE(store.Change(uri, 2, changes));
        EXPECT_EQ(after, store.Find(uri)->text.Content()) << name;
        EXPECT_EQ(2, store.Find(uri)->version) << name;
    }
}

TEST(Documents, TracksOpenDocumentsByPath)
{
    DocumentStore store;
    EXPECT_FALSE(store.Open("untitled:1", "x", 1));
    EXPECT_FALSE(store.Change("file:///w/a.per", 2, {}));
    ASSERT_TRUE(store.Open("file:///w/sub/../a.per", "first", 1));
    ASSERT_TRUE(store.Open("file:///w/b.per", "second", 1));
    ASSERT_TRUE(store.Open("file:///w/sub/../a.per", "again", 3));  // reopened: now the newest
    std::vector<Document const *> const all = store.All();
    ASSERT_EQ(2u, all.size());
    EXPECT_EQ("/w/b.per", all[0]->path);
    EXPECT_EQ("/w/a.per", all[1]->path);

    std::string bytes;
    int error = 0;
    EXPECT_TRUE(store.Read("/w/./a.per", bytes, error));
    EXPECT_EQ("again", bytes);
    EXPECT_TRUE(store.Close("file:///w/sub/../a.per"));
    EXPECT_FALSE(store.Close("file:///w/sub/../a.per"));
    EXPECT_EQ(nullptr, store.FindPath("/w/a.per"));
}

// Closed files come from the disk, but never a directory or a device.
TEST(Documents, ReadsOnlyRegularFilesFromDisk)
{
    std::tuple<std::string, bool, int> const rows[] = {{servertest::DataPath("strategy/rules.per"), true, 0},
                                                       {servertest::DataPath("strategy"), false, EISDIR},
                                                       {"/dev/null", false, EINVAL},
                                                       {servertest::DataPath("no-such-file.per"), false, ENOENT}};
    DocumentStore const store;
    for (auto const &[name, read, expectedError] : rows) {
        std::string bytes;
        int error = 0;
        EXPECT_EQ(read, store.Read(name, bytes, error)) << name;
        EXPECT_EQ(expectedError, error) << name;
    }
}

// Files read from the disk are kept between analyses, but a rewrite is
// always seen: one long settled, and one just written, whose rewrite may
// fall within the same timestamp tick.
TEST(Documents, ReadsAFileAgainOnceRewritten)
{
    ScratchDir const dir;
    std::string const path = dir.Write("a.per", "(a)");
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - std::chrono::hours(1));
    DocumentStore const store;
    auto const read = [&] {
        std::string bytes;
        int error = 0;
        return store.Read(path, bytes, error) ? bytes : "error " + std::to_string(error);
    };
    std::vector<std::string> seen = {read(), read()};
    for (char const *text : {"(b)", "(c)"}) {
        dir.Write("a.per", text);
        seen.push_back(read());
    }
    std::filesystem::remove(path);
    seen.push_back(read());
    EXPECT_EQ((std::vector<std::string> {"(a)", "(a)", "(b)", "(c)", "error " + std::to_string(ENOENT)}), seen);
}

}  // namespace
