// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

/// A line of text that can be selected and copied, but not edited. If there is too little room, its middle is elided,
/// and its tool tip has the whole text. It shows the whole text while it has the focus.
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
