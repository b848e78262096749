// stratagem_fuzz: libFuzzer target. Each input is written to a script file in
// a private directory and analysed twice, once with conditional blocks
// resolved under the default settings and once with blocks kept (so both
// branches load) under other settings. Every error the library reports is a
// CException that is formatted and deleted; a crash, a sanitizer report or a
// leak is a fault. The listing and the descriptions of every object reached
// are exercised after each analysis, the checks after each that succeeds.
// Check mode then reads the input on every path, and Tokenize its text.
#include <errno.h>
#include <stddef.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <iostream>
#include <set>
#include <streambuf>
#include <string>
#include <vector>

#include "FuzzSandbox.h"
#include "stratagem.h"

namespace {

fuzz::Sandbox *g_pSandbox;
// STRATAGEM_FUZZ_VERBOSE set: each input's errors go to the standard error
// stream, to see why an input of the corpus is rejected.
bool g_bVerbose;

// Settings of the second analysis: death match and regicide on, game speed
// unlocked, other ages, maps, difficulty and civilisation.
AI_GameSettings const kOtherSettings = {1, 1, 3, 2, 5, 15, 4, 4, 7, 0, 1, 13};

// Swallows the listing.
class NullBuffer : public std::streambuf
{
protected:
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(char const *, std::streamsize n) override { return n; }
};

void Report(CException *pException)
{
    char szMessage[256];
    pException->GetErrorMessage(szMessage, sizeof szMessage);
    if (g_bVerbose)
        std::cerr << (AI_CParser::IsExpandBlocks() ? "[blocks resolved] " : "[blocks kept] ")
                  << pException->GetRuntimeClass()->m_lpszClassName << ": " << szMessage << "\n";
    pException->GetErrorMessage(szMessage, 1);  // the shortest buffer allowed
    delete pException;
}

// Describes every object reached from the strategy, once each: loaded lists
// are shared and a file that loads itself makes a cycle.
void DescribeAll(AI_CStrategy &strategy)
{
    std::set<AI_CObject *> seen;
    std::vector<AI_CObject *> pending {&strategy};
    while (!pending.empty()) {
        AI_CObject *pObject = pending.back();
        pending.pop_back();
        if (!seen.insert(pObject).second)
            continue;
        pObject->GetDescription();
        CTypedPtrList<CObList, AI_CObject *> children;
        pObject->GetObjects(children);
        for (POSITION pos = children.GetHeadPosition(); pos;)
            pending.push_back(children.GetNext(pos));
    }
}

// Parses the input; loads only when every load it names stays inside the
// sandbox, then reads the result the way a host would.
void Analyse(AI_GameSettings const &settings)
{
    std::string const &input = g_pSandbox->InputFile();
    AI_CStrategy strategy("fuzz", input.c_str(), settings);
    try {
        AI_CParser parser(&strategy);
        AI_CCommandList *pCommands = parser.Parse(input.c_str());
        if (g_pSandbox->LoadsStayInside(pCommands)) {
            strategy.Analyze();  // finds the input parsed and loads it
            if (pCommands)
                pCommands->Check();
        } else if (g_bVerbose)
            std::cerr << "not loaded: a load names a path outside the sandbox\n";
    } catch (CException *pException) {
        Report(pException);
    }
    NullBuffer buffer;
    std::ostream listing(&buffer);
    strategy.PrettyPrint(listing, 0);
    DescribeAll(strategy);
}

// Check mode reads only files of the sandbox: every path of the input,
// every error, and the tokens an editor would ask for.
class SandboxSources : public stratagem::SourceProvider
{
public:
    bool Read(std::string const &name, std::string &bytes, int &error) const override
    {
        std::string const &input = g_pSandbox->InputFile();
        std::string directory = input.substr(0, input.rfind('/') + 1);
        if (name.compare(0, directory.size(), directory) != 0 || name.find("..") != std::string::npos) {
            error = ENOENT;
            return false;
        }
        return SourceProvider::Read(name, bytes, error);
    }
};

// What a report says, in one string: enough to tell two reports apart.
std::string Summary(stratagem::CheckReport const &report)
{
    std::string text;
    for (stratagem::Diagnostic const &d : report.diagnostics)
        text += d.file + ":" + std::to_string(d.range.line) + ":" + std::to_string(d.range.column) + "-"
            + std::to_string(d.range.endLine) + ":" + std::to_string(d.range.endColumn) + " " + d.code + " " + d.message
            + " <- " + std::to_string(d.loadedFrom.size()) + "\n";
    for (stratagem::FileReport const &file : report.files)
        text += file.file + " " + std::to_string(file.outline.size()) + " " + std::to_string(file.constants.size())
            + " " + std::to_string(file.constantUses.size()) + " " + std::to_string(file.loads.size()) + "\n";
    return text;
}

// Two checks with a cache, the second taking over every file the first
// read, say what a check without it says.
void CheckWithCache(stratagem::CheckOptions options, stratagem::CheckReport const &fresh)
{
    stratagem::CheckCache cache;
    options.cache = &cache;
    stratagem::Check(g_pSandbox->InputFile(), options);
    stratagem::CheckReport const again = stratagem::Check(g_pSandbox->InputFile(), options);
    if (Summary(again) != Summary(fresh)) {
        std::cerr << "a check that took over what the one before read differs:\n"
                  << Summary(fresh) << "---\n"
                  << Summary(again);
        std::abort();
    }
}

void CheckAllPaths()
{
    SandboxSources sources;
    stratagem::CheckOptions options;
    options.sources = &sources;
    try {
        std::string text;
        int nError = 0;
        if (sources.Read(g_pSandbox->InputFile(), text, nError))
            stratagem::Tokenize(text);
        stratagem::CheckReport report = stratagem::Check(g_pSandbox->InputFile(), options);
        CheckWithCache(options, report);
        if (g_bVerbose)
            for (stratagem::Diagnostic const &diagnostic : report.diagnostics)
                std::cerr << "[check] " << diagnostic.file << ":" << diagnostic.range.line << ":"
                          << diagnostic.range.column << ": " << diagnostic.code << " " << diagnostic.message << "\n";
    } catch (CException *pException) {
        Report(pException);
    }
}

// Without a -dict flag the run uses the sandbox's dictionary of the language.
void AddDictionary(int *pArgc, char ***pArgv)
{
    for (int i = 1; i < *pArgc; ++i)
        if (strncmp((*pArgv)[i], "-dict=", 6) == 0)
            return;
    static std::string flag = "-dict=" + g_pSandbox->DictionaryFile();
    static std::vector<char *> argv;
    argv.assign(*pArgv, *pArgv + *pArgc);
    argv.push_back(&flag[0]);
    argv.push_back(nullptr);
    *pArgc += 1;
    *pArgv = argv.data();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *pArgc, char ***pArgv)
{
    AI_AddFacts();
    AI_AddActions();
    AI_AddDefines();
    AI_AddParams();
    g_bVerbose = getenv("STRATAGEM_FUZZ_VERBOSE") != nullptr;
    try {
        static fuzz::Sandbox sandbox;
        g_pSandbox = &sandbox;
    } catch (std::exception const &error) {
        std::cerr << "stratagem_fuzz: " << error.what() << "\n";
        exit(1);
    }
    AddDictionary(pArgc, pArgv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *pData, size_t nSize)
{
    g_pSandbox->WriteInput(pData, nSize);
    Analyse(AI_gsSettings);
    AI_DeleteConstants();

    AI_CParser::EnableExpandBlocks(0);
    Analyse(kOtherSettings);
    AI_CParser::EnableExpandBlocks(1);
    AI_DeleteConstants();

    CheckAllPaths();
    return 0;
}
