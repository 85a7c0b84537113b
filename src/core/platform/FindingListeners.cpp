#include "FindingListeners.h"

#include "FindingListener.h"

#include <algorithm>

void FindingListeners::Remove(const FindingListener *listener)
{
    const auto found = std::find(listeners.begin(), listeners.end(), listener);
    if (found == listeners.end())
        return;
    if (telling > 0)
        *found = nullptr;
    else
        listeners.erase(found);
}

void FindingListeners::Tell(const Finding &finding)
{
    ++telling;
    const size_t count = listeners.size();
    for (size_t i = 0; i < count; ++i) {
        if (listeners[i])
            listeners[i]->Found(finding);
    }
    if (--telling == 0)
        listeners.erase(std::remove(listeners.begin(), listeners.end(), nullptr), listeners.end());
}
