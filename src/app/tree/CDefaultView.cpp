// SPDX-License-Identifier: MIT
#include "CDefaultView.h"

#include "Actions.h"
#include "ContentsDelegate.h"
#include "CopyGuard.h"
#include "ProjectTree.h"
#include "ResourceCounts.h"
#include "UiIcons.h"

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
constexpr int LINES = 3;      // of text below an icon: two lines of name, and the count line

CResFolder *FolderOf(const QListWidgetItem *row)
{
    return row ? static_cast<CResFolder *>(row->data(Qt::UserRole).value<void *>()) : nullptr;
}

} // namespace

CDefaultView::CDefaultView(CResDoc &projectDocument, Selection &folderSelection, CProjView &projectTree)
    : ITreeListener(projectDocument), document(projectDocument), selection(folderSelection), tree(projectTree)
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
        if (CResFolder *folder = FolderOf(row)) // null if a double click, which also activates, has removed the row
            selection.SelectFolder(folder);
    };
    connect(this, &QListWidget::itemDoubleClicked, this, enter);
    connect(this, &QListWidget::itemActivated, this, enter);
    connect(this, &QListWidget::itemChanged, this, [this](const QListWidgetItem *row) {
        CResFolder *const folder = FolderOf(row);
        if (!isFilling && folder && LabelOf(*folder, document) != row->text())
            tree.EditLabel(*folder, QString(row->text())); // this rebuilds the view
    });
    document.AddView(this);
}

CDefaultView::~CDefaultView()
{
    document.RemoveView(this);
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

/// Removes the rows of the folders that are about to be destroyed. An update follows, which adds new rows.
void CDefaultView::TreeGoes(const CResFolder &folder)
{
    const QScopedValueRollback filling(isFilling, true);
    if (shown && IsWithin(*shown, folder)) {
        clear();
        shown = nullptr;
        return;
    }
    for (int i = 0; i < count() && GoesWith(folder, folder); ++i) {
        if (FolderOf(item(i)) == &folder)
            delete takeItem(i);
    }
}

void CDefaultView::mousePressEvent(QMouseEvent *event)
{
    if (!itemAt(event->pos()))
        clearSelection(); // now actions are about the folder itself
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

/// Makes the columns narrow in a narrow view, so that no name is cut off.
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
    painter.setLayoutDirection(Qt::LeftToRight); // the hint is English
    painter.drawText(viewport()->rect().adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap, hint);
}

void CDefaultView::keyPressEvent(QKeyEvent *event)
{
    if (state() == EditingState)
        return; // a key that the label ignores
    if (LeadsOut(*event))
        return GoOut();
    QListWidget::keyPressEvent(event);
}

void CDefaultView::GoOut()
{
    const CResFolder *const left = selection.SelectedFolder();
    if (selection.GoOut())
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
    const CResFolder *const selectedRow = FolderOf(SelectedRow());
    clear();
    shown = selection.SelectedFolder();
    for (size_t i = 0; shown && i < shown->subfolders.size(); ++i) {
        CResFolder &folder = *shown->subfolders[i];
        if (!IsShown(folder))
            continue;
        auto *const row = new QListWidgetItem(MakeIcon(IconOf(folder)), LabelOf(folder, document), this);
        const QString line = CountLineOf(folder);
        row->setData(Qt::UserRole, QVariant::fromValue(static_cast<void *>(&folder)));
        row->setData(ContentsDelegate::COUNT_LINE, line);
        row->setData(Qt::AccessibleTextRole, line.isEmpty() ? row->text() : row->text() + QStringLiteral(", ") + line);
        row->setToolTip(row->data(Qt::AccessibleTextRole).toString());
        if (CanEditLabel(&folder))
            row->setFlags(row->flags() | Qt::ItemIsEditable);
        if (&folder == selectedRow)
            setCurrentItem(row);
    }
    hint = shown && count() == 0 ? HintOf(*shown) : QString();
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
    tree.SetContextFolder(FolderOf(SelectedRow()));
    tree.Run(id);
}

void CDefaultView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isFromKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const QListWidgetItem *const row = SelectedRow();
    CResFolder *const folder = row ? FolderOf(row) : selection.SelectedFolder();
    QPoint place = event->globalPos();
    if (isFromKeyboard)
        place = viewport()->mapToGlobal(row ? visualItemRect(row).center() : QPoint());
    if (folder)
        tree.OpenContextMenu(*folder, place);
}
