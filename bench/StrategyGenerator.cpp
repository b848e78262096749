#include "StrategyGenerator.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <stdexcept>

namespace bench {

namespace {

// The settings the blocks are written for, and define words that hold or do
// not hold under them (the loads of part files sit in the branch selected).
AI_GameSettings const kSettings = {0, 0, 0, 1, 1, 4, 0, 2, 2, 1, 0, 2};
char const *const kHolding[]
    = {"DARK-AGE-START",      "MEDIUM-RESOURCES-START", "SMALL-MAP",         "COASTAL-MAP",  "VICTORY-STANDARD",
       "DIFFICULTY-MODERATE", "POPULATION-CAP-75",      "GAME-SPEED-LOCKED", "BYZANTINE-CIV"};
char const *const kNotHolding[] = {"DEATH-MATCH",        "REGICIDE",     "FEUDAL-AGE-START", "HIGH-RESOURCES-START",
                                   "GIANT-MAP",          "ARABIA-MAP",   "VICTORY-CONQUEST", "DIFFICULTY-HARDEST",
                                   "POPULATION-CAP-200", "TEAMS-LOCKED", "CHINESE-CIV"};

char const *const kRelationalSigns[] = {"<", "<=", ">", ">=", "==", "!="};
char const *const kOperators[] = {"not", "and", "or", "xor", "nor", "xnor", "nand"};
char const *const kStrings[] = {"Attack!", "Need wood", "gg", "Rush \\\"now\\\"", "tab\\there", "50% done; wait"};
int const kConstantValues[] = {1, 2, 3, 5, 8, 10, 20, 40, 100, 255, 1000, -5};

int const kFanOut = 3;           // part files loaded by each file
int const kRulesPerPart = 2000;  // part files hold about this many rules
int const kRulesPerBlock = 40;   // one conditional block per this many rules
char const *const kExtension = ".per";

struct Constant
{
    std::string name;
    int nValue;
};

// Whatever a file holds besides single rules, in the order written.
enum class Item
{
    Rule,
    Constant,
    Load,
    LoadRandom,
    Block
};

class Writer
{
public:
    Writer(ScriptVocabulary const &vocabulary, GeneratorOptions const &options)
        : m_vocabulary(vocabulary), m_options(options), m_random(options.nSeed)
    {}

    GeneratedStrategy Write(std::string const &directory);

private:
    ScriptVocabulary const &m_vocabulary;
    GeneratorOptions const &m_options;
    std::mt19937 m_random;
    std::string m_text;                            // the file being written
    std::vector<Constant> m_visible;               // constants usable in that file so far
    std::vector<std::vector<Constant>> m_defined;  // per file, all its constants
    GeneratedStrategy m_result;

    int Uniform(int nLow, int nHigh) { return std::uniform_int_distribution<int>(nLow, nHigh)(m_random); }
    bool Chance(int nPercent) { return Uniform(0, 99) < nPercent; }
    template <class T, size_t N>
    T const &Pick(T const (&items)[N])
    {
        return items[Uniform(0, N - 1)];
    }
    template <class T>
    T const &Pick(std::vector<T> const &items)
    {
        return items[Uniform(0, static_cast<int>(items.size()) - 1)];
    }

    static std::string PartName(int nFile) { return nFile == 0 ? "main" : "part-" + std::to_string(nFile); }
    static int Share(int nTotal, int nFiles, int nFile) { return nTotal / nFiles + (nFile < nTotal % nFiles); }

    void WriteFile(std::string const &directory, std::string const &name);
    std::vector<Item> Plan(int nFile, int nFiles, int nParts);
    void WritePart(int nFile, int nFiles, int nParts);
    void WriteRandomTarget(int nTarget);

    void Rule(int nIndent);
    void DefineConstant();
    void Load(int nChild);
    void LoadRandom();
    void Block();
    void Indent(int nIndent) { m_text.append(nIndent, '\t'); }

