// SPDX-License-Identifier: MIT
#pragma once

#include "CListGrid.h"
#include "FileActions.h"
#include "FileListModel.h"
#include "ListSettings.h"

#include <optional>

class CellEditor;
class ChoiceBox;
class IViewBoxes;
class QPushButton;

/// The widget of the list of files: its columns, its order, and the controls over its cells: the editor of IDs, the box
/// of types, and the button that chooses a file.
class FileGrid : public CListGrid
{
public:
    /// All arguments must outlive this object. `types` are the types that the user can choose for a row.
    FileGrid(FileList &fileList, FileListModel &listModel, IViewBoxes &viewBoxes, Settings &settings,
             const QStringList &types);

    /// Shows a folder. The row with the ID that had the focus last gets the focus and is selected, if it exists.
    void ShowFolder(CResFolder *folder);
    /// Must be called before the resources are destroyed. Discards what is being edited.
    void LetGo();

    /// Opens the editor over the ID of the first selected row.
    void OpenIdEditor();
    /// Opens the editor over the ID of the new row, and selects only that row.
    void EditNewRow();
    /// Places the button over the path of the selected row. Hides it unless exactly one row is selected and there is
    /// room for the button.
    void PlaceButton();
    /// Places the box of types over the type in the same way.
    void PlaceTypeBox();
    /// Commits what is being edited. Returns false if it is refused: then a message is shown, and the editor opens
    /// again.
    bool TakeEdit();

    /// The selection. It is cached, because it is asked often.
    [[nodiscard]] const FileSelection &Selected() const;

    /// The entries for widths and order to store in the settings.
    [[nodiscard]] QList<ProfileEntry> State() const;

    /// Scrolls to a path only vertically: a click on it must not move the IDs out of sight.
    void scrollTo(const QModelIndex &cell, ScrollHint hint = EnsureVisible) override;

    /// Called when the user presses the button, or makes a double click with the same meaning.
    std::function<void()> browseWanted;
    /// Called when another row gets the focus, or when the row with the focus changes.
    std::function<void()> focusMoved;

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void dataChanged(const QModelIndex &first, const QModelIndex &last, const QList<int> &roles) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void MakeColumns();
    void Connect();
    void ConnectControls();
    void SortBy(int col);
    void Clicked(const QModelIndex &cell);
    void DoubleClicked(const QModelIndex &cell);
    void Follow();
    void NoteFocus();
    /// Returns false if the list refuses the ID.
    bool Commit(const QPersistentModelIndex &cell, const QString &text);

    FileList &list;
    FileListModel &rows;
    IViewBoxes &boxes;
    ListSettings stored;
    int sortState;
    CellEditor *editor;
    ChoiceBox *typeBox;
    QPushButton *button;
    NarrowText lastId; // of the row with the focus
    bool isShowing = false;
    mutable std::optional<FileSelection> selected; // until the selection or the rows change
};
