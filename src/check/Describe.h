// Internal to the check layer: what the descriptions need to know of a
// check in progress.
#ifndef STRATAGEM_CHECK_DESCRIBE_H
#define STRATAGEM_CHECK_DESCRIBE_H

namespace stratagem {

// A constant registered under this SID exists: the closest-word search
// looks at least this far.
void NoteConstantSID(unsigned int nSID);

}  // namespace stratagem

#endif