    void Condition(int nDepth);
    void Call(Function const &function);
    void Argument(int nType);
    void Integer(ArgumentChoice const &choice);
};

GeneratedStrategy Writer::Write(std::string const &directory)
{
    int const nParts = std::max(kFanOut, m_options.nRules / kRulesPerPart);
    int const nFiles = nParts + 1;
    m_defined.assign(nFiles, {});
    m_result.settings = kSettings;
    // Parents come before their children, so a part file may use every
    // constant of the files above it: those are parsed before it.
    for (int nFile = 0; nFile < nFiles; ++nFile) {
        m_visible.clear();
        for (int nAncestor = nFile; nAncestor != 0;) {
            nAncestor = (nAncestor - 1) / kFanOut;
            m_visible.insert(m_visible.end(), m_defined[nAncestor].begin(), m_defined[nAncestor].end());
        }
        WritePart(nFile, nFiles, nParts);
        WriteFile(directory, PartName(nFile));
    }
    for (int nTarget = 1; nTarget <= 3; ++nTarget) {
        m_visible = m_defined[0];
        WriteRandomTarget(nTarget);
        WriteFile(directory, "random-" + std::to_string(nTarget));
    }
    m_result.mainFile = m_result.files.front();
    return m_result;
}

void Writer::WriteFile(std::string const &directory, std::string const &name)
{
    std::string path = directory + "/" + name + kExtension;
    std::ofstream out(path, std::ios::binary);
    out << m_text;
    if (!out.flush())
        throw std::runtime_error("cannot write " + path);
    m_result.files.push_back(path);
    m_result.nBytes += static_cast<long long>(m_text.size());
    m_text.clear();
}

std::vector<Item> Writer::Plan(int nFile, int nFiles, int nParts)
{
    int const nRules = Share(m_options.nRules, nFiles, nFile);
    int const nConstants
        = m_options.nConstants < 0 ? std::max(2, nRules / 20) : Share(m_options.nConstants, nFiles, nFile);
    int const nBlocks = nRules / kRulesPerBlock;
    std::vector<Item> items;
    items.insert(items.end(), nRules - 4 * nBlocks, Item::Rule);  // a block holds four rules
    items.insert(items.end(), nBlocks, Item::Block);
    items.insert(items.end(), nConstants, Item::Constant);
    for (int nChild = nFile * kFanOut + 1; nChild <= nFile * kFanOut + kFanOut && nChild <= nParts; ++nChild)
        items.push_back(Item::Load);
    if (nFile == 0)
        items.push_back(Item::LoadRandom);
    std::shuffle(items.begin(), items.end(), m_random);
    return items;
}

void Writer::WritePart(int nFile, int nFiles, int nParts)
{
    m_text += "; " + PartName(nFile) + ": generated strategy part\n\n";
    size_t const nInherited = m_visible.size();
    int nChild = nFile * kFanOut + 1;
    for (Item item : Plan(nFile, nFiles, nParts)) {
        switch (item) {
        case Item::Rule:
            Rule(0);
            break;
        case Item::Constant:
            DefineConstant();
            break;
        case Item::Load:
            Load(nChild++);
            break;
        case Item::LoadRandom:
            LoadRandom();
            break;
        case Item::Block:
            Block();
            break;
        }
    }
    m_defined[nFile].assign(m_visible.begin() + nInherited, m_visible.end());
}

void Writer::WriteRandomTarget(int nTarget)
{
    m_text += "; random-" + std::to_string(nTarget) + ": one of the files a load-random picks\n";
    for (int i = 0; i < 3; ++i)
        Rule(0);
}

void Writer::Rule(int nIndent)
{
    Indent(nIndent);
    m_text += "(defrule\n";
    int const nConditions = Chance(40) ? 1 : Chance(65) ? 2 : 3;
    for (int i = 0; i < nConditions; ++i) {
        Indent(nIndent + 1);
        Condition(0);
        m_text += '\n';
    }
    Indent(nIndent);
    m_text += "=>\n";
    int const nActions = Chance(50) ? 1 : Chance(70) ? 2 : 3;
    for (int i = 0; i < nActions; ++i) {
        Indent(nIndent + 1);
        Call(Pick(m_vocabulary.Actions()));
        if (Chance(10))
            m_text += "  ; why";
        m_text += '\n';
    }
    Indent(nIndent);
    m_text += ")\n";
    ++m_result.nRules;
}

void Writer::Condition(int nDepth)
{
    if (nDepth < 3 && Chance(30)) {
        char const *pszOperator = Chance(30) ? "not" : Pick(kOperators);
        m_text += "(";
        m_text += pszOperator;
        int const nOperands = std::string(pszOperator) == "not" ? 1 : 2;
        for (int i = 0; i < nOperands; ++i) {
            m_text += ' ';
            Condition(nDepth + 1);
        }
        m_text += ')';
        return;
    }
    // Mostly facts with one to four arguments, some without any.
    bool const bWithout = Chance(10);
    Function const *pFact;
    do
        pFact = &Pick(m_vocabulary.Facts());
    while (pFact->params.empty() != bWithout);
    Call(*pFact);
}

void Writer::Call(Function const &function)
{
    m_text += '(';
    m_text += function.name;
    for (int nType : function.params) {
        m_text += ' ';
        Argument(nType);
    }
    m_text += ')';
}

void Writer::Argument(int nType)
{
    ArgumentChoice const &choice = m_vocabulary.Choice(nType);
    if (nType == 1)
        m_text += Chance(50) ? Pick(kRelationalSigns) : Pick(m_vocabulary.RelationalWords());
    else if (choice.bString)
        m_text += std::string("\"") + Pick(kStrings) + "\"";
    else if (!choice.words.empty() && (!choice.bIntegers || Chance(50)))
        m_text += Pick(choice.words);
    else
        Integer(choice);
}

void Writer::Integer(ArgumentChoice const &choice)
{
    // A constant of a fitting value where one is at hand, else a literal.
    if (!m_visible.empty() && Chance(30)) {
        for (int nTry = 0; nTry < 4; ++nTry) {
            Constant const &constant = Pick(m_visible);
            if (choice.Accepts(constant.nValue)) {
                m_text += constant.name;
                return;
            }
        }
    }
    int const nHigh = std::min(choice.nHigh, 1000);
    int const nLow = std::max(choice.nLow, Chance(5) ? -1000 : 0);
    m_text += std::to_string(Uniform(std::min(nLow, nHigh), nHigh));
}

void Writer::DefineConstant()
{
    Constant constant {m_options.tag + "-c" + std::to_string(m_result.nConstants), 0};
    m_text += "(defconst " + constant.name + ' ';
    if (!m_visible.empty() && Chance(10)) {
        Constant const &from = Pick(m_visible);
        constant.nValue = from.nValue;
        m_text += from.name;
    } else {
        constant.nValue = Pick(kConstantValues);
        m_text += std::to_string(constant.nValue);
    }
    m_text += ")\n";
    m_visible.push_back(constant);
    ++m_result.nConstants;
}

void Writer::Load(int nChild)
{
    std::string const load = "(load \"" + PartName(nChild) + "\")\n";
    switch (Uniform(0, 3)) {
    case 0:
        m_text += "#load-if-defined " + std::string(Pick(kHolding)) + "\n\t" + load + "#else\n";
        Rule(1);
        m_text += "#end-if\n";
        break;
    case 1:
        m_text += "#load-if-not-defined " + std::string(Pick(kNotHolding)) + "\n\t" + load + "#end-if\n";
        break;
    case 2:
        m_text += "#load-if-defined " + std::string(Pick(kNotHolding)) + "\n";
        Rule(1);
        m_text += "# else\n\t" + load + "# end-if\n";
        break;
    default:
        m_text += load;
        break;
    }
}

void Writer::LoadRandom() { m_text += "(load-random 30 \"random-1\" 40 \"random-2\" \"random-3\")\n"; }

void Writer::Block()
{
    // Two branches of rules with a block nested in the first; whichever
    // branch the settings select, all four rules are parsed.
    m_text += "#" + std::string(Chance(50) ? "load-if-defined " : "load-if-not-defined ")
        + (Chance(50) ? Pick(kHolding) : Pick(kNotHolding)) + "\n";
    Rule(1);
    m_text += "\t#load-if-defined " + std::string(Pick(kNotHolding)) + "\n";
    Rule(2);
    m_text += "\t#else\n";
    Rule(2);
    m_text += "\t#end-if\n#else\n";
    Rule(1);
    m_text += "#end-if\n";
}

}  // namespace

GeneratedStrategy GenerateStrategy(ScriptVocabulary const &vocabulary, std::string const &directory,
                                   GeneratorOptions const &options)
{
    return Writer(vocabulary, options).Write(directory);
}

}  // namespace bench
