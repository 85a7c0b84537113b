// SPDX-License-Identifier: MIT
#pragma once

#include "EditOwner.h"
#include "PaneGroup.h"
#include "PaneView.h"
#include "RowOwner.h"
#include "StateOwner.h"
#include "TreeListener.h"

class CLayoutRes;
class CLotCplistView;
class CLotEditorView;
class CLotScreenView;
class CResDoc;
class CZulClass;
class IViewHost;
class KeyboardSplitter;
enum class Applied;
struct ClassDescriptor;

/// The three panes of one layout: the list of components, the preview, and below both the property grid. This class
/// keeps them synchronized; the panes do not know each other.
class LayoutPanes : public PaneView,
                    public IEditOwner,
                    public IPaneGroup,
                    public IRowOwner,
                    public IStateOwner,
                    public ITreeListener
{
public:
    LayoutPanes(CResDoc &projectDocument, IViewHost &viewHost);
    ~LayoutPanes() override;

    [[nodiscard]] CLotCplistView &List() { return *list; }
    [[nodiscard]] CLotScreenView &Preview() { return *preview; }
    [[nodiscard]] CLotEditorView &Grid() { return *grid; }
    /// Adds a component of a class that the user has chosen in the Toolbox.
    void AddComponent(const ClassDescriptor &type);

    [[nodiscard]] bool TakeEdit() override;
    [[nodiscard]] QList<ProfileEntry> State() const override;
    void TreeGoes(const CResFolder &folder) override;
    /// Gives the list the focus, at the row of the component. A layout has no row of its own, only that of its folder.
    void GoTo(const CBaseRes &resource, const RowPart &part) override;
    [[nodiscard]] RowPlace FocusedRow() const override;
    /// The list, the preview and the grid, in this order.
    [[nodiscard]] QList<QWidget *> Parts() const override;
    [[nodiscard]] QList<QWidget *> Dividers() const override;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void Rebuild() override;
    void LetGo();
    void SelectionChanged(CZulClass *component);
    void TreeChanged();
    void ValueChanged(Applied applied);

    CResDoc &document;
    IViewHost &host;
    CLayoutRes *layout = nullptr;
    CLotCplistView *list;
    CLotScreenView *preview;
    CLotEditorView *grid;
    KeyboardSplitter *rows;    // upper panes and grid
    KeyboardSplitter *columns; // list and preview
};
