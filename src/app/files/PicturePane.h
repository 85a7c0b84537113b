#pragma once

#include <QWidget>

#include <functional>
#include <memory>

class Environment;
class PictureLoader;

/// What the preview shows: the file resource in focus.
struct PreviewedFile
{
    QString id;
    QString path;        ///< as the project stores it; empty for a resource without a file
    QByteArray hostPath; ///< absolute, in bytes of the file system
    bool isImage = false;
    QSize screen;       ///< in pixels, of the resolution that an image is for; empty when it is for any
    QString screenName; ///< such as "240x320"; empty when it is for any
};

/// The preview of the file in focus, below the list of files: the picture as the device shows it, its size and that of
/// the screen, the bytes of the file and of the payload, and a mark when the picture is larger than the screen.
class PicturePane : public QWidget
{
public:
    /// Both must live longer. The environment names the program's folder, in which the converter is.
    PicturePane(Environment &environment, PictureLoader &pictureLoader, QWidget *parent = nullptr);
    ~PicturePane() override;

    /// Nothing is loaded while the pane is hidden. When the user comes back to the window the file is looked at again.
    void Show(const PreviewedFile &file);
    /// No file is in focus.
    void Clear();

    /// The check box "Thumbnails": told when the user turns it.
    std::function<void(bool isOn)> thumbnailsTurned;
    void ShowThumbnailsState(bool isOn);

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// The height is the same for all files.
    void FitHeight();

    struct Parts;
    std::unique_ptr<Parts> parts;
};
