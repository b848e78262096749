// stratagem-lsp: the language server for strategy scripts. It speaks the
// Language Server Protocol on standard input and output; an editor starts
// it and talks to it for as long as the editor runs.
#include <cstdio>
#include <iostream>

#include "server/Server.h"
#include "stratagem.h"

int main()
{
    std::ios::sync_with_stdio(false);
    try {
        AI_AddFacts();
        AI_AddActions();
        AI_AddDefines();
        AI_AddParams();
    } catch (CException *error) {
        error->Delete();
        std::fputs("stratagem-lsp: out of memory\n", stderr);
        return 1;
    }
    int const status = stratagem::server::Server(std::cout).Run(std::cin);
    AI_DeleteAll();
    return status;
}
