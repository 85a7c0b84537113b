// SPDX-License-Identifier: MIT
#include "RowBuilder.h"

CStringRes *RowBuilder::Add(CResFolder &folder, QStringView text, CBaseRes *before)
{
    auto made = last ? model.CreateStringRes(last->Id()) : model.CreateStringRes(name);
    if (!made)
        return nullptr;
    CStringRes *const record = made.get();
    if (!text.isEmpty()) {
        record->PutText(text);
        record->NotifyChanged();
    }
    if (before)
        folder.InsertResourceBefore(std::move(made), before);
    else
        folder.AddResource(std::move(made));
    return last = record;
}
