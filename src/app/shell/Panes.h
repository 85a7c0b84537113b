// SPDX-License-Identifier: MIT
#pragma once

#include "FolderKinds.h"

class CProjView;
class CResDoc;
class IViewHost;
class ProjectCheck;
class QWidget;
class Selection;

/// The objects that a pane needs. All of them outlive the pane.
struct PaneParts
{
    CResDoc &document;
    Selection &selection;
    CProjView &tree;
    IViewHost &host;
    ProjectCheck &check;
};

/// Makes a pane of a project's window. The window takes ownership. Returns null for a pane that isn't in the table of
/// panes; the window then shows the children of the folder.
[[nodiscard]] QWidget *MakePane(Pane pane, const PaneParts &parts);
