#include "CLotCplistView.h"

CLotCplistView::CLotCplistView(CResDoc &projectDocument, IViewHost &viewHost)
    : document(projectDocument), host(viewHost)
{
    (void)document;
    (void)host;
}

void CLotCplistView::ShowLayout(CLayoutRes *layoutRes)
{
    layout = layoutRes;
}

void CLotCplistView::RebuildList() {}

bool CLotCplistView::SelectComponent(const CZulClass *)
{
    return false;
}

void CLotCplistView::LetGo()
{
    selected = nullptr;
    layout = nullptr;
}

void CLotCplistView::AddComponent(const ClassDescriptor &) {}

std::optional<ActionState> CLotCplistView::StateOf(ActionId) const
{
    return std::nullopt;
}

void CLotCplistView::Run(ActionId) {}
