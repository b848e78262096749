// The server's features over a real check of the test strategy under
// data/strategy: diagnostics and their publication, strategy context,
// unsaved buffers, hover, completion, signature help, definition,
// references, outline and quick fixes.
#include <algorithm>

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
    static Json Change(std::string const &name, int version, int line, int from, int to, std::string const &text)
    {
        return {{"textDocument", {{"uri", DataUri(name)}, {"version", version}}},
                {"contentChanges",
                 {{{"range",
                    {{"start", {{"line", line}, {"character", from}}}, {"end", {{"line", line}, {"character", to}}}}},
                   {"text", text}}}}};
    }
    static std::vector<std::string> Labels(Json const &completion)
    {
        std::vector<std::string> labels;
        for (Json const &item : completion["items"])
            labels.push_back(item["label"]);
        return labels;
    }
    static bool Has(std::vector<std::string> const &labels, std::string const &label)
    {
        return std::find(labels.begin(), labels.end(), label) != labels.end();
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
    // The string before the mistake holds a 4-byte and a 2-byte character:
    // 3 UTF-16 units fewer than bytes.
    std::string const text = "(defrule (true) => (chat-to-all \"\xF0\x9F\x98\x80\xC3\xA9\") (trian villager))\n";
    Session session;
    std::vector<Json> const messages = session.Initialize().Open("virtual.per", text).Run();
    Json const diagnostics = LastDiagnostics(messages, DataUri("virtual.per"));
    ASSERT_EQ(1u, diagnostics.size()) << diagnostics.dump();
    Json const &d = diagnostics[0];
    std::size_t const byteColumn = text.find("trian");
    EXPECT_EQ((Json {{"start", {{"line", 0}, {"character", byteColumn - 3}}},
                     {"end", {{"line", 0}, {"character", byteColumn + 2}}}}),
              d["range"]);
    EXPECT_EQ(1, d["severity"]);
    EXPECT_EQ("stratagem", d["source"]);
    EXPECT_EQ('E', d["code"].get<std::string>()[0]);
    EXPECT_NE(std::string::npos, d["message"].get<std::string>().find("train")) << "the hint is in the message";
}

TEST_F(Features, ClearsAFileThatLeavesTheStrategy)
{
    Session session;
    session.Initialize().Open("strategy/virtual.per", "(load \"broken\")\n");
    session.Notify("textDocument/didChange", Change("strategy/virtual.per", 2, 0, 0, 15, ""));
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
    struct Row
    {
        char const *name;
        Json options;
        bool openMain;
        bool rulesClean;
    };
    Row const rows[] = {{"alone", Json::object(), false, false},
                        {"main file named", {{"mainFiles", {kMain}}}, false, true},
                        {"main file open", Json::object(), true, true}};
    for (Row const &row : rows) {
        Session session;
        session.Initialize(row.options);
        if (row.openMain)
            session.OpenFromDisk(kMain);
        session.OpenFromDisk(kRules).Request(1, "textDocument/hover", At(kRules, 2, 12));
        std::vector<Json> const messages = session.Run();
        Json const diagnostics = LastDiagnostics(messages, DataUri(kRules));
        EXPECT_EQ(row.rulesClean, diagnostics.empty()) << row.name << ": " << diagnostics.dump();
        Json const hover = ResponseTo(messages, 1)["result"];
        EXPECT_EQ(row.rulesClean, !hover.is_null() && hover.dump().find("= 3") != std::string::npos) << row.name;
    }
}

// What an open buffer says counts, not the disk.
TEST_F(Features, ReadsOpenBuffers)
{
    Session session;
    session.Initialize().OpenFromDisk(kMain).Open(kRules, "(defrule (true) => (trian villager))\n");
    std::vector<Json> const messages = session.Run();
    EXPECT_EQ(1u, LastDiagnostics(messages, DataUri(kRules)).size());
    // The buffer no longer uses goal-attack: main.per gets the warning.
    Json const main = LastDiagnostics(messages, DataUri(kMain));
    ASSERT_EQ(1u, main.size());
    EXPECT_EQ(2, main[0]["severity"]);
    EXPECT_NE(std::string::npos, main[0]["message"].get<std::string>().find("goal-attack"));
}

