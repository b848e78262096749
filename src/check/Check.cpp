// Check mode: every file of a strategy, every path through it, every error.
// The files are parsed by the check parser, which reads on after an error;
// the walk below then follows every load, both branches of every block and
// every option of every load-random, with the constants each path defines.
#include "Check.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "../objects/AI_Objects.h"
#include "../parser/AI_CException.h"
#include "../parser/AI_CheckParser.h"
#include "../parser/AI_FrontEnd.h"
#include "../strategy/AI_CStrategy.h"
#include "../vocabulary/AI_Vocabulary.h"
#include "AI_Grammar.tab.h"
#include "CheckMessages.h"
#include "CheckText.h"
#include "Describe.h"
#include "FileReading.h"

namespace stratagem {

SourceProvider::~SourceProvider() {}

bool SourceProvider::Read(std::string const &name, std::string &bytes, int &error) const
{
    std::FILE *pFile = std::fopen(name.c_str(), "rb");
    if (!pFile) {
        error = errno;
        return false;
    }
    struct stat status;
    if (fstat(fileno(pFile), &status) == 0 && S_ISDIR(status.st_mode)) {
        std::fclose(pFile);
        error = EISDIR;
        return false;
    }
    bytes.clear();
    if (fstat(fileno(pFile), &status) == 0 && status.st_size > 0)
        bytes.reserve(static_cast<std::size_t>(status.st_size));
    char buffer[8192];
    std::size_t nRead;
    while ((nRead = std::fread(buffer, 1, sizeof buffer, pFile)) > 0)
        bytes.append(buffer, nRead);
    bool bFailed = std::ferror(pFile) != 0;
    std::fclose(pFile);
    if (bFailed)
        error = EIO;
    return !bFailed;
}

CheckCache::CheckCache() : m_pEntries(new Entries) {}

CheckCache::~CheckCache() {}

void CheckCache::Clear() { m_pEntries->files.clear(); }

namespace {

// One file of the strategy in the check that reads it.
struct FileState
{
    std::string name;
    std::shared_ptr<FileReading> reading;
    std::vector<LoadStep> chain;
    std::size_t nReport = 0;  // its entry in the report's files
    bool bWalking = false;
    bool bWalked = false;
};

// A command just read, as the outline and the walk take it, before the
// blocks around it are known.
struct Piece
{
    AI_Span whole {0, 0};
    OutlineItem item;    // when the check reports outlines
    bool bStep = false;  // a command the walk follows
    Step step;
};

struct DirectiveSeen
{
    int nKeyword;
    AI_Span whole;
    AI_Span word;
};

bool Contains(AI_Span outer, int nOffset)
{
    return nOffset >= outer.nBegin && nOffset < std::max(outer.nEnd, outer.nBegin + 1);
}

std::string Text(CString const *pString) { return pString ? std::string(pString->GetString()) : std::string(); }

// The written name of a load: the target without the loading file's
// directory and extension, which the parser added.
std::string WrittenName(std::string const &loadingFile, std::string const &target)
{
    CString strDrive, strDirectory, strName, strExtension;
    crt::SplitPath(loadingFile.c_str(), strDrive, strDirectory, strName, strExtension);
    std::size_t nPrefix = strDrive.GetLength() + strDirectory.GetLength();
    std::size_t nSuffix = strExtension.GetLength();
    if (target.size() < nPrefix + nSuffix)
        return target;
    return target.substr(nPrefix, target.size() - nPrefix - nSuffix);
}

class Checker : public AI_CCheckListener
{
public:
    Checker(CheckOptions const &options, CheckReport &report, std::string const &mainFile)
        : m_options(options), m_report(report), m_strategy("check", mainFile.c_str(), options.settings),
          m_parser(&m_strategy), m_bExpandBlocks(AI_CParser::IsExpandBlocks()),
          m_pCache(options.cache ? &options.cache->GetEntries() : nullptr)
    {
        if (m_pCache)
            m_pCache->Begin(options);
        AI_CParser::EnableExpandBlocks(0);
        m_nFalse = AI_Symbol("false");
        m_nTrue = AI_Symbol("true");
    }

    // What the check registered goes again, whatever way the check ends.
    ~Checker() override
    {
        for (std::string const &name : m_newConstants) {
            unsigned int nSID = AI_Symbol(name.c_str());
            if (nSID && AI_IsConstant(nSID))
                AI_DeleteConstant(nSID);
        }
        AI_CParser::EnableExpandBlocks(m_bExpandBlocks);
    }

    void Run(std::string const &mainFile)
    {
        for (std::string const &extra : m_options.extraFiles)
            Reach(extra, {}, nullptr, {0, 0});
        Reach(mainFile, {}, nullptr, {0, 0});
        WarnUnusedConstants();
        for (Diagnostic const &diagnostic : m_report.diagnostics)
            ++(diagnostic.severity == Severity::Error ? m_report.errors : m_report.warnings);
        if (m_pCache)
            m_pCache->End();
    }

