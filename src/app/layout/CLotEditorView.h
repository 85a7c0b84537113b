// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"
#include "EditOwner.h"
#include "ListSettings.h"
#include "PropEditors.h"
#include "PropertyModel.h"
#include "StateOwner.h"

#include <QWidget>

#include <functional>
#include <memory>

class CListGrid;
class CResDoc;
class IViewHost;
class PropertyControls;
class PropertyFilter;
class QKeyEvent;

/// The property grid: one row for each property of a component. An editor over the value edits the property.
///
/// The editor belongs to the selected row. A click gives it the focus; the arrow keys leave the focus in the grid until
/// the user types something.
class CLotEditorView : public QWidget, public IActionTarget, public IEditOwner, public IStateOwner
{
public:
    CLotEditorView(CResDoc &projectDocument, IViewHost &viewHost);
    ~CLotEditorView() override;

    /// Shows a component of a layout; null for none. Commits an open editor first. Nothing happens when the component
    /// is shown already.
    void ShowComponent(CLayoutRes *layoutRes, CZulClass *component);
    [[nodiscard]] CZulClass *Current() const { return current; }
    /// Called before the component is destroyed: drops what is being edited and shows nothing.
    void LetGo();
    /// Called after an edit that has changed something (Applied::Changed or TreeChanged), outside of any event of an
    /// editor. After a change of a value it is called before another component is shown.
    std::function<void(Applied applied)> changed;

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;
    [[nodiscard]] bool TakeEdit() override;
    [[nodiscard]] QList<ProfileEntry> State() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void MakeGrid();
    void ConnectGrid();

    // The editor.
    [[nodiscard]] int SelectedRow() const;
    void RowSelected();
    /// Scrolls vertically until a row is visible; if `sideways`, also horizontally until its value is. Closes no
    /// editor.
    void ScrollTo(int row, bool sideways);
    [[nodiscard]] std::optional<QRect> PlaceOver(int row);
    void OpenEditor(int row);
    /// Opens the editor of the selected row, if no editor is open, and gives it the focus. Returns false if the row has
    /// no editor.
    bool EnterEditor();
    void Told(EditControl control, EditEvent event);
    enum class End
    {
        Apply,
        Drop,
    };
    /// Closes the editor. Returns false if the input is refused; a message is shown then.
    bool EndEditor(End how);
    void Refused(int place);
    /// Calls `changed` for a change that it has not been called for yet.
    void TellChange();

    // Keys. A result of type bool is whether the key was handled.
    bool KeyInControl(EditControl control, const QKeyEvent &key);
    bool KeyInGrid(const QKeyEvent &key);
    bool TypeInto(const QKeyEvent &key);
    void Step(int step);

    /// Gives the grid the focus, and selects a row if none is selected.
    void EnterGrid();
    void SetFilter(const QString &text);
    /// Selects a row without opening its editor.
    void SelectPlace(int place);

    CResDoc &document;
    IViewHost &host;
    CLayoutRes *layout = nullptr;
    CZulClass *current = nullptr;

    PropertyModel model;
    ListSettings stored;
    PropertyFilter *filter;
    CListGrid *grid;
    PropertyControls *controls;

    std::shared_ptr<CPropEditor> editor; // null while none is open
    int editedRow = -1;
    bool isOpening = false;
    bool isRefusing = false; // until the user has closed the message
    Applied untold = Applied::Nothing;
};
