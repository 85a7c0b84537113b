#pragma once

#include <QSplitter>

/// A splitter whose bar the keyboard can move: once the bar has the focus the arrows move it, Enter leaves it where it
/// is, and Escape puts it back.
class KeyboardSplitter : public QSplitter
{
public:
    explicit KeyboardSplitter(Qt::Orientation orientation);

    /// The size of what is before the bar, in pixels, as the user chose it last: what a small window does to it is no
    /// choice.
    [[nodiscard]] int ChosenSize() const { return chosen; }
    void ChooseSize(int size) { chosen = size; }
    /// Gives both widgets their sizes: the first the one that the settings have, in pixels, and the other what is left,
    /// also of a window that grows. Neither can be made to vanish.
    void RestoreSize(int stored);

protected:
    QSplitterHandle *createHandle() override;

private:
    int chosen = 0;
};
