#include "DiagnosticWriters.h"

#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

using stratagem::Diagnostic;
using stratagem::Severity;
using Json = nlohmann::ordered_json;

namespace {

// ---- shared pieces ----------------------------------------------------------------

char const *SeverityWord(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

// Messages and hints are single lines; a stray line break would split a
// gcc-format record in two.
std::string OneLine(std::string text)
{
    for (char &ch : text)
        if (ch == '\n' || ch == '\r')
            ch = ' ';
    return text;
}

std::string Position(std::string const &file, int line, int column)
{
    return file + ":" + std::to_string(line) + ":" + std::to_string(column);
}

// A main or extra file that cannot be opened is named by no script text:
// its diagnostic has no position, and only the file is written.
std::string Place(Diagnostic const &d)
{
    return d.range.line > 0 ? Position(d.file, d.range.line, d.range.column) : d.file;
}

// What each code stands for, as a rule of the SARIF log names it. A code
// the table does not know yet is described by its first message.
struct CodeDescription
{
    char const *szCode;
    char const *szText;
};

CodeDescription const kCodeDescriptions[] = {
    {"E000", "Invalid character"},
    {"E001", "Syntax error"},
    {"E002", "Number that is not a valid integer"},
    {"E003", "Fact name expected"},
    {"E004", "Action name expected"},
    {"E005", "Expression expected"},
    {"E006", "Define word expected"},
    {"E007", "Unknown symbol"},
    {"E008", "Wrong number of parameters"},
    {"E009", "Wrong parameter"},
    {"E010", "Invalid probability"},
    {"E011", "Invalid probability sum"},
    {"E012", "Duplicate constant"},
    {"E013", "Non-constant symbol in a constant definition"},
    {"E100", "File cannot be opened"},
    {"W001", "Constant defined and never used"},
    {"W002", "File loaded twice"},
    {"W003", "Random load option that can never be drawn"},
    {"W004", "Identical rule"},
    {"W005", "Rule that can never fire"},
    {"W006", "Byte-order mark skipped"},
};

std::string DescribeCode(Diagnostic const &first)
{
    for (CodeDescription const &row : kCodeDescriptions)
        if (first.code == row.szCode)
            return row.szText;
    return OneLine(first.message);
}

std::string DumpJson(Json const &json)
{
    // Script text may hold bytes that are not UTF-8; they are replaced rather
    // than ending the output.
    return json.dump(2, ' ', false, Json::error_handler_t::replace);
}

// ---- text -------------------------------------------------------------------------

struct Palette
{
    char const *szLocation;
    char const *szError;
    char const *szWarning;
    char const *szNote;
    char const *szCaret;
    char const *szMessage;
    char const *szReset;
};

Palette const kColors = {"\033[1m", "\033[1;31m", "\033[1;35m", "\033[1;36m", "\033[1;32m", "\033[1m", "\033[0m"};
Palette const kPlain = {"", "", "", "", "", "", ""};

// The line under the source line: a caret under the range's first byte and
// tildes under the rest of it on that line. Tabs are copied so that the
// caret lines up however the terminal expands them.
std::string CaretLine(std::string const &source, stratagem::Range const &range)
{
    std::size_t const first = range.column > 0 ? static_cast<std::size_t>(range.column) : 1;
    std::size_t last = range.endLine > range.line ? source.size() : static_cast<std::size_t>(range.endColumn);
    if (last > source.size())
        last = source.size();
    if (last < first)
        last = first;
    std::string caret;
    for (std::size_t i = 1; i < first; ++i)
        caret += i <= source.size() && source[i - 1] == '\t' ? '\t' : ' ';
    caret += '^';
    caret.append(last - first, '~');
    return caret;
}

std::string Counted(int count, char const *word)
{
    return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

void WriteText(std::ostream &out, std::vector<Diagnostic> const &diagnostics, WriteContext const &context)
{
    Palette const &p = context.bColor ? kColors : kPlain;
    int errors = 0;
    int warnings = 0;
    for (Diagnostic const &d : diagnostics) {
        bool const bError = d.severity == Severity::Error;
        (bError ? errors : warnings) += 1;
        out << p.szLocation << Place(d) << ":" << p.szReset << " " << (bError ? p.szError : p.szWarning)
            << SeverityWord(d.severity) << ":" << p.szReset << " " << p.szMessage << OneLine(d.message) << " ["
            << d.code << "]" << p.szReset << '\n';
        std::string source;
        if (context.sources.Line(d.file, d.range.line, source))
            out << source << '\n' << p.szCaret << CaretLine(source, d.range) << p.szReset << '\n';
        for (std::string const &hint : d.hints)
            out << p.szNote << "note:" << p.szReset << " " << OneLine(hint) << '\n';
        for (stratagem::LoadStep const &step : d.loadedFrom)
            out << p.szNote << "note:" << p.szReset << " loaded from " << Position(step.file, step.line, step.column)
                << '\n';
    }
    if (errors + warnings == 0)
        return;
    std::string summary = errors ? Counted(errors, "error") : "";
    if (warnings)
        summary += (errors ? " and " : "") + Counted(warnings, "warning");
    out << summary << " generated.\n";
}

// ---- gcc --------------------------------------------------------------------------

void WriteGcc(std::ostream &out, std::vector<Diagnostic> const &diagnostics, WriteContext const &)
{
    for (Diagnostic const &d : diagnostics)
        out << Place(d) << ": " << SeverityWord(d.severity) << ": " << OneLine(d.message) << " [" << d.code << "]\n";
}

// ---- json -------------------------------------------------------------------------

Json JsonRange(stratagem::Range const &range)
{
    return {{"line", range.line}, {"column", range.column}, {"endLine", range.endLine}, {"endColumn", range.endColumn}};
}

void WriteJson(std::ostream &out, std::vector<Diagnostic> const &diagnostics, WriteContext const &)
{
    Json all = Json::array();
    for (Diagnostic const &d : diagnostics) {
        Json item = {{"file", d.file}};
        item.update(JsonRange(d.range));
        item["severity"] = SeverityWord(d.severity);
        item["code"] = d.code;
        item["message"] = d.message;
        item["hints"] = d.hints;
        item["loadedFrom"] = Json::array();
        for (stratagem::LoadStep const &step : d.loadedFrom)
            item["loadedFrom"].push_back({{"file", step.file}, {"line", step.line}, {"column", step.column}});
        item["fixes"] = Json::array();
        for (stratagem::Replacement const &fix : d.fixes) {
            Json replacement = JsonRange(fix.range);
            replacement["text"] = fix.text;
            item["fixes"].push_back(replacement);
        }
        all.push_back(item);
    }
    out << DumpJson(all) << '\n';
}

// ---- sarif ------------------------------------------------------------------------

// A file name as a URI reference: relative names stay relative; bytes that a
// URI cannot hold are percent-encoded.
std::string FileUri(std::string const &file)
{
    static char const kHex[] = "0123456789ABCDEF";
    std::string uri;
    for (unsigned char const ch : file) {
        bool const bPlain = (ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9')
            || std::string("-._~/").find(static_cast<char>(ch)) != std::string::npos;
        if (bPlain)
            uri += static_cast<char>(ch);
        else
            uri += std::string("%") + kHex[ch >> 4] + kHex[ch & 15];
    }
    return uri;
}

// SARIF columns end exclusive; ours end inclusive.
Json SarifRegion(stratagem::Range const &range)
{
    return {{"startLine", range.line},
            {"startColumn", range.column},
            {"endLine", range.endLine},
            {"endColumn", range.endColumn + 1}};
}

Json SarifLocation(std::string const &file, Json region)
{
    Json physical = {{"artifactLocation", {{"uri", FileUri(file)}}}};
    if (region.at("startLine") > 0)
        physical["region"] = std::move(region);
    return {{"physicalLocation", physical}};
}

Json SarifResult(Diagnostic const &d, std::size_t ruleIndex)
{
    Json result = {{"ruleId", d.code},
                   {"ruleIndex", ruleIndex},
                   {"level", SeverityWord(d.severity)},
                   {"message", {{"text", d.message}}},
                   {"locations", Json::array({SarifLocation(d.file, SarifRegion(d.range))})}};
    // The chain of loads that reached the file, from the main file down.
    Json related = Json::array();
    for (stratagem::LoadStep const &step : d.loadedFrom) {
        Json location = {{"id", related.size()}};
        location.update(SarifLocation(step.file, {{"startLine", step.line}, {"startColumn", step.column}}));
        location["message"] = {{"text", "loaded from here"}};
        related.push_back(location);
    }
    if (!related.empty())
        result["relatedLocations"] = related;
    Json fixes = Json::array();
    for (stratagem::Replacement const &fix : d.fixes) {
        Json const replacement = {{"deletedRegion", SarifRegion(fix.range)}, {"insertedContent", {{"text", fix.text}}}};
        fixes.push_back({{"description", {{"text", "Replace with '" + fix.text + "'"}}},
                         {"artifactChanges",
                          Json::array({{{"artifactLocation", {{"uri", FileUri(d.file)}}},
                                        {"replacements", Json::array({replacement})}}})}});
    }
    if (!fixes.empty())
        result["fixes"] = fixes;
    if (!d.hints.empty())
        result["properties"] = {{"hints", d.hints}};
    return result;
}

void WriteSarif(std::ostream &out, std::vector<Diagnostic> const &diagnostics, WriteContext const &)
{
    Json rules = Json::array();
    std::map<std::string, std::size_t> ruleIndex;  // code -> its place in `rules`
    Json results = Json::array();
    for (Diagnostic const &d : diagnostics) {
        auto const found = ruleIndex.emplace(d.code, rules.size());
        if (found.second)
            rules.push_back({{"id", d.code}, {"shortDescription", {{"text", DescribeCode(d)}}}});
        results.push_back(SarifResult(d, found.first->second));
    }
    Json const driver = {{"name", "stratagem"}, {"version", STRATAGEM_VERSION}, {"rules", rules}};
    Json const log = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                      {"version", "2.1.0"},
                      {"runs", Json::array({{{"tool", {{"driver", driver}}}, {"results", results}}})}};
    out << DumpJson(log) << '\n';
}

// ---- the table --------------------------------------------------------------------

using Writer = void (*)(std::ostream &, std::vector<Diagnostic> const &, WriteContext const &);

struct FormatWriter
{
    CheckFormat format;
    Writer pfnWrite;
};

FormatWriter const kWriters[] = {
    {CheckFormat::Text, WriteText},
    {CheckFormat::Gcc, WriteGcc},
    {CheckFormat::Json, WriteJson},
    {CheckFormat::Sarif, WriteSarif},
};

}  // namespace

void WriteDiagnostics(std::ostream &out, CheckFormat format, std::vector<Diagnostic> const &diagnostics,
                      WriteContext const &context)
{
    for (FormatWriter const &row : kWriters)
        if (row.format == format)
            row.pfnWrite(out, diagnostics, context);
}
