// SPDX-License-Identifier: MIT
#include "Files.h"
#include "Limits.h"
#include "Picture.h"
#include "Readers.h"

#include <climits>
#include <cstring>
#include <unistd.h>

namespace
{

constexpr char usage[] = "usage: qrk_resgenerator.exe -f -i SOURCE TARGET "
                         "(SOURCE: a bmp, gif, jpg or png picture; TARGET: the device's picture, replaced)\n";

/// One line for the user: this program, the file, the text. A line break in a path must not split it.
class ErrorLine
{
public:
    ErrorLine(const char *path, const char *text)
    {
        const int length = std::snprintf(m_line, sizeof m_line - 1, "qrk_resgenerator.exe: %s: %s", path, text);
        m_length =
            static_cast<std::size_t>(length) < sizeof m_line - 1 ? static_cast<std::size_t>(length) : sizeof m_line - 2;
        for (std::size_t at = 0; at < m_length; ++at)
            if (static_cast<unsigned char>(m_line[at]) < ' ' || m_line[at] == 0x7F)
                m_line[at] = '?';
        m_line[m_length++] = '\n';
        m_line[m_length] = '\0';
    }

    const char *Text() const { return m_line; }

    void Write() const
    {
        // If this fails, there is no way left to report it.
        [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, m_line, m_length);
    }

private:
    char m_line[PATH_MAX + 320];
    std::size_t m_length;
};

int Fail(const char *path, const Outcome &outcome)
{
    ErrorLine(path, outcome.Text()).Write();
    return 1;
}

int Convert(const char *source, const char *target)
{
    if (const Outcome outcome = RemoveOldTarget(source, target); outcome.HasFailed())
        return Fail(target, outcome);
    Buffer file;
    if (const Outcome outcome = ReadFile(source, file); outcome.HasFailed())
        return Fail(source, outcome);
    Picture picture(DeviceFormat::maxPixels);
    if (const Outcome outcome = ReadPicture(file.View(), picture); outcome.HasFailed())
        return Fail(source, outcome);
    picture.Finish();
    StopWatchingTime();
    if (const Outcome outcome = WriteNewFile(target, picture.DeviceBytes()); outcome.HasFailed())
        return Fail(target, outcome);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 5 || std::strcmp(argv[1], "-f") != 0 || std::strcmp(argv[2], "-i") != 0) {
        [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, usage, sizeof usage - 1);
        return 1;
    }
    const ErrorLine timeIsOver(argv[3],
                               "takes too much processor time, expected a picture that is read within a minute");
    LimitMemoryAndTime(timeIsOver.Text());
    return Convert(argv[3], argv[4]);
}
