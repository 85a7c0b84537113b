#pragma once

#include "EditOwner.h"
#include "PaneView.h"
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
class LayoutPanes : public PaneView, public IEditOwner, public IStateOwner, public ITreeListener
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
