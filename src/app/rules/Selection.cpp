// SPDX-License-Identifier: MIT
#include "Selection.h"

#include "FolderKinds.h"
#include "ProjectTree.h"
#include "ResModel.h"

#include <algorithm>
#include <utility>

Selection::Selection(CResModel &projectModel) : ITreeListener(projectModel), model(projectModel) {}

void Selection::SelectFolder(CResFolder *folder)
{
    place.clear();
    if (std::exchange(selected, folder) != folder)
        changed.Tell();
}

bool Selection::GoOut()
{
    const std::vector<CResFolder *> path = PathTo(model.root, selected);
    if (path.size() < 2)
        return false;
    SelectFolder(path[path.size() - 2]);
    return true;
}

Selection::Step Selection::StepTo(const CResFolder &folder)
{
    return {folder.kind, folder.index, CanEditLabel(&folder) ? folder.title : QString()};
}

void Selection::TreeGoes(const CResFolder &folder)
{
    if (!selected || !GoesWith(*selected, folder))
        return;
    place.clear();
    for (const CResFolder *each : PathTo(model.root, selected))
        place.push_back(StepTo(*each));
    if (!place.empty())
        place.erase(place.begin()); // the root stays
    selected = nullptr;
}

CResFolder *Selection::FolderInPlace() const
{
    CResFolder *folder = &model.root;
    for (const Step &step : place) {
        const auto found = std::find_if(folder->subfolders.begin(), folder->subfolders.end(),
                                        [&](const auto &each) { return IsShown(*each) && StepTo(*each) == step; });
        if (found == folder->subfolders.end())
            return &model.root;
        folder = found->get();
    }
    return folder;
}

void Selection::Refresh()
{
    if (!selected)
        return SelectFolder(FolderInPlace());
    if (PathTo(model.root, selected).empty())
        SelectFolder(&model.root);
}
