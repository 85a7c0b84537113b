// SPDX-License-Identifier: MIT
#pragma once

#include <QSplitter>

/// A splitter with a bar that the user can move with the keyboard. Once the bar has the focus, the arrow keys move it,
/// Enter keeps its new position, and Escape restores the old one.
class KeyboardSplitter : public QSplitter
{
public:
    explicit KeyboardSplitter(Qt::Orientation orientation);

    /// The size of the widget before the bar, in pixels, as the user chose it last. A size that a small window forces
    /// is not a choice.
    [[nodiscard]] int ChosenSize() const { return chosen; }
    void ChooseSize(int size) { chosen = size; }
    /// Sets the sizes of both widgets. The first gets the stored size, in pixels, and the other what is left, also when
    /// the window grows. Neither can be collapsed.
    void RestoreSize(int stored);

protected:
    QSplitterHandle *createHandle() override;

private:
    int chosen = 0;
};
