// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Keeps the end of the output, as much of it as a message box can show.
class OutputTail
{
public:
    void Clear() { text.clear(); }

    void Append(QStringView more)
    {
        text += more;
        if (text.size() > KEEP_AT_MOST)
            text.remove(0, text.size() - 2 * SHOWN);
    }

    /// The last characters, with the line ends that a message box needs.
    [[nodiscard]] QString Text() const
    {
        QString shown = text.right(2 * SHOWN);
        return shown.remove(u'\r').right(SHOWN);
    }

private:
    static constexpr qsizetype SHOWN = 1000;             // characters
    static constexpr qsizetype KEEP_AT_MOST = 16 * 1024; // so that few appends have to cut

    QString text;
};
