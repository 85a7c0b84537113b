// SPDX-License-Identifier: MIT
#pragma once

#include "DefaultIds.h"
#include "LoadFindings.h"
#include "ProcessTables.h"
#include "ResFolder.h"
#include "TreeListener.h"

class Environment;

/// The model half of a project: its name and path, the resource tree and the ID pools. Code that numbers, packs, reads
/// or writes a project gets this model, not the document.
class CResModel
{
public:
    CResModel(Environment &environment, ProcessTables &processTables);
    virtual ~CResModel();
    CResModel(const CResModel &) = delete;
    CResModel &operator=(const CResModel &) = delete;

    Environment &env;
    ProcessTables &tables;

    QString name; ///< the project's name
    /// The types of the project's layouts; never null in a document.
    std::shared_ptr<ClassCatalogue> classes;
    /// Notifies the tree's listeners (ITreeListener) before nodes are destroyed.
    Notifier<const CResFolder &> treeGoes;
    IDPool ids; ///< every resource of the tree takes its ID from here. Its observer observes the folders too.
    StringMemory stringMemory;
    CResFolder root{KIND_ROOT, -1};
    LoadFindings findings; ///< of the last load, or of the reload since

    /// The absolute path of the ".vcproj" file.
    [[nodiscard]] virtual const QString &PathName() const = 0;

    // Factories: each returns null on failure, and has made nothing then. The caller puts the result into the tree.
    [[nodiscard]] std::unique_ptr<CResFolder> CreateFolder(quint32 kind, qint32 index);
    [[nodiscard]] std::unique_ptr<CFileRes> CreateFileRes(const NarrowText &idName, qint16 scope);
    [[nodiscard]] std::unique_ptr<CStringRes> CreateStringRes(const NarrowText &idName);
    /// Makes a string with an ID that exists already; the two share it.
    [[nodiscard]] std::unique_ptr<CStringRes> CreateStringRes(IDRecord *resId);

    /// The ID that a file gets in `folder`, formed from the file's name. Another file's name can form the same one.
    [[nodiscard]] QString DefaultFileId(const CResFolder &folder, const QString &path) const;
    /// Makes a file resource whose ID is DefaultFileId, with a counter if that ID is taken. Null when every counter is
    /// taken.
    [[nodiscard]] std::unique_ptr<CFileRes> CreateDefaultFileRes(const CResFolder &folder, const QString &path);

    /// True if a record has the name, in any scope.
    [[nodiscard]] bool IsIdInUse(const QString &idName);
    /// Returns the image folder of a resolution and puts it into use if it isn't; null if there is none.
    CResFolder *UseResolutionImages(qint32 index) { return UseFolder(KIND_RESO_IMAGES, index); }
    CResFolder *UseResolutionLayouts(qint32 index) { return UseFolder(KIND_RESO_LAYOUTS, index); }

    /// Puts a resolution's folder into use.
    static void PutIntoUse(CResFolder &folder);

    /// The patterns of the files that are "image", "audio" or "video".
    [[nodiscard]] QString FilePatterns(const char *type) const;
    /// Returns the kind of folder that a file belongs to, from its extension and the settings (FileClassifier).
    [[nodiscard]] quint32 ClassifyFile(quint32 mask, const QString &path) const;
    /// Returns the `pushKind` of the IDs in a folder of that kind.
    [[nodiscard]] static PushKind PushKindOf(quint32 folderKind);
    // Each of these functions notifies the tree's listeners before it destroys nodes. Nodes of the tree are destroyed
    // only through them, except for the rows that the string table and the list of files delete: these two notify by
    // themselves.
    /// Destroys all that is in a folder.
    void ClearFolder(CResFolder &folder);
    /// Destroys a folder of the tree with all that is in it, such as a layout's or a language's. False when the tree
    /// doesn't have it.
    bool DeleteFolder(CResFolder &folder);
    /// Takes a resolution's folder out of use and destroys all that is in it, unless it is out of use already.
    void TakeOutOfUse(CResFolder &folder);
    /// Empties a folder as the command Clear does, keeping the fixed tree.
    void ClearByKind(CResFolder &folder);

private:
    CResFolder *UseFolder(quint32 kind, qint32 index);
    [[nodiscard]] std::unique_ptr<CFileRes> CreateFileRes(IDRecord *record);
    DefaultIds defaultIds;
};