    // ---- what the parser reports -------------------------------------

    // Rules are looked at while they are fresh from the parser.
    void Command(AI_CCommand *pCommand, AI_Span whole, AI_Span name) override
    {
        bool const bRule = pCommand->IsKindOf(RUNTIME_CLASS(AI_CDefruleCommand));
        if (!m_pCurrent->reading->suppressions.empty())
            m_pCurrent->reading->commands.push_back(whole);
        if (bRule) {
            m_pendingRule = {NormalizedHash(m_pCurrent->reading->text.text, whole), whole};
            m_bPendingRule = true;
            if (NeverFires(static_cast<AI_CDefruleCommand *>(pCommand)))
                m_ruleWarnings.push_back(
                    {whole, kNeverFires, "this rule can never fire: one of its conditions is always false"});
        } else if (pCommand->IsKindOf(RUNTIME_CLASS(AI_CDefconstCommand))) {
            unsigned int nSID = static_cast<AI_CDefconstCommand *>(pCommand)->GetSID();
            Define(nSID, name);
            if (m_pCache)
                m_pCurrent->reading->definitions.push_back({NameOf(nSID), name});
        }
        if (!m_loadOptions.empty() && pCommand->IsKindOf(RUNTIME_CLASS(AI_CLoadRandomCommand)))
            m_loadOptions.clear();
        // Blocks are put together from their directives once the file is
        // read; a rule matters to the outline only.
        if (!pCommand->IsKindOf(RUNTIME_CLASS(AI_CBlock)) && (!bRule || m_options.fileReports))
            m_pieces.push_back(MakePiece(pCommand, whole, name));
    }
    void Directive(int nKeyword, AI_Span whole, AI_Span word) override
    {
        m_directives.push_back({nKeyword, whole, word});
    }
    // An outline keeps a command while it is being written.
    void BrokenCommand(int nKeyword, AI_Span whole, AI_Span keyword) override
    {
        if (!m_options.fileReports)
            return;
        Piece piece;
        piece.whole = whole;
        OutlineItem &item = piece.item;
        item.kind = nKeyword == TOK_RW_DEFCONST ? OutlineKind::Constant
            : nKeyword == TOK_RW_LOAD           ? OutlineKind::Load
            : nKeyword == TOK_RW_LOAD_RANDOM    ? OutlineKind::LoadRandom
                                                : OutlineKind::Rule;
        item.name = Source(keyword);
        item.range = ToRange(whole);
        item.selectionRange = ToRange(keyword);
        m_pieces.push_back(std::move(piece));
    }
    // The command just read went into this list.
    void CommandList(AI_CCommandList *, AI_Span) override {}
    void CommandListed(int nList) override
    {
        if (m_bPendingRule)
            m_rules.push_back({nList, m_pendingRule.first, m_pendingRule.second});
        m_bPendingRule = false;
    }
    void FileName(CString const *pFilename, AI_Span whole) override { m_fileNames[pFilename] = whole; }
    void ValueSymbol(unsigned int nSID, AI_Span whole) override
    {
        if (!AI_IsConstant(nSID))
            return;
        if (m_pCache)
            m_usedHere.push_back({nSID, ValueSeen(nSID)});
        Use(nSID);
        if (m_options.fileReports)
            Report().constantUses.push_back({NameOf(nSID), ToRange(whole)});
    }
    void LoadOption(int nProbability, AI_Span whole) override { m_loadOptions.push_back({nProbability, whole}); }
    void ConstantName(char const *pszName, AI_Span) override
    {
        if (!AI_Symbol(pszName))
            m_newConstants.push_back(pszName);
    }
    void ArgumentsBegin() override {}
    void Argument(AI_Span) override {}

    void Error(AI_CParseException const &error, AI_Span span, int nPrevious, bool bInActions) override
    {
        ErrorContext context;
        context.nPrevious = nPrevious;
        context.bInActions = bInActions;
        context.found = Source(span);
        context.function = Source(AI_spanError);
        context.nArgument = AI_nBadArgument;
        Diagnostic diagnostic = ErrorDiagnostic(error, ToRange(span), context);
        diagnostic.file = m_pCurrent->name;
        diagnostic.loadedFrom = m_pCurrent->chain;
        m_report.diagnostics.push_back(diagnostic);
        if (error.GetCause() == AI_PE_PROBABILITY_SUM)
            WarnUndrawableOptions();
        m_loadOptions.clear();
    }

private:
    struct Option
    {
        int nProbability;
        AI_Span span;
    };

    FileReport &Report() { return m_report.files[m_pCurrent->nReport]; }

    // A constant defined by a file read now or earlier: the first
    // definition of each is where an unused constant is reported.
    void Define(unsigned int nSID, AI_Span name)
    {
        NoteConstantSID(nSID);  // for hints from here on
        if (m_definitions.insert({nSID, {m_pCurrent, name}}).second)
            m_definitionOrder.push_back(nSID);
    }

