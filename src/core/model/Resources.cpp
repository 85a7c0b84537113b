// SPDX-License-Identifier: MIT
#include "Resources.h"

#include "Environment.h"
#include "ResFolder.h"

#include <utility>

CBaseRes::~CBaseRes()
{
    IEspia *const observer = CBaseRes::Observer();
    LetGo();
    if (observer)
        observer->NodeRemoved(this);
}

void CBaseRes::LetGo()
{
    if (!id)
        return;
    // From the newest on, because its next one is the oldest, which is usually the one that goes first.
    CBaseRes *before = id->holders;
    while (before->nextHolder != this)
        before = before->nextHolder;
    before->nextHolder = nextHolder;
    if (id->holders == this)
        id->holders = before == this ? nullptr : before;
    nextHolder = this;
    std::exchange(id, nullptr)->Release();
}

void CBaseRes::SetId(IDRecord *record)
{
    if (record)
        record->AddRef(); // before the old one is released: it may be the same
    LetGo();
    id = record;
    if (id) {
        if (id->holders)
            nextHolder = std::exchange(id->holders->nextHolder, this);
        id->holders = this;
    }
    NotifyChanged();
}

bool CBaseRes::Rename(IDPool &pool, const NarrowText &newName)
{
    if (id->name == newName)
        return true;
    if (!id->Rename(pool, newName))
        return false;
    NotifyChanged();
    return true;
}

bool CFileRes::SetPath(const NarrowText &newPath)
{
    if (path != newPath) {
        path = newPath;
        NotifyChanged();
    }
    return true;
}

void CFileRes::Reset(const Environment &env)
{
    if (!EqualsNoCase(env.NarrowToWide(path), env.NarrowToWide(defaultPath))) {
        path = defaultPath;
        NotifyChanged();
    }
    if (inUse)
        NotifyChanged();
}

CStringRes::~CStringRes()
{
    StringMemory::FreeText(text);
}

void CStringRes::SetText(QStringView newText)
{
    if (Text() == newText)
        return;
    PutText(newText);
    NotifyChanged();
}

void CStringRes::PutText(QStringView newText)
{
    const char16_t *const old = text;
    text = StringMemory::Of(this).NewText(newText); // first: the new text may be a part of the old one
    StringMemory::FreeText(old);
}

const CStringRes *CStringRes::FindLanguage(qint32 wanted) const
{
    const CStringRes *record = this;
    do {
        if (record->Language() == wanted)
            return record;
        record = record->NextInRow();
    } while (record != this);
    return nullptr;
}

CStringRes *CStringRes::FindLanguage(qint32 wanted)
{
    return const_cast<CStringRes *>(std::as_const(*this).FindLanguage(wanted));
}
