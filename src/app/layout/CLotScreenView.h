#pragma once

#include "ActionTarget.h"

#include <QAbstractScrollArea>

#include <functional>

class CLayoutRes;
class CResDoc;
class CZulClass;
class IViewHost;

/// The preview of a layout: its screen with the components, at a zoom. A click picks a component.
class CLotScreenView : public QAbstractScrollArea, public IActionTarget
{
public:
    CLotScreenView(CResDoc &projectDocument, IViewHost &viewHost);

    /// Shows a layout as it is now; null for none. The zoom stays. What is selected stays: the list selects.
    void ShowLayout(const CLayoutRes *layoutRes);
    /// Takes the tree of components anew.
    void RebuildEntries();
    /// Takes the values of one component anew, or of all when it is null.
    void RefreshEntries(const CZulClass *changed);
    /// Components are about to be destroyed: shows none until the entries are built again.
    void LetGo();

    /// Shows which component is selected; null for none.
    void Select(CZulClass *component);
    [[nodiscard]] CZulClass *Selected() const { return selected; }
    /// Told of a click on a component that isn't the selected one.
    std::function<void(CZulClass &component)> picked;

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;

private:
    CResDoc &document;
    IViewHost &host;
    const CLayoutRes *layout = nullptr;
    CZulClass *selected = nullptr;
};
