// SPDX-License-Identifier: MIT
#include "RowBuilder.h"

CStringRes *RowBuilder::Add(CResFolder &folder, QString text, CBaseRes *before)
{
    auto made = last ? model.CreateStringRes(last->Id(), folder.index) : model.CreateStringRes(name, folder.index);
    if (!made)
        return nullptr;
    CStringRes *const record = made.get();
    if (!text.isEmpty()) {
        record->text = std::move(text); // as SetText, but without a comparison and a copy
        record->NotifyChanged();
    }
    if (last)
        last->LinkBehind(record);
    if (before)
        folder.InsertResourceBefore(std::move(made), before);
    else
        folder.AddResource(std::move(made));
    return last = record;
}
