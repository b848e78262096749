// stratagem: analyse a strategy and print its listing (or its object tree),
// or with --check report every problem of one or more strategies.
// Exit status: 0 success, 1 the analysis failed (or found errors), 2 bad
// command line.
#include <exception>
#include <iostream>
#include <memory>
#include <new>
#include <string>
#include <vector>
#include <unistd.h>

#include "CheckMode.h"
#include "Options.h"
#include "Output.h"
#include "vocabulary/AI_SettingsFields.h"
#include "TreePrinter.h"
#include "stratagem.h"

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

// The exception's own one-line message. Messages quote script text, so they
// can be long: the buffer grows until the whole message fits.
std::string ErrorText(CException &exception)
{
    std::vector<char> buffer(1024);
    for (;;)
    {
        buffer[0] = '\0';
        exception.GetErrorMessage(buffer.data(), static_cast<UINT>(buffer.size()), nullptr);
        std::string const text(buffer.data());
        if (text.size() + 1 < buffer.size() || buffer.size() >= (1u << 24))
            return text.empty() ? "stratagem: the analysis failed" : text;
        buffer.resize(buffer.size() * 2);
    }
}

// Runs the analysis; on failure `message` holds the line for the user.
bool Analyze(AI_CStrategy &strategy, std::string &message)
{
    try
    {
        strategy.Analyze();
        return true;
    }
    catch (CException *exception)
    {
        message = ErrorText(*exception);
        delete exception;
    }
    catch (std::exception const &exception)
    {
        message = std::string("stratagem: ") + exception.what();
    }
    return false;
}

// The check reports script errors as diagnostics; what it throws is an
// allocation failure, which ends the run as it ends an analysis.
int Check(CliOptions const &options)
{
    try
    {
        return RunCheck(options);
    }
    catch (CException *exception)
    {
        std::cerr << ErrorText(*exception) << std::endl;
        delete exception;
    }
    catch (std::bad_alloc const &)
    {
        std::cerr << "Out of memory." << std::endl;
    }
    return EXIT_ANALYSIS_FAILED;
}

// Nothing reaches stdout unless the analysis succeeded.
int Run(CliOptions const &options)
{
    std::unique_ptr<AI_CStrategy> strategy(new AI_CStrategy(
        options.strName.c_str(), options.strMainFile.c_str(), options.settings));
    for (std::string const &file : options.extraFiles)
        strategy->AddFilename(file.c_str());
    AI_CParser::EnableExpandBlocks(options.bExpandBlocks ? 1 : 0);
    if (options.bSeed)
        crt::srand(options.nSeed);

    std::string message;
    if (!Analyze(*strategy, message))
    {
        std::cerr << message << std::endl;
        return EXIT_ANALYSIS_FAILED;
    }

    BlockOutputBuf buffer(STDOUT_FILENO);
    std::ostream out(&buffer);
    if (options.bTree)
        WriteTree(out, *strategy);
    else
        strategy->PrettyPrint(out, 0);
    if (!buffer.Finish())
    {
        std::cerr << "stratagem: cannot write the output" << std::endl;
        return EXIT_ANALYSIS_FAILED;
    }
    return EXIT_OK;
}

int Dispatch(int argc, char const *const argv[])
{
    CliOptions options;
    std::string error;
    switch (ParseCommandLine(argc, argv, options, error))
    {
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
    return options.bCheck ? Check(options) : Run(options);
}

} // namespace

int main(int argc, char *argv[])
{
    RegisterVocabulary();
    int const status = Dispatch(argc, argv);
    AI_DeleteAll();
    return status;
}
