// SPDX-License-Identifier: MIT
#pragma once

#include "PropEditors.h"
#include "Text.h"

/// Edits a value with a list of choices, which are in a meaningful order. The entry that is chosen at first may only
/// resemble the value (SelectString), so it is written only after the user has chosen it.
class CChoiceEditor : public CPropEditor
{
public:
    CChoiceEditor(IEditControls &controls, const Environment &environment, CZulType *rowTarget)
        : CPropEditor(controls, environment, rowTarget)
    {
    }

    bool Open(CLayoutRes &layoutRes, CZulClass &component, const QRect &rect) override;
    void Reposition(const QRect &rect) override;
    Applied Apply() override;
    void Close() override;
    bool WantsApply(EditControl control, EditEvent event) override;
    [[nodiscard]] EditControl First() const override { return EditControl::Choices; }

protected:
    /// Fills the list of choices. Returns false if there is nothing to choose from.
    virtual bool FillChoices(QStringList &list, CLayoutRes &layoutRes, CZulClass &component) = 0;
    /// The index of the choice that represents the value; -1 for none.
    [[nodiscard]] virtual int CurrentChoice(const QStringList &list) const;
    virtual Applied Write(int choice) { return Store(choices[choice]); }

private:
    QStringList choices;
    int chosenAtFirst = -1;
    bool isChosen = false; // by the user
};

class CBoolEditor : public CChoiceEditor
{
public:
    using CChoiceEditor::CChoiceEditor;

private:
    bool FillChoices(QStringList &list, CLayoutRes &layoutRes, CZulClass &component) override;
};

class CEnumEditor : public CChoiceEditor
{
public:
    using CChoiceEditor::CChoiceEditor;

private:
    bool FillChoices(QStringList &list, CLayoutRes &layoutRes, CZulClass &component) override;
};

/// Edits a reference to a resource.
class CResIDEditor : public CChoiceEditor
{
public:
    CResIDEditor(IEditControls &controls, CResModel &resModel, CZulType *rowTarget);

private:
    bool FillChoices(QStringList &list, CLayoutRes &layoutRes, CZulClass &component) override;
    Applied Write(int choice) override;

    CResModel &model;
    std::vector<NarrowText> names; // of the choices; an ID may be deleted while the list is open
};

/// Moves a component into another component, or to the top level.
class CParentEditor : public CChoiceEditor
{
public:
    using CChoiceEditor::CChoiceEditor;

private:
    bool FillChoices(QStringList &list, CLayoutRes &layoutRes, CZulClass &component) override;
    [[nodiscard]] int CurrentChoice(const QStringList &list) const override;
    Applied Write(int choice) override;
    [[nodiscard]] CZulClass &Component() const { return static_cast<CZulClass &>(*target); }

    CLayoutRes *layout = nullptr;
    std::vector<CZulClass *> parents; // of the choices; null for none
};
