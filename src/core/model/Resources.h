#pragma once

#include "IDPool.h"
#include "ResNode.h"

class CResFolder;
class Environment;

/// A resource that bears an ID. Stands in at most one folder, which owns it.
class CBaseRes : public CResNode
{
public:
    ~CBaseRes() override;

    [[nodiscard]] IDRecord *Id() const { return id; }
    /// Replaces the ID: lets go of the old record, holds the new one (`refs` goes up), tells `NodeChanged`.
    void SetId(IDRecord *record);
    /// True when the ID has that name already or now; false, and no change, when the name is taken.
    bool Rename(IDPool &pool, const NarrowText &newName);

    [[nodiscard]] CResFolder *Folder() const { return folder; }
    /// The next resource that bears the same ID, newest first.
    [[nodiscard]] CBaseRes *NextHolder() const { return nextHolder; }
    /// The next resource of the folder, in its order, or null.
    [[nodiscard]] CBaseRes *NextInFolder() const { return nextInFolder; }
    /// The resource before this one, or null.
    [[nodiscard]] CBaseRes *PrevInFolder() const { return prevInFolder; }

protected:
    CBaseRes() = default;

private:
    friend class CResFolder;
    friend class ResourceList;
    void LetGo();

    IDRecord *id = nullptr;
    CBaseRes *nextHolder = nullptr; // the next resource that bears the same ID
    CResFolder *folder = nullptr;
    CBaseRes *prevInFolder = nullptr;
    CBaseRes *nextInFolder = nullptr;
};

/// An audio, video, binary or image file.
class CFileRes : public CBaseRes
{
public:
    /// As the project stores it: relative to the project's folder, or absolute for a file outside it.
    NarrowText path;
    NarrowText defaultPath; ///< component images only: the stock image
    bool inUse = false;     ///< component images only: the project uses it

    bool SetPath(const NarrowText &newPath);
    /// Puts the stock image in the place of the project's own; `inUse` stays.
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
    /// The record of that language in this chain, or null.
    [[nodiscard]] CStringRes *FindLanguage(qint32 wanted);
    /// Puts `record` into the chain directly behind this one.
    void LinkBehind(CStringRes *record);
    /// Destroys this record and those after it, the last first. For a chain that stands in no folder.
    void DestroyChain();
};
