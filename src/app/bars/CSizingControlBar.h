// SPDX-License-Identifier: MIT
#pragma once

#include "Profile.h"

#include <QDockWidget>

class Settings;

/// A docking bar with three sizes: horizontal (docked at the top or the bottom), vertical (docked at a side), and
/// floating. The settings store them.
///
/// These are the sizes of the whole bar that the user chose, in pixels. In a small window the bar can be smaller.
class CSizingControlBar : public QDockWidget
{
public:
    /// `number` identifies the bar in the settings; `size` is its initial size.
    CSizingControlBar(const QString &title, int number, const QSize &size, QWidget *parent);

    /// Sets the bar's content and takes ownership of it. From then on its size hint is the bar's stored size.
    void SetContent(QWidget *content);

    void ReadSizes(const Settings &settings);
    /// The entries for the sizes to store in the settings.
    [[nodiscard]] QList<ProfileEntry> Sizes() const;

    /// The size for the place where the bar is now.
    [[nodiscard]] QSize PreferredSize() const;
    /// Stores a change of the docked bar's size by the user: each of width and height that now differs from `before`.
    void TakeChange(const QSize &before);
    /// Reduces the stored width of the vertical bar to at most this.
    void LimitVerticalWidth(int most);

    /// Gives the bar its size and a position on a screen, if it is floating and the user isn't dragging it.
    void PlaceFloating();

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    enum Form
    {
        Horizontal, // docked at the top or the bottom
        Vertical,   // docked at a side
        Floating,
        FORMS,
    };
    [[nodiscard]] Form CurrentForm() const;
    [[nodiscard]] QString Section() const;
    void BringBack();

    int number;
    QSize sizes[FORMS];
    bool isPlaced = false;    // floating, and has got its floating size since it was shown
    bool isTitleHeld = false; // the user is holding the title with the mouse
};
