// SPDX-License-Identifier: MIT
#include "CProjView.h"

#include "Actions.h"
#include "CResoFltr.h"
#include "CTreeFltrDlg.h"
#include "CopyGuard.h"
#include "EditActions.h"
#include "LabelDelegate.h"
#include "ProjectTree.h"
#include "UiIcons.h"
#include "ViewMenu.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QScopedValueRollback>

bool LeadsOut(const QKeyEvent &key)
{
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    return (key.key() == Qt::Key_Backspace && modifiers == Qt::NoModifier) ||
           (key.key() == Qt::Key_Up && modifiers == Qt::AltModifier);
}

CProjView::CProjView(CResDoc &projectDocument, Selection &folderSelection, IViewHost &viewHost)
    : ITreeListener(projectDocument), document(projectDocument), selection(folderSelection), host(viewHost),
      selectionChanged(selection.changed, [this] { SelectionChanged(); })
{
    setHeaderHidden(true);
    setColumnCount(1);
    setAccessibleName(QStringLiteral("Project"));
    setIconSize(QSize(16, 16));
    setEditTriggers(QAbstractItemView::SelectedClicked);
    setItemDelegate(new LabelDelegate(this));
    new CopyGuard(*this);
    ShowWholeLabels();
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
        if (!isFilling)
            selection.SelectFolder(FolderOf(item));
    });
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *item) { LabelEdited(item); });
    document.AddView(this);
    selection.projView = this;
}

CProjView::~CProjView()
{
    selection.projView = nullptr;
    document.RemoveView(this);
}

CResFolder *CProjView::FolderOf(const QTreeWidgetItem *item)
{
    return item ? static_cast<CResFolder *>(item->data(0, Qt::UserRole).value<void *>()) : nullptr;
}

QTreeWidgetItem *CProjView::ItemOf(const CResFolder *folder) const
{
    for (QTreeWidgetItemIterator item(const_cast<CProjView *>(this)); *item; ++item) {
        if (FolderOf(*item) == folder)
            return *item;
    }
    return nullptr;
}

void CProjView::OnUpdate(CView *sender, long, CView *target)
{
    if ((!target || target == this) && sender != this && isVisible())
        Fill();
}

/// A click with the right button opens the menu of a folder without selecting it.
void CProjView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::RightButton)
        return LinedTree::mousePressEvent(event);
    setFocus();
    event->accept();
}

void CProjView::keyPressEvent(QKeyEvent *event)
{
    if (state() == EditingState)
        return; // a key that the label ignores
    if (!LeadsOut(*event))
        return LinedTree::keyPressEvent(event);
    (void)selection.GoOut();
}

/// Shows changes that were made while the tree was hidden.
void CProjView::showEvent(QShowEvent *event)
{
    LinedTree::showEvent(event);
    if (!event->spontaneous())
        Fill();
}

/// Removes the rows of the folders that are about to be destroyed. An update follows, which adds new rows.
void CProjView::TreeGoes(const CResFolder &folder)
{
    if (contextFolder && GoesWith(*contextFolder, folder))
        contextFolder = nullptr;
    QTreeWidgetItem *const row = ItemOf(&folder);
    if (!row)
        return;
    const QScopedValueRollback filling(isFilling, true);
    qDeleteAll(row->takeChildren());
    if (GoesWith(folder, folder))
        delete row;
}

void CProjView::Fill()
{
    {
        const QScopedValueRollback filling(isFilling, true);
        setUpdatesEnabled(false);
        clear();
        contextFolder = nullptr;
        Insert(invisibleRootItem(), document.root);
        setUpdatesEnabled(true);
    }
    selection.Refresh();
    ShowSelected();
    FitColumn();
}

QTreeWidgetItem *CProjView::Insert(QTreeWidgetItem *parent, CResFolder &folder)
{
    if (!IsShown(folder))
        return nullptr;
    auto *const item = new QTreeWidgetItem(parent);
    item->setText(0, LabelOf(folder, document));
    item->setToolTip(0, item->text(0));
    item->setIcon(0, MakeIcon(IconOf(folder)));
    item->setData(0, Qt::UserRole, QVariant::fromValue(static_cast<void *>(&folder)));
    if (CanEditLabel(&folder))
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    for (const auto &subfolder : folder.subfolders)
        Insert(item, *subfolder);
    item->setExpanded(true);
    return item;
}