    bool IsUsed(unsigned int nSID) const { return nSID < m_usedConstants.size() && m_usedConstants[nSID]; }
    void Use(unsigned int nSID)
    {
        if (nSID >= m_usedConstants.size())
            m_usedConstants.resize(nSID + 1);
        m_usedConstants[nSID] = true;
    }

    // Names of constants, looked up once each.
    std::string const &NameOf(unsigned int nSID)
    {
        auto found = m_names.find(nSID);
        if (found == m_names.end())
            found = m_names.insert({nSID, AI_String(nSID).GetString()}).first;
        return found->second;
    }

    Range ToRange(AI_Span span) const { return m_pCurrent->reading->lines->ToRange(span); }
    std::string Source(AI_Span span) const
    {
        std::string const &text = m_pCurrent->reading->text.text;
        if (span.nBegin < 0 || span.nEnd > static_cast<int>(text.size()) || span.nEnd <= span.nBegin)
            return std::string();
        return text.substr(span.nBegin, span.nEnd - span.nBegin);
    }

    // ---- reading files -------------------------------------------------

    // The file's state, reading it on its first visit; null when it cannot
    // be read (an E100 at the string that names it).
    FileState *Open(std::string const &name, std::vector<LoadStep> const &chain, FileState *pSite, AI_Span site)
    {
        auto found = m_files.find(name);
        if (found != m_files.end())
            return found->second.get();
        std::string bytes;
        int nError = 0;
        SourceProvider const defaultSources;
        SourceProvider const &sources = m_options.sources ? *m_options.sources : defaultSources;
        if (!sources.Read(name, bytes, nError)) {
            Diagnostic diagnostic = UnopenableFile(name, nError);
            if (pSite) {
                diagnostic.file = pSite->name;
                diagnostic.range = pSite->reading->lines->ToRange(site);
                diagnostic.loadedFrom = pSite->chain;
            } else {
                diagnostic.file = name;
            }
            m_report.diagnostics.push_back(diagnostic);
            return nullptr;
        }
        std::unique_ptr<FileState> pFile(new FileState);
        pFile->name = name;
        pFile->chain = chain;
        pFile->nReport = m_report.files.size();
        m_report.files.push_back(FileReport());
        m_report.files.back().file = name;
        m_report.files.back().loadedFrom = chain;
        FileState *pState = pFile.get();
        m_files[name] = std::move(pFile);
        // The constants visible here, written out only for a reading with
        // errors: the file's own registrations come after this point.
        std::size_t const nRegistered = m_registered.size();
        std::string environment;
        auto const environmentHere = [&]() -> std::string const & {
            if (environment.empty())
                environment = Environment(nRegistered);
            return environment;
        };
        auto const holds = [&](FileReading const &kept) { return StillHolds(kept, environmentHere); };
        if (m_pCache && (pState->reading = m_pCache->Find(name, bytes, holds))) {
            Replay(*pState);
            ++m_report.reused;
            return pState;
        }
        pState->reading = std::make_shared<FileReading>();
        FileReading &reading = *pState->reading;
        if (m_pCache)
            reading.bytes = bytes;
        reading.text = ReadTextMode(std::move(bytes));
        reading.lines.reset(new LineMap(reading.text.text));
        reading.suppressions = FindSuppressions(reading.text.text);
        Parse(*pState);
        if (m_pCache) {
            if (reading.bErrors)
                reading.environment = environmentHere();
            m_pCache->Keep(name, pState->reading);
        }
        return pState;
    }

    void Parse(FileState &file)
    {
        FileState *pOuter = m_pCurrent;
        m_pCurrent = &file;
        FileReading &reading = *file.reading;
        std::size_t const nDiagnostics = m_report.diagnostics.size();
        std::size_t const nNewConstants = m_newConstants.size();
        if (reading.text.bByteOrderMark)
            Warn(kByteOrderMarkSkipped, "a UTF-8 byte-order mark at the start of the file is skipped", {0, 0});
        m_loadOptions.clear();
        m_rules.clear();
        m_ruleWarnings.clear();
        m_bPendingRule = false;
        m_usedHere.clear();
        m_pieces.clear();
        m_directives.clear();
        std::string const &text = reading.text.text;
        m_parser.ParseText(file.name.c_str(), text.data(), text.size(), *this);
        std::sort(reading.commands.begin(), reading.commands.end(),
                  [](AI_Span a, AI_Span b) { return a.nBegin < b.nBegin; });
        WarnAboutRules();
        Assemble(reading.steps, m_options.fileReports ? &Report().outline : nullptr);
        if (m_pCache) {
            reading.diagnostics.assign(m_report.diagnostics.begin() + nDiagnostics, m_report.diagnostics.end());
            reading.report = Report();
            NoteRegistered(nNewConstants);
            std::sort(m_usedHere.begin(), m_usedHere.end());
            m_usedHere.erase(std::unique(m_usedHere.begin(), m_usedHere.end(),
                                         [](auto const &a, auto const &b) { return a.first == b.first; }),
                             m_usedHere.end());
            for (auto const &use : m_usedHere)
                reading.used.push_back({NameOf(use.first), use.second});
            reading.bErrors = std::any_of(reading.diagnostics.begin(), reading.diagnostics.end(),
                                          [](Diagnostic const &d) { return d.severity == Severity::Error; });
        }
        m_pCurrent = pOuter;
    }

