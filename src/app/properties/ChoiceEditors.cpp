// SPDX-License-Identifier: MIT
#include "ChoiceEditors.h"

#include "CLayoutRes.h"
#include "Environment.h"
#include "PropertyChoices.h"
#include "ResModel.h"
#include "SelectString.h"
#include "ZulValues.h"

#include <algorithm>

bool CChoiceEditor::Open(CLayoutRes &layoutRes, CZulClass &component, const QRect &rect)
{
    choices.clear();
    if (!FillChoices(choices, layoutRes, component))
        return false;
    view.SetChoices(choices);
    chosenAtFirst = CurrentChoice(choices);
    if (chosenAtFirst >= 0)
        view.Choose(chosenAtFirst);
    Reposition(rect);
    return true;
}

int CChoiceEditor::CurrentChoice(const QStringList &list) const
{
    return SelectString(list, env.NarrowToWide(target->GetText()));
}

void CChoiceEditor::Reposition(const QRect &rect)
{
    view.Show(EditControl::Choices, rect);
}

Applied CChoiceEditor::Apply()
{
    const int choice = target ? view.Choice() : -1;
    if (choice < 0 || choice >= choices.size() || (choice == chosenAtFirst && !isChosen))
        return Applied::Nothing;
    return Write(choice);
}

void CChoiceEditor::Close()
{
    view.Hide(EditControl::Choices);
    target = nullptr;
}

bool CChoiceEditor::WantsApply(EditControl control, EditEvent event)
{
    isChosen = isChosen || (control == EditControl::Choices && event == EditEvent::TextChanged);
    return CPropEditor::WantsApply(control, event);
}

bool CBoolEditor::FillChoices(QStringList &list, CLayoutRes &, CZulClass &)
{
    list = {QStringLiteral("true"), QStringLiteral("false")};
    return true;
}

bool CEnumEditor::FillChoices(QStringList &list, CLayoutRes &, CZulClass &)
{
    const ClassDescriptor *enumeration = static_cast<const CZulEnum &>(*target).descriptor;
    if (!enumeration)
        return false;
    for (const ClassDescriptor::Item &enumerator : enumeration->items)
        list.append(env.NarrowToWide(enumerator.name));
    return !list.isEmpty();
}

CResIDEditor::CResIDEditor(IEditControls &controls, CResModel &resModel, CZulType *rowTarget)
    : CChoiceEditor(controls, resModel.env, rowTarget), model(resModel)
{
}

bool CResIDEditor::FillChoices(QStringList &list, CLayoutRes &layoutRes, CZulClass &)
{
    names = IdsToChoose(target->GetTypeId(), layoutRes, model);
    for (const NarrowText &name : names)
        list.append(u'@' + env.NarrowToWide(name));
    return !list.isEmpty();
}

Applied CResIDEditor::Write(int choice)
{
    auto &reference = static_cast<CZulResId &>(*target);
    const IDRecord *id = model.ids.FindName(names[size_t(choice)]);
    if (!id)
        return Applied::Refused;
    reference.SetReference(*id);
    return reference.attr ? Applied::Changed : Applied::Refused; // without an attribute it is not saved
}

bool CParentEditor::FillChoices(QStringList &list, CLayoutRes &layoutRes, CZulClass &component)
{
    layout = &layoutRes;
    parents = ParentsToChoose(layoutRes, component);
    if (parents.empty())
        return false;
    for (const CZulClass *parent : parents) {
        const NarrowText &name = parent->propName;
        list.append(env.NarrowToWide(name.isEmpty() ? parent->typeName : parent->typeName + ": " + name));
    }
    parents.push_back(nullptr);
    list.append(QStringLiteral("None"));
    return true;
}

int CParentEditor::CurrentChoice(const QStringList &) const
{
    const auto found = std::find(parents.rbegin(), parents.rend(), Component().parent);
    return int(parents.rend() - found) - 1;
}

Applied CParentEditor::Write(int choice)
{
    CZulClass *const parent = parents[size_t(choice)];
    if (parent == Component().parent)
        return Applied::Nothing;
    return layout->MoveComponent(parent, &Component()) ? Applied::TreeChanged : Applied::Refused;
}
