// SPDX-License-Identifier: MIT
#pragma once

#include "CResSpy.h"
#include "Document.h"
#include "Environment.h"
#include "FileStamps.h"
#include "FolderSelection.h"
#include "KeepOnSave.h"
#include "ProjectWatches.h"
#include "ResModel.h"

#include <QByteArrayList>

#include <map>

/// The environment of a document. It is a base class because the model needs it in its constructor.
struct ProjectEnvironment
{
    Environment ownEnv;
};

/// The document of one project. Its path is that of the project's ".vcproj" file, which is never read or written.
class CResDoc : public CDocument, private ProjectEnvironment, public CResModel
{
public:
    /// `process` is the environment from which the project's own environment is made.
    CResDoc(Environment &process, ProcessTables &processTables, const CFrameServices &frameServices);
    ~CResDoc() override;

    const QString &PathName() const override { return m_strPathName; }

    // The framework's operations.
    bool OnNewDocument() override { return false; }
    void Serialize(bool loading) override;
    /// Numbers the IDs and writes the headers and the project. Always returns true: failures are shown in the output,
    /// in `lastSave`, and, when no command is running, in a message box. Writes nothing after a failed reload. First
    /// waits for other saves of the project (ProjectLock) and loads what other programs have changed on the disk. If it
    /// can't load that, or if the load of the project left something out, it keeps copies of the files (KeptFiles)
    /// before it replaces them.
    bool OnSaveDocument(const QString &path) override;
    void OnOpenAgain() override { TakeInChanges(); }
    void OnCloseDocument() override;
    void ReportSaveLoadException(const QString &path, const ArchiveException &exception, bool saving) override;

    /// The result of the last OnSaveDocument: 0, or the code of the first failure, for the numbering and the writing.
    struct SaveResult
    {
        int generate = 0;
        int write = 0;
    };
    SaveResult lastSave;

    /// Numbers all IDs. If `path` isn't null, also writes the headers beside that path. Returns 0 on success.
    int GenerateIds(const QString *path);

    /// Makes the fixed folders of a project. False when its configuration is missing or too old.
    bool BuildFolderTree(const QString &path);

    void WatchFile(const QString &path, WatchClass watchClass);
    void UnwatchFile(const QString &path, WatchClass watchClass) { watches.Unwatch(path, watchClass); }
    /// Reloads the content of a watched file. Throws ArchiveException on failure; the document doesn't change then, and
    /// can't be saved until a reload succeeds.
    void OnWatchedFileChanged(quint32 handle);
    /// Returns the class of the file that a handle watches; nullopt for a handle of another document or an old handle.
    [[nodiscard]] std::optional<WatchClass> WatchedClass(quint32 handle) const;

    /// What happened to the changes that other programs made to the project's files since this document read or wrote
    /// them.
    enum class Outside
    {
        None,    ///< there are none
        TakenIn, ///< the document was reloaded
        LeftOut, ///< the document has unsaved changes: it wasn't reloaded
        Gone,    ///< a file that the project needs is missing: the document, which may be the only copy, is unchanged
        Unreadable, ///< the files can't be read: the document is unchanged
    };
    /// Compares the times and sizes of the files and reloads the document if they have changed. Explains what it left
    /// out. After a failed reload it reloads in any case, because the document has nothing then that could be saved.
    Outside TakeInChanges();
    /// True if, at the last check, the document differed from the files on the disk and they couldn't be loaded.
    [[nodiscard]] bool IsUnreadable() const { return unreadable || reloadFailed; }

    /// Notes the stamp of a file. Call it right before the file is read.
    void NoteFile(const QString &path) { stamps.Note(path); }
    /// The stamps that the files had when TakeInChanges compared them last. If a file has another stamp at the end of a
    /// save, the save would replace content that this document doesn't know.
    [[nodiscard]] const FileStamps &ComparedFiles() const { return compared; }
    /// Makes the save keep copies of the files that it replaces or moves to the trash, if this document didn't read one
    /// of these files.
    void KeepUnread(const QStringList &paths);
    /// Returns whether the files may contain something that the document doesn't have.
    [[nodiscard]] bool HasToKeep() const { return keepOnSave.IsRequired(); }
    /// Keeps copies of these files (absolute paths) before a save replaces them. On failure, explains it and returns
    /// false; the files must not be replaced then.
    [[nodiscard]] bool KeepReplaced(const QStringList &files);

    /// Makes a layout without components for a resolution, with a default ID, and returns its folder. Null if there is
    /// no folder for layouts, or if the resolution's layout file wasn't loaded completely.
    CResFolder *CreateLayoutRes(qint32 resolutionIndex);
    /// By resolution, the paths of the layout files that weren't loaded completely. A save doesn't change these files
    /// and keeps their names in the list.
    std::map<qint32, QByteArrayList> untouchedLayouts;
    /// The layout files of those elements of the list that the load left out.
    std::vector<Finding> leftOutLayouts;

    /// Returns the absolute paths of the files that the project was read from: its configuration, resource list, string
    /// file and layouts.
    [[nodiscard]] QStringList ProjectFiles();

    /// The selection of the document's window; the window sets this. Null without a window.
    IFolderSelection *selection = nullptr;

    /// Asks the user for files to add, of the kinds in `mask`. Doesn't ask when the mask has no kind. `initialName` is
    /// a path in the form that resources have, or empty.
    void ChooseFiles(quint32 mask, bool multiSelect, const QString &initialName, QStringList &results);

private:
    [[nodiscard]] SaveResult SaveAll(const QString &path);
    [[nodiscard]] SaveResult RefuseSave(const QString &path);
    /// Loads the project, again if other programs change it meanwhile, so that all its files are from the same save.
    /// Throws ArchiveException when it doesn't load, or after five attempts.
    void LoadOneState();
    void Load();
    void EmptyTree();
    void KeepWhatIsLeftOut();
    /// The result of loading the project into another document.
    struct Attempt
    {
        bool isLoaded = false;
        int losses = 0;                  ///< number of errors and of elements and rows that were left out
        QByteArrayList untouchedLayouts; ///< layout files that weren't loaded completely
        QString report;
        std::vector<Finding> findings; ///< the listeners haven't received them
        QStringList explained;
    };
    [[nodiscard]] Attempt TryToLoad() const;
    [[nodiscard]] bool LacksLayouts(const Attempt &attempt) const;
    [[nodiscard]] QByteArrayList UntouchedLayouts() const;
    void TellFailure(const Attempt &attempt);
    [[noreturn]] void RefuseReload(const ProjectWatches::Watched &watched, const Attempt &attempt);
    Outside CompareFiles();
    void LoadClasses();
    void ReloadResources();
    void ReloadStrings();
    void ReloadLayouts(const QString &path);
    [[nodiscard]] bool IsCommandRunning(const QString &path) const;

    bool reloadFailed = false; // the content in memory is older than the files, or incomplete: it must not replace them
    bool unreadable = false;
    int losses = 0;       // of the last load, as Attempt::losses
    QString filePatterns; // the patterns of the types of files at the last load
    FileStamps stamps;    // of the files that the project was read from
    FileStamps compared;
    KeepOnSave keepOnSave;
    CResSpy spy;
    const CFrameServices &services;
    ProjectWatches watches{services, *this};
    QString refPath; // of the string file that was read or written last
};