    // The constants the file just read registered, in the order it did.
    void NoteRegistered(std::size_t nNewConstants)
    {
        std::vector<std::pair<unsigned int, std::string>> registered;
        for (std::size_t i = nNewConstants; i < m_newConstants.size(); ++i) {
            unsigned int nSID = AI_Symbol(m_newConstants[i].c_str());
            if (nSID && AI_IsConstant(nSID))
                registered.push_back({nSID, m_newConstants[i]});
        }
        std::sort(registered.begin(), registered.end());
        registered.erase(std::unique(registered.begin(), registered.end()), registered.end());
        for (auto const &constant : registered) {
            int const nValue = AI_Constant(constant.first, 0);
            m_pCurrent->reading->registered.push_back({constant.second, nValue});
            NoteEnvironment(constant.second, nValue);
        }
    }

    // What a file read in an earlier check did to that check, done again.
    void Replay(FileState &file)
    {
        FileState *pOuter = m_pCurrent;
        m_pCurrent = &file;
        FileReading const &reading = *file.reading;
        for (auto const &constant : reading.registered) {
            m_newConstants.push_back(constant.first);
            AI_AddConstant(constant.first.c_str(), constant.second);
            NoteEnvironment(constant.first, constant.second);
        }
        for (auto const &definition : reading.definitions)
            Define(AI_Symbol(definition.first.c_str()), definition.second);
        for (auto const &use : reading.used)
            Use(AI_Symbol(use.first.c_str()));
        for (Diagnostic const &diagnostic : reading.diagnostics) {
            m_report.diagnostics.push_back(diagnostic);
            m_report.diagnostics.back().loadedFrom = file.chain;
        }
        FileReport &report = Report();
        report = reading.report;
        report.loadedFrom = file.chain;
        m_pCurrent = pOuter;
    }

    // The value a file read now sees for a constant: the first the current
    // path gave it, else the one it was registered with.
    int ValueSeen(unsigned int nSID)
    {
        int const nValue = m_strategy.Constant(nSID, 0);
        return nValue != AI_NO_VALUE ? nValue : AI_Constant(nSID, 0);
    }

    // Whether reading the same bytes now would give what `kept` holds. A
    // file without errors depends only on the constants it names: those it
    // uses must have the values it saw, and each name it defines must be a
    // constant already exactly when it was one then (when it was not, the
    // file registered it). The hints of an error may name any word, so a
    // file with errors needs every constant visible to be the same.
    template <class Environment>
    bool StillHolds(FileReading const &kept, Environment environment)
    {
        if (kept.bErrors)
            return kept.environment == environment();
        std::unordered_set<std::string_view> registered;
        for (auto const &constant : kept.registered)
            registered.insert(constant.first);
        for (auto const &use : kept.used) {
            if (registered.count(use.first))
                continue;
            unsigned int const nSID = AI_Symbol(use.first.c_str());
            if (!nSID || !AI_IsConstant(nSID) || ValueSeen(nSID) != use.second)
                return false;
        }
        for (auto const &definition : kept.definitions) {
            unsigned int const nSID = AI_Symbol(definition.first.c_str());
            bool const bConstant = nSID && AI_IsConstant(nSID);
            if (registered.count(definition.first) ? nSID != 0 : !bConstant)
                return false;
        }
        return true;
    }

    // The constants a file read now would see: those the check registered
    // so far, and the values the current path gave.
    void NoteEnvironment(std::string const &name, int nValue)
    {
        m_registered += name + '=' + std::to_string(nValue) + ';';
    }
    // The first nRegistered bytes of m_registered are those registered
    // before the point in question.
    std::string Environment(std::size_t nRegistered)
    {
        std::string environment = m_registered.substr(0, nRegistered) + '|';
        for (unsigned int nSID : m_constantJournal)
            environment += NameOf(nSID) + '=' + std::to_string(m_strategy.Constant(nSID, 0)) + ';';
        return environment;
    }

