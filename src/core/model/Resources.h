// SPDX-License-Identifier: MIT
#pragma once

#include "IDPool.h"
#include "ResNode.h"

class CResFolder;
class Environment;

/// A resource with an ID. It is in at most one folder, which owns it.
class CBaseRes : public CResNode
{
public:
    ~CBaseRes() override;

    [[nodiscard]] IDRecord *Id() const { return id; }
    /// Replaces the ID: releases the old record, adds a reference to the new one, and notifies `NodeChanged`.
    void SetId(IDRecord *record);
    /// Renames the ID. Returns true when the ID has that name, also if it had it before. Returns false, and changes
    /// nothing, when the name is taken.
    bool Rename(IDPool &pool, const NarrowText &newName);

    [[nodiscard]] CResFolder *Folder() const { return folder; }
    /// The next older resource with the same ID, or null.
    [[nodiscard]] CBaseRes *NextHolder() const { return nextHolder; }
    /// The next resource of the folder, in its order, or null.
    [[nodiscard]] CBaseRes *NextInFolder() const { return nextInFolder; }
    /// The previous resource of the folder, or null.
    [[nodiscard]] CBaseRes *PrevInFolder() const { return prevInFolder; }

protected:
    CBaseRes() = default;

private:
    friend class CResFolder;
    friend class ResourceList;
    void LetGo();

    IDRecord *id = nullptr;
    CBaseRes *nextHolder = nullptr; // the next resource with the same ID
    CResFolder *folder = nullptr;
    CBaseRes *prevInFolder = nullptr;
    CBaseRes *nextInFolder = nullptr;
};

/// An audio, video, binary or image file.
class CFileRes : public CBaseRes
{
public:
    /// The path as the project stores it: relative to the project's folder, or absolute for a file outside it.
    NarrowText path;
    NarrowText defaultPath; ///< component images only: the stock image
    bool inUse = false;     ///< component images only: the project uses it

    bool SetPath(const NarrowText &newPath);
    /// Replaces the project's own image by the stock image; `inUse` doesn't change.
    void Reset(const Environment &env);
};

/// A text of one language, or, with language -1, a row's description. The records of one string ID form a chain.
class CStringRes : public CBaseRes
{
public:
    ~CStringRes() override; ///< leaves its chain

    QString text;
    CStringRes *prev = nullptr;
    CStringRes *next = nullptr;
    qint32 language = -1;

    bool SetText(const QString &newText);
    /// Returns the record of that language in this chain, or null.
    [[nodiscard]] CStringRes *FindLanguage(qint32 wanted);
    /// Inserts `record` into the chain directly after this one.
    void LinkBehind(CStringRes *record);
    /// Destroys this record and those after it, the last first. For a chain that is in no folder.
    void DestroyChain();
};
