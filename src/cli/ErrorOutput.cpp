// SPDX-License-Identifier: MIT
#include "ErrorOutput.h"

#include <cstdlib>
#include <string_view>
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

void Complain(const QString &text)
{
    const char *const start = HasColors(STDERR_FILENO) ? BOLD : "";
    const char *const end = *start ? PLAIN : "";
    const QByteArray line = QByteArray(start) + "morvanite-cli:" + end + ' ' + text.toUtf8() + '\n';
    (void)!write(STDERR_FILENO, line.constData(), size_t(line.size()));
}
