// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// The notices that a project's window shows to the user, one at a time. A text that is added while another is shown
/// waits until that one is dismissed, so that the user can read each to its end.
class Notices
{
public:
    /// Adds a text. Does nothing if the same text is waiting or shown already.
    void Add(const QString &text);
    /// Dismisses the shown text and shows the next.
    void Dismiss();

    /// The text to show; empty when there is none.
    [[nodiscard]] QString Shown() const { return texts.value(0); }
    /// The position of the shown text among those that were added since none was shown, such as "1 of 2"; empty if
    /// there is only one.
    [[nodiscard]] QString Place() const;
    /// The shown text and the waiting ones.
    [[nodiscard]] const QStringList &Unread() const { return texts; }

private:
    QStringList texts;
    qsizetype dismissed = 0; // of the texts that were added since none was shown
};
