#pragma once

#include <QLineEdit>
#include <QValidator>

/// Keeps a line edit to one line: each end of a line that comes into it, by pasting, dropping or composing, becomes a
/// blank. What was in its text before stays as it is. A character that the longest length cuts in half is left out.
class LineEndGuard : public QValidator
{
public:
    /// Belongs to the edit control.
    explicit LineEndGuard(QLineEdit &control);

    /// Gives the control a text as it is, line ends and all.
    void SetText(const QString &text);

    State validate(QString &text, int &cursor) const override;

private:
    QLineEdit &edit;
    QString original; // as it was set
    QString known;    // as it was after the last change
};
