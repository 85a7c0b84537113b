#pragma once

#include "FolderKinds.h"

class CProjView;
class CResDoc;
class IViewHost;
class QWidget;
class Selection;

/// What a pane is made of. All of it outlives the pane.
struct PaneParts
{
    CResDoc &document;
    Selection &selection;
    CProjView &tree;
    IViewHost &host;
};

/// Makes a pane of a project's window, which takes ownership. Null for one that isn't in the table of the panes: the
/// folder then shows what is below it.
[[nodiscard]] QWidget *MakePane(Pane pane, const PaneParts &parts);
