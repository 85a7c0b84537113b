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

/// The three panes over one layout: the list of components, the preview, and below both the property grid. It has
/// them follow each other; none of the three knows another.
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
    /// The Toolbox offers a class: makes a component of it.
    void AddComponent(const ClassDescriptor &type);

    [[nodiscard]] bool TakeEdit() override;
    [[nodiscard]] QList<ProfileEntry> State() const override;
    void TreeGoes(const CResFolder &folder) override;
    /// Goes to the list: a layout has no row but its folder's.
    void GoTo(const CBaseRes &resource) override;
    /// From left to right, and then what is below.
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
