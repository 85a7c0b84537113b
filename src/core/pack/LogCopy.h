// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"

/// Copies what goes to both logs, so that it can be written again.
class LogCopy
{
public:
    /// Copies from now on.
    explicit LogCopy(Environment &environment);
    ~LogCopy() { End(); }
    LogCopy(const LogCopy &) = delete;
    LogCopy &operator=(const LogCopy &) = delete;

    /// Stops copying.
    void End();
    /// Writes everything that was copied to the same logs again. Call it after `End`.
    void Repeat() const;

private:
    struct Line
    {
        bool isTrace;
        QString text;
    };
    void Copy(Environment::Sink &sink, Environment::Sink &original, bool isTrace);

    Environment &env;
    bool isCopying = true;
    Environment::Sink output;
    Environment::Sink trace;
    std::vector<Line> lines;
};
