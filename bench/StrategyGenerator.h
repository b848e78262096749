// Writes a synthetic strategy of a given size into a directory: a main file
// and part files that it loads (directly, through other parts, and inside
// conditional blocks), a few small files chosen by a load-random, rules with
// nested operators and correctly typed fact and action arguments, and
// constants defined with defconst and used as arguments. Every file that the
// analysis reads under the settings of the result parses without error.
#ifndef STRATAGEM_BENCH_STRATEGYGENERATOR_H
#define STRATAGEM_BENCH_STRATEGYGENERATOR_H

#include <string>
#include <vector>

#include "ScriptVocabulary.h"
#include "vocabulary/AI_GameSettings.h"

namespace bench {

struct GeneratorOptions
{
    int nRules = 1000;    // defrule commands, over all files
    int nConstants = -1;  // defconst commands; -1 for one per 20 rules
    unsigned int nSeed = 1;
    std::string tag = "g";  // prefix of the constant names, unique per strategy
};

struct GeneratedStrategy
{
    std::string mainFile;
    std::vector<std::string> files;  // every file written, the main file first
    long long nBytes = 0;            // size of all files
    int nRules = 0;                  // defrule commands written
    int nConstants = 0;              // defconst commands written
    AI_GameSettings settings {};     // the settings the blocks were written for
};

GeneratedStrategy GenerateStrategy(ScriptVocabulary const &vocabulary, std::string const &directory,
                                   GeneratorOptions const &options);

}  // namespace bench

#endif
