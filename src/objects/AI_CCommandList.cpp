#include "AI_CCommand.h"

#include <ostream>

#include "AI_ActiveSet.h"
#include "AI_ListOps.h"

IMPLEMENT_DYNCREATE(AI_CCommandList, AI_CObject)

AI_CCommandList::AI_CCommandList() {}

AI_CCommandList::~AI_CCommandList() { lists::DeleteAll(m_lstCommands); }

CString AI_CCommandList::GetDescription() { return lists::Describe("command list: ", m_lstCommands, " commands"); }

void AI_CCommandList::GetObjects(CTypedPtrList<CObList, AI_CObject *> &out) const
{
    lists::AppendTo(m_lstCommands, out);
}

// Each command ends its own lines; one more line end leaves an empty line
// after every command. While the list is being written, load commands that
// lead back to it write only their banners.
void AI_CCommandList::PrettyPrint(std::ostream &os, int nLevel) const
{
    active::Set::Entry writing(active::Writing(), this);
    lists::PrintEach(m_lstCommands, os, nLevel);
}

void AI_CCommandList::Add(AI_CCommandList *pCommands)
{
    if (!pCommands || pCommands == this)
        return;
    m_lstCommands.AddTail(&pCommands->m_lstCommands);
    pCommands->m_lstCommands.RemoveAll();
}

AI_CCommand *AI_CCommandList::Add(AI_CCommand *pCommand)
{
    m_lstCommands.AddTail(pCommand);
    return pCommand;
}

// Stops at the first command that fails. A list reached again through a
// file that loads itself counts as passed: its check is already running.
int AI_CCommandList::Check()
{
    active::Set &checking = active::Checking();
    if (checking.Contains(this))
        return 1;
    active::Set::Entry entry(checking, this);
    for (POSITION pos = m_lstCommands.GetHeadPosition(); pos;) {
        AI_CCommand *pCommand = m_lstCommands.GetNext(pos);
        if (pCommand && !pCommand->Check())
            return 0;
    }
    return 1;
}

// Commands that report themselves loaded are skipped.
void AI_CCommandList::Load()
{
    for (POSITION pos = m_lstCommands.GetHeadPosition(); pos;) {
        AI_CCommand *pCommand = m_lstCommands.GetNext(pos);
        if (pCommand && !pCommand->IsLoaded())
            pCommand->Load();
    }
}
