// SPDX-License-Identifier: MIT
#include "LogCopy.h"

#include <utility>

LogCopy::LogCopy(Environment &environment) : env(environment)
{
    Copy(env.output, output, false);
    Copy(env.trace, trace, true);
}

void LogCopy::Copy(Environment::Sink &sink, Environment::Sink &original, bool isTrace)
{
    original = std::move(sink);
    sink = {};
    if (original) {
        sink = [this, &original, isTrace](QStringView text) {
            lines.push_back({isTrace, text.toString()});
            original(text);
        };
    }
}

void LogCopy::End()
{
    if (!std::exchange(isCopying, false))
        return;
    env.output = std::move(output);
    env.trace = std::move(trace);
}

void LogCopy::Repeat() const
{
    for (const auto &[isTrace, text] : lines)
        (isTrace ? env.trace : env.output)(text);
}
