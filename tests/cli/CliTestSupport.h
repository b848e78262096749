// End-to-end support: a scratch directory of script files, the host program
// run inside it, and the pieces of the listing frame that every strategy
// listing shares.
#ifndef STRATAGEM_TESTS_CLI_CLITESTSUPPORT_H
#define STRATAGEM_TESTS_CLI_CLITESTSUPPORT_H

#include <string>
#include <vector>

struct RunResult
{
    int nStatus;        // exit status; 128 + signal number when killed
    std::string strOut;
    std::string strErr;
};

// A fresh directory under the test temp dir, removed again at the end. The
// program runs with this directory as its working directory, so tests name
// their files relatively and the listings do not depend on where it lies.
class ScriptDir
{
public:
    ScriptDir();
    ~ScriptDir();
    ScriptDir(ScriptDir const &) = delete;
    ScriptDir &operator=(ScriptDir const &) = delete;

    // Writes a file (creating its directories) below the scratch directory.
    void Write(std::string const &strPath, std::string const &strText) const;

    // Runs the host program with these arguments.
    RunResult Run(std::vector<std::string> const &args) const;

private:
    std::string m_strRoot;  // holds work/ and the captured output
    std::string m_strWork;
};

// Lines joined, each with its line end.
std::string Lines(std::vector<std::string> const &lines);

// The banners around a file's commands: 73 minus the name's length
// asterisks (none when that is not positive), two more on the END banner.
std::string Start(std::string const &strFile, int nLevel = 0);
std::string End(std::string const &strFile, int nLevel = 0);

// The settings section's lines (without ";") for the library's defaults.
std::vector<std::string> DefaultSettings();

// The listing of a whole strategy at level 0.
struct StrategyListing
{
    StrategyListing(std::string const &strNameIn, std::string const &strMainFileIn)
        : strName(strNameIn), strMainFile(strMainFileIn)
    {
    }

    std::string strName;
    std::string strMainFile;
    std::vector<std::string> settings = DefaultSettings();
    std::vector<std::string> files;      // in the table's enumeration order
    std::vector<std::string> constants;  // "name = v1, v2"
    std::vector<std::string> body;       // the main file's commands as listed

    std::string Text() const;
};

// The first n percentages 0..100 that the random loads draw after srand(seed):
// the generator's state starts at the seed and steps as
// state = state * 214013 + 2531011; each draw is (state >> 16) & 0x7FFF,
// scaled to r * (1.0 / 32767) * 100.0 and truncated.
std::vector<int> Percents(unsigned int nSeed, int nCount);

// The smallest seed from 0 up whose first draw lies in [nLow, nHigh].
unsigned int SeedDrawing(int nLow, int nHigh);

#endif
