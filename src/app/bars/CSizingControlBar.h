#pragma once

#include <QDockWidget>

class Settings;

/// A docking bar that keeps a size of its own for lying, for standing and for floating. The settings remember them.
class CSizingControlBar : public QDockWidget
{
public:
    /// `number` tells the bars of a program apart in the settings; `size` is what it starts with.
    CSizingControlBar(const QString &title, int number, const QSize &size, QWidget *parent);

    /// Takes over the bar's content, which from then on asks for the size that the bar remembers.
    void SetContent(QWidget *content);

    void ReadSizes(const Settings &settings);
    void StoreSizes(Settings &settings) const;

    /// Takes the size that the bar has now, if it is shown, for the place where it stands.
    void RememberSize();
    /// What the bar would take in the place where it stands.
    [[nodiscard]] QSize PreferredSize() const;

protected:
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

    int number;
    QSize sizes[FORMS];
};
