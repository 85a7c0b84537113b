#pragma once

#include "Profile.h"

#include <QDockWidget>

class Settings;

/// A docking bar that keeps three sizes: for lying, for standing and for floating. The settings remember them.
///
/// The sizes are those that the user chose, of the whole bar in pixels. A small window can squeeze the bar below them.
class CSizingControlBar : public QDockWidget
{
public:
    /// `number` tells the bars of a program apart in the settings; `size` is what it starts with.
    CSizingControlBar(const QString &title, int number, const QSize &size, QWidget *parent);

    /// Takes over the bar's content, which from then on asks for the size that the bar remembers.
    void SetContent(QWidget *content);

    void ReadSizes(const Settings &settings);
    /// What the settings are to remember of the sizes.
    [[nodiscard]] QList<ProfileEntry> Sizes() const;

    /// The size for the place where the bar is now.
    [[nodiscard]] QSize PreferredSize() const;
    /// The user has changed the bar's size from `before` to what it is now, docked where it is.
    void TakeChange(const QSize &before);
    /// Standing, it is to be no wider than this.
    void LimitStandingWidth(int most);

    /// Gives the bar its size, and a place on a screen, if it floats and the user isn't dragging it.
    void PlaceFloating();

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    enum Form
    {
        Lying,    // docked at the top or the bottom
        Standing, // docked at a side
        Floating,
        FORMS,
    };
    [[nodiscard]] Form CurrentForm() const;
    [[nodiscard]] QString Section() const;
    void BringBack();

    int number;
    QSize sizes[FORMS];
    bool isPlaced = false;    // floats, and has had the size for that since it was shown
    bool isTitleHeld = false; // the mouse is down on the title
};
