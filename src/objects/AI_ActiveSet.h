// The command lists whose listing or check is running. Files may load
// themselves, directly or through other files, so the shared command lists
// can form cycles; a writer or checker that meets a list already in progress
// higher up stops there instead of following it again. Internal to the
// library.
#ifndef STRATAGEM_OBJECTS_AI_ACTIVESET_H
#define STRATAGEM_OBJECTS_AI_ACTIVESET_H

#include <vector>

namespace active {

class Set
{
public:
    bool Contains(void const *p) const;

    // Marks an object as in progress for the lifetime of the entry, also
    // when the operation leaves by an exception.
    class Entry
    {
    public:
        Entry(Set &set, void const *p) : m_set(set) { m_set.m_items.push_back(p); }
        ~Entry() { m_set.m_items.pop_back(); }
        Entry(Entry const &) = delete;
        Entry &operator=(Entry const &) = delete;

    private:
        Set &m_set;
    };

private:
    std::vector<void const *> m_items;
};

// The lists whose PrettyPrint is running on this thread.
Set &Writing();
// The lists whose Check is running on this thread.
Set &Checking();

}  // namespace active

#endif
