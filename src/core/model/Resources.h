// SPDX-License-Identifier: MIT
#pragma once

#include "IDPool.h"
#include "ResNode.h"
#include "StringMemory.h"

class CResFolder;
class Environment;

/// A resource with an ID. It is in at most one folder, which owns it. Its observer is that of its ID's pool.
class CBaseRes : public CResNode
{
public:
    ~CBaseRes() override;

    [[nodiscard]] IEspia *Observer() const override { return id ? id->Observer() : nullptr; }

    [[nodiscard]] IDRecord *Id() const { return id; }
    /// Replaces the ID: releases the old record, adds a reference to the new one, and notifies `NodeChanged`.
    void SetId(IDRecord *record);
    /// Renames the ID. Returns true when the ID has that name, also if it had it before. Returns false, and changes
    /// nothing, when the name is taken.
    bool Rename(IDPool &pool, const NarrowText &newName);

    [[nodiscard]] CResFolder *Folder() const { return folder; }
    /// The resource that got the same ID next after this one. The newest leads to the oldest: this is a circle.
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
    CBaseRes *nextHolder = this;
    CResFolder *folder = nullptr;
    CBaseRes *prevInFolder = nullptr;
    CBaseRes *nextInFolder = nullptr;
};

/// The resources that have an ID, the oldest first: `for (CBaseRes *res : Holders(record))`.
class Holders
{
public:
    explicit Holders(const IDRecord &record) : newest(record.holders) {}

    class iterator
    {
    public:
        iterator(CBaseRes *res, CBaseRes *last) : current(res), newest(last) {}
        CBaseRes *operator*() const { return current; }
        iterator &operator++()
        {
            current = current == newest ? nullptr : current->NextHolder();
            return *this;
        }
        bool operator!=(const iterator &other) const { return current != other.current; }

    private:
        CBaseRes *current;
        CBaseRes *newest;
    };
    [[nodiscard]] iterator begin() const { return {newest ? newest->NextHolder() : nullptr, newest}; }
    [[nodiscard]] iterator end() const { return {nullptr, newest}; }

private:
    CBaseRes *newest;
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

/// A text of one language, or a row's description. The records with one ID are a row of the string table. There are
/// very many of them, so they are small, and their memory is that of the model: `CResModel::CreateStringRes` makes
/// them.
class CStringRes : public CBaseRes
{
public:
    ~CStringRes() override;

    static void *operator new(std::size_t size, StringMemory &memory) { return memory.NewRecord(size); }
    static void operator delete(void *record, StringMemory &) { StringMemory::FreeRecord(record, sizeof(CStringRes)); }
    static void operator delete(void *record) { StringMemory::FreeRecord(record, sizeof(CStringRes)); }

    /// Valid until the text is changed or the record is destroyed.
    [[nodiscard]] QStringView Text() const { return StringMemory::TextAt(text); }
    [[nodiscard]] bool HasText() const { return text; }
    /// Sets the text, and notifies `NodeChanged` if it changes.
    void SetText(QStringView newText);
    /// Sets the text without a comparison and without a notification.
    void PutText(QStringView newText);

    /// The language of its folder; -1 for a description, and for a record that is in no folder.
    [[nodiscard]] inline qint32 Language() const; // in ResFolder.h
    /// The next record of the row. The last leads to the first: this is a circle.
    [[nodiscard]] const CStringRes *NextInRow() const { return static_cast<const CStringRes *>(NextHolder()); }
    /// Returns the row's record of that language, or null. Searches from this record on.
    [[nodiscard]] CStringRes *FindLanguage(qint32 wanted);
    [[nodiscard]] const CStringRes *FindLanguage(qint32 wanted) const;

private:
    const char16_t *text = nullptr; // null if it is empty
};

/// Calls `look` for each record of a row, from `first` on, until it returns true. Returns whether it did.
template <typename Look> bool AnyRecord(const CStringRes &first, const Look &look)
{
    const CStringRes *record = &first;
    do {
        if (look(*record))
            return true;
        record = record->NextInRow();
    } while (record != &first);
    return false;
}
