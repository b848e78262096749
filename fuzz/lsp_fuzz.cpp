// stratagem_lsp_fuzz: libFuzzer target for the editor server's message
// layer and dispatch. Each input is the byte stream a client would write to
// the server's standard input; the server reads it to its end. Files that
// no message opens read as missing, so an input cannot reach the disk.
#include <stddef.h>
#include <stdint.h>

#include <sstream>
#include <string>

#include "server/Server.h"
#include "stratagem.h"

namespace {

class NoFiles : public stratagem::SourceProvider
{
public:
    bool Read(std::string const &, std::string &, int &error) const override
    {
        error = 2;  // ENOENT
        return false;
    }
};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    AI_AddFacts();
    AI_AddActions();
    AI_AddDefines();
    AI_AddParams();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size)
{
    std::istringstream in(std::string(reinterpret_cast<char const *>(data), size));
    std::ostringstream out;
    stratagem::server::ReadLimits limits;
    limits.maxBodyBytes = 1 << 20;
    NoFiles const files;
    stratagem::server::Server server(out, limits, &files);
    server.Run(in);
    return 0;
}
