#pragma once

#include <QEvent>
#include <QMdiArea>
#include <QPaintEvent>
#include <QPainter>

/// Where the windows of projects lie. While there is none it says how to get one.
class ProjectArea : public QMdiArea
{
public:
    using QMdiArea::QMdiArea;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(viewport());
        painter.fillRect(event->rect(), palette().brush(QPalette::Window).color().darker(108));
        if (!subWindowList().isEmpty())
            return;
        QColor text = palette().color(QPalette::WindowText);
        text.setAlphaF(0.65F);
        painter.setPen(text);
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         QStringLiteral("Open a project with Ctrl+O, or drop its .vcproj file here."));
    }

    /// With the first window the text goes, and with the last it comes back: all of it, not just where that window was.
    bool viewportEvent(QEvent *event) override
    {
        const bool wasEmpty = subWindowList().isEmpty();
        const bool result = QMdiArea::viewportEvent(event);
        if (wasEmpty != subWindowList().isEmpty())
            viewport()->update();
        return result;
    }
};
