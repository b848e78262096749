// A check that takes over what earlier checks read gives the report that a
// check from nothing gives, whatever was edited in between, and reads
// again only the files an edit touched or could have changed.
#include <iterator>
#include <random>

#include "CheckTestSupport.h"

namespace {

using stratagem::CheckReport;

std::string DumpRange(stratagem::Range const &r) { return At(r); }

void DumpOutline(std::vector<stratagem::OutlineItem> const &items, std::string const &indent, std::ostream &out)
{
    for (stratagem::OutlineItem const &item : items) {
        out << indent << static_cast<int>(item.kind) << " " << item.name << " [" << item.detail << "] "
            << DumpRange(item.range) << " " << DumpRange(item.selectionRange) << "\n";
        DumpOutline(item.children, indent + "  ", out);
    }
}

// Everything a report says, a line per fact.
std::string Dump(CheckReport const &report)
{
    std::ostringstream out;
    out << report.errors << " errors, " << report.warnings << " warnings\n";
    for (stratagem::Diagnostic const &d : report.diagnostics) {
        out << Where(d) << " " << static_cast<int>(d.severity) << " " << d.message << " line " << d.analysisLine;
        for (std::string const &hint : d.hints)
            out << " | hint " << hint;
        for (stratagem::Replacement const &fix : d.fixes)
            out << " | fix " << DumpRange(fix.range) << " " << fix.text;
        for (stratagem::LoadStep const &step : d.loadedFrom)
            out << " <- " << step.file << ":" << step.line << ":" << step.column;
        out << "\n";
    }
    for (stratagem::FileReport const &file : report.files) {
        out << "file " << file.file;
        for (stratagem::LoadStep const &step : file.loadedFrom)
            out << " <- " << step.file << ":" << step.line << ":" << step.column;
        out << "\n";
        DumpOutline(file.outline, "  ", out);
        for (stratagem::ConstantDefinition const &c : file.constants)
            out << "  const " << c.name << "=" << c.value << " " << DumpRange(c.nameRange) << " "
                << DumpRange(c.commandRange) << "\n";
        for (stratagem::NamedRange const &use : file.constantUses)
            out << "  use " << use.name << " " << DumpRange(use.range) << "\n";
        for (stratagem::LoadReference const &load : file.loads)
            out << "  load " << load.writtenName << " " << load.target << " " << DumpRange(load.stringRange) << "\n";
    }
    return out.str();
}

char const *const kGone = "";  // a file that is no more

struct Edit
{
    char const *file;  // null: nothing changes
    std::string text;  // the file's new text, or kGone
    int nReused;       // files the check after the edit takes over
};

class Cache : public CheckTest
{
protected:
    // The reports of a check with the cache and of one without.
    std::pair<std::string, std::string> Both(stratagem::CheckCache &cache, int &nReused, bool bFileReports)
    {
        stratagem::CheckOptions options;
        options.settings = DefaultSettings();
        options.sources = &m_sources;
        options.fileReports = bFileReports;
        CheckReport fresh = stratagem::Check("main.per", options);
        options.cache = &cache;
        CheckReport cached = stratagem::Check("main.per", options);
        nReused = cached.reused;
        return {Dump(cached), Dump(fresh)};
    }
};

struct Scenario
{
    std::map<std::string, std::string> files;
    std::vector<Edit> edits;
};

TEST_F(Cache, EveryEditGivesTheReportOfACheckFromNothing)
{
    char const *const kMain = "(defconst lo 1)\n(load \"a\")\n"
                              "#load-if-defined GIANT-MAP (load \"b\") #else (load-random 50 \"b\" 40 \"c\") #end-if\n"
                              "(defrule (goal lo 1) => (do-nothing))\n";
    char const *const kMovedMain
        = "\n\n(defconst lo 7)\n(load \"a\")\n"
          "#load-if-defined GIANT-MAP (load \"b\") #else (load-random 50 \"b\" 40 \"c\") #end-if\n"
          "(defrule (goal lo 1) => (do-nothing))\n";
    char const *const kA = "(defconst hi 2)\n(defrule (goal hi lo) => (do-nothing))\n(defrule (tru) => (do-nothing))\n";
    char const *const kB = "(defrule (goal hi 1) => (do-nothing))\n(defconst hi 3)\n(load \"a\")\n";
    std::vector<Scenario> const scenarios = {
        {{{"main.per", kMain},
          {"a.per", kA},
          {"b.per", kB},
          {"c.per", "(defconst unused 4)\n(defrule (true) => (build hous))\n(defrule (true) => (build hous))\n"}},
         {
             {nullptr, "", 0},  // the first check: nothing to take over
             {nullptr, "", 4},
             {"a.per", "(defconst hi 2)\n(defrule (goal hi lo) => (do-nothing))\n(defrule (true) => (do-nothing))\n",
              3},
             {"a.per", "(defconst hi 5)\n(defrule (goal hi lo) => (do-nothing))\n(defrule (true) => (do-nothing))\n",
              1},
             {"main.per", kMovedMain, 1},  // lo changes: a uses it, b does not; c has errors, so any change counts
             {"a.per", "(defrule (goal hi lo) => (do-nothing))\n", 1},
             {"b.per", kGone, 2},
             {"b.per", kB, 4},  // as it was two checks ago: that reading is still kept
             {"c.per",
              "\xEF\xBB\xBF; stratagem: disable=W007\r\n(defconst unused 4)\r\n(defrule (true) => (build hous))\r\n",
              3},
             {"a.per", kA, 1},
             {"main.per", kMain, 2},  // main as it was: its reading is still kept
             // Lines move in the main file only: the chains to the files it
             // loads change, what those files read does not.
             {"main.per", std::string("\n") + kMain, 3},
         }},
        // The same constant with another value on each path: a file read
        // on one path sees that path's value.
        {{{"main.per", "#load-if-defined GIANT-MAP (defconst size 5) #else (defconst size 3) (load \"d\") #end-if\n"},
          {"d.per", "(defrule (goal size 1) => (do-nothing))\n"}},
         {
             {nullptr, "", 0},
             {"main.per",
              "#load-if-defined GIANT-MAP (defconst size 5) #else (defconst size 99) (load \"d\") #end-if\n", 0},
             {"main.per", "#load-if-defined GIANT-MAP (defconst size 5) #else (defconst size 3) (load \"d\") #end-if\n",
              2},
         }},
        // A constant a file registered is defined by a file read before it,
        // and then no more: the file reads the same, but registers it or not.
        {{{"main.per", "(load \"e\")\n(load \"f\")\n"},
          {"e.per", "; nothing yet\n"},
          {"f.per", "(defconst n 3)\n(defrule (true) => (do-nothing))\n"}},
         {
             {nullptr, "", 0},
             {"e.per", "(defconst n 5)\n", 1},
             {"e.per", "; nothing yet\n", 3},
         }},
    };
    for (Scenario const &scenario : scenarios)
        for (bool bFileReports : {true, false}) {
            m_sources.files = scenario.files;
            stratagem::CheckCache cache;
            for (std::size_t i = 0; i < scenario.edits.size(); ++i) {
                Edit const &edit = scenario.edits[i];
                if (edit.file && edit.text == kGone)
                    m_sources.files.erase(edit.file);
                else if (edit.file)
                    m_sources.files[edit.file] = edit.text;
                int nReused = 0;
                auto const reports = Both(cache, nReused, bFileReports);
                EXPECT_EQ(reports.second, reports.first) << "edit " << i;
                EXPECT_EQ(edit.nReused, nReused) << "edit " << i;
            }
        }
}

// Random edits of a small strategy, each line drawn from pieces that
// define, redefine and use constants, load files, open blocks and make
// mistakes.
TEST_F(Cache, RandomEditsGiveTheReportOfACheckFromNothing)
{
    char const *const pieces[] = {
        "(defconst x 1)\n",
        "(defconst x 50)\n",
        "(defconst y 2)\n",
        "(defrule (goal x 1) => (do-nothing))\n",
        "(defrule (goal y x) => (set-goal x 1))\n",
        "(defrule (tru) => (do-nothing))\n",
        "(load \"a\")\n",
        "(load \"b\")\n",
        "(load-random 50 \"a\" \"b\")\n",
        "#load-if-defined GIANT-MAP (defconst y 3) #else (load \"b\") #end-if\n",
        "; a comment\n",
    };
    char const *const names[] = {"main.per", "a.per", "b.per"};
    std::mt19937 random(7);
    auto const pick = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(random); };
    m_sources.files.clear();
    stratagem::CheckCache cache;
    int nReusedInAll = 0;
    for (int i = 0; i < 300; ++i) {
        std::string text;
        for (int lines = pick(4); lines >= 0; --lines)
            text += pieces[pick(static_cast<int>(std::size(pieces)))];
        m_sources.files[names[pick(3)]] = text;
        int nReused = 0;
        auto const reports = Both(cache, nReused, true);
        ASSERT_EQ(reports.second, reports.first) << "edit " << i;
        nReusedInAll += nReused;
    }
    EXPECT_GT(nReusedInAll, 100);  // the edits left most files as they were
}

}  // namespace
