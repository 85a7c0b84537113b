// SPDX-License-Identifier: MIT
#include "ToolboxList.h"

#include "ComponentTree.h"
#include "CopyGuard.h"
#include "Environment.h"
#include "ResModel.h"

#include <QKeyEvent>

ToolboxList::ToolboxList(QWidget *parent) : QListWidget(parent)
{
    setAccessibleName(QStringLiteral("Toolbox"));
    setTextElideMode(Qt::ElideNone); // wider texts scroll
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    new CopyGuard(*this);
    connect(this, &QListWidget::itemDoubleClicked, this, [this](const QListWidgetItem *row) { Choose(row); });
}

void ToolboxList::Fill(const CResModel &project)
{
    const auto now = project.classes->loaded ? project.classes : nullptr;
    if (now == catalogue)
        return; // the classes that a loaded catalogue offers don't change
    clear();
    catalogue = now;
    if (!catalogue)
        return;
    for (const ClassDescriptor *type : OfferedClasses(*catalogue)) {
        auto *const row = new QListWidgetItem(project.env.NarrowToWide(type->name), this);
        row->setData(Qt::UserRole, QVariant::fromValue(static_cast<const void *>(type)));
    }
}

void ToolboxList::Choose(const QListWidgetItem *row)
{
    if (row)
        chosen(*static_cast<const ClassDescriptor *>(row->data(Qt::UserRole).value<const void *>()));
}

void ToolboxList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Choose(currentItem());
    else
        QListWidget::keyPressEvent(event);
}
