#pragma once

#include <QPlainTextEdit>

/// Plain text that can be selected and copied, as high as its lines need at the width it has, up to a limit where it
/// scrolls. A word that is wider, such as a path, goes on in the next line.
class NoticeText : public QPlainTextEdit
{
public:
    /// A single line has the middle of `leastHeight` pixels.
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
