// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>

/// A button that shows a colour, with a frame and with the colour's text as its tool tip.
class ColorButton : public QAbstractButton
{
public:
    explicit ColorButton(QWidget *parent) : QAbstractButton(parent) { setAttribute(Qt::WA_Hover); }

    /// Shows a colour, which must have no alpha.
    void ShowColor(const QColor &color);
    [[nodiscard]] const QColor &Color() const { return shown; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor shown = Qt::black;
};
