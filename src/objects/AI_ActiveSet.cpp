#include "AI_ActiveSet.h"

#include <algorithm>

namespace active {

bool Set::Contains(void const *p) const { return std::find(m_items.begin(), m_items.end(), p) != m_items.end(); }

Set &Writing()
{
    static thread_local Set s_set;
    return s_set;
}

Set &Checking()
{
    static thread_local Set s_set;
    return s_set;
}

}  // namespace active
