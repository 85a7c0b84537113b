#include "CLotEditorView.h"

CLotEditorView::CLotEditorView(CResDoc &projectDocument, IViewHost &viewHost)
    : document(projectDocument), host(viewHost)
{
    (void)document;
    (void)host;
}

CLotEditorView::~CLotEditorView() = default;

void CLotEditorView::ShowComponent(CLayoutRes *layoutRes, CZulClass *component)
{
    layout = layoutRes;
    current = component;
}

void CLotEditorView::LetGo()
{
    layout = nullptr;
    current = nullptr;
}

std::optional<ActionState> CLotEditorView::StateOf(ActionId) const
{
    return std::nullopt;
}

void CLotEditorView::Run(ActionId) {}

bool CLotEditorView::TakeEdit()
{
    return true;
}

QList<ProfileEntry> CLotEditorView::State() const
{
    return {};
}
