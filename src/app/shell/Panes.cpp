// SPDX-License-Identifier: MIT
#include "Panes.h"

#include "CDefaultView.h"
#include "CFileView.h"
#include "CStringView.h"
#include "LayoutPanes.h"

namespace
{

struct PaneEntry
{
    Pane pane;
    QWidget *(*make)(const PaneParts &parts);
};

constexpr PaneEntry PANES[] = {
    {Pane::Default,
     [](const PaneParts &parts) -> QWidget * { return new CDefaultView(parts.document, parts.selection, parts.tree); }},
    {Pane::Files, [](const PaneParts &parts) -> QWidget * { return new CFileView(parts.document, parts.host); }},
    {Pane::Strings,
     [](const PaneParts &parts) -> QWidget * { return new CStringView(parts.document, parts.host, parts.check); }},
    {Pane::Layout, [](const PaneParts &parts) -> QWidget * { return new LayoutPanes(parts.document, parts.host); }},
};

} // namespace

QWidget *MakePane(Pane pane, const PaneParts &parts)
{
    for (const PaneEntry &entry : PANES) {
        if (entry.pane == pane)
            return entry.make(parts);
    }
    return nullptr;
}
