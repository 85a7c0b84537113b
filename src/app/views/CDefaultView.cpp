#include "CDefaultView.h"

#include "Commands.h"
#include "LabelDelegate.h"
#include "ProjectTree.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyle>

namespace
{

constexpr int ICON_SIDE = 32;
constexpr int GRID_WIDTH = 96;
constexpr int NARROWEST = 64; // has room for the name of a resolution
constexpr int GRID_HEIGHT = 72;

} // namespace

CDefaultView::CDefaultView(CResDoc &projectDocument, CProjView &projectTree)
    : document(projectDocument), tree(projectTree)
{
    setViewMode(QListView::IconMode);
    setIconSize(QSize(ICON_SIDE, ICON_SIDE));
    setGridSize(QSize(GRID_WIDTH, GRID_HEIGHT));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumWidth(NARROWEST + style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2 * frameWidth() + 2);
    setItemDelegate(new LabelDelegate(this));
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setWordWrap(true);
    setTextElideMode(Qt::ElideMiddle);
    setAccessibleName(QStringLiteral("Contents"));
    const auto enter = [this](const QListWidgetItem *row) {
        if (QTreeWidgetItem *item = TreeItemOf(row))
            tree.setCurrentItem(item);
    };
    connect(this, &QListWidget::itemDoubleClicked, this, enter);
    connect(this, &QListWidget::itemActivated, this, enter);
    connect(this, &QListWidget::itemChanged, this, [this](const QListWidgetItem *row) {
        QTreeWidgetItem *const item = isFilling ? nullptr : TreeItemOf(row);
        if (item && item->text(0) != row->text())
            tree.EditLabel(item, QString(row->text())); // which fills this view anew
    });
    document.AddView(this);
}

CDefaultView::~CDefaultView()
{
    document.RemoveView(this);
}

QTreeWidgetItem *CDefaultView::TreeItemOf(const QListWidgetItem *row) const
{
    return row ? tree.ItemOf(static_cast<const CResFolder *>(row->data(Qt::UserRole).value<void *>())) : nullptr;
}

QListWidgetItem *CDefaultView::SelectedRow() const
{
    const QList<QListWidgetItem *> selected = selectedItems();
    return selected.isEmpty() ? nullptr : selected.front();
}

void CDefaultView::OnUpdate(CView *, long, CView *target)
{
    if ((!target || target == this) && isVisible())
        Fill();
}

void CDefaultView::mousePressEvent(QMouseEvent *event)
{
    if (!itemAt(event->pos()))
        clearSelection(); // what follows is about the folder itself
    QListWidget::mousePressEvent(event);
}

void CDefaultView::showEvent(QShowEvent *event)
{
    QListWidget::showEvent(event);
    Fill();
}

/// A narrow view shows narrow columns, so that no name is cut off.
void CDefaultView::resizeEvent(QResizeEvent *event)
{
    setGridSize(QSize(qBound(NARROWEST, viewport()->width() - 2, GRID_WIDTH), GRID_HEIGHT));
    QListWidget::resizeEvent(event);
}

void CDefaultView::Fill()
{
    const QScopedValueRollback filling(isFilling, true);
    clear();
    const QTreeWidgetItem *const shown = tree.currentItem();
    for (int i = 0; shown && i < shown->childCount(); ++i) {
        const QTreeWidgetItem *const child = shown->child(i);
        auto *const row = new QListWidgetItem(child->icon(0), child->text(0), this);
        row->setData(Qt::UserRole, child->data(0, Qt::UserRole));
        if (CanEditLabel(CProjView::FolderOf(child)))
            row->setFlags(row->flags() | Qt::ItemIsEditable);
    }
}

std::optional<CommandState> CDefaultView::StateOf(int command) const
{
    switch (command) {
    case CMD_CLEAR:
    case CMD_RESOLUTION:
        return tree.StateOf(command);
    case CMD_RENAME:
        return CommandState{SelectedRow() && (SelectedRow()->flags() & Qt::ItemIsEditable)};
    default:
        return std::nullopt;
    }
}

void CDefaultView::Run(int command)
{
    if (command == CMD_RENAME)
        return editItem(SelectedRow());
    tree.SetContextFolder(CProjView::FolderOf(TreeItemOf(SelectedRow())));
    tree.Run(command);
}

void CDefaultView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isFromKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const QListWidgetItem *const row = SelectedRow();
    QTreeWidgetItem *const item = row ? TreeItemOf(row) : tree.currentItem();
    QPoint place = event->globalPos();
    if (isFromKeyboard)
        place = viewport()->mapToGlobal(row ? visualItemRect(row).center() : QPoint());
    if (item)
        tree.OpenContextMenu(item, place);
}
