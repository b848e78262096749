// The server's features over a real check of the test strategy under
// data/strategy: diagnostics and their publication, strategy context,
// unsaved buffers, hover, completion, signature help, definition,
// references, outline and quick fixes.
#include <algorithm>
#include <cstring>
#include <set>

#include "ServerTestSupport.h"

namespace {

using servertest::DataUri;
using servertest::Json;
using servertest::LastDiagnostics;
using servertest::ResponseTo;
using servertest::Session;

std::string const kMain = "strategy/main.per";
std::string const kRules = "strategy/rules.per";
std::string const kGiant = "strategy/giant.per";
std::string const kBroken = "strategy/broken.per";

class Features : public servertest::Vocabulary
{
protected:
    static Json At(std::string const &name, int line, int character, Json extra = Json::object())
    {
        Json params
            = {{"textDocument", {{"uri", DataUri(name)}}}, {"position", {{"line", line}, {"character", character}}}};
        params.update(extra);
        return params;
    }
    static Json Range(int line, int from, int to)
    {
        return {{"start", {{"line", line}, {"character", from}}}, {"end", {{"line", line}, {"character", to}}}};
    }
    static std::set<std::string> Labels(Json const &completion)
    {
        std::set<std::string> labels;
        for (Json const &item : completion["items"])
            labels.insert(item["label"].get<std::string>());
        return labels;
    }
};

TEST_F(Features, PublishesForEveryFileOfTheStrategy)
{
    Session session;
    std::vector<Json> const messages = session.Initialize().OpenFromDisk(kMain).Run();
    // Both branches of the block count: giant.per is part of the strategy.
    for (std::string const &name : {kMain, kRules, kGiant})
        EXPECT_EQ(Json::array(), LastDiagnostics(messages, DataUri(name))) << name;
    EXPECT_TRUE(LastDiagnostics(messages, DataUri(kBroken)).is_null());
}

TEST_F(Features, ConvertsDiagnostics)
{
    // The text of virtual.per (one line), the file whose diagnostics are looked at, the UTF-16 range of each
    // (line, from, to), and where the first one's chain says the file was loaded from (character on line 0, -1:
    // no chain).
    std::tuple<std::string, std::string, std::vector<std::tuple<int, int, int>>, int> const rows[] = {
        // The string before the mistake holds a 4-byte and a 2-byte character: 3 units fewer than bytes.
        {"(defrule (true) => (chat-to-all \"\xF0\x9F\x98\x80\xC3\xA9\") (trian villager))\n",
         "virtual.per",
         {{0, 40, 45}},
         -1},
        // A stray character is one error a byte, each over the whole character.
        {"(defrule (true) => (train \xC3\xA9))\n", "virtual.per", {{0, 26, 27}, {0, 26, 27}}, -1},
        {"(defrule (true) => (train x\xF0\x9F\x98\x80y))\n",
         "virtual.per",
         {{0, 26, 27}, {0, 27, 29}, {0, 27, 29}, {0, 27, 29}, {0, 27, 29}},
         -1},
        // Loaded after the same string: the load stands 3 units before its byte column.
        {"(defrule (true) => (chat-to-all \"\xF0\x9F\x98\x80\xC3\xA9\")) (load \"strategy/broken\")\n",
         kBroken,
         {{2, 5, 15}},
         40},
    };
    for (auto const &[text, file, ranges, from] : rows) {
        SCOPED_TRACE(text);
        Session session;
        Json const diagnostics = LastDiagnostics(session.Initialize().Open("virtual.per", text).Run(), DataUri(file));
        ASSERT_EQ(ranges.size(), diagnostics.size()) << diagnostics.dump();
        for (std::size_t i = 0; i < ranges.size(); ++i) {
            auto const [line, start, end] = ranges[i];
            EXPECT_EQ(Range(line, start, end), diagnostics[i]["range"]) << i;
        }
        Json const &first = diagnostics[0];
        if (from < 0) {
            EXPECT_FALSE(first.contains("relatedInformation"));
        } else {
            Json const &location = first["relatedInformation"][0]["location"];
            EXPECT_EQ(DataUri("virtual.per"), location["uri"]);
            EXPECT_EQ(Range(0, from, from), location["range"]);
        }
        // The severity and the hint in the message are the editor test's.
        EXPECT_EQ("stratagem", first["source"]);
        EXPECT_EQ('E', first["code"].get<std::string>()[0]);
    }
}

TEST_F(Features, ClearsAFileThatLeavesTheStrategy)
{
    Session session;
    session.Initialize().Open("strategy/virtual.per", "(load \"broken\")\n");
    session.Notify("textDocument/didChange",
                   {{"textDocument", {{"uri", DataUri("strategy/virtual.per")}, {"version", 2}}},
                    {"contentChanges", {{{"range", Range(0, 0, 15)}, {"text", ""}}}}});
    std::vector<Json> messages = session.Run();
    Json first;
    for (Json const &message : messages)
        if (first.is_null() && message.value("method", "") == "textDocument/publishDiagnostics"
            && message["params"]["uri"] == DataUri(kBroken))
            first = message["params"]["diagnostics"];
    EXPECT_EQ(1u, first.size());
    EXPECT_EQ(Json::array(), LastDiagnostics(messages, DataUri(kBroken)));
}

// A loaded file is analysed in the strategy of the main file that loads it:
// named in the settings, or open.
TEST_F(Features, AnalysesLoadedFilesInTheirStrategy)
{
    // The main file open is the editor test's case; here alone and named.
    for (Json const &options : {Json::object(), Json {{"mainFiles", {kMain}}}}) {
        bool const named = !options.empty();
        Session session;
        session.Initialize(options).OpenFromDisk(kRules).Request(1, "textDocument/hover", At(kRules, 2, 12));
        std::vector<Json> const messages = session.Run();
        Json const diagnostics = LastDiagnostics(messages, DataUri(kRules));
        EXPECT_EQ(named, diagnostics.empty()) << options.dump() << ": " << diagnostics.dump();
        Json const hover = ResponseTo(messages, 1)["result"];
        EXPECT_EQ(named, !hover.is_null() && hover.dump().find("= 3") != std::string::npos) << options.dump();
    }
}

// What an open buffer says counts, not the disk: also a buffer of a file
// the disk does not hold yet, opened after the file that loads it.
TEST_F(Features, ReadsOpenBuffers)
{
    using Files = std::vector<std::pair<std::string, std::string>>;
    // The documents opened in order (name, text; empty: the disk's), then the codes each file ends with.
    std::pair<Files, std::vector<std::pair<std::string, std::vector<std::string>>>> const rows[] = {
        {{{kMain, ""}, {kRules, "(defrule (true) => (trian villager))\n"}},
         {{kRules, {"E007"}}, {kMain, {"W001"}}}},  // the buffer no longer uses goal-attack
        {{{"strategy/virtual.per", "(defconst c 3)\n(load \"unsaved\")\n"},
          {"strategy/unsaved.per", "(defrule (goal c 1) => (disable-self))\n"}},
         {{"strategy/virtual.per", {}}, {"strategy/unsaved.per", {}}}},
    };
    for (auto const &[open, expected] : rows) {
        Session session;
        session.Initialize();
        for (auto const &[name, text] : open)
            session.Open(name, text.empty() ? servertest::ReadFile(servertest::DataPath(name)) : text);
        std::vector<Json> const messages = session.Run();
        for (auto const &[name, codes] : expected) {
            std::vector<std::string> got;
            for (Json const &diagnostic : LastDiagnostics(messages, DataUri(name)))
                got.push_back(diagnostic["code"]);
            EXPECT_EQ(codes, got) << name << ": " << LastDiagnostics(messages, DataUri(name)).dump();
        }
    }
}

TEST_F(Features, WarnsAboutUnknownSettings)
{
    // Options and the warnings they give (99 is out of range, 1e9 no integer).
    std::pair<Json, int> const rows[] = {{{{"settings", {{"nMapSize", 5}}}, {"defines", {"REGICIDE"}}}, 0},
                                         {{{"settings", {{"nMapSize", "big"}, {"noSuchField", 1}}}}, 2},
                                         {{{"settings", {{"nMapSize", 99}, {"nCiv", 1e9}}}}, 2},
                                         {{{"defines", {"NO-SUCH-WORD", 3}}}, 2},
                                         {{{"defines", "NO-SUCH-WORD"}}, 1},
                                         {{{"defines", "REGICIDE"}, {"settings", {5}}}, 1},
                                         {{{"mainFiles", "main.per"}}, 0},
                                         {{{"mainFiles", {"main.per", 7}}}, 1}};
    for (auto const &[options, expected] : rows) {
        Session session;
        session.Initialize().Notify("workspace/didChangeConfiguration", {{"settings", {{"stratagem", options}}}});
        int warnings = 0;
        for (Json const &message : session.Run())
            warnings += message.value("method", "") == "window/showMessage" ? 1 : 0;
        EXPECT_EQ(expected, warnings) << options.dump();
    }
}

TEST_F(Features, Hovers)
{
    // Line, character, a part of the hover ("" for no hover): a fact's signature and parameter types, an
    // action, a parameter word, a constant and where it is defined, a define word's setting; an operator, a
    // keyword, an empty line.
    std::tuple<int, int, char const *> const rows[]
        = {{6, 6, "(food-amount"}, {6, 6, "rel-op"},     {8, 6, "unit"}, {8, 12, "SID"}, {6, 20, "= 500"},
           {1, 12, "main.per:2"},  {10, 18, "nMapSize"}, {6, 17, ""},    {3, 1, ""},     {4, 0, ""}};
    Session session;
    session.Initialize().OpenFromDisk(kMain);
    int id = 1;
    for (auto const &[line, character, expected] : rows)
        session.Request(id++, "textDocument/hover", At(kMain, line, character));
    std::vector<Json> const messages = session.Run();
    id = 1;
    for (auto const &[line, character, expected] : rows) {
        SCOPED_TRACE(std::to_string(line) + ":" + std::to_string(character));
        Json const result = ResponseTo(messages, id++)["result"];
        if (*expected == '\0')
            EXPECT_TRUE(result.is_null()) << result.dump();
        else
            EXPECT_NE(std::string::npos, result.dump().find(expected)) << result.dump();
    }
}

TEST_F(Features, CompletesByPosition)
{
    // Each row adds lines to the main file and completes at their end, or
    // at the "|" they hold. The lines, labels present, labels absent.
    std::tuple<char const *, std::vector<std::string>, std::vector<std::string>> const rows[] = {
        {"(", {"defrule", "defconst", "load", "load-random"}, {"food-amount", "train"}},
        {"(defrule (", {"food-amount", "not", "xnor", "true"}, {"train", "defrule"}},
        {"(defrule (true) => (", {"train", "build"}, {"food-amount", "not"}},
        {"(defrule (true) => (train ", {"villager"}, {"house", "big", "food-amount"}},
        {"(defrule (true) => (build ", {"house"}, {"villager"}},
        {"    (defrule (true) => (train ", {"villager"}, {"house"}},  // indented, as inside a block
        {"(defrule (food-amount ", {"less-than", "greater-or-equal"}, {"villager"}},
        // The integer range as an entry that inserts a value in it.
        {"(defrule (food-amount < ", {"big", "goal-attack", "0"}, {"villager", "less-than"}},
        // 1 to 40: 500 does not fit; rules-goal is defined in a file read after this one.
        {"(defrule (true) => (set-goal ", {"goal-attack", "1"}, {"big", "0", "rules-goal"}},
        // Not a constant defined further down: it is unknown where the cursor is.
        {"(defconst early 3)\n(defrule (true) => (set-goal |\n(defconst later 5)\n", {"early"}, {"later"}},
        {"#", {"load-if-defined", "else", "end-if"}, {"defrule"}},
        {"#load-if-defined ", {"GIANT-MAP", "REGICIDE"}, {"villager"}},
        {"(load \"", {"rules", "giant", "broken"}, {"main", "rules.per"}},
        {"(defrule (true) => (train villager)) ", {}, {"villager", "train", "defrule"}},
    };
    for (auto const &[edit, present, absent] : rows) {
        std::string text = servertest::ReadFile(servertest::DataPath(kMain)) + edit;
        std::size_t const cursor = std::min(text.find('|'), text.size());
        text.erase(cursor, 1);
        int const line = static_cast<int>(std::count(text.begin(), text.begin() + cursor, '\n'));
        int const character = static_cast<int>(cursor - text.rfind('\n', cursor - 1) - 1);
        Session session;
        session.Initialize().Open(kMain, text).Request(1, "textDocument/completion", At(kMain, line, character));
        std::set<std::string> const labels = Labels(ResponseTo(session.Run(), 1)["result"]);
        for (std::string const &label : present)
            EXPECT_EQ(1u, labels.count(label)) << edit << " lacks " << label;
        for (std::string const &label : absent)
            EXPECT_EQ(0u, labels.count(label)) << edit << " has " << label;
    }
}

TEST_F(Features, HelpsWithSignatures)
{
    // The text, the active parameter (-1: no help).
    std::pair<char const *, int> const rows[] = {{"(defrule (food-amount ", 0},
                                                 {"(defrule (food-amount < ", 1},
                                                 {"(defrule (true) => (set-goal 1 ", 1},
                                                 {"(defrule (true) => (train villager extra ", 0},
                                                 {"(defrule (", -1}};
    for (auto const &[text, active] : rows) {
        SCOPED_TRACE(text);
        Session session;
        session.Initialize()
            .Open("virtual.per", text)
            .Request(1, "textDocument/signatureHelp", At("virtual.per", 0, static_cast<int>(std::strlen(text))));
        Json const result = ResponseTo(session.Run(), 1)["result"];
        if (active < 0) {
            EXPECT_TRUE(result.is_null());
            continue;
        }
        ASSERT_FALSE(result.is_null());
        EXPECT_EQ(active, result["activeParameter"]);
        Json const &signature = result["signatures"][0];
        std::string const label = signature["label"];
        // Parameter labels are offsets into the signature's label.
        Json const &parameter = signature["parameters"][active];
        ASSERT_TRUE(parameter["label"].is_array());
        EXPECT_LT(parameter["label"][0].get<std::size_t>(), parameter["label"][1].get<std::size_t>());
        EXPECT_LE(parameter["label"][1].get<std::size_t>(), label.size());
    }
}

// Definitions of constants and loads are followed end to end by the editor
// test; here the word without one and the references.
TEST_F(Features, FindsDefinitionsAndReferences)
{
    Session session;
    session.Initialize().OpenFromDisk(kMain);
    session.Request(1, "textDocument/definition", At(kMain, 8, 6));  // train: nothing
    session.Request(2, "textDocument/references", At(kMain, 1, 12, {{"context", {{"includeDeclaration", true}}}}));
    session.Request(3, "textDocument/references", At(kMain, 1, 12, {{"context", {{"includeDeclaration", false}}}}));
    std::vector<Json> const messages = session.Run();
    EXPECT_TRUE(ResponseTo(messages, 1)["result"].is_null());
    // goal-attack: defined in main.per, used twice in rules.per.
    Json const all = ResponseTo(messages, 2)["result"];
    Json const uses = ResponseTo(messages, 3)["result"];
    EXPECT_EQ(3u, all.size()) << all.dump();
    ASSERT_EQ(2u, uses.size()) << uses.dump();
    for (Json const &use : uses)
        EXPECT_EQ(DataUri(kRules), use["uri"]);
}

TEST_F(Features, OutlinesTheDocument)
{
    Session session;
    session.Initialize().OpenFromDisk(kMain).Request(1, "textDocument/documentSymbol",
                                                     {{"textDocument", {{"uri", DataUri(kMain)}}}});
    Json const symbols = ResponseTo(session.Run(), 1)["result"];
    std::vector<std::pair<std::string, int>> outline;
    for (Json const &symbol : symbols)
        outline.push_back({symbol["name"], symbol["kind"]});
    std::vector<std::pair<std::string, int>> const expected
        = {{"goal-attack", 14}, {"big", 14}, {"rules", 1}, {"defrule", 12}, {"GIANT-MAP", 3}};
    EXPECT_EQ(expected, outline) << symbols.dump();
    ASSERT_EQ(5u, symbols.size());
    EXPECT_EQ("giant", symbols[4]["children"][0]["name"]);
    EXPECT_EQ(1, symbols[0]["selectionRange"]["start"]["line"]);
}

TEST_F(Features, OffersQuickFixes)
{
    Session session;
    session.Initialize().OpenFromDisk(kBroken);
    // At the misspelt word, and elsewhere.
    for (auto const &[id, line, from, to] : {std::tuple {1, 2, 6, 6}, std::tuple {2, 4, 0, 1}})
        session.Request(id, "textDocument/codeAction",
                        {{"textDocument", {{"uri", DataUri(kBroken)}}},
                         {"range", Range(line, from, to)},
                         {"context", {{"diagnostics", Json::array()}}}});
    std::vector<Json> const messages = session.Run();
    Json const actions = ResponseTo(messages, 1)["result"];
    ASSERT_FALSE(actions.empty());
    Json const &first = actions[0];
    EXPECT_EQ("quickfix", first["kind"]);
    EXPECT_TRUE(first["isPreferred"].get<bool>());
    Json const edit = first["edit"]["changes"][DataUri(kBroken)][0];
    EXPECT_EQ("food-amount", edit["newText"]);
    EXPECT_EQ(Range(2, 5, 15), edit["range"]);
    EXPECT_EQ(Json::array(), ResponseTo(messages, 2)["result"]);
}

}  // namespace
