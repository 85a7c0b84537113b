#pragma once

#include <QApplication>
#include <QProxyStyle>
#include <QStyleOptionTitleBar>

/// Draws the title bar of a project's window so that it can be read on a dark desktop. There the style draws the
/// buttons of one that isn't active black, and the shadow of the text light.
class TitleBarStyle : public QProxyStyle
{
public:
    TitleBarStyle() : QProxyStyle(QApplication::style()->name()) {}

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override
    {
        constexpr int DARK = 128; // of 255
        const auto *const bar = qstyleoption_cast<const QStyleOptionTitleBar *>(option);
        if (control != CC_TitleBar || !bar || bar->palette.color(QPalette::Window).lightness() >= DARK)
            return QProxyStyle::drawComplexControl(control, option, painter, widget);
        QStyleOptionTitleBar drawn(*bar);
        drawn.palette.setColor(QPalette::Text, Qt::black); // of the shadow
        if (!(bar->titleBarState & State_Active)) {
            // As an active one, whose buttons are white, in the colour of the window.
            drawn.titleBarState |= State_Active;
            drawn.state |= State_Active;
            drawn.palette.setColor(QPalette::Highlight, bar->palette.color(QPalette::Window));
        }
        QProxyStyle::drawComplexControl(control, &drawn, painter, widget);
    }
};
