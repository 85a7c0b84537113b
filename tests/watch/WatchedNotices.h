#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>

#include <gtest/gtest.h>

/// What a thread tells, waited for by a test.
template <typename Told> class WatchedNotices
{
public:
    void Add(const Told &one)
    {
        const std::lock_guard held(lock);
        told.push_back(one);
        news.notify_all();
    }
    /// The next one; empty when none comes in `time`.
    Told Next(std::chrono::milliseconds time = std::chrono::seconds(10))
    {
        std::unique_lock held(lock);
        if (!news.wait_for(held, time, [&] { return !told.empty(); }))
            return {};
        const Told next = told.front();
        told.pop_front();
        return next;
    }

private:
    std::mutex lock;
    std::condition_variable news;
    std::deque<Told> told;
};
