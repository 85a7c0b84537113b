#pragma once

#include <QLineEdit>

/// A line of text that can be selected and copied, not edited. It loses its middle where there is no room, with the
/// whole in its tool tip, and shows all of it to who goes into it.
class ValueLine : public QLineEdit
{
public:
    explicit ValueLine(QWidget *parent);

    void Show(const QString &shownText);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void Align();
};
