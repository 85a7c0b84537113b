// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>
#include <memory>

class Environment;
class PictureLoader;

/// What the preview shows: the file resource with the focus.
struct PreviewedFile
{
    QString id;
    QString path;        ///< as the project stores it; empty for a resource without a file
    QByteArray hostPath; ///< absolute, in bytes of the file system
    bool isImage = false;
    QSize screen;       ///< in pixels, of the image's resolution; empty if the image is for any resolution
    QString screenName; ///< such as "240x320"; empty if the image is for any resolution
};

/// The preview of the file with the focus, below the list of files. It shows the picture as on the device, its size and
/// that of the screen, the bytes of the file and of the payload, and a mark if the picture is larger than the screen.
class PicturePane : public QWidget
{
public:
    /// Both must outlive the pane. The environment has the path of the program's folder, in which the converter is.
    PicturePane(Environment &environment, PictureLoader &pictureLoader, QWidget *parent = nullptr);
    ~PicturePane() override;

    /// Shows a file. Nothing is loaded while the pane is hidden. When the user returns to the window, the file is
    /// checked for changes.
    void Show(const PreviewedFile &file);
    /// Shows that no file has the focus.
    void Clear();

    /// Called when the user changes the check box "Thumbnails".
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
