// SPDX-License-Identifier: MIT
#include "TerminalText.h"

#include <QString>

#include <sys/ioctl.h>
#include <unicode/uchar.h>
#include <unistd.h>

namespace
{

int ColumnsOf(char32_t c)
{
    switch (QChar::category(c)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    default:
        const int width = u_getIntPropertyValue(UChar32(c), UCHAR_EAST_ASIAN_WIDTH);
        return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
    }
}

/// Appends a line to `to`, cut to a number of columns.
void AppendCut(QByteArray &to, QByteArrayView line, int columns)
{
    if (line.size() <= columns) { // a character takes at least as many bytes as columns
        to += line;
        return;
    }
    const QString text = QString::fromUtf8(line);
    int used = 0;
    qsizetype kept = 0; // what fits with the ellipsis behind it
    for (qsizetype i = 0; i < text.size();) {
        const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size();
        used += ColumnsOf(isPair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : text[i].unicode());
        if (used > columns) {
            to += text.first(kept).toUtf8() + "\u2026";
            return;
        }
        i += isPair ? 2 : 1;
        if (used < columns)
            kept = i;
    }
    to += line;
}

} // namespace

int TerminalColumns()
{
    winsize size{};
    if (isatty(STDOUT_FILENO) == 0 || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0)
        return 0;
    return size.ws_col;
}

QByteArray CutLines(const QByteArray &text, int columns)
{
    QByteArray cut;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = text.indexOf('\n', at);
        end = end < 0 ? text.size() : end;
        AppendCut(cut, QByteArrayView(text).sliced(at, end - at), columns);
        if (end < text.size())
            cut += '\n';
        at = end + 1;
    }
    return cut;
}
