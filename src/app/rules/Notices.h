#pragma once

#include <QStringList>

/// What the user of a project is to read in its window, one text at a time: a text that comes while another is shown
/// waits until that one is dismissed, so that each can be read to its end.
class Notices
{
public:
    /// A text that is waiting or shown already isn't taken twice.
    void Add(const QString &text);
    /// Goes to the next text.
    void Dismiss();

    /// The text to show; empty when there is none.
    [[nodiscard]] QString Shown() const { return texts.value(0); }
    /// Where the shown text is among those that have come since none was shown, such as "1 of 2"; empty for a single
    /// one.
    [[nodiscard]] QString Place() const;
    /// The shown text and those that wait.
    [[nodiscard]] const QStringList &Unread() const { return texts; }

private:
    QStringList texts;
    qsizetype dismissed = 0; // of those that have come since none was shown
};
