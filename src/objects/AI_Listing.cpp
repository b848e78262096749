#include "AI_Listing.h"

namespace listing {

void Indent(std::ostream &os, int nLevel)
{
    for (int i = 0; i < nLevel; ++i)
        os << '\t';
}

CString Stars(CString const &strTitle, int nExtra)
{
    int nFill = kBannerWidth - strTitle.GetLength();
    if (nFill < 0)
        nFill = 0;
    return CString('*', nFill + nExtra);
}

void StartBanner(std::ostream &os, int nLevel, CString const &strFilename)
{
    os << ";";
    Indent(os, nLevel);
    os << "START " << strFilename.GetString() << " " << Stars(strFilename).GetString() << std::endl;
}

void EndBanner(std::ostream &os, int nLevel, CString const &strFilename)
{
    os << ";";
    Indent(os, nLevel);
    os << "END " << strFilename.GetString() << " " << Stars(strFilename, 2).GetString() << std::endl;
}

}  // namespace listing
