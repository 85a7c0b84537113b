// SPDX-License-Identifier: MIT
#include "CFileView.h"

#include "CResDoc.h"
#include "DroppedFiles.h"
#include "FileGrid.h"
#include "LiteralTip.h"
#include "Paths.h"
#include "PicturePane.h"
#include "RefusalText.h"
#include "ViewHost.h"
#include "ViewMenu.h"
#include "WaitCursor.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

constexpr int ICON_SIDE = 16;      // pixels
constexpr int THUMBNAIL_SIDE = 32; // pixels
constexpr char SECTION[] = "Files";
constexpr char THUMBNAILS_KEY[] = "thumbnails";

constexpr ViewMenuEntry LINE{ACTION_NONE};
constexpr ViewMenuEntry FILE_VIEW_MENU[] = {
    {ACTION_NEW, "&New"},
    {ACTION_IMPORT, "&Import..."},
    LINE,
    {ACTION_RENAME, "Rename"},
    {ACTION_BROWSE, "&Browse..."},
    LINE,
    {ACTION_OPEN_FILE, "&Open"},
    {ACTION_OPEN_FOLDER, "Open &Folder"},
    LINE,
    {ACTION_DELETE, "&Delete\tDel"},
    {ACTION_DELETE_ALL, "Delete &All"},
    LINE,
    {ACTION_PUSH_FILE, "Push Resource"},
};
constexpr ViewMenuEntry COMPONENT_MENU[] = {
    {ACTION_FILTER_IMAGES, "&Filter..."}, LINE, {ACTION_BROWSE, "&Browse..."},
    {ACTION_RESET_IMAGE, "&Reset"},       LINE, {ACTION_OPEN_FILE, "&Open"},
    {ACTION_OPEN_FOLDER, "Open &Folder"}, LINE, {ACTION_DELETE, "&Delete\tDel"},
    {ACTION_DELETE_ALL, "Delete &All"},   LINE, {ACTION_PUSH_IMAGE, "Push Resource"},
};

} // namespace

CFileView::CFileView(CResDoc &projectDocument, IViewHost &viewHost)
    : ITreeListener(projectDocument), document(projectDocument), host(viewHost), list(projectDocument, model),
      icons(DirectoryOf(projectDocument.PathName())),
      grid(new FileGrid(list, model, viewHost.Boxes(), projectDocument.env.settings,
                        projectDocument.tables.resourceTypes)),
      details(new PicturePane(projectDocument.env, pictures))
{
    model.pictureOf = [this](int row) { return PictureOf(row); };
    model.tipOf = [this](int row) { return TipOf(row); };
    model.SetList(&list);
    pictures.thumbnailsLoaded = [this] { model.PicturesChanged(); };
    setAcceptDrops(true);
    auto *const parts = new QVBoxLayout(this);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(0);
    parts->addWidget(grid, 1);
    parts->addWidget(details);
    details->hide();
    details->thumbnailsTurned = [this](bool isOn) { ShowThumbnails(isOn); };
    setFocusProxy(grid);
    grid->menuWanted = [this](const QContextMenuEvent &event) { OpenMenu(event); };
    grid->browseWanted = [this] { Browse(); };
    grid->focusMoved = [this] { ShowDetails(); };
    ShowThumbnails(document.env.settings.Int(SECTION, THUMBNAILS_KEY, 0) != 0);
    document.AddView(this);
}

CFileView::~CFileView()
{
    document.RemoveView(this);
    (void)document.env.settings.WriteAll(State());
    delete grid; // before the model that it uses
    delete details;
    model.SetList(nullptr);
}

/// Shows the selected folder as it is now.
void CFileView::Rebuild()
{
    icons.Refresh();
    pictures.DropRequests();
    grid->ShowFolder(document.selection ? document.selection->SelectedFolder() : nullptr);
}

void CFileView::TreeGoes(const CResFolder &folder)
{
    if (!list.HoldsOf(folder))
        return;
    grid->LetGo();
    details->Clear();
    isStale = true;
}

bool CFileView::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate) { // files may have been added or removed meanwhile
        icons.Refresh();
        pictures.Forget();
        model.PicturesChanged();
    }
    return QWidget::event(event);
}

bool CFileView::TakeEdit()
{
    return grid->TakeEdit();
}

