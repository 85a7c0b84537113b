// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>
#include <QTimer>

/// A text of the details strip: read-only, wrapped, in the direction of its language. Of a very long text only the
/// beginning is shown at first; the whole text is shown when the user stays at the cell or moves the focus into the
/// text.
class DetailsText : public QPlainTextEdit
{
public:
    explicit DetailsText(QWidget *parent);

    /// `name` is the accessible name, for screen readers.
    void Show(const QString &shownText, Qt::LayoutDirection direction, const QString &name);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void focusInEvent(QFocusEvent *event) override;

private:
    [[nodiscard]] QSize SizeFor(int lines) const;
    void ShowRest();

    QString whole;
    qsizetype shown = 0; // the number of characters that are shown
    QTimer rest;         // until the whole text is shown
};
