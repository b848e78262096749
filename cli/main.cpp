// stratagem: analyse a strategy and print its listing (or its object tree),
// or with --check report every problem of one or more strategies.
// Exit status: 0 success, 1 the analysis failed (or found errors), 2 bad
// command line.
#include <cstring>
#include <exception>
#include <iostream>
#include <memory>
#include <new>
#include <string>
#include <unistd.h>
#include <vector>

#include "CheckMode.h"
#include "Options.h"
#include "Output.h"
#include "TreePrinter.h"
#include "stratagem.h"
#include "vocabulary/AI_SettingsFields.h"

namespace {

enum ExitStatus
{
    EXIT_OK = 0,
    EXIT_ANALYSIS_FAILED = 1,
    EXIT_BAD_COMMAND_LINE = 2
};

void RegisterVocabulary()
{
    AI_AddFacts();
    AI_AddActions();
    AI_AddDefines();
    AI_AddParams();
}

// Writes the exception's own one-line message. Messages quote script text,
// so they can be long: a larger buffer is tried when the first is too small,
// and the line is written as far as it fits when there is no room for one.
void ReportError(CException &exception)
{
    char szMessage[1024] = "";
    exception.GetErrorMessage(szMessage, sizeof szMessage, nullptr);
    std::vector<char> longer;
    try {
        for (std::size_t nSize = 2 * sizeof szMessage; nSize <= (1u << 24); nSize *= 2) {
            char const *pszLast = longer.empty() ? szMessage : longer.data();
            if (std::strlen(pszLast) + 1 < nSize / 2)
                break;
            longer.assign(nSize, '\0');
            exception.GetErrorMessage(longer.data(), static_cast<UINT>(nSize), nullptr);
        }
    } catch (std::bad_alloc const &) {
        longer.clear();
    }
    char const *pszMessage = longer.empty() ? szMessage : longer.data();
    std::cerr << (*pszMessage ? pszMessage : "stratagem: the analysis failed") << std::endl;
}

// Nothing reaches stdout unless the analysis succeeded.
int Run(CliOptions const &options)
{
    std::unique_ptr<AI_CStrategy> strategy(
        new AI_CStrategy(options.strName.c_str(), options.strMainFile.c_str(), options.settings));
    for (std::string const &file : options.extraFiles)
        strategy->AddFilename(file.c_str());
    AI_CParser::EnableExpandBlocks(options.bExpandBlocks ? 1 : 0);
    if (options.bSeed)
        crt::srand(options.nSeed);

    strategy->Analyze();

    BlockOutputBuf buffer(STDOUT_FILENO);
    std::ostream out(&buffer);
    if (options.bTree)
        WriteTree(out, *strategy);
    else
        strategy->PrettyPrint(out, 0);
    if (!buffer.Finish()) {
        std::cerr << "stratagem: cannot write the output" << std::endl;
        return EXIT_ANALYSIS_FAILED;
    }
    return EXIT_OK;
}

int Dispatch(int argc, char const *const argv[])
{
    CliOptions options;
    std::string error;
    switch (ParseCommandLine(argc, argv, options, error)) {
    case CliCommand::Help:
        WriteHelp(std::cout);
        return EXIT_OK;
    case CliCommand::Version:
        std::cout << "stratagem " STRATAGEM_VERSION << std::endl;
        return EXIT_OK;
    case CliCommand::ListSettings:
        WriteSettingsList(std::cout);
        return EXIT_OK;
    case CliCommand::Usage:
        std::cerr << "stratagem: " << error << '\n';
        WriteUsage(std::cerr);
        return EXIT_BAD_COMMAND_LINE;
    case CliCommand::Analyze:
        break;
    }
    return options.bCheck ? RunCheck(options) : Run(options);
}

}  // namespace

// A failure anywhere (the analysis, the vocabulary, the output, the host's
// own allocations) ends the run with its one line on the error stream.
int main(int argc, char *argv[])
{
    int status = EXIT_ANALYSIS_FAILED;
    try {
        RegisterVocabulary();
        status = Dispatch(argc, argv);
    } catch (CException *exception) {
        ReportError(*exception);
        exception->Delete();
    } catch (std::bad_alloc const &) {
        CMemoryException exception;
        ReportError(exception);
    } catch (std::exception const &exception) {
        std::cerr << "stratagem: " << exception.what() << std::endl;
    }
    AI_DeleteAll();
    return status;
}
