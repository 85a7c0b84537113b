#include "CLotScreenView.h"

CLotScreenView::CLotScreenView(CResDoc &projectDocument, IViewHost &viewHost)
    : document(projectDocument), host(viewHost)
{
    (void)document;
    (void)host;
}

void CLotScreenView::ShowLayout(const CLayoutRes *layoutRes)
{
    layout = layoutRes;
    RebuildEntries();
}

void CLotScreenView::RebuildEntries()
{
    viewport()->update();
}

void CLotScreenView::RefreshEntries(const CZulClass *)
{
    viewport()->update();
}

void CLotScreenView::LetGo()
{
    selected = nullptr;
    layout = nullptr;
}

void CLotScreenView::Select(CZulClass *component)
{
    selected = component;
}

std::optional<ActionState> CLotScreenView::StateOf(ActionId) const
{
    return std::nullopt;
}

void CLotScreenView::Run(ActionId) {}