    // A command just read, as the outline and the walk take it.
    Piece MakePiece(AI_CCommand *pCommand, AI_Span whole, AI_Span name)
    {
        Piece piece;
        piece.whole = whole;
        Step &step = piece.step;
        step.span = whole;
        if (m_options.fileReports) {
            piece.item.range = ToRange(whole);
            piece.item.selectionRange = ToRange(name);
            Describe(pCommand, piece.item);
        }
        if (pCommand->IsKindOf(RUNTIME_CLASS(AI_CDefconstCommand))) {
            auto *pDefconst = static_cast<AI_CDefconstCommand *>(pCommand);
            piece.bStep = true;
            step.kind = Step::Defconst;
            step.constant = NameOf(pDefconst->GetSID());
            step.nValue = pDefconst->GetValue();
            step.nameSpan = name;
        } else if (pCommand->IsKindOf(RUNTIME_CLASS(AI_CLoadCommand))) {
            piece.bStep = true;
            step.kind = Step::Load;
            AddTarget(step, static_cast<AI_CLoadCommand *>(pCommand)->GetFilename());
        } else if (pCommand->IsKindOf(RUNTIME_CLASS(AI_CLoadRandomCommand))) {
            auto *pRandom = static_cast<AI_CLoadRandomCommand *>(pCommand);
            piece.bStep = true;
            step.kind = Step::LoadRandom;
            if (AI_CLoadOptionList const *pOptions = pRandom->GetOptions()) {
                auto const &options = pOptions->GetLoadOptions();
                for (POSITION option = options.GetHeadPosition(); option;)
                    AddTarget(step, options.GetNext(option)->GetFilename());
            }
            AddTarget(step, pRandom->GetFilename());
        }
        return piece;
    }

    // Puts the commands read into the blocks their directives open, in the
    // order of the text. The directives, not the parser's blocks, give the
    // shape: a block that an error broke still holds the commands read
    // inside it, each in its branch.
    void Assemble(std::vector<Step> &steps, std::vector<OutlineItem> *pOutline)
    {
        struct Open
        {
            Piece block;
            int nBranch = 0;
        };
        std::vector<Open> open;
        auto const add = [&](Piece &piece) {
            if (!open.empty()) {
                Open &parent = open.back();
                parent.block.whole.nEnd = std::max(parent.block.whole.nEnd, piece.whole.nEnd);
                if (piece.bStep)
                    parent.block.step.branches[parent.nBranch].push_back(std::move(piece.step));
                if (pOutline)
                    parent.block.item.children.push_back(std::move(piece.item));
                return;
            }
            if (piece.bStep)
                steps.push_back(std::move(piece.step));
            if (pOutline)
                pOutline->push_back(std::move(piece.item));
        };
        auto const close = [&] {
            Piece block = std::move(open.back().block);
            open.pop_back();
            block.step.span = block.whole;
            if (pOutline)
                block.item.range = ToRange(block.whole);
            add(block);
        };
        std::stable_sort(m_pieces.begin(), m_pieces.end(),
                         [](Piece const &a, Piece const &b) { return a.whole.nBegin < b.whole.nBegin; });
        std::size_t nDirective = 0;
        for (std::size_t nPiece = 0; nPiece <= m_pieces.size(); ++nPiece) {
            int const nBegin = nPiece < m_pieces.size() ? m_pieces[nPiece].whole.nBegin : INT_MAX;
            for (; nDirective < m_directives.size() && m_directives[nDirective].whole.nBegin < nBegin; ++nDirective) {
                DirectiveSeen const &directive = m_directives[nDirective];
                bool const bOpening = directive.nKeyword != TOK_D_ELSE && directive.nKeyword != TOK_D_END_IF;
                if (bOpening) {
                    open.push_back({BlockPiece(directive), 0});
                } else if (!open.empty()) {  // one that closes no block is an error of the grammar's
                    open.back().block.whole.nEnd = directive.whole.nEnd;
                    if (directive.nKeyword == TOK_D_ELSE)
                        open.back().nBranch = 1;
                    else
                        close();
                }
            }
            if (nPiece < m_pieces.size())
                add(m_pieces[nPiece]);
        }
        while (!open.empty())
            close();
    }

    // A block as its opening directive gives it; its end comes later.
    Piece BlockPiece(DirectiveSeen const &directive)
    {
        Piece piece;
        piece.whole = directive.whole;
        piece.bStep = true;
        piece.step.kind = Step::Block;
        if (m_options.fileReports) {
            bool const bWord = directive.word.nEnd > directive.word.nBegin;
            OutlineItem &item = piece.item;
            item.kind = OutlineKind::Block;
            item.detail = directive.nKeyword == TOK_D_LOAD_IF_DEFINED ? "#load-if-defined" : "#load-if-not-defined";
            item.name = bWord ? Source(directive.word) : item.detail;
            item.selectionRange = ToRange(bWord ? directive.word : directive.whole);
        }
        return piece;
    }

    // A file the load reads, named by its string (by the whole command
    // when the string's place is unknown).
    void AddTarget(Step &step, CString const *pFilename)
    {
        if (!pFilename)
            return;
        auto found = m_fileNames.find(pFilename);
        step.targets.push_back({Text(pFilename), found != m_fileNames.end() ? found->second : step.span});
    }

