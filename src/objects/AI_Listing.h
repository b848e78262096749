// Pieces shared by the listing writers: indentation, the asterisk fill of
// banners and section heads, and the START/END banners around a loaded file.
// Internal to the library.
#ifndef STRATAGEM_OBJECTS_AI_LISTING_H
#define STRATAGEM_OBJECTS_AI_LISTING_H

#include <ostream>

#include "../platform/afx.h"

namespace listing {

// Banners and section heads are filled with asterisks up to this width.
int const kBannerWidth = 73;

// One tab per level; nothing for a level of 0 or less.
void Indent(std::ostream &os, int nLevel);

// The asterisks that follow a title: 73 minus its length, none when that is
// not positive, plus the extra count (END banners take 2 more than START).
CString Stars(CString const &strTitle, int nExtra = 0);

// ";", indentation, "START ", name, " ", asterisks, line end.
void StartBanner(std::ostream &os, int nLevel, CString const &strFilename);
// ";", indentation, "END ", name, " ", two more asterisks, line end.
void EndBanner(std::ostream &os, int nLevel, CString const &strFilename);

// The text of an optional string: empty when absent.
inline char const *Text(CString const *pString) { return pString ? pString->GetString() : ""; }

}  // namespace listing

#endif
