#include "KeyboardSplitter.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace
{

class Handle : public QSplitterHandle
{
public:
    Handle(Qt::Orientation orientation, QSplitter *parent) : QSplitterHandle(orientation, parent)
    {
        setFocusPolicy(Qt::NoFocus); // reached by its command, not by Tab
        setAccessibleName(QStringLiteral("Splitter"));
    }

protected:
    void focusInEvent(QFocusEvent *event) override
    {
        before = splitter()->sizes();
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
        const bool isHorizontal = orientation() == Qt::Horizontal;
        const int place = isHorizontal ? x() : y();
        switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Up:
            moveSplitter(place - STEP);
            break;
        case Qt::Key_Right:
        case Qt::Key_Down:
            moveSplitter(place + STEP);
            break;
        case Qt::Key_Escape:
            moveSplitter(before.value(0));
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
    QList<int> before;
};

} // namespace

QSplitterHandle *KeyboardSplitter::createHandle()
{
    return new Handle(orientation(), this);
}
