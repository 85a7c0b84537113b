// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>

/// Shows a picture, centred. Small pictures are enlarged without blurring: each pixel becomes a square. Transparent
/// parts show a chequered background.
class PictureCanvas : public QWidget
{
public:
    explicit PictureCanvas(QWidget *parent);

    void Show(const QImage &shownPicture);
    /// The largest picture that is shown in full, in device pixels.
    [[nodiscard]] QSize MostPixels() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage picture;
};
