// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QValidator>

/// Keeps the text of a line edit to one line: line ends in text that is pasted, dropped or composed become blanks. The
/// text that was there before is not changed. A character that the maximum length would cut in half is left out.
class LineEndGuard : public QValidator
{
public:
    /// The edit control owns the guard.
    explicit LineEndGuard(QLineEdit &control);

    /// Sets the control's text without a change, including line ends.
    void SetText(const QString &text);

    State validate(QString &text, int &cursor) const override;

private:
    QLineEdit &edit;
    QString original; // the text as it was set
    QString known;    // the text after the last change
};
