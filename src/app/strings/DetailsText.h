#pragma once

#include <QPlainTextEdit>
#include <QTimer>

/// A text of the details strip: read-only, wrapped, in the direction of its language. A very long text shows its
/// beginning at once, and all of it when the user stays on it or goes into it.
class DetailsText : public QPlainTextEdit
{
public:
    explicit DetailsText(QWidget *parent);

    /// `name` is for who can't see the place.
    void Show(const QString &shownText, Qt::LayoutDirection direction, const QString &name);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void focusInEvent(QFocusEvent *event) override;

private:
    [[nodiscard]] QSize SizeFor(int lines) const;
    void ShowRest();

    QString whole;
    qsizetype shown = 0; // so much of it
    QTimer rest;         // until the whole text is shown
};
