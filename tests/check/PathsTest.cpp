// What a check reads: every error of a file, every file, both branches of
// every block and every option of every load-random, each file once; and
// that consecutive checks do not see each other.
#include <algorithm>

#include "CheckTestSupport.h"
#include "parser/AI_CParser.h"

namespace {

class Paths : public CheckTest
{};

TEST_F(Paths, EveryBrokenCommandIsReported)
{
    stratagem::CheckReport report = Run("(defrule (tru) => (do-nothing))\n"
                                        "(defrule (true) => (do-nothing)\n"
                                        "(defrule (true) => (do-nothng))\n"
                                        "(defconst x 1) ) (defrule (true) => (do-nothing))\n"
                                        "(defrule (goal x 1 2) => (do-nothing))\n");
    EXPECT_EQ((std::vector<std::string> {"main.per:1:11-1:13 E007", "main.per:3:2-3:8 E001", "main.per:3:21-3:29 E007",
                                         "main.per:4:16-4:16 E001", "main.per:5:11-5:14 E008"}),
              Where(report));
    EXPECT_EQ(5, report.errors);
}

TEST_F(Paths, ScannerErrorsComeInTokenOrder)
{
    stratagem::CheckReport report = Run("(defrule (tru) => $ (do-nothing 99999999999))\n(defrule (true) => @)");
    EXPECT_EQ((std::vector<std::string> {"main.per:1:11-1:13 E007", "main.per:1:19-1:19 E000",
                                         "main.per:1:33-1:43 E002", "main.per:2:20-2:20 E000"}),
              Where(report));
}

TEST_F(Paths, AnErrorInsideABlockResumesAtTheNextCommandOfEitherBranchAndAStrayEndIsStillAnError)
{
    stratagem::CheckReport report = Run("#load-if-defined GIANT-MAP\n"
                                        "  (defrule (tru) => (do-nothing))\n"
                                        "  #load-if-not-defined TINY-MAP (defrule (fals) => (do-nothing)) #end-if\n"
                                        "  (defrule (true) => (build hous))\n"
                                        "#else\n"
                                        "  (defrule (true) => (resign 1))\n"
                                        "#end-if\n"
                                        "(defrule (true) => (do-nothng))\n"
                                        "#end-if\n");
    EXPECT_EQ(
        (std::vector<std::string> {"main.per:2:13-2:15 E007", "main.per:3:43-3:46 E007", "main.per:4:29-4:32 E007",
                                   "main.per:6:23-6:28 E008", "main.per:8:21-8:29 E007", "main.per:9:2-9:7 E001"}),
        Where(report));
}

TEST_F(Paths, ABrokenFileDoesNotHideTheNextOne)
{
    stratagem::CheckReport report = Run("(load \"a\")\n(load \"b\")\n",
                                        {{"a.per", "(defrule (tru) => (do-nothing))\n(load \"c\")"},
                                         {"b.per", "(defrule (true) => (do-nothng))"},
                                         {"c.per", "(defrule (true) => (resign 1))"}});
    EXPECT_EQ((std::vector<std::string> {"a.per:1:11-1:13 E007", "c.per:1:21-1:26 E008", "b.per:1:21-1:29 E007"}),
              Where(report));
    ASSERT_EQ(4u, report.files.size());
    EXPECT_EQ((std::vector<std::string> {"main.per", "a.per", "c.per", "b.per"}),
              (std::vector<std::string> {report.files[0].file, report.files[1].file, report.files[2].file,
                                         report.files[3].file}));
    ASSERT_EQ(2u, report.diagnostics[1].loadedFrom.size());
    EXPECT_EQ("a.per", report.diagnostics[1].loadedFrom[1].file);
    EXPECT_EQ(2, report.diagnostics[1].loadedFrom[1].line);
}

TEST_F(Paths, BothBranchesOfEveryBlockAndEveryOptionAreRead)
{
    stratagem::CheckReport report = Run("#load-if-defined GIANT-MAP\n"
                                        "  (load \"big\")\n"
                                        "#else\n"
                                        "  #load-if-not-defined TINY-MAP (load \"mid\") #else (load \"tiny\") #end-if\n"
                                        "#end-if\n"
                                        "(load-random 10 \"r1\" 20 \"r2\" \"r3\")\n",
                                        {{"big.per", "(tru)"},
                                         {"mid.per", "(tru)"},
                                         {"tiny.per", "(tru)"},
                                         {"r1.per", "(tru)"},
                                         {"r2.per", "(tru)"},
                                         {"r3.per", "(tru)"}});
    std::vector<std::string> files;
    for (stratagem::Diagnostic const &d : report.diagnostics)
        files.push_back(d.file);
    EXPECT_EQ((std::vector<std::string> {"big.per", "mid.per", "tiny.per", "r1.per", "r2.per", "r3.per"}), files);
}

TEST_F(Paths, EachBranchSeesTheConstantsOfItsOwnPath)
{
    stratagem::CheckReport report
        = Run("#load-if-defined GIANT-MAP (defconst size 5) #else (defconst size 3) #end-if\n"
              "#load-if-defined GIANT-MAP (load \"a\") #else (load \"b\") #end-if\n",
              {{"a.per", "(defrule (goal size 1) => (do-nothing))"}, {"b.per", "(defconst size 50)"}});
    // The two branches are no redefinition; b.per's definition is one on
    // every path.
    EXPECT_EQ(std::vector<std::string> {"b.per:1:11-1:14 W007"}, Where(report));
}

// Where an error breaks a block, the commands read inside it stay in their
// branch: the other branch is another path, and what came before the error
// holds on the block's path.
TEST_F(Paths, ABlockBrokenByAnErrorKeepsItsPaths)
{
    std::pair<char const *, std::vector<std::string>> const rows[] = {
        {"#load-if-defined GIANT-MAP\n"
         "  (defrule (tru) => (do-nothing))\n"
         "  (defconst c 1)\n"
         "#else\n"
         "  (defconst c 2)\n"
         "#end-if\n"
         "(defrule (goal c 1) => (do-nothing))\n",
         {"main.per:2:13-2:15 E007"}},
        {"#load-if-defined GIANT-MAP\n"
         "  (defconst c 1)\n"
         "  (defrule (tru) => (do-nothing))\n"
         "#end-if\n"
         "(defrule (goal c 1) => (do-nothing))\n"
         "(load \"a\")\n",
         {"main.per:3:13-3:15 E007", "a.per:1:11-1:11 W007"}},
    };
    for (auto const &[main, expected] : rows)
        EXPECT_EQ(expected, Where(Run(main, {{"a.per", "(defconst c 2)"}}))) << main;
}

TEST_F(Paths, EveryFileIsReadOnceEvenInACycle)
{
    stratagem::CheckReport report
        = Run("(load \"a\")\n(load-random 50 \"a\" \"main\")\n", {{"a.per", "(load \"main\")\n(tru)"}});
    EXPECT_EQ(1, std::count(m_sources.reads.begin(), m_sources.reads.end(), "a.per"));
    EXPECT_EQ(1, std::count(m_sources.reads.begin(), m_sources.reads.end(), "main.per"));
    EXPECT_EQ(1, report.errors);
}

TEST_F(Paths, ConsecutiveChecksAreIndependent)
{
    stratagem::CheckReport first = Run("(defconst seen 1)\n(defrule (goal seen 1) => (do-nothing))");
    EXPECT_EQ(0, first.errors);
    EXPECT_EQ(0u, AI_Symbol("seen"));
    stratagem::CheckReport second = Run("(defrule (goal seen 1) => (do-nothing))");
    EXPECT_EQ((std::vector<std::string> {"main.per:1:16-1:19 E007"}), Where(second));
    EXPECT_EQ(1, AI_CParser::IsExpandBlocks());
}

}  // namespace
