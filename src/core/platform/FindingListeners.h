#pragma once

#include "Finding.h"

#include <vector>

class FindingListener;

/// The listeners of a process, in the order in which they came.
class FindingListeners
{
public:
    void Add(FindingListener *listener) { listeners.push_back(listener); }
    void Remove(const FindingListener *listener);
    [[nodiscard]] bool IsEmpty() const { return listeners.empty(); }
    /// Who comes meanwhile isn't told.
    void Tell(const Finding &finding);

private:
    std::vector<FindingListener *> listeners; // null: has gone while the others were told
    int telling = 0;                          // calls of `Tell` under way
};
