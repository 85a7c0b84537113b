// SPDX-License-Identifier: MIT
#include "PropertyFilter.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

namespace
{

constexpr int MARGIN = 4; // pixels

} // namespace

PropertyFilter::PropertyFilter(QWidget *parent) : QWidget(parent), text(new QLineEdit(this))
{
    auto *const line = new QVBoxLayout(this);
    line->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    line->addWidget(text);
    text->setPlaceholderText(QStringLiteral("Find a property or a value"));
    text->setAccessibleName(text->placeholderText());
    text->setClearButtonEnabled(true);
    text->installEventFilter(this);
    connect(text, &QLineEdit::textChanged, this, [this](const QString &typed) {
        if (textChanged)
            textChanged(typed);
    });
    hide();
}

void PropertyFilter::Toggle()
{
    if (text->hasFocus())
        return Close();
    show();
    text->setFocus(Qt::ShortcutFocusReason);
    text->selectAll();
}

void PropertyFilter::Close()
{
    text->clear();
    if (toGrid)
        toGrid();
    hide();
}

bool PropertyFilter::TakeKey(const QKeyEvent &key)
{
    if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (key.key()) {
    case Qt::Key_Escape:
        Close();
        return true;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (toGrid)
            toGrid();
        return true;
    default:
        return false;
    }
}

bool PropertyFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && TakeKey(*static_cast<QKeyEvent *>(event)))
        return true;
    return QWidget::eventFilter(watched, event);
}
