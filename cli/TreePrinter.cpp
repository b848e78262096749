#include "TreePrinter.h"

#include <ostream>
#include <string>
#include <vector>

namespace {

// A line goes out in one write: a tree has a line for every object, and
// the stream's per-call cost would otherwise outweigh the walk.
void WriteLine(std::ostream &out, AI_CObject const &object, std::size_t nLevel)
{
    static std::string line;
    CString const description = object.GetDescription();
    line.assign(2 * nLevel, ' ');
    line.append(description.str()).push_back('\n');
    out.write(line.data(), static_cast<std::streamsize>(line.size()));
}

// One object on the path from the root; its children are pending[nBegin]
// up to pending[nEnd], those from nNext on still to visit. The objects on
// the path share one vector of children, each object's above its parent's,
// so that entering an object allocates nothing once the vector has grown.
struct Frame
{
    AI_CObject const *pObject;
    std::size_t nBegin;
    std::size_t nNext;
    std::size_t nEnd;
};

// Appends the object's children to pending; answers how many there are.
std::size_t AppendChildren(AI_CObject const &object, std::vector<AI_CObject const *> &pending)
{
    CTypedPtrList<CObList, AI_CObject *> list;
    object.GetObjects(list);
    for (POSITION pos = list.GetHeadPosition(); pos != nullptr;)
        pending.push_back(list.GetNext(pos));
    return static_cast<std::size_t>(list.GetCount());
}

// Whether the object is on the path already. The path is short (a few
// levels per loaded file, nesting bounded by the parser's stack), so a scan
// costs less than keeping a set of it.
bool IsOnPath(std::vector<Frame> const &path, AI_CObject const *pObject)
{
    for (Frame const &frame : path)
        if (frame.pObject == pObject)
            return true;
    return false;
}

}  // namespace

// The walk keeps its own stack: conditions and blocks may nest deeper than
// the call stack would like.
void WriteTree(std::ostream &out, AI_CObject const &root)
{
    std::vector<Frame> path;
    std::vector<AI_CObject const *> pending;

    WriteLine(out, root, 0);
    path.push_back({&root, 0, 0, AppendChildren(root, pending)});
    while (!path.empty()) {
        Frame &top = path.back();
        if (top.nNext == top.nEnd) {
            pending.resize(top.nBegin);
            path.pop_back();
            continue;
        }
        AI_CObject const *child = pending[top.nNext++];
        WriteLine(out, *child, path.size());
        std::size_t const nBegin = pending.size();
        if (AppendChildren(*child, pending) == 0)
            continue;  // a leaf: nothing below it to walk
        if (IsOnPath(path, child)) {
            pending.resize(nBegin);
            continue;
        }
        path.push_back({child, nBegin, nBegin, pending.size()});
    }
}
