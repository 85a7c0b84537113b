// SPDX-License-Identifier: MIT
#include "Resources.h"

#include "Environment.h"

#include <utility>

CBaseRes::~CBaseRes()
{
    LetGo();
}

void CBaseRes::LetGo()
{
    if (!id)
        return;
    CBaseRes **place = &id->holders;
    while (*place != this)
        place = &(*place)->nextHolder;
    *place = nextHolder;
    nextHolder = nullptr;
    std::exchange(id, nullptr)->Release();
}

void CBaseRes::SetId(IDRecord *record)
{
    if (record)
        record->AddRef(); // before the old one is released: it may be the same
    LetGo();
    id = record;
    if (id) {
        nextHolder = id->holders;
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
    if (prev)
        prev->next = next;
    if (next)
        next->prev = prev;
}

bool CStringRes::SetText(const QString &newText)
{
    if (text != newText) {
        text = newText;
        NotifyChanged();
    }
    return true;
}

CStringRes *CStringRes::FindLanguage(qint32 wanted)
{
    for (CStringRes *record = this; record; record = record->next) {
        if (record->language == wanted)
            return record;
    }
    for (CStringRes *record = prev; record; record = record->prev) {
        if (record->language == wanted)
            return record;
    }
    return nullptr;
}

void CStringRes::LinkBehind(CStringRes *record)
{
    record->prev = this;
    record->next = next;
    if (next)
        next->prev = record;
    next = record;
}

void CStringRes::DestroyChain()
{
    CStringRes *last = this;
    while (last->next)
        last = last->next;
    while (last != this)
        delete std::exchange(last, last->prev);
    delete this;
}