TEST_F(Features, WarnsAboutUnknownSettings)
{
    struct Row
    {
        Json options;
        int warnings;
    };
    Row const rows[] = {{{{"settings", {{"nMapSize", 5}}}, {"defines", {"REGICIDE"}}}, 0},
                        {{{"settings", {{"nMapSize", "big"}, {"noSuchField", 1}}}}, 2},
                        {{{"settings", {{"nMapSize", 99}, {"nCiv", 1e9}}}}, 2},  // out of range, no integer
                        {{{"defines", {"NO-SUCH-WORD", 3}}}, 2},
                        {{{"mainFiles", "main.per"}}, 0},
                        {{{"mainFiles", {"main.per", 7}}}, 1}};
    for (Row const &row : rows) {
        Session session;
        session.Initialize().Notify("workspace/didChangeConfiguration", {{"settings", {{"stratagem", row.options}}}});
        int warnings = 0;
        for (Json const &message : session.Run())
            warnings += message.value("method", "") == "window/showMessage" ? 1 : 0;
        EXPECT_EQ(row.warnings, warnings) << row.options.dump();
    }
}

TEST_F(Features, Hovers)
{
    struct Row
    {
        int line, character;
        char const *expected;  // a part of the hover; "" for no hover
    };
    Row const rows[] = {
        {6, 6, "(food-amount"},  // a fact: its signature
        {6, 6, "rel-op"},        // ... and its parameter types
        {8, 6, "unit"},          // an action
        {8, 12, "SID"},          // a parameter word
        {6, 20, "= 500"},        // a constant
        {1, 12, "main.per:2"},   // ... and where it is defined
        {10, 18, "nMapSize"},    // a define word: the setting it tests
        {6, 17, ""},             // an operator
        {3, 1, ""},              // a keyword
        {4, 0, ""},              // an empty line
    };
    Session session;
    session.Initialize().OpenFromDisk(kMain);
    int id = 1;
    for (Row const &row : rows)
        session.Request(id++, "textDocument/hover", At(kMain, row.line, row.character));
    std::vector<Json> const messages = session.Run();
    id = 1;
    for (Row const &row : rows) {
        Json const result = ResponseTo(messages, id++)["result"];
        std::string const where = std::to_string(row.line) + ":" + std::to_string(row.character);
        if (*row.expected == '\0') {
            EXPECT_TRUE(result.is_null()) << where << result.dump();
            continue;
        }
        ASSERT_FALSE(result.is_null()) << where;
        EXPECT_NE(std::string::npos, result["contents"]["value"].get<std::string>().find(row.expected))
            << where << result.dump();
    }
}

