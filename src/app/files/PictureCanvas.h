#pragma once

#include <QImage>
#include <QWidget>

/// Shows a picture in the middle, without blurring small ones: each of their pixels becomes a square. What is
/// transparent shows a chequered ground.
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
