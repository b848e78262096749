// Registers the built-in vocabulary through the installed library and prints
// what it can look up again, then catches an exception thrown inside the
// library (which needs the exception classes exported).
#include <cerrno>
#include <iostream>

#include "stratagem.h"

namespace {

int CountRange(unsigned int nFirst, unsigned int nLast, int (*test)(unsigned int))
{
    int n = 0;
    for (unsigned int sid = nFirst; sid <= nLast; ++sid)
        n += test(sid) ? 1 : 0;
    return n;
}

int HasFact(unsigned int sid) { return AI_Fact(sid) != nullptr; }
int HasAction(unsigned int sid) { return AI_Action(sid) != nullptr; }

}  // namespace

int main()
{
    AI_AddFacts();
    AI_AddActions();
    AI_AddDefines();
    AI_AddParams();
    std::cout << "facts " << CountRange(300, 499, HasFact) << "\n"
              << "actions " << CountRange(500, 699, HasAction) << "\n"
              << "defines " << CountRange(100, 299, AI_IsDefine) << "\n"
              << "params " << CountRange(1100, 3499, AI_IsParam) << "\n"
              << "396 " << AI_String(396).GetString() << " " << AI_Fact(396)->GetRuntimeClass()->m_lpszClassName
              << "\n";
    try {
        AfxThrowFileException(CFileException::ErrnoToException(ENOENT), ENOENT, "missing.per");
    } catch (CException *e) {
        char message[128];
        e->GetErrorMessage(message, sizeof message);
        std::cout << "caught " << message << "\n";
        e->Delete();
    }
    AI_DeleteAll();
    std::cout << "after delete " << AI_Symbol("wood-amount") << "\n";
    return 0;
}
