// Writes the editor grammar of the script language, built from the
// vocabulary the library registers, and optionally a test case for the
// TextMate test runner that covers every registered word.
#include <fstream>
#include <iostream>
#include <new>
#include <string>

#include "GrammarBuilder.h"
#include "stratagem.h"

namespace {

struct Outputs
{
    std::string grammar;
    std::string wordsTest;
};

Outputs Build()
{
    AI_AddFacts();
    AI_AddActions();
    AI_AddDefines();
    AI_AddParams();
    Outputs outputs;
    try {
        outputs.grammar = grammar::BuildGrammar().dump(2) + "\n";
        outputs.wordsTest = grammar::BuildWordsSyntaxTest();
    } catch (...) {
        AI_DeleteAll();
        throw;
    }
    AI_DeleteAll();
    return outputs;
}

bool Write(std::string const &text, char const *path)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    return out && out << text && out.flush();
}

}  // namespace

int main(int argc, char **argv)
{
    if (argc < 2 || argc > 3) {
        std::cerr << "usage: " << argv[0] << " GRAMMAR.json [WORDS-TEST.per]\n";
        return 2;
    }
    try {
        Outputs const outputs = Build();
        for (int i = 1; i < argc; ++i) {
            if (!Write(i == 1 ? outputs.grammar : outputs.wordsTest, argv[i])) {
                std::cerr << argv[0] << ": cannot write " << argv[i] << "\n";
                return 1;
            }
        }
        return 0;
    } catch (CException *exception) {
        exception->Delete();
    } catch (std::bad_alloc const &) {
    }
    std::cerr << argv[0] << ": Out of memory.\n";
    return 1;
}
