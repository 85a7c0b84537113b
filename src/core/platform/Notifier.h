#pragma once

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

/// Tells any number of listeners of one kind of event, in the order in which they came. Main thread only.
///
///     Notifier<int> counted;
///     const Notifier<int>::Listener listener(counted, [](int count) { ... });   // until it is destroyed
///     counted.Tell(3);
template <typename... Arguments> class Notifier
{
public:
    /// Receives each event until it is destroyed. It may outlive the notifier, and may be made or destroyed during
    /// `Tell`, but it must not destroy itself in its own call.
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
        Notifier *notifier; // null when that is gone
        std::function<void(Arguments...)> told;
    };

    /// As long as it is there, it alone receives the events, and the listeners miss them. The notifier must live
    /// longer.
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
        Diversion *outer; // what it takes the events from; null for the listeners
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

    /// Says whether nobody would receive an event.
    [[nodiscard]] bool IsEmpty() const { return !diversion && listeners.empty(); }

    /// A listener that is made during a call receives the next event first.
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
            *place = nullptr; // Tell counts places
    }

    std::vector<Listener *> listeners;
    Diversion *diversion = nullptr;
    int depth = 0; // of Tell in Tell
};
