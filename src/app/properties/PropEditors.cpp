// SPDX-License-Identifier: MIT
#include "PropEditors.h"

#include "ChoiceEditors.h"
#include "Environment.h"
#include "FieldEditors.h"
#include "FreeEditors.h"
#include "ResModel.h"

bool CPropEditor::WantsApply(EditControl control, EditEvent event)
{
    return event == EditEvent::FocusLost && (control == First() || control == EditControl::Grid) &&
           !view.HasFocus(First());
}

Applied CPropEditor::Store(const QString &text)
{
    auto &value = static_cast<CZulBase &>(*target);
    const NarrowText narrow = env.WideToNarrow(text);
    if (!env.codePage.FirstMissing(text).isEmpty() || !value.IsValid(narrow))
        return Applied::Refused;
    value.SetText(narrow);
    return value.attr ? Applied::Changed : Applied::Refused; // without an attribute it is not saved
}

namespace
{

std::unique_ptr<CPropEditor> MakeValueEditor(CZulType *target, IEditControls &controls, CResModel &model)
{
    const Environment &env = model.env;
    switch (target->GetTypeId()) {
    case TYPE_ENUM:
        return std::make_unique<CEnumEditor>(controls, env, target);
    case TYPE_BOOL:
        return std::make_unique<CBoolEditor>(controls, env, target);
    case TYPE_FLOAT:
    case TYPE_S32:
    case TYPE_U32:
    case TYPE_MSEC:
        return std::make_unique<CFreeEditor>(controls, env, target);
    case TYPE_COLOR:
        return std::make_unique<CColorEditor>(controls, env, target);
    case TYPE_POINT:
        return std::make_unique<CPointEditor>(controls, env, target);
    case TYPE_SIZE:
        return std::make_unique<CSizeEditor>(controls, env, target);
    case TYPE_RECT:
        return std::make_unique<CRectEditor>(controls, env, target);
    case TYPE_FPOINT:
        return std::make_unique<CFPointEditor>(controls, env, target);
    case TYPE_RES_ID:
    case TYPE_IMAGE_SRC:
    case TYPE_WSTRING:
        return std::make_unique<CResIDEditor>(controls, model, target);
    default:
        return nullptr;
    }
}

} // namespace

std::unique_ptr<CPropEditor> MakeEditor(const PropertyRow &row, IEditControls &controls, CResModel &model)
{
    if (!row.target)
        return nullptr;
    switch (row.kind) {
    case PropertyKind::Name:
        return std::make_unique<CNameEditor>(controls, model.env, row.target);
    case PropertyKind::Parent:
        return std::make_unique<CParentEditor>(controls, model.env, row.target);
    case PropertyKind::Value:
        return MakeValueEditor(row.target, controls, model);
    case PropertyKind::Heading:
        break;
    }
    return nullptr;
}
