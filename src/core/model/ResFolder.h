// SPDX-License-Identifier: MIT
#pragma once

#include "Resources.h"

#include <memory>
#include <vector>

/// What a folder holds: a base value and flags.
enum FolderKind : quint32
{
    KIND_AUDIO = 0x0001,
    KIND_VIDEO = 0x0002,
    KIND_BINARY = 0x0004,
    KIND_FILES = 0x0007,
    KIND_IMAGES = 0x0008,
    KIND_LAYOUTS = 0x0010,
    KIND_STRINGS = 0x0020,
    KIND_CPIMAGES = 0x0040,
    KIND_ROOT = 0xFFFF,
    KIND_FLAG_RESO = 0x10000,
    KIND_FLAG_OFF = 0x20000,
    KIND_FLAG_ITEM = 0x40000,
    KIND_RESO_IMAGES = 0x10008,
    KIND_RESO_LAYOUTS = 0x10010,
    KIND_LANGUAGE = 0x20020,
    KIND_COMPONENT = 0x40048,
    KIND_LAYOUT = 0x50010,
};

/// The resources of one folder in their order; iterate it with `for (CBaseRes *res : folder.resources)`.
class ResourceList
{
public:
    class iterator
    {
    public:
        explicit iterator(CBaseRes *res) : current(res) {}
        CBaseRes *operator*() const { return current; }
        iterator &operator++()
        {
            current = current->NextInFolder();
            return *this;
        }
        bool operator!=(const iterator &other) const { return current != other.current; }

    private:
        CBaseRes *current;
    };
    [[nodiscard]] iterator begin() const { return iterator(first); }
    [[nodiscard]] iterator end() const { return iterator(nullptr); }
    [[nodiscard]] CBaseRes *First() const { return first; }
    [[nodiscard]] CBaseRes *Last() const { return last; }
    [[nodiscard]] size_t Count() const { return count; }
    [[nodiscard]] bool IsEmpty() const { return !first; }

private:
    friend class CResFolder;
    void InsertBefore(CBaseRes *res, CBaseRes *before);
    void Take(CBaseRes *res);
    CBaseRes *first = nullptr;
    CBaseRes *last = nullptr;
    size_t count = 0;
};

/// A folder of the resource tree. Owns its resources and its subfolders and keeps them in the order of insertion.
class CResFolder : public CResNode
{
public:
    CResFolder() = default;
    CResFolder(quint32 folderKind, qint32 folderIndex) : kind(folderKind), index(folderIndex) {}
    ~CResFolder() override;

    std::vector<std::unique_ptr<CResFolder>> subfolders;
    ResourceList resources;
    quint32 kind = 0;
    qint32 index = -1; ///< resolution index or language number, else -1
    QString title;
    IEspia *observer = nullptr;

    [[nodiscard]] IEspia *Observer() const override { return observer; }
    /// Sets the observer and calls its `NodeAdded`.
    void SetObserver(IEspia *newObserver);

    /// Returns the first folder of that kind below this one, or null. Searches `depth` levels, depth first, each folder
    /// before its children.
    [[nodiscard]] CResFolder *FindFolder(quint32 wanted, int depth) const;
    [[nodiscard]] CResFolder *FindFolder(quint32 wanted, qint32 wantedIndex, int depth) const;
    [[nodiscard]] CResFolder *FindFolder(quint32 wanted, const QString &wantedTitle, int depth) const;

    [[nodiscard]] CBaseRes *FindResource(const NarrowText &name) const;
    /// The time depends on the number of holders of the ID, not on the size of the folder.
    [[nodiscard]] CBaseRes *FindResource(const IDRecord *resId) const;
    void AddResource(std::unique_ptr<CBaseRes> res);
    void AddFolder(std::unique_ptr<CResFolder> folder);
    /// Inserts before `before`, or at the end if `before` isn't in this folder. Doesn't notify the observer.
    void InsertResourceBefore(std::unique_ptr<CBaseRes> res, CBaseRes *before);
    bool DeleteResource(CBaseRes *res);
    bool DeleteResource(const IDRecord *resId);
    bool DeleteFolder(CResFolder *folder);
    bool Clear();

    /// Removes a resource from the folder and returns it. Null when it isn't in this folder. Doesn't notify the
    /// observer.
    [[nodiscard]] std::unique_ptr<CBaseRes> TakeResource(CBaseRes *res);

private:
    void DestroyContents();
};

qint32 CStringRes::Language() const
{
    return Folder() ? Folder()->index : -1;
}