void CProjView::ShowSelected()
{
    const CResFolder *const folder = selection.SelectedFolder();
    if (FolderOf(currentItem()) == folder)
        return;
    const QScopedValueRollback filling(isFilling, true);
    setCurrentItem(ItemOf(folder));
}

void CProjView::SelectionChanged()
{
    ShowSelected();
    const CResFolder *const folder = selection.SelectedFolder();
    host.ShowPane(folder ? EntryOf(folder->kind).pane : Pane::Default);
    UpdatePanes();
}

/// Tells all other views that the selection or something in the tree has changed.
void CProjView::UpdatePanes()
{
    document.UpdateAllViews(this);
}

void CProjView::LabelEdited(QTreeWidgetItem *item)
{
    CResFolder *const folder = FolderOf(item);
    if (!isFilling && folder && item->text(0) != folder->title)
        EditLabel(*folder, item->text(0));
}

void CProjView::EditLabel(CResFolder &folder, const QString &typed)
{
    if (!CanEditLabel(&folder))
        return;
    const LabelEdit edit = EndLabelEdit(document, folder, typed);
    if (QTreeWidgetItem *const item = ItemOf(&folder)) {
        const QScopedValueRollback filling(isFilling, true);
        item->setText(0, folder.title);
        item->setToolTip(0, folder.title);
        FitColumn();
    }
    if (!edit.message.isEmpty())
        host.Boxes().ShowMessage(edit.message);
    UpdatePanes();
}

std::optional<ActionState> CProjView::StateOf(ActionId id) const
{
    const CResFolder *folder = TargetFolder();
    switch (id) {
    case ACTION_CLEAR:
        return ActionState{folder != nullptr};
    case ACTION_RESOLUTION:
        return ActionState{folder && HasResolutions(*folder)};
    case ACTION_RENAME:
    case ACTION_DELETE:
        return ActionState{CanEditLabel(folder)};
    case ACTION_NEW_LAYOUT:
        return ActionState{folder && folder->kind == KIND_RESO_LAYOUTS};
    default:
        return std::nullopt;
    }
}

void CProjView::Run(ActionId id)
{
    CResFolder *const folder = TargetFolder();
    contextFolder = nullptr;
    if (!folder)
        return;
    if (id == ACTION_CLEAR)
        Clear(*folder);
    else if (id == ACTION_RESOLUTION)
        (void)ChooseResolutions(*folder);
    else if (id == ACTION_RENAME)
        editItem(ItemOf(folder));
    else if (id == ACTION_NEW_LAYOUT)
        NewLayout(*folder);
    else if (id == ACTION_DELETE)
        DeleteLayout(*folder);
}

void CProjView::NewLayout(const CResFolder &folder)
{
    CResFolder *const made = document.CreateLayoutRes(folder.index);
    if (!made)
        return host.Boxes().ShowMessage(
            QStringLiteral("A layout can't be created in \"%1\". If its layout file wasn't loaded, the output explains "
                           "why; fix the file, or remove it from the project's resource list.")
                .arg(folder.title));
    QTreeWidgetItem *const parent = ItemOf(&folder);
    QTreeWidgetItem *item = nullptr;
    {
        const QScopedValueRollback filling(isFilling, true);
        item = Insert(parent, *made);
        parent->setExpanded(true);
        FitColumn();
    }
    setCurrentItem(item);
    editItem(item);
}

void CProjView::DeleteLayout(CResFolder &folder)
{
    if (!host.Boxes().AskYesNo(QStringLiteral("The selected item(s) will be deleted. Continue?")))
        return;
    const std::vector<CResFolder *> path = PathTo(document.root, &folder);
    if (path.size() > 1 && selection.SelectedFolder() == &folder)
        selection.SelectFolder(path[path.size() - 2]);
    (void)document.DeleteFolder(folder);
    UpdatePanes();
}