TEST_F(Features, CompletesByPosition)
{
    // Each row edits one line of the main file and completes at its end.
    struct Row
    {
        char const *line;
        std::vector<std::string> present;
        std::vector<std::string> absent;
    };
    Row const rows[] = {
        {"(", {"defrule", "defconst", "load", "load-random"}, {"food-amount", "train"}},
        {"(defrule (", {"food-amount", "not", "xnor", "true"}, {"train", "defrule"}},
        {"(defrule (true) => (", {"train", "build"}, {"food-amount", "not"}},
        {"(defrule (true) => (train ", {"villager"}, {"house", "big", "food-amount"}},
        {"(defrule (true) => (build ", {"house"}, {"villager"}},
        {"    (defrule (true) => (train ", {"villager"}, {"house"}},  // indented, as inside a block
        {"(defrule (food-amount ", {"less-than", "greater-or-equal"}, {"villager"}},
        {"(defrule (food-amount < ", {"big", "goal-attack"}, {"villager", "less-than"}},
        {"(defrule (true) => (set-goal ", {"goal-attack"}, {"big"}},  // 1 to 40: 500 does not fit
        {"#", {"load-if-defined", "else", "end-if"}, {"defrule"}},
        {"#load-if-defined ", {"GIANT-MAP", "REGICIDE"}, {"villager"}},
        {"(load \"", {"rules", "giant", "broken"}, {"main", "rules.per"}},
        {"(defrule (true) => (train villager)) ", {}, {"villager", "train", "defrule"}},
    };
    for (Row const &row : rows) {
        std::string const text = servertest::ReadFile(servertest::DataPath(kMain)) + row.line;
        int const line = static_cast<int>(std::count(text.begin(), text.end(), '\n'));
        Session session;
        session.Initialize()
            .Open(kMain, text)
            .Request(1, "textDocument/completion", At(kMain, line, static_cast<int>(std::string(row.line).size())));
        std::vector<std::string> const labels = Labels(ResponseTo(session.Run(), 1)["result"]);
        for (std::string const &label : row.present)
            EXPECT_TRUE(Has(labels, label)) << row.line << " lacks " << label;
        for (std::string const &label : row.absent)
            EXPECT_FALSE(Has(labels, label)) << row.line << " has " << label;
    }
}

TEST_F(Features, HelpsWithSignatures)
{
    struct Row
    {
        char const *line;
        int active;  // -1: no help
    };
    Row const rows[] = {{"(defrule (food-amount ", 0},
                        {"(defrule (food-amount < ", 1},
                        {"(defrule (true) => (set-goal 1 ", 1},
                        {"(defrule (true) => (train villager extra ", 0},
                        {"(defrule (", -1}};
    for (Row const &row : rows) {
        Session session;
        session.Initialize()
            .Open("virtual.per", row.line)
            .Request(1, "textDocument/signatureHelp",
                     At("virtual.per", 0, static_cast<int>(std::string(row.line).size())));
        Json const result = ResponseTo(session.Run(), 1)["result"];
        if (row.active < 0) {
            EXPECT_TRUE(result.is_null()) << row.line;
            continue;
        }
        ASSERT_FALSE(result.is_null()) << row.line;
        EXPECT_EQ(row.active, result["activeParameter"]) << row.line;
        Json const &signature = result["signatures"][0];
        std::string const label = signature["label"];
        // Parameter labels are offsets into the signature's label.
        Json const &parameter = signature["parameters"][row.active];
        ASSERT_TRUE(parameter["label"].is_array()) << row.line;
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
    Json const range = {{"start", {{"line", 2}, {"character", 6}}}, {"end", {{"line", 2}, {"character", 6}}}};
    session.Request(1, "textDocument/codeAction",
                    {{"textDocument", {{"uri", DataUri(kBroken)}}},
                     {"range", range},
                     {"context", {{"diagnostics", Json::array()}}}});
    Json const elsewhere = {{"start", {{"line", 4}, {"character", 0}}}, {"end", {{"line", 4}, {"character", 1}}}};
    session.Request(2, "textDocument/codeAction",
                    {{"textDocument", {{"uri", DataUri(kBroken)}}},
                     {"range", elsewhere},
                     {"context", {{"diagnostics", Json::array()}}}});
    std::vector<Json> const messages = session.Run();
    Json const actions = ResponseTo(messages, 1)["result"];
    ASSERT_FALSE(actions.empty());
    Json const &first = actions[0];
    EXPECT_EQ("quickfix", first["kind"]);
    EXPECT_TRUE(first["isPreferred"].get<bool>());
    Json const edit = first["edit"]["changes"][DataUri(kBroken)][0];
    EXPECT_EQ("food-amount", edit["newText"]);
    EXPECT_EQ((Json {{"start", {{"line", 2}, {"character", 5}}}, {"end", {{"line", 2}, {"character", 15}}}}),
              edit["range"]);
    EXPECT_EQ(Json::array(), ResponseTo(messages, 2)["result"]);
}

}  // namespace
