#pragma once

#include "Finding.h"

class Environment;
class FindingListeners;

/// Hears of every finding of a process from its construction to its destruction. There may be any number, and each may
/// come and go at any time, also while it is told. Main thread only.
class FindingListener
{
public:
    /// `environment` is the process's or that of a document; the process's must live longer.
    explicit FindingListener(Environment &environment);
    virtual ~FindingListener();
    FindingListener(const FindingListener &) = delete;
    FindingListener &operator=(const FindingListener &) = delete;

    virtual void Found(const Finding &finding) = 0;

private:
    FindingListeners &listeners;
};
