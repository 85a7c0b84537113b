// SPDX-License-Identifier: MIT
#include "OutputStream.h"

#include "Messages.h"

#include <cerrno>
#include <cstring>
#include <ctime>
#include <unistd.h>

namespace
{

constexpr size_t HOLD_AT_MOST = 64 * 1024; // bytes
constexpr int64_t HOLD_NO_LONGER = 50;     // milliseconds

int64_t Now()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return int64_t(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000;
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsOfWord(char c)
{
    return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

/// Returns whether a line has the word with a colon after it, or with a number and a colon: "Error:", "Error 3:".
bool HasLabel(std::string_view line, std::string_view word)
{
    for (size_t at = line.find(word); at != line.npos; at = line.find(word, at + 1)) {
        if (at > 0 && IsOfWord(line[at - 1]))
            continue;
        std::string_view rest = line.substr(at + word.size());
        if (rest.size() > 1 && rest[0] == ' ' && IsDigit(rest[1])) {
            rest.remove_prefix(1);
            while (!rest.empty() && IsDigit(rest.front()))
                rest.remove_prefix(1);
        }
        if (rest.starts_with(':'))
            return true;
    }
    return false;
}

/// Returns whether a line of a report is about an error or a warning: "Error 3: ...", "Warning: 5 more ...",
/// "### error 110 ###", and the lines of the pack's phases.
bool IsProblem(std::string_view line)
{
    for (const char *const mark : {"### error ", "[warning]", "[error]", "not exist, ignore"}) {
        if (line.find(mark) != line.npos)
            return true;
    }
    return HasLabel(line, "Error") || HasLabel(line, "Warning");
}

} // namespace

OutputStream::~OutputStream()
{
    Flush();
}

void OutputStream::WriteReport(std::string_view text)
{
    if (!hasOnlyProblems)
        return Write(text);
    begun += text;
    size_t from = 0;
    for (size_t end; (end = begun.find('\n', from)) != begun.npos; from = end + 1) {
        const std::string_view line = std::string_view(begun).substr(from, end + 1 - from);
        if (IsProblem(line))
            Write(line);
    }
    begun.erase(0, from);
}

void OutputStream::Write(std::string_view text)
{
    if (isBroken)
        return;
    const int64_t now = Now();
    if (held.empty())
        heldSince = now;
    if (text.size() >= HOLD_AT_MOST) { // needn't be copied first
        Flush();
        return WriteOut(text);
    }
    held += text;
    if (held.size() >= HOLD_AT_MOST || now - heldSince >= HOLD_NO_LONGER)
        Flush();
}

void OutputStream::Flush()
{
    WriteOut(held);
    held.clear();
}

void OutputStream::WriteOut(std::string_view text)
{
    while (!isBroken && !text.empty()) {
        const ssize_t put = write(fd, text.data(), text.size());
        if (put < 0 && errno == EINTR)
            continue;
        if (put < 0) {
            if (errno != EPIPE && fd != STDERR_FILENO)
                ComplainUtf8(std::string("cannot write the output: ") + std::strerror(errno));
            isBroken = true; // the command still completes its work on files
            return;
        }
        text.remove_prefix(size_t(put));
    }
}