void CFileView::GoTo(const CBaseRes &resource, const RowPart &)
{
    const int row = list.RowOf(resource);
    if (row < 0)
        return;
    grid->SelectAlone(row, FileList::ID_COLUMN);
    grid->setFocus();
}

RowPlace CFileView::FocusedRow() const
{
    const QModelIndex cell = grid->currentIndex();
    return {cell.isValid() ? list.At(cell.row()) : nullptr};
}

QList<ProfileEntry> CFileView::State() const
{
    return grid->State() + QList<ProfileEntry>{{QLatin1String(SECTION), QLatin1String(THUMBNAILS_KEY),
                                                QString::number(hasThumbnails ? 1 : 0)}};
}

std::optional<ActionState> CFileView::StateOf(ActionId id) const
{
    if (id == ACTION_DETAILS)
        return ActionState{true, !details->isHidden()};
    if (id == ACTION_THUMBNAILS)
        return ActionState{true, hasThumbnails};
    return FileActionState(id, list, grid->Selected());
}

void CFileView::Run(ActionId id)
{
    switch (id) {
    case ACTION_NEW:
        return grid->EditNewRow();
    case ACTION_IMPORT:
        return Import();
    case ACTION_RENAME:
        return grid->OpenIdEditor();
    case ACTION_BROWSE:
        return Browse();
    case ACTION_OPEN_FILE:
        return Open(/*isFolder=*/false);
    case ACTION_OPEN_FOLDER:
        return Open(/*isFolder=*/true);
    case ACTION_DELETE:
        return DeleteSelected();
    case ACTION_DELETE_ALL:
        return DeleteAll();
    case ACTION_PUSH_FILE:
        return list.FlipPush(grid->SelectedRows());
    case ACTION_RESET_IMAGE:
        return list.Reset(grid->SelectedRows());
    case ACTION_SELECT_ALL:
        return grid->selectAll();
    case ACTION_THUMBNAILS:
        return ShowThumbnails(!hasThumbnails);
    case ACTION_DETAILS:
        details->setVisible(details->isHidden());
        return ShowDetails();
    default:
        return;
    }
}

void CFileView::Import()
{
    if (!list.HasNewRow())
        return;
    QStringList paths;
    document.ChooseFiles(list.Folder()->kind, /*multiSelect=*/true, QString(), paths);
    AddFiles(paths);
}

void CFileView::AddFiles(const QStringList &paths)
{
    FileList::Additions result;
    {
        const WaitCursor cursor;
        icons.Refresh();
        result = list.AddFiles(paths);
    }
    if (result.added > 0)
        grid->PlaceButton();
    if (result.refusals.isEmpty())
        return;
    if (result.refusals.size() > MOST_REFUSALS)
        document.env.Explain(result.refusals.join(u'\n'));
    host.Boxes().ShowMessage(RefusalText(result.refusals));
}

void CFileView::Browse()
{
    const QPersistentModelIndex cell = model.index(grid->Selected().first, FileList::PATH_COLUMN);
    if (!cell.isValid())
        return;
    const bool isNewRow = !list.At(cell.row());
    QStringList paths;
    document.ChooseFiles(list.KindOfRow(cell.row()), /*multiSelect=*/false,
                         list.CellText(cell.row(), FileList::PATH_COLUMN), paths);
    if (paths.isEmpty() || !cell.isValid())
        return;
    icons.Refresh();
    const int row = cell.row(); // an added row has the same number
    const int code = list.SetFile(row, paths.first());
    if (code != FILE_EDIT_DONE)
        host.Boxes().ShowMessage(FileEditMessage(code));
    else if (isNewRow)
        grid->SelectAlone(row, FileList::ID_COLUMN);
}

void CFileView::Open(bool isFolder)
{
    const int row = grid->Selected().first;
    const QString path = row < 0 ? QString() : list.CellText(row, FileList::PATH_COLUMN);
    if (path.isEmpty())
        return;
    icons.Refresh();
    (void)SetCurrentFolder(DirectoryOf(document.PathName()));
    const QString message =
        isFolder ? opener.OpenFolder(icons.HostPathOf(DirectoryOf(path))) : opener.OpenFile(icons.HostPathOf(path));
    if (!message.isEmpty())
        host.Boxes().ShowMessage(message);
}

