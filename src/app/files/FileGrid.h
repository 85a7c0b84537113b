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

/// The list of files on the screen: its columns, its order, and what is laid over its cells: the editor of an ID, the
/// box of types, and the button that chooses a file.
class FileGrid : public CListGrid
{
public:
    /// All must live longer. `types` are the types of a row to choose from.
    FileGrid(FileList &fileList, FileListModel &listModel, IViewBoxes &viewBoxes, Settings &settings,
             const QStringList &types);

    /// Shows a folder. The row of the ID that was in focus last gets the focus and is selected, if it is there.
    void ShowFolder(CResFolder *folder);
    /// Before the resources go: what is being edited is lost.
    void LetGo();

    /// Opens the editor over the ID of the first selected row.
    void OpenIdEditor();
    /// The same over the new row, which is selected alone.
    void EditNewRow();
    /// Lays the button over the path of the selected row. It hides unless exactly one is selected, and where there is
    /// no room for it.
    void PlaceButton();
    /// The same with the box of types, over the type.
    void PlaceTypeBox();
    /// Commits what is being edited. False when it is refused: a message follows, and then the editor opens again.
    bool TakeEdit();

    /// What is selected. Is asked often.
    [[nodiscard]] const FileSelection &Selected() const;

    /// What the settings are to remember of widths and order.
    [[nodiscard]] QList<ProfileEntry> State() const;

    /// Scrolls a path up and down only: a click on it must not move the IDs out of sight.
    void scrollTo(const QModelIndex &cell, ScrollHint hint = EnsureVisible) override;

    /// Told of a press of the button, or a double click that does the same.
    std::function<void()> browseWanted;
    /// Told of another row in focus, or of a change of it.
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
    /// False when the list refuses the ID.
    bool Commit(const QPersistentModelIndex &cell, const QString &text);

    FileList &list;
    FileListModel &rows;
    IViewBoxes &boxes;
    ListSettings stored;
    int sortState;
    CellEditor *editor;
    ChoiceBox *typeBox;
    QPushButton *button;
    NarrowText lastId; // of the row in focus
    bool isShowing = false;
    mutable std::optional<FileSelection> selected; // until the selection or the rows change
};
