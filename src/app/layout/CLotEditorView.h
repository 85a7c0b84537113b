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

/// The property grid: a row per property of a component, each edited by an editor over its value.
///
/// The editor is that of the selected row. A click puts the focus into it; the arrow keys leave the focus in the grid,
/// until something is typed.
class CLotEditorView : public QWidget, public IActionTarget, public IEditOwner, public IStateOwner
{
public:
    CLotEditorView(CResDoc &projectDocument, IViewHost &viewHost);
    ~CLotEditorView() override;

    /// Shows a component of a layout; null for none. An editor that is open is committed first. Nothing happens when it
    /// is shown already.
    void ShowComponent(CLayoutRes *layoutRes, CZulClass *component);
    [[nodiscard]] CZulClass *Current() const { return current; }
    /// The component is about to be destroyed: drops what is being edited and shows nothing.
    void LetGo();
    /// Told after an edit that has changed something (Applied::Changed or TreeChanged), outside of any event of an
    /// editor. Of a value it is told before another component is shown.
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
    /// Scrolls a row into sight, and its value too if `sideways`. Ends no editor.
    void ScrollTo(int row, bool sideways);
    [[nodiscard]] std::optional<QRect> PlaceOver(int row);
    void OpenEditor(int row);
    /// Opens the editor of the selected row, if none is open, and puts the focus into it. False when it has none.
    bool EnterEditor();
    void Told(EditControl control, EditEvent event);
    enum class End
    {
        Apply,
        Drop,
    };
    /// Closes the editor. False when the input is refused; a message follows.
    bool EndEditor(End how);
    void Refused(int place);
    /// Tells of a change that hasn't been told yet.
    void TellChange();

    // Keys; they say whether the key is used up.
    bool KeyInControl(EditControl control, const QKeyEvent &key);
    bool KeyInGrid(const QKeyEvent &key);
    bool TypeInto(const QKeyEvent &key);
    void Step(int step);

    /// Gives the grid the focus, and one of its rows.
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
