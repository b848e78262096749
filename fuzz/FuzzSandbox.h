// The private directory a fuzzing run works in: the input file, two helper
// scripts that inputs may load ("common" and "second"), and a dictionary of
// the language's words for the fuzzer's mutations. Removed when destroyed.
#ifndef STRATAGEM_FUZZ_FUZZSANDBOX_H
#define STRATAGEM_FUZZ_FUZZSANDBOX_H

#include <string>

#include "platform/afx.h"

class AI_CCommandList;

namespace fuzz {

class Sandbox
{
public:
    // Creates the directory and its files; the built-in vocabulary must be
    // registered, since the helper scripts are checked by parsing them.
    Sandbox();
    ~Sandbox();
    Sandbox(Sandbox const &) = delete;
    Sandbox &operator=(Sandbox const &) = delete;

    // Absolute name of the file each input is written to.
    std::string const &InputFile() const { return m_input; }
    std::string const &DictionaryFile() const { return m_dictionary; }

    // Replaces the input file's content.
    void WriteInput(unsigned char const *pData, size_t nSize) const;

    // True when every file name that the list's load commands name (in
    // blocks too) lies in the sandbox: the parser forms them as the loading
    // file's directory + written name + extension, so they must be the
    // sandbox's directory followed by a name without a path separator.
    bool LoadsStayInside(AI_CCommandList const *pCommands) const;

private:
    std::string m_directory;
    std::string m_input;
    std::string m_dictionary;

    void WriteFile(std::string const &name, std::string const &text) const;
    void WriteDictionary();
    void CheckHelper(std::string const &name) const;
    bool IsInside(CString const *pName) const;
};

}  // namespace fuzz

#endif
