// SPDX-License-Identifier: MIT
#pragma once

#include "ActionTarget.h"
#include "CellClipboard.h"
#include "EditOwner.h"
#include "PaneView.h"
#include "RowOwner.h"
#include "StateOwner.h"
#include "StringGridModel.h"
#include "StringGridRules.h"
#include "StringTransfer.h"

class CResDoc;
class IViewHost;
class ProjectCheck;
class StringFinder;
class StringGrid;

/// The pane of a project's strings: a grid with a row for each string and a column for each language, with undo.
class CStringView : public PaneView, public IActionTarget, public IEditOwner, public IRowOwner, public IStateOwner
{
public:
    CStringView(CResDoc &projectDocument, IViewHost &viewHost, ProjectCheck &projectCheck);
    ~CStringView() override;

    [[nodiscard]] StringTable &Table() { return table; }
    [[nodiscard]] StringGrid &Grid() { return *grid; }

    [[nodiscard]] std::optional<ActionState> StateOf(ActionId id) const override;
    void Run(ActionId id) override;
    [[nodiscard]] bool TakeEdit() override;
    void GoTo(const CBaseRes &resource, const RowPart &part) override;
    [[nodiscard]] RowPlace FocusedRow() const override;
    [[nodiscard]] QList<ProfileEntry> State() const override;

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void Rebuild() override;
    void ForgetEdits();
    void UndoOrRedo(void (CommandHistory::*step)());
    void New();
    void ChooseLanguages();
    void Import();
    void PushSelected();
    void DeleteSelected();
    void DeleteAll();
    void PasteRows();
    void DeleteRows(const std::vector<int> &toDelete);
    void OpenMenu(const QContextMenuEvent &event);
    [[nodiscard]] int PushedStrings() const;
    [[nodiscard]] StringGridState GridState() const;

    CResDoc &document;
    IViewHost &host;
    ProjectCheck &check;
    StringGridModel model;
    StringTable table;
    StringTransfer transfer;
    StringGrid *grid;
    CellClipboard clipboard;
    StringFinder *finder;
};
