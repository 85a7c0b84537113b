// SPDX-License-Identifier: MIT
#include "Messages.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace
{

ColorMode mode = ColorMode::Auto; // set once, before any thread is started

constexpr char BOLD[] = "\x1B[1m";
constexpr char PLAIN[] = "\x1B[0m";

} // namespace

void SetColorMode(const std::string &value)
{
    mode = value == "always" ? ColorMode::Always : value == "never" ? ColorMode::Never : ColorMode::Auto;
}

bool HasColors(int descriptor)
{
    if (mode != ColorMode::Auto)
        return mode == ColorMode::Always;
    const char *const forbidden = std::getenv("NO_COLOR"); // see no-color.org: any value but an empty one
    const char *const terminal = std::getenv("TERM");
    return isatty(descriptor) && !(forbidden && *forbidden) && terminal && std::string_view(terminal) != "dumb";
}

void ComplainUtf8(std::string_view text)
{
    const char *const start = HasColors(STDERR_FILENO) ? BOLD : "";
    const char *const end = *start ? PLAIN : "";
    std::string line(start);
    line.append("morvanite-cli:").append(end).append(" ").append(text).append("\n");
    (void)!write(STDERR_FILENO, line.data(), line.size());
}

void ComplainOfValue(std::string_view option, std::string_view value, std::string_view right)
{
    std::string text(option);
    text.append(" is \"").append(value).append("\", but it must be ").append(right);
    ComplainUtf8(text);
}

bool Print(std::string_view text)
{
    while (!text.empty()) {
        const ssize_t put = write(STDOUT_FILENO, text.data(), text.size());
        if (put < 0 && errno == EINTR)
            continue;
        if (put < 0) {
            if (errno != EPIPE)
                ComplainUtf8(std::string("cannot write the output: ") + std::strerror(errno));
            return false;
        }
        text.remove_prefix(size_t(put));
    }
    return true;
}
