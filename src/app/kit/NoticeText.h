// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

/// Plain text that can be selected and copied. It is as high as its lines need at its width, up to a limit, beyond
/// which it scrolls. A word that is wider than a line, such as a path, continues in the next line.
class NoticeText : public QPlainTextEdit
{
public:
    /// A single line is centred within `leastHeight` pixels.
    NoticeText(QWidget *parent, int leastHeight);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void FitMargins();
    [[nodiscard]] int Margin() const;
    [[nodiscard]] int LineHeight() const;

    int least;
};
