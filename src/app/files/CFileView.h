// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"
#include "EditOwner.h"
#include "FileIcons.h"
#include "FileListModel.h"
#include "FileOpener.h"
#include "PaneView.h"
#include "PictureLoader.h"
#include "RowOwner.h"
#include "StateOwner.h"
#include "TreeListener.h"

class CResDoc;
class FileGrid;
class IViewHost;
class PicturePane;

/// The pane of a project's files: a list with one row per file resource of a folder.
class CFileView : public PaneView,
                  public IActionTarget,
                  public IEditOwner,
                  public IRowOwner,
                  public IStateOwner,
                  public ITreeListener
{
public:
    CFileView(CResDoc &projectDocument, IViewHost &viewHost);
    ~CFileView() override;

    [[nodiscard]] FileList &List() { return list; }
    [[nodiscard]] FileGrid &Grid() { return *grid; }
    /// Opens files for the user.
    FileOpener opener;

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;
    [[nodiscard]] bool TakeEdit() override;
    void GoTo(const CBaseRes &resource, const RowPart &part) override;
    [[nodiscard]] RowPlace FocusedRow() const override;
    [[nodiscard]] QList<ProfileEntry> State() const override;
    void TreeGoes(const CResFolder &folder) override;

protected:
    bool event(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void Rebuild() override;
    void Import();
    void AddFiles(const QStringList &paths);
    void Browse();
    void Open(bool isFolder);
    void DeleteSelected();
    void DeleteAll();
    void OpenMenu(const QContextMenuEvent &event);
    void ShowThumbnails(bool isOn);
    void ShowDetails();
    [[nodiscard]] QVariant PictureOf(int row);
    [[nodiscard]] QVariant TipOf(int row);

    CResDoc &document;
    IViewHost &host;
    FileListModel model;
    FileList list;
    FileIcons icons;
    PictureLoader pictures;
    FileGrid *grid;
    PicturePane *details;
    bool hasThumbnails = false;
};
