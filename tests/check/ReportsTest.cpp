// What a check tells an editor: the outline, constants and their uses,
// loads, tokens, and the vocabulary descriptions behind hovers.
#include <functional>

#include "CheckTestSupport.h"

namespace {

class Reports : public CheckTest
{};

TEST_F(Reports, OutlineHoldsEveryCommandWithItsRanges)
{
    using Kind = stratagem::OutlineKind;
    auto const kind = [](Kind k) { return std::to_string(static_cast<int>(k)) + " "; };
    // The main file, then kind, name, detail, range and selection range of each item, depth first. A block
    // broken by an error keeps the commands read inside it.
    std::pair<char const *, std::vector<std::string>> const rows[] = {
        {"(defconst size 5)\n"
         "(load \"a\")\n"
         "#load-if-not-defined GIANT-MAP\n"
         "  (defrule (goal size 1) => (do-nothing))\n"
         "#else\n"
         "  (load-random 30 \"a\" \"b\")\n"
         "#end-if\n",
         {
             kind(Kind::Constant) + "size [5] 1:1-1:17 1:11-1:14",
             kind(Kind::Load) + "a [a.per] 2:1-2:10 2:7-2:9",
             kind(Kind::Block) + "GIANT-MAP [#load-if-not-defined] 3:1-7:7 3:22-3:30",
             kind(Kind::Rule) + "defrule [] 4:3-4:41 4:4-4:10",
             kind(Kind::LoadRandom) + "load-random [30% a, default b] 6:3-6:26 6:4-6:14",
         }},
        {"#load-if-defined GIANT-MAP\n"
         "  (defconst c 1)\n"
         "  (defrule (tru) => (do-nothing))\n"
         "#else\n"
         "  (defrule (true) => (do-nothing))\n"
         "#end-if\n"
         "(defrule (true) => (do-nothing))\n"
         "#load-if-defined",
         {
             kind(Kind::Block) + "GIANT-MAP [#load-if-defined] 1:1-6:7 1:18-1:26",
             kind(Kind::Constant) + "c [1] 2:3-2:16 2:13-2:13",
             kind(Kind::Rule) + "defrule [] 3:3-3:33 3:4-3:10",
             kind(Kind::Rule) + "defrule [] 5:3-5:34 5:4-5:10",
             kind(Kind::Rule) + "defrule [] 7:1-7:32 7:2-7:8",
             kind(Kind::Block) + "#load-if-defined [#load-if-defined] 8:1-8:16 8:1-8:16",
         }},
        // Commands being written stay in the outline, up to where reading goes on.
        {"(defrule (tru\n"
         "(defrule (true) => (do-nothing)\n"
         "(defconst x 1)\n"
         "(defrule (true) => (build house\n"
         "#load-if-defined GIANT-MAP (load \"a\" #end-if\n"
         "(load-random",
         {
             kind(Kind::Rule) + "defrule [] 1:1-1:13 1:2-1:8",
             kind(Kind::Rule) + "defrule [] 2:1-2:31 2:2-2:8",
             kind(Kind::Constant) + "x [1] 3:1-3:14 3:11-3:11",
             kind(Kind::Rule) + "defrule [] 4:1-4:31 4:2-4:8",
             kind(Kind::Block) + "GIANT-MAP [#load-if-defined] 5:1-5:44 5:18-5:26",
             kind(Kind::Load) + "load [] 5:28-5:36 5:29-5:32",
             kind(Kind::LoadRandom) + "load-random [] 6:1-6:12 6:2-6:12",
         }},
    };
    for (auto const &[main, expected] : rows) {
        stratagem::CheckReport report
            = Run(main, {{"a.per", "(defrule (true) => (do-nothing))"}, {"b.per", "(defrule (true) => (do-nothing))"}});
        std::vector<std::string> items;
        std::function<void(std::vector<stratagem::OutlineItem> const &)> add = [&](auto const &outline) {
            for (stratagem::OutlineItem const &item : outline) {
                items.push_back(std::to_string(static_cast<int>(item.kind)) + " " + item.name + " [" + item.detail
                                + "] " + At(item.range) + " " + At(item.selectionRange));
                add(item.children);
            }
        };
        add(report.files[0].outline);
        EXPECT_EQ(expected, items) << main;
    }
}

TEST_F(Reports, ConstantsUsesAndLoadsArePlaced)
{
    stratagem::CheckReport report
        = Run("(defconst g 3)\n(defconst h g)\n(defrule (goal g h) => (do-nothing))\n(load \"lib/a\")",
              {{"lib/a.per", "(defrule (true) => (do-nothing))"}});
    stratagem::FileReport const &main = report.files[0];
    std::vector<std::string> found;
    for (stratagem::ConstantDefinition const &constant : main.constants)
        found.push_back(constant.name + "=" + std::to_string(constant.value) + " " + At(constant.nameRange) + " "
                        + At(constant.commandRange));
    for (stratagem::NamedRange const &use : main.constantUses)
        found.push_back(use.name + "@" + At(use.range));
    for (stratagem::LoadReference const &load : main.loads)
        found.push_back(load.writtenName + " -> " + load.target + " " + At(load.stringRange));
    EXPECT_EQ((std::vector<std::string> {"g=3 1:11-1:11 1:1-1:14", "h=3 2:11-2:11 2:1-2:14", "g@2:13-2:13",
                                         "g@3:16-3:16", "h@3:18-3:18", "lib/a -> lib/a.per 4:7-4:13"}),
              found);
    ASSERT_EQ(2u, report.files.size());
    ASSERT_EQ(1u, report.files[1].loadedFrom.size());
    EXPECT_EQ(4, report.files[1].loadedFrom[0].line);
}

TEST_F(Reports, TokenizeGivesEveryTokenAndNeverThrows)
{
    // Rows: pszText, tokens (code@range "text").
    std::pair<char const *, std::vector<std::string>> const rows[] = {
        {"(defrule (x < -5)",
         {"40@1:1-1:1 (", "258@1:2-1:8 defrule", "40@1:10-1:10 (", "280@1:11-1:11 x", "269@1:13-1:13 <",
          "282@1:15-1:16 -5", "41@1:17-1:17 )"}},
        {"; note\r\n  \"a\\\"b\" $", {"281@2:3-2:8 \"a\\\"b\"", "-1@2:10-2:10 $"}},
        {"(load \"open", {"40@1:1-1:1 (", "260@1:2-1:5 load", "281@1:7-1:11 \"open"}},
        {"\"cut\n(", {"281@1:1-1:4 \"cut", "40@2:1-2:1 ("}},
        {"99999999999999 x\x1Ay", {"282@1:1-1:14 99999999999999", "280@1:16-1:16 x"}},
    };
    for (auto const &[pszText, expectedTokens] : rows) {
        std::vector<std::string> tokens;
        for (stratagem::Token const &token : stratagem::Tokenize(pszText))
            tokens.push_back(std::to_string(token.code) + "@" + At(token.range) + " " + token.text);
        EXPECT_EQ(expectedTokens, tokens) << pszText;
    }
}

TEST_F(Reports, OddTextNeitherThrowsNorLosesBytes)
{
    // Every byte alone, and texts that end inside a construct: the tokens
    // never overlap, stay inside the text, and the check reports instead of
    // throwing.
    std::vector<std::string> texts = {"\"\\", "\"abc\\\n", "#", "(defrule", "(load \"a", ";", "\r", "\r\n\r\n"};
    for (int ch = 0; ch < 256; ++ch)
        texts.push_back(std::string(1, static_cast<char>(ch)));
    for (std::string const &text : texts) {
        int nLastLine = 0, nLastColumn = 0;
        for (stratagem::Token const &token : stratagem::Tokenize(text)) {
            EXPECT_FALSE(token.text.empty() && token.code != stratagem::token::Invalid) << text;
            EXPECT_NE(std::string::npos, text.find(token.text)) << text;
            EXPECT_GT(std::make_pair(token.range.line, token.range.column), std::make_pair(nLastLine, nLastColumn));
            nLastLine = token.range.endLine;
            nLastColumn = token.range.endColumn;
        }
        stratagem::CheckReport report = Run(text);
        EXPECT_EQ(report.errors + report.warnings, static_cast<int>(report.diagnostics.size()));
    }
}

TEST_F(Reports, VocabularyDescriptions)
{
    EXPECT_EQ("rel-op", stratagem::ParamTypeName(AI_PT_REL_OP));
    EXPECT_EQ("one of: less-than, less-or-equal, greater-than, greater-or-equal, equal, not-equal",
              stratagem::AcceptedValues(AI_PT_REL_OP));
    EXPECT_EQ("a string in double quotes", stratagem::AcceptedValues(AI_PT_STRING));
    EXPECT_EQ("(food-amount rel-op value)", stratagem::Signature(AI_Symbol("food-amount")));
    EXPECT_EQ("(do-nothing)", stratagem::Signature(AI_Symbol("do-nothing")));
    EXPECT_EQ("", stratagem::Signature(AI_Symbol("archer")));
    EXPECT_TRUE(stratagem::ClosestWords("zzzzzzzzzzzz", nullptr).empty());
}

}  // namespace