void CFileView::DeleteSelected()
{
    if (!host.Boxes().AskYesNo(u"The selected item(s) will be deleted. Continue?"_s))
        return;
    {
        const WaitCursor cursor;
        list.Remove(grid->SelectedRows());
    }
    grid->PlaceButton();
    ShowDetails();
}

void CFileView::DeleteAll()
{
    if (!host.Boxes().AskYesNo(u"All the item(s) will be deleted. Continue?"_s))
        return;
    {
        const WaitCursor cursor;
        list.Clear();
    }
    grid->PlaceButton();
    ShowDetails();
}

void CFileView::OpenMenu(const QContextMenuEvent &event)
{
    const std::vector<int> selected = grid->SelectedRows();
    QPoint place = event.globalPos();
    if (event.reason() == QContextMenuEvent::Keyboard) {
        const QRect row = grid->RowRect(selected.empty() ? 0 : selected.front());
        place = grid->viewport()->mapToGlobal(QPoint(row.left() + 5, row.center().y()));
    }
    const auto stateOf = [&](ActionId id) { return FileMenuState(id, list, selected, host.IsEnabled(id)); };
    RunViewMenu(*this, list.IsItemFolder() ? std::span<const ViewMenuEntry>(COMPONENT_MENU) : FILE_VIEW_MENU, place,
                stateOf, [this](ActionId id) { host.RunAction(id); });
}

void CFileView::ShowThumbnails(bool isOn)
{
    hasThumbnails = isOn;
    details->ShowThumbnailsState(isOn);
    pictures.DropRequests();
    grid->SetIconSide(isOn ? THUMBNAIL_SIDE : ICON_SIDE);
    model.PicturesChanged();
}

/// Shows the row with the focus in the preview.
void CFileView::ShowDetails()
{
    if (details->isHidden())
        return;
    const CFileRes *const res = list.At(grid->currentIndex().row());
    if (!res)
        return details->Clear();
    PreviewedFile file;
    file.id = document.env.NarrowToWide(res->Id()->name);
    file.path = document.env.NarrowToWide(res->path);
    if (!file.path.isEmpty())
        file.hostPath = icons.HostPathOf(file.path);
    const CResFolder *const folder = res->Folder();
    file.isImage = icons.IsPicture(file.path);
    if (folder && (folder->kind & KIND_IMAGES) && folder->index >= 0) {
        const CResoEntry &screen = document.tables.resolutions.At(folder->index);
        file.screen = QSize(screen.width, screen.height);
        file.screenName = document.env.NarrowToWide(screen.name);
    }
    details->Show(file);
}

QVariant CFileView::PictureOf(int row)
{
    const CFileRes *const res = list.At(row);
    if (!res)
        return icons.Icon(FileIcons::NEW_ROW);
    const QString path = list.CellText(row, FileList::PATH_COLUMN);
    const int image = icons.ImageOf(path);
    if (!hasThumbnails || image == FileIcons::MISSING || image == FileIcons::NO_PATH || !icons.IsPicture(path))
        return icons.Icon(image);
    const qreal scale = devicePixelRatioF();
    QPixmap thumbnail = pictures.Thumbnail(icons.HostPathOf(path), qRound(THUMBNAIL_SIDE * scale));
    if (thumbnail.isNull())
        return icons.Icon(image);
    thumbnail.setDevicePixelRatio(scale);
    return QIcon(thumbnail);
}

QVariant CFileView::TipOf(int row)
{
    const QString path = list.CellText(row, FileList::PATH_COLUMN);
    if (path.isEmpty())
        return {};
    const QString place = QString::fromUtf8(icons.HostPathOf(path));
    return LiteralTip(icons.IsThere(path) ? place : place + u"\nnot found"_s);
}

void CFileView::dragEnterEvent(QDragEnterEvent *event)
{
    if (list.HasNewRow() && !DroppedFiles(event->mimeData()).isEmpty()) // whatever has the focus
        event->acceptProposedAction();
}

/// Adds the files after the drop, because the program that they come from waits until the drop has ended.
void CFileView::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    const QStringList files = DroppedFiles(event->mimeData());
    QTimer::singleShot(0, this, [this, files] {
        host.AfterCommand([view = QPointer(this), files] {
            if (view && view->TakeEdit())
                view->AddFiles(files);
        });
    });
}
