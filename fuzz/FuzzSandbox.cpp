#include "FuzzSandbox.h"

#include <stdio.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "stratagem.h"

namespace fuzz {

namespace {

char const *const kExtension = ".per";

// Scripts an input may load. "common" loads itself; "second" loads the input
// back and picks between files at random.
char const kCommon[] = "; shared rules\n"
                       "(defconst fz-shared 7)\n"
                       "(defrule (true) => (do-nothing))\n"
                       "(load \"common\")\n";
char const kSecond[] = "(load-random 50 \"common\" \"input\")\n"
                       "#load-if-defined DEATH-MATCH\n"
                       "(load \"common\")\n"
                       "#else\n"
                       "(defrule (false) => (resign))\n"
                       "#end-if\n";

// Reserved words and punctuation; the registered vocabulary is added to them.
char const *const kLanguageWords[] = {
    "defrule",
    "defconst",
    "load",
    "load-random",
    "not",
    "and",
    "xor",
    "or",
    "nor",
    "xnor",
    "nand",
    "less-than",
    "less-or-equal",
    "greater-than",
    "greater-or-equal",
    "equal",
    "not-equal",
    "<",
    "<=",
    ">",
    ">=",
    "==",
    "!=",
    "load-if-defined",
    "load-if-not-defined",
    "else",
    "end-if",
    "=>",
    "#",
    "(",
    ")",
    "\"",
    ";",
    "\\",
    "\n",
    "common",
    "second",
    "input",
    "2147483647",
    "-2147483648",
};

std::string Quoted(std::string const &word)
{
    std::string line = "\"";
    for (unsigned char c : word) {
        char szEscape[8];
        if (c == '"' || c == '\\' || c < 0x20 || c >= 0x7F) {
            snprintf(szEscape, sizeof szEscape, "\\x%02X", c);
            line += szEscape;
        } else
            line += static_cast<char>(c);
    }
    return line + "\"\n";
}

}  // namespace

Sandbox::Sandbox()
{
    char const *pszRoot = getenv("TMPDIR");
    std::string pattern = std::string(pszRoot && *pszRoot ? pszRoot : "/tmp") + "/stratagem-fuzz-XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    if (!mkdtemp(name.data()))
        throw std::runtime_error("cannot create a directory like " + pattern);
    m_directory = name.data();

    m_input = m_directory + "/input" + kExtension;
    try {
        WriteFile("common", kCommon);
        WriteFile("second", kSecond);
        CheckHelper("common");
        CheckHelper("second");
        WriteDictionary();
    } catch (...) {
        std::error_code error;
        std::filesystem::remove_all(m_directory, error);
        throw;
    }
}

Sandbox::~Sandbox()
{
    std::error_code error;
    std::filesystem::remove_all(m_directory, error);
}

void Sandbox::WriteFile(std::string const &name, std::string const &text) const
{
    std::ofstream out(m_directory + "/" + name + kExtension, std::ios::binary);
    out << text;
    if (!out.flush())
        throw std::runtime_error("cannot write into " + m_directory);
}

void Sandbox::WriteInput(unsigned char const *pData, size_t nSize) const
{
    FILE *pFile = fopen(m_input.c_str(), "wb");
    if (!pFile || fwrite(pData, 1, nSize, pFile) != nSize || fclose(pFile) != 0)
        abort();  // the sandbox is gone: no later input can run either
}

void Sandbox::WriteDictionary()
{
    m_dictionary = m_directory + "/words.dict";
    std::string text;
    for (char const *pszWord : kLanguageWords)
        text += Quoted(pszWord);
    // Every registered word: defines, facts, actions and params.
    for (unsigned int nSID = 100; nSID < 3500; ++nSID) {
        CString word = AI_String(nSID);
        if (!word.IsEmpty())
            text += Quoted(word.GetString());
    }
    std::ofstream out(m_dictionary, std::ios::binary);
    out << text;
    if (!out.flush())
        throw std::runtime_error("cannot write " + m_dictionary);
}

// A helper that does not parse would silently take coverage away.
void Sandbox::CheckHelper(std::string const &name) const
{
    std::string file = m_directory + "/" + name + kExtension;
    AI_CStrategy strategy("check", file.c_str(), AI_gsSettings);
    AI_CParser parser(&strategy);
    try {
        parser.Parse(file.c_str());
    } catch (CException *pException) {
        char szMessage[512] = "";
        pException->GetErrorMessage(szMessage, sizeof szMessage);
        delete pException;
        AI_DeleteConstants();
        throw std::runtime_error("helper script " + name + " does not parse: " + szMessage);
    }
    AI_DeleteConstants();
}

bool Sandbox::IsInside(CString const *pName) const
{
    if (!pName)
        return true;
    std::string const name = pName->GetString();
    return name.size() > m_directory.size() + 1 && name.compare(0, m_directory.size(), m_directory) == 0
        && name[m_directory.size()] == '/' && name.find_first_of("/\\", m_directory.size() + 1) == std::string::npos;
}

bool Sandbox::LoadsStayInside(AI_CCommandList const *pCommands) const
{
    if (!pCommands)
        return true;
    CTypedPtrList<CObList, AI_CCommand *> const &commands = pCommands->GetCommands();
    for (POSITION pos = commands.GetHeadPosition(); pos;) {
        AI_CCommand *pCommand = commands.GetNext(pos);
        if (auto *pLoad = dynamic_cast<AI_CLoadCommand *>(pCommand)) {
            if (!IsInside(pLoad->GetFilename()))
                return false;
        } else if (auto *pRandom = dynamic_cast<AI_CLoadRandomCommand *>(pCommand)) {
            if (!IsInside(pRandom->GetFilename()))
                return false;
            if (AI_CLoadOptionList const *pOptions = pRandom->GetOptions()) {
                CTypedPtrList<CObList, AI_CLoadOption *> const &options = pOptions->GetLoadOptions();
                for (POSITION option = options.GetHeadPosition(); option;)
                    if (!IsInside(options.GetNext(option)->GetFilename()))
                        return false;
            }
        } else if (auto *pBlock = dynamic_cast<AI_CBlock *>(pCommand)) {
            if (!LoadsStayInside(pBlock->GetIfCommands()) || !LoadsStayInside(pBlock->GetElseCommands()))
                return false;
        }
    }
    return true;
}

}  // namespace fuzz