    // ---- following every path ------------------------------------------

    void Reach(std::string const &name, std::vector<LoadStep> const &chain, FileState *pSite, AI_Span site)
    {
        FileState *pFile = Open(name, chain, pSite, site);
        MarkLoaded(name);
        if (!pFile || pFile->bWalking || pFile->bWalked)
            return;
        pFile->bWalking = true;
        Walk(*pFile, pFile->reading->steps);
        pFile->bWalking = false;
        pFile->bWalked = true;
    }

    void Walk(FileState &file, std::vector<Step> const &steps)
    {
        for (Step const &step : steps)
            WalkStep(file, step);
    }

    void WalkStep(FileState &file, Step const &step)
    {
        switch (step.kind) {
        case Step::Defconst: {
            unsigned int nSID = AI_Symbol(step.constant.c_str());
            WarnIfDefined(file, nSID, step.nameSpan);
            AddConstant(nSID, step.nValue);
            break;
        }
        case Step::Load:
            for (auto const &target : step.targets)
                Load(file, step, target, true);
            break;
        case Step::LoadRandom:
            Alternatives(static_cast<int>(step.targets.size()),
                         [&](int i) { Load(file, step, step.targets[i], false); });
            break;
        case Step::Block:
            Alternatives(2, [&](int i) { Walk(file, step.branches[i]); });
            break;
        }
    }

    void Load(FileState &file, Step const &step, std::pair<std::string, AI_Span> const &target, bool bPlainLoad)
    {
        if (bPlainLoad && m_loaded.count(target.first) && m_loaded[target.first] > 0) {
            m_pCurrent = &file;
            Warn(kLoadedTwice, "'" + target.first + "' is already loaded on this path", target.second);
        }
        std::vector<LoadStep> chain = file.chain;
        int nLine, nColumn;
        file.reading->lines->Position(step.span.nBegin, nLine, nColumn);
        chain.push_back({file.name, nLine, nColumn});
        Reach(target.first, chain, &file, target.second);
    }

    // Each alternative starts from the constants and loads as they stand
    // before them; afterwards the constants any of them defined are kept
    // (the first value wins), the loads are forgotten. walk(i) reads the
    // i-th of the nCount alternatives.
    template <class Walk>
    void Alternatives(int nCount, Walk walk)
    {
        std::size_t nConstants = m_constantJournal.size();
        std::size_t nLoads = m_loadJournal.size();
        std::vector<std::pair<unsigned int, int>> defined;
        for (int i = 0; i < nCount; ++i) {
            RestoreConstants(nConstants);
            RestoreLoads(nLoads);
            walk(i);
            for (std::size_t k = nConstants; k < m_constantJournal.size(); ++k)
                defined.push_back({m_constantJournal[k], m_strategy.Constant(m_constantJournal[k], 0)});
        }
        RestoreConstants(nConstants);
        RestoreLoads(nLoads);
        for (auto const &constant : defined)
            AddConstant(constant.first, constant.second);
    }

    void AddConstant(unsigned int nSID, int nValue)
    {
        if (m_strategy.Constant(nSID, 0) == AI_NO_VALUE)
            m_constantJournal.push_back(nSID);
        m_strategy.AddConstantValue(nSID, nValue);
    }

    void RestoreConstants(std::size_t nMark)
    {
        for (; m_constantJournal.size() > nMark; m_constantJournal.pop_back())
            m_strategy.DeleteConstant(m_constantJournal.back());
    }

    void MarkLoaded(std::string const &name)
    {
        ++m_loaded[name];
        m_loadJournal.push_back(name);
    }

    void RestoreLoads(std::size_t nMark)
    {
        for (; m_loadJournal.size() > nMark; m_loadJournal.pop_back())
            --m_loaded[m_loadJournal.back()];
    }

    // ---- what a file holds: outline, definitions, rule warnings ---------

