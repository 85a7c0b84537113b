#pragma once

#include "ActionTarget.h"
#include "EditOwner.h"
#include "PropEditors.h"
#include "StateOwner.h"

#include <QWidget>

#include <functional>

class CResDoc;
class IViewHost;

/// The property grid: a row per property of a component, each edited by an editor over its value.
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
    /// editor.
    std::function<void(Applied applied)> changed;

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;
    [[nodiscard]] bool TakeEdit() override;
    [[nodiscard]] QList<ProfileEntry> State() const override;

private:
    CResDoc &document;
    IViewHost &host;
    CLayoutRes *layout = nullptr;
    CZulClass *current = nullptr;
};
