// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

/// Passes events of one kind to any number of listeners, in the order in which they registered. Main thread only.
///
///     Notifier<int> counted;
///     const Notifier<int>::Listener listener(counted, [](int count) { ... });   // listens until it is destroyed
///     counted.Tell(3);
template <typename... Arguments> class Notifier
{
public:
    /// Receives each event until it is destroyed. A listener may outlive the notifier, and may be made or destroyed
    /// during `Tell`, but its function must not destroy it.
    class Listener
    {
    public:
        Listener(Notifier &from, std::function<void(Arguments...)> function)
            : notifier(&from), told(std::move(function))
        {
            notifier->listeners.push_back(this);
        }
        ~Listener()
        {
            if (notifier)
                notifier->Leave(this);
        }
        Listener(const Listener &) = delete;
        Listener &operator=(const Listener &) = delete;

    private:
        friend class Notifier;
        Notifier *notifier; // null after the notifier is destroyed
        std::function<void(Arguments...)> told;
    };

    /// While it exists, it receives all events and the listeners receive none. The notifier must outlive it.
    class Diversion
    {
    public:
        Diversion(Notifier &from, std::function<void(Arguments...)> function)
            : notifier(from), told(std::move(function)), outer(std::exchange(from.diversion, this))
        {
        }
        ~Diversion() { notifier.diversion = outer; }
        Diversion(const Diversion &) = delete;
        Diversion &operator=(const Diversion &) = delete;

    private:
        friend class Notifier;
        Notifier &notifier;
        std::function<void(Arguments...)> told;
        Diversion *outer; // the diversion that it replaces; null if it replaces the listeners
    };

    Notifier() = default;
    ~Notifier()
    {
        for (Listener *listener : listeners) {
            if (listener)
                listener->notifier = nullptr;
        }
    }
    Notifier(const Notifier &) = delete;
    Notifier &operator=(const Notifier &) = delete;

    /// Returns whether nothing would receive an event.
    [[nodiscard]] bool IsEmpty() const { return !diversion && listeners.empty(); }

    /// Passes an event to all listeners. A listener that is made during this call doesn't receive this event, only
    /// later ones.
    void Tell(Arguments... arguments)
    {
        if (diversion)
            return diversion->told(arguments...);
        if (listeners.empty())
            return;
        ++depth;
        for (size_t i = 0, count = listeners.size(); i < count; ++i) {
            if (Listener *const listener = listeners[i])
                listener->told(arguments...);
        }
        if (--depth == 0)
            std::erase(listeners, nullptr);
    }

private:
    void Leave(Listener *listener)
    {
        const auto place = std::find(listeners.begin(), listeners.end(), listener);
        if (depth == 0)
            listeners.erase(place);
        else
            *place = nullptr; // Tell is iterating by index
    }

    std::vector<Listener *> listeners;
    Diversion *diversion = nullptr;
    int depth = 0; // of nested calls of Tell
};