    void Describe(AI_CCommand *pCommand, OutlineItem &item)
    {
        FileReport &report = Report();
        if (pCommand->IsKindOf(RUNTIME_CLASS(AI_CDefruleCommand))) {
            item.kind = OutlineKind::Rule;
            item.name = "defrule";
        } else if (pCommand->IsKindOf(RUNTIME_CLASS(AI_CDefconstCommand))) {
            auto *pDefconst = static_cast<AI_CDefconstCommand *>(pCommand);
            item.kind = OutlineKind::Constant;
            item.name = AI_String(pDefconst->GetSID()).GetString();
            item.detail = std::to_string(pDefconst->GetValue());
            report.constants.push_back({item.name, pDefconst->GetValue(), item.selectionRange, item.range});
        } else if (pCommand->IsKindOf(RUNTIME_CLASS(AI_CLoadCommand))) {
            CString const *pFilename = static_cast<AI_CLoadCommand *>(pCommand)->GetFilename();
            item.kind = OutlineKind::Load;
            item.name = WrittenName(m_pCurrent->name, Text(pFilename));
            item.detail = Text(pFilename);
            AddLoadReference(pFilename);
        } else if (pCommand->IsKindOf(RUNTIME_CLASS(AI_CLoadRandomCommand))) {
            auto *pRandom = static_cast<AI_CLoadRandomCommand *>(pCommand);
            item.kind = OutlineKind::LoadRandom;
            item.name = "load-random";
            if (AI_CLoadOptionList const *pOptions = pRandom->GetOptions()) {
                auto const &options = pOptions->GetLoadOptions();
                for (POSITION position = options.GetHeadPosition(); position;) {
                    AI_CLoadOption const *pOption = options.GetNext(position);
                    AddLoadReference(pOption->GetFilename());
                    item.detail += (item.detail.empty() ? "" : ", ") + std::to_string(pOption->GetProbability()) + "% "
                        + WrittenName(m_pCurrent->name, Text(pOption->GetFilename()));
                }
            }
            if (CString const *pDefault = pRandom->GetFilename()) {
                AddLoadReference(pDefault);
                item.detail += (item.detail.empty() ? "default " : ", default ")
                    + WrittenName(m_pCurrent->name, Text(pDefault));
            }
        }
    }

    void AddLoadReference(CString const *pFilename)
    {
        if (!m_options.fileReports || !pFilename || !m_fileNames.count(pFilename))
            return;
        std::string target = Text(pFilename);
        Report().loads.push_back({WrittenName(m_pCurrent->name, target), target, ToRange(m_fileNames[pFilename])});
    }

    // Rules of one list written alike (each after the first) and rules that
    // can never fire, in the order of the text.
    void WarnAboutRules()
    {
        std::sort(m_rules.begin(), m_rules.end(), [](RuleSeen const &a, RuleSeen const &b) {
            return a.nList != b.nList ? a.nList < b.nList
                : a.nHash != b.nHash  ? a.nHash < b.nHash
                                      : a.span.nBegin < b.span.nBegin;
        });
        // Rules with the same hash are compared by their text, each with
        // the earliest of its run that reads the same.
        std::string const &text = m_pCurrent->reading->text.text;
        std::vector<std::string> run;  // the normalized texts of the current run
        std::size_t nFirst = 0;
        for (std::size_t i = 1; i < m_rules.size(); ++i) {
            RuleSeen const &rule = m_rules[i];
            if (rule.nList != m_rules[i - 1].nList || rule.nHash != m_rules[i - 1].nHash) {
                nFirst = i;
                run.clear();
                continue;
            }
            if (run.empty())
                run.push_back(Normalized(text, m_rules[nFirst].span));
            run.push_back(Normalized(text, rule.span));
            std::size_t const nSame = std::find(run.begin(), run.end(), run.back()) - run.begin();
            if (nSame + 1 == run.size())
                continue;
            Range first = ToRange(m_rules[nFirst + nSame].span);
            m_ruleWarnings.push_back(
                {rule.span, kIdenticalRule,
                 "this rule is the same as the one on line " + std::to_string(first.line) + "; it runs twice"});
        }
        std::stable_sort(m_ruleWarnings.begin(), m_ruleWarnings.end(),
                         [](RuleWarning const &a, RuleWarning const &b) { return a.span.nBegin < b.span.nBegin; });
        for (RuleWarning const &warning : m_ruleWarnings)
            Warn(warning.pszCode, warning.message, warning.span);
    }

    // A condition that is always false: (false), or (not (true)).
    bool NeverFires(AI_CDefruleCommand const *pRule) const
    {
        if (!pRule->GetCEs())
            return false;
        auto const &conditions = pRule->GetCEs()->GetCEs();
        for (POSITION position = conditions.GetHeadPosition(); position;) {
            AI_CCE const *pCondition = conditions.GetNext(position);
            if (IsFact(pCondition, m_nFalse))
                return true;
            if (pCondition->IsKindOf(RUNTIME_CLASS(AI_COpCE))) {
                auto const *pOp = static_cast<AI_COpCE const *>(pCondition);
                if (pOp->GetOp() == AI_COpCE::opNot && IsFact(pOp->GetCE1(), m_nTrue))
                    return true;
            }
        }
        return false;
    }

    static bool IsFact(AI_CCE const *pCondition, unsigned int nSID)
    {
        return nSID && pCondition && pCondition->IsKindOf(RUNTIME_CLASS(AI_CTestCE))
            && static_cast<AI_CTestCE const *>(pCondition)->GetSID() == nSID;
    }

    // ---- warnings --------------------------------------------------------

