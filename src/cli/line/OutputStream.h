// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Writes UTF-8 to a stream of the process. Holds text back for a moment, so that many lines cost one call of the
/// system.
class OutputStream
{
public:
    explicit OutputStream(int descriptor) : fd(descriptor) {}
    ~OutputStream();
    OutputStream(const OutputStream &) = delete;
    OutputStream &operator=(const OutputStream &) = delete;

    /// Writes a part of a report, which says what a command does. With hasOnlyProblems, only whole lines are written.
    void WriteReport(std::string_view text);
    /// Writes what the user has asked for, such as a list. hasOnlyProblems doesn't matter.
    void Write(std::string_view text);
    void Flush();
    /// Leaves out the lines of a report that are neither an error nor a warning.
    bool hasOnlyProblems = false;

    /// True if some of the text couldn't be written.
    [[nodiscard]] bool IsBroken() const { return isBroken; }

private:
    void WriteOut(std::string_view text);

    int fd;
    bool isBroken = false;
    std::string held;
    std::string begun;     // the last line as far as it is known, while only problems are wanted
    int64_t heldSince = 0; // milliseconds of a steady clock
};
