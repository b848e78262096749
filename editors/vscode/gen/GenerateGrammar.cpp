// Writes the editor grammar of the script language, built from the
// vocabulary the library registers, to the file named on the command line
// (or to standard output without one).
#include <cstdio>
#include <fstream>
#include <iostream>
#include <new>
#include <string>

#include "GrammarBuilder.h"
#include "stratagem.h"

namespace {

std::string GrammarText()
{
    AI_AddFacts();
    AI_AddActions();
    AI_AddDefines();
    AI_AddParams();
    std::string text;
    try
    {
        text = grammar::BuildGrammar().dump(2) + "\n";
    }
    catch (...)
    {
        AI_DeleteAll();
        throw;
    }
    AI_DeleteAll();
    return text;
}

bool Write(std::string const &text, char const *path)
{
    if (path == nullptr)
        return static_cast<bool>(std::cout << text << std::flush);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    return out && out << text && out.flush();
}

}  // namespace

int main(int argc, char **argv)
{
    if (argc > 2)
    {
        std::cerr << "usage: " << argv[0] << " [OUTPUT.json]\n";
        return 2;
    }
    char const *path = argc == 2 ? argv[1] : nullptr;
    try
    {
        if (Write(GrammarText(), path))
            return 0;
        std::cerr << argv[0] << ": cannot write " << (path ? path : "standard output") << "\n";
    }
    catch (CException *exception)
    {
        exception->Delete();
        std::cerr << argv[0] << ": Out of memory.\n";
    }
    catch (std::bad_alloc const &)
    {
        std::cerr << argv[0] << ": Out of memory.\n";
    }
    return 1;
}
