// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionTitleBar>

/// The program's style. It is the desktop's style, changed so that title bars, their buttons, check boxes and the lines
/// of grids are visible on a dark desktop. There the desktop's style draws the buttons of title bars black, including
/// those of docking bars and those of a maximised project in the menu bar. It draws the shadow of a project's title
/// light, and the edges of check boxes and the lines of grids almost as dark as their background. Column titles that
/// are too long end in an ellipsis.
class ProgramStyle : public QProxyStyle
{
public:
    ProgramStyle() : QProxyStyle(QApplication::style()->name()) {}

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override
    {
        const auto *const bar = qstyleoption_cast<const QStyleOptionTitleBar *>(option);
        if (control != CC_TitleBar || !bar || !IsDark(bar->palette))
            return QProxyStyle::drawComplexControl(control, option, painter, widget);
        QStyleOptionTitleBar drawn(*bar);
        drawn.palette.setColor(QPalette::Text, Qt::black); // of the shadow
        if (!(bar->titleBarState & State_Active)) {
            // Draws it like an active title bar, whose buttons are white, in the colour of the window.
            drawn.titleBarState |= State_Active;
            drawn.state |= State_Active;
            drawn.palette.setColor(QPalette::Highlight, bar->palette.color(QPalette::Window));
        }
        QProxyStyle::drawComplexControl(control, &drawn, painter, widget);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element != PE_IndicatorCheckBox || !IsDark(option->palette))
            return;
        QColor edge =
            option->palette.color(option->state & State_Selected ? QPalette::HighlightedText : QPalette::Text);
        edge.setAlphaF(option->state & State_Enabled ? 0.6F : 0.3F);
        painter->setPen(edge);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        const auto *const header = qstyleoption_cast<const QStyleOptionHeader *>(option);
        if (element != CE_HeaderLabel || !header)
            return QProxyStyle::drawControl(element, option, painter, widget);
        QStyleOptionHeader drawn(*header);
        drawn.version = QStyleOptionHeader::Version; // the copy has no fields of later versions
        drawn.text = drawn.fontMetrics.elidedText(drawn.text, Qt::ElideRight, drawn.rect.width());
        QProxyStyle::drawControl(element, &drawn, painter, widget);
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *result) const override
    {
        if (hint != SH_Table_GridLineColor || !option || !IsDark(option->palette))
            return QProxyStyle::styleHint(hint, option, widget, result);
        const QColor &text = option->palette.color(QPalette::Text);
        const QColor &base = option->palette.color(QPalette::Base);
        const auto mixed = [](int over, int under) { return (over + 3 * under) / 4; };
        return int(
            qRgb(mixed(text.red(), base.red()), mixed(text.green(), base.green()), mixed(text.blue(), base.blue())));
    }

    QIcon standardIcon(StandardPixmap which, const QStyleOption *option, const QWidget *widget) const override
    {
        const QIcon icon = QProxyStyle::standardIcon(which, option, widget);
        const QPalette palette = option ? option->palette : widget ? widget->palette() : QApplication::palette();
        switch (which) {
        case SP_TitleBarMinButton:
        case SP_TitleBarMaxButton:
        case SP_TitleBarNormalButton:
        case SP_TitleBarCloseButton:
            return IsDark(palette) ? Coloured(icon, palette.color(QPalette::WindowText)) : icon;
        default:
            return icon;
        }
    }

private:
    static bool IsDark(const QPalette &palette)
    {
        constexpr int DARK = 128; // of 255
        return palette.color(QPalette::Window).lightness() < DARK;
    }

    static QIcon Coloured(const QIcon &icon, const QColor &colour)
    {
        QIcon coloured;
        for (const QSize &size : icon.availableSizes()) {
            QPixmap picture = icon.pixmap(size, 1);
            QPainter painter(&picture);
            painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
            painter.fillRect(QRect(QPoint(), size), colour);
            painter.end();
            coloured.addPixmap(picture);
        }
        return coloured.isNull() ? icon : coloured;
    }
};
