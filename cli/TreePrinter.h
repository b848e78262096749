// The object tree of an analysed strategy, one object per line.
#ifndef STRATAGEM_CLI_TREEPRINTER_H
#define STRATAGEM_CLI_TREEPRINTER_H

#include <iosfwd>

#include "stratagem.h"

// Writes the root's description, then every object reached through
// GetObjects, depth first, each line indented by two spaces per level below
// the root. Loaded command lists are shared, so an object may be reached more
// than once; one reached again below itself (a file that loads itself,
// directly or through others) is written once more without its children.
void WriteTree(std::ostream &out, AI_CObject const &root);

#endif
