#pragma once

#include <QString>

/// The end of the output: so much of it as a box has room for.
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

    /// The last characters, lines ended as a box wants them.
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