void CProjView::Clear(CResFolder &folder)
{
    if (!host.Boxes().AskYesNo(ClearQuestion(LabelOf(folder, document))))
        return;
    document.ClearByKind(folder);
    document.UpdateAllViews(nullptr);
}

bool CProjView::ChooseResolutions(CResFolder &folder)
{
    if (!HasResolutions(folder))
        return false;
    const bool isRoot = folder.kind == KIND_ROOT;
    CResFolder *const first = isRoot ? folder.FindFolder(KIND_IMAGES, 2) : &folder;
    CResFolder *const second = isRoot ? folder.FindFolder(KIND_LAYOUTS, 2) : nullptr;
    CResoFltr helper(document, first, second, host.Boxes());
    CTreeFltrDlg dialog(helper, window());
    if (host.Boxes().RunDialog(dialog))
        document.UpdateAllViews(nullptr); // this rebuilds the tree
    return true;
}

void CProjView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isFromKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    QTreeWidgetItem *item = isFromKeyboard ? currentItem() : itemAt(event->pos());
    if (!item)
        item = topLevelItem(0);
    if (!item)
        return;
    if (isFromKeyboard)
        scrollToItem(item);
    OpenContextMenu(*FolderOf(item), isFromKeyboard ? viewport()->mapToGlobal(MiddleOfText(item)) : event->globalPos());
}

QPoint CProjView::MiddleOfText(const QTreeWidgetItem *item) const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualItemRect(item);
    option.features = QStyleOptionViewItem::HasDecoration | QStyleOptionViewItem::HasDisplay;
    option.icon = item->icon(0);
    option.text = item->text(0);
    QRect text = style()->subElementRect(QStyle::SE_ItemViewItemText, &option, this);
    text.setWidth(qMin(text.width(), fontMetrics().horizontalAdvance(option.text)));
    return {qMin(text.center().x(), viewport()->width() - 1), text.center().y()};
}

namespace
{

constexpr ViewMenuEntry LINE{ACTION_NONE};
constexpr ViewMenuEntry SAVE{ACTION_SAVE, "&Save\tCtrl+S"};
constexpr ViewMenuEntry CLEAR{ACTION_CLEAR, "Clea&r"};

constexpr ViewMenuEntry ROOT_MENU[] = {SAVE, LINE, {ACTION_RESOLUTION, "&Resolution..."}, LINE, CLEAR};
constexpr ViewMenuEntry LEAF_MENU[] = {SAVE, LINE, CLEAR};
constexpr ViewMenuEntry LAYOUT_RESOLUTION_MENU[] = {{ACTION_NEW_LAYOUT, "&New"}, SAVE, LINE, CLEAR};
constexpr ViewMenuEntry LAYOUT_MENU[] = {{ACTION_RENAME, "Re&name\tF2"}, SAVE, LINE, {ACTION_DELETE, "&Delete\tDel"}};
constexpr ViewMenuEntry COMPONENT_IMAGES_MENU[] = {SAVE, LINE, {ACTION_FILTER, "&Filter..."}, LINE, CLEAR};

std::span<const ViewMenuEntry> EntriesOf(TreeMenu menu)
{
    switch (menu) {
    case TreeMenu::Root:
        return ROOT_MENU;
    case TreeMenu::Leaf:
        return LEAF_MENU;
    case TreeMenu::LayoutResolution:
        return LAYOUT_RESOLUTION_MENU;
    case TreeMenu::Layout:
        return LAYOUT_MENU;
    case TreeMenu::ComponentImages:
        return COMPONENT_IMAGES_MENU;
    case TreeMenu::None:
        break;
    }
    return {};
}

} // namespace

void CProjView::OpenContextMenu(CResFolder &folder, const QPoint &globalPlace)
{
    contextFolder = &folder;
    RunViewMenu(
        *this, EntriesOf(EntryOf(folder.kind).menu), globalPlace,
        [this](ActionId id) { return ActionState{host.IsEnabled(id)}; }, [this](ActionId id) { host.RunAction(id); });
    contextFolder = nullptr; // also if nothing was chosen, or if another view opened the menu
}
