#include "CDefaultView.h"

#include "Actions.h"
#include "ContentsDelegate.h"
#include "CopyGuard.h"
#include "ProjectTree.h"
#include "ResourceCounts.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyle>

namespace
{

constexpr int ICON_SIDE = 32;
constexpr int GRID_WIDTH = 96;
constexpr int NARROWEST = 64; // has room for the name of a resolution
constexpr int LINES = 3;      // of text below an icon: a name of two lines, and what is in it

const CResFolder *FolderOf(const QListWidgetItem *row)
{
    return static_cast<const CResFolder *>(row->data(Qt::UserRole).value<void *>());
}

} // namespace

CDefaultView::CDefaultView(CResDoc &projectDocument, CProjView &projectTree)
    : document(projectDocument), tree(projectTree)
{
    setViewMode(QListView::IconMode);
    setIconSize(QSize(ICON_SIDE, ICON_SIDE));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumWidth(NARROWEST + style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 2 * frameWidth() + 2);
    setItemDelegate(new ContentsDelegate(this));
    new CopyGuard(*this);
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
    return row ? tree.ItemOf(FolderOf(row)) : nullptr;
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

void CDefaultView::resizeEvent(QResizeEvent *event)
{
    FitGrid();
    QListWidget::resizeEvent(event);
}

void CDefaultView::changeEvent(QEvent *event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitGrid();
}

/// A narrow view shows narrow columns, so that no name is cut off.
void CDefaultView::FitGrid()
{
    setGridSize(QSize(qBound(NARROWEST, viewport()->width() - 2, GRID_WIDTH),
                      ICON_SIDE + LINES * fontMetrics().lineSpacing() + 8));
}

void CDefaultView::paintEvent(QPaintEvent *event)
{
    QListWidget::paintEvent(event);
    if (hint.isEmpty())
        return;
    QPainter painter(viewport());
    QColor color = palette().color(QPalette::Text);
    color.setAlphaF(0.65F);
    painter.setPen(color);
    painter.setLayoutDirection(Qt::LeftToRight); // as its words are
    painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, hint);
}

void CDefaultView::keyPressEvent(QKeyEvent *event)
{
    if (state() == EditingState)
        return; // a key that the label has no use for
    if (LeadsOut(*event))
        return GoOut();
    QListWidget::keyPressEvent(event);
}

void CDefaultView::GoOut()
{
    const CResFolder *const left = CProjView::FolderOf(tree.currentItem());
    if (tree.GoOut())
        SelectRow(left);
}

void CDefaultView::SelectRow(const CResFolder *folder)
{
    for (int i = 0; i < count(); ++i) {
        if (FolderOf(item(i)) == folder)
            return setCurrentRow(i);
    }
}

void CDefaultView::Fill()
{
    const QScopedValueRollback filling(isFilling, true);
    const QListWidgetItem *const selected = SelectedRow();
    const void *const selectedFolder = selected ? selected->data(Qt::UserRole).value<void *>() : nullptr;
    clear();
    const QTreeWidgetItem *const shown = tree.currentItem();
    for (int i = 0; shown && i < shown->childCount(); ++i) {
        const QTreeWidgetItem *const child = shown->child(i);
        const CResFolder &folder = *CProjView::FolderOf(child);
        auto *const row = new QListWidgetItem(child->icon(0), child->text(0), this);
        const QString line = CountLineOf(folder);
        row->setData(Qt::UserRole, child->data(0, Qt::UserRole));
        row->setData(ContentsDelegate::COUNT_LINE, line);
        row->setData(Qt::AccessibleTextRole, line.isEmpty() ? row->text() : row->text() + QStringLiteral(", ") + line);
        row->setToolTip(row->data(Qt::AccessibleTextRole).toString());
        if (CanEditLabel(&folder))
            row->setFlags(row->flags() | Qt::ItemIsEditable);
        if (&folder == selectedFolder)
            setCurrentItem(row);
    }
    hint = shown && count() == 0 ? HintOf(*CProjView::FolderOf(shown)) : QString();
    setAccessibleDescription(hint);
    viewport()->update();
}

std::optional<ActionState> CDefaultView::StateOf(ActionId id) const
{
    switch (id) {
    case ACTION_CLEAR:
    case ACTION_RESOLUTION:
    case ACTION_NEW_LAYOUT:
        return tree.StateOf(id);
    case ACTION_RENAME:
    case ACTION_DELETE:
        return ActionState{SelectedRow() && (SelectedRow()->flags() & Qt::ItemIsEditable)};
    default:
        return std::nullopt;
    }
}

void CDefaultView::Run(ActionId id)
{
    if (id == ACTION_RENAME)
        return editItem(SelectedRow());
    tree.SetContextFolder(CProjView::FolderOf(TreeItemOf(SelectedRow())));
    tree.Run(id);
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
