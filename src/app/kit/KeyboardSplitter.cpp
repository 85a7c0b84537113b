// SPDX-License-Identifier: MIT
#include "KeyboardSplitter.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace
{

class Handle : public QSplitterHandle
{
public:
    Handle(Qt::Orientation orientation, KeyboardSplitter *parent)
        : QSplitterHandle(orientation, parent), keyboardSplitter(*parent)
    {
        setFocusPolicy(Qt::NoFocus); // focused by its action, not by Tab
        setAccessibleName(QStringLiteral("Splitter"));
    }

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        before = splitter()->sizes();
        chosenBefore = keyboardSplitter.ChosenSize();
        QSplitterHandle::focusInEvent(event);
        update();
    }

    void focusOutEvent(QFocusEvent *event) override
    {
        QSplitterHandle::focusOutEvent(event);
        update();
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        constexpr int STEP = 16;
        switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Up:
            Move(-STEP);
            break;
        case Qt::Key_Right:
        case Qt::Key_Down:
            Move(STEP);
            break;
        case Qt::Key_Escape:
            splitter()->setSizes(before);
            keyboardSplitter.ChooseSize(chosenBefore);
            [[fallthrough]];
        case Qt::Key_Return:
        case Qt::Key_Enter:
            splitter()->widget(0)->setFocus();
            break;
        default:
            QSplitterHandle::keyPressEvent(event);
        }
    }

    void paintEvent(QPaintEvent *event) override
    {
        QSplitterHandle::paintEvent(event);
        if (hasFocus())
            QPainter(this).fillRect(rect(), palette().highlight());
    }

private:
    /// Moves the bar by that many pixels to the right or down.
    void Move(int by)
    {
        const bool isHorizontal = orientation() == Qt::Horizontal;
        // In a right-to-left window, Qt measures to the bar's other side.
        const bool isMirrored = isHorizontal && splitter()->isRightToLeft();
        moveSplitter((isHorizontal ? x() : y()) + by + (isMirrored ? width() : 0));
    }

    KeyboardSplitter &keyboardSplitter;
    QList<int> before;
    int chosenBefore = 0;
};

} // namespace

KeyboardSplitter::KeyboardSplitter(Qt::Orientation orientation) : QSplitter(orientation)
{
    connect(this, &QSplitter::splitterMoved, this, [this] { chosen = sizes().value(0); });
}

void KeyboardSplitter::RestoreSize(int stored)
{
    setChildrenCollapsible(false);
    setStretchFactor(1, 1);
    ChooseSize(qBound(50, stored, 4000));
    setSizes({ChosenSize(), 1000});
}

QSplitterHandle *KeyboardSplitter::createHandle()
{
    return new Handle(orientation(), this);
}