    void WarnUndrawableOptions()
    {
        // The draw runs from 0 to 100: an option after a sum of 100 or more
        // never gets a value.
        int nSum = 0;
        for (Option const &option : m_loadOptions) {
            if (nSum >= 100)
                Warn(kOptionNeverDrawn,
                     "this option can never be drawn: the options before it already reach " + std::to_string(nSum),
                     option.span);
            nSum += option.nProbability;
        }
    }

    // A second definition on the same path adds a value the rules never
    // see: they are checked against the first one.
    void WarnIfDefined(FileState &file, unsigned int nSID, AI_Span name)
    {
        int nFirst = m_strategy.Constant(nSID, 0);
        if (nFirst == AI_NO_VALUE)
            return;
        m_pCurrent = &file;
        Warn(kConstantDefinedAgain,
             "constant '" + NameOf(nSID) + "' is already defined on this path, as " + std::to_string(nFirst), name);
    }

    void WarnUnusedConstants()
    {
        for (unsigned int nSID : m_definitionOrder) {
            if (IsUsed(nSID))
                continue;
            m_pCurrent = m_definitions[nSID].first;
            Warn(kUnusedConstant,
                 "constant '" + std::string(AI_String(nSID).GetString()) + "' is defined but never used",
                 m_definitions[nSID].second);
        }
    }

    void Warn(char const *pszCode, std::string const &message, AI_Span span)
    {
        if (Suppressed(*m_pCurrent, span.nBegin, pszCode))
            return;
        Diagnostic diagnostic;
        diagnostic.file = m_pCurrent->name;
        diagnostic.range = ToRange(span);
        diagnostic.severity = Severity::Warning;
        diagnostic.code = pszCode;
        diagnostic.message = message;
        diagnostic.loadedFrom = m_pCurrent->chain;
        m_report.diagnostics.push_back(diagnostic);
    }

    // A directive before the first command holds for the whole file; any
    // other for the command that follows it.
    bool Suppressed(FileState const &file, int nOffset, std::string const &code) const
    {
        std::vector<AI_Span> const &commands = file.reading->commands;
        int nFirst = commands.empty() ? INT_MAX : commands.front().nBegin;
        for (Suppression const &suppression : file.reading->suppressions) {
            if (std::find(suppression.codes.begin(), suppression.codes.end(), code) == suppression.codes.end())
                continue;
            if (suppression.nOffset < nFirst)
                return true;
            auto next = std::find_if(commands.begin(), commands.end(),
                                     [&](AI_Span span) { return span.nBegin > suppression.nOffset; });
            if (next != commands.end() && Contains(*next, nOffset))
                return true;
        }
        return false;
    }

    CheckOptions const &m_options;
    CheckReport &m_report;
    AI_CStrategy m_strategy;
    AI_CCheckParser m_parser;
    int m_bExpandBlocks;
    CheckCache::Entries *m_pCache;
    std::string m_registered;  // the constants registered so far, as Environment writes them
    std::vector<std::pair<unsigned int, int>> m_usedHere;  // constants the file being read uses, for a cache
    std::vector<Piece> m_pieces;                           // the commands of the file being read, blocks aside
    std::vector<DirectiveSeen> m_directives;               // ... and its directives
    unsigned int m_nFalse = 0;
    unsigned int m_nTrue = 0;

    std::unordered_map<std::string, std::unique_ptr<FileState>> m_files;
    FileState *m_pCurrent = nullptr;
    std::unordered_map<CString const *, AI_Span> m_fileNames;
    std::vector<Option> m_loadOptions;  // of the load-random being read
    // The rules of the file being read: the last one until its list is known,
    // then all with their lists, and the warnings about them.
    struct RuleSeen
    {
        int nList;  // as CommandListed names it
        std::uint64_t nHash;
        AI_Span span;
    };
    struct RuleWarning
    {
        AI_Span span;
        char const *pszCode;
        std::string message;
    };
    std::pair<std::uint64_t, AI_Span> m_pendingRule;
    bool m_bPendingRule = false;
    std::vector<RuleSeen> m_rules;
    std::vector<RuleWarning> m_ruleWarnings;
    std::vector<std::string> m_newConstants;
    std::vector<bool> m_usedConstants;  // by SID
    std::unordered_map<unsigned int, std::string> m_names;
    std::unordered_map<unsigned int, std::pair<FileState *, AI_Span>> m_definitions;  // the first of each
    std::vector<unsigned int> m_definitionOrder;
    std::vector<unsigned int> m_constantJournal;    // constants first defined on the current path
    std::unordered_map<std::string, int> m_loaded;  // loads on the current path
    std::vector<std::string> m_loadJournal;
};

}  // namespace

CheckReport Check(std::string const &mainFile, CheckOptions const &options)
{
    CheckReport report;
    try {
        Checker checker(options, report, mainFile);
        checker.Run(mainFile);
    } catch (std::bad_alloc const &) {
        AfxThrowMemoryException();
    }
    return report;
}

}  // namespace stratagem
