#include "LayoutPanes.h"

#include "CLayoutRes.h"
#include "CLotCplistView.h"
#include "CLotEditorView.h"
#include "CLotScreenView.h"
#include "CResDoc.h"
#include "KeyboardSplitter.h"
#include "ViewHost.h"

#include <QVBoxLayout>

LayoutPanes::LayoutPanes(CResDoc &projectDocument, IViewHost &viewHost)
    : ITreeListener(projectDocument), document(projectDocument), host(viewHost),
      list(new CLotCplistView(projectDocument, viewHost)), preview(new CLotScreenView(projectDocument, viewHost)),
      grid(new CLotEditorView(projectDocument, viewHost)), rows(new KeyboardSplitter(Qt::Vertical)),
      columns(new KeyboardSplitter(Qt::Horizontal))
{
    columns->addWidget(list);
    columns->addWidget(preview);
    rows->addWidget(columns);
    rows->addWidget(grid);
    auto *const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(rows);
    setFocusProxy(list);
    list->selectionChanged = [this](CZulClass *component) { SelectionChanged(component); };
    list->componentsGo = [this] {
        grid->LetGo();
        preview->LetGo();
    };
    list->treeChanged = [this] { TreeChanged(); };
    preview->picked = [this](CZulClass &component) { (void)list->SelectComponent(&component); };
    grid->changed = [this](Applied applied) { ValueChanged(applied); };
    document.AddView(this);
}

LayoutPanes::~LayoutPanes()
{
    document.RemoveView(this);
}

void LayoutPanes::Rebuild()
{
    const CResFolder *const folder = document.selection ? document.selection->SelectedFolder() : nullptr;
    const bool isLayout = folder && folder->kind == KIND_LAYOUT;
    layout = isLayout ? dynamic_cast<CLayoutRes *>(folder->resources.First()) : nullptr;
    preview->ShowLayout(layout);
    list->ShowLayout(layout);
}

void LayoutPanes::LetGo()
{
    grid->LetGo();
    preview->LetGo();
    list->LetGo();
    layout = nullptr;
    isStale = true;
}

void LayoutPanes::SelectionChanged(CZulClass *component)
{
    grid->ShowComponent(layout, component);
    preview->Select(component);
}

void LayoutPanes::TreeChanged()
{
    preview->ShowLayout(layout);
    list->RebuildList();
}

void LayoutPanes::ValueChanged(Applied applied)
{
    if (!layout)
        return;
    layout->NotifyChanged();
    if (applied == Applied::TreeChanged)
        TreeChanged();
    else
        preview->RefreshEntries(grid->Current());
}

void LayoutPanes::AddComponent(const ClassDescriptor &type)
{
    if (TakeEdit())
        list->AddComponent(type);
}

bool LayoutPanes::TakeEdit()
{
    return grid->TakeEdit();
}

QList<ProfileEntry> LayoutPanes::State() const
{
    return grid->State();
}

void LayoutPanes::TreeGoes(const CResFolder &)
{
    LetGo();
}
