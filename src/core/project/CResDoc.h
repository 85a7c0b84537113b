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

/// What a document's model needs before it is made.
struct ProjectEnvironment
{
    Environment ownEnv;
};

/// The document of one project, named by the path of its ".vcproj" file, which is never read or written.
class CResDoc : public CDocument, private ProjectEnvironment, public CResModel
{
public:
    /// `process` is the environment that the project's own is made of.
    CResDoc(Environment &process, ProcessTables &processTables, const CFrameServices &frameServices);
    ~CResDoc() override;

    const QString &PathName() const override { return m_strPathName; }

    // The framework's operations.
    bool OnNewDocument() override { return false; }
    void Serialize(bool loading) override;
    /// Numbers the IDs, writes the headers and the project. Always true: failures show in the output, in `lastSave`,
    /// and, when no command is running, in a box. Nothing is written after a reload that failed. Waits for other saves
    /// of the project (ProjectLock) and takes in what others have changed on the disk first; of what it can't take in,
    /// or left out at the opening, it keeps copies (KeptFiles) before it replaces the files.
    bool OnSaveDocument(const QString &path) override;
    void OnOpenAgain() override { TakeInChanges(); }
    void OnCloseDocument() override;
    void ReportSaveLoadException(const QString &path, const ArchiveException &exception, bool saving) override;

    /// What the last OnSaveDocument came to: 0, or the first failure of the numbering and of the writing.
    struct SaveResult
    {
        int generate = 0;
        int write = 0;
    };
    SaveResult lastSave;

    /// Numbers all IDs; with a path also writes the headers beside it. 0 on success.
    int GenerateIds(const QString *path);

    /// Makes the fixed folders of a project. False when its configuration is missing or too old.
    bool BuildFolderTree(const QString &path);

    void WatchFile(const QString &path, WatchClass watchClass);
    void UnwatchFile(const QString &path, WatchClass watchClass) { watches.Unwatch(path, watchClass); }
    /// Loads again what a watched file holds. Throws ArchiveException when that fails: the document then stays as it
    /// is, and isn't saved until a reload succeeds.
    void OnWatchedFileChanged(quint32 handle);
    /// Which of the document's files a handle watches; nothing for a handle of another document, or an old one.
    [[nodiscard]] std::optional<WatchClass> WatchedClass(quint32 handle) const;

    /// What has become of the changes that others made to the project's files since they were read or written here.
    enum class Outside
    {
        None,       ///< there are none
        TakenIn,    ///< the document was loaded again
        LeftOut,    ///< there are changes here that aren't saved: the document stays as it is
        Gone,       ///< a file that the project needs is gone: the document stays as it is, and may be all that is left
        Unreadable, ///< the files can't be read: the document stays as it is
    };
    /// Compares the files' times and sizes, and takes in what has changed. Says on the way what it left out. After a
    /// reload that failed it loads again in any case: there is nothing in the document that could be saved.
    Outside TakeInChanges();
    /// The document isn't what the files on the disk are, and they couldn't be loaded, when that was looked at last.
    [[nodiscard]] bool IsUnreadable() const { return unreadable || reloadFailed; }

    /// Takes the stamp of a file that is read next.
    void NoteFile(const QString &path) { stamps.Note(path); }
    /// The stamps of the files as they were when TakeInChanges compared them last: a save that finds another one at its
    /// end would replace what nobody here knows.
    [[nodiscard]] const FileStamps &ComparedFiles() const { return compared; }
    /// Has the save keep what it replaces, or puts into the trash, when one of these files wasn't read by this
    /// document.
    void KeepUnread(const QStringList &paths);
    /// Says whether there may be something in the files that the document doesn't have.
    [[nodiscard]] bool HasToKeep() const { return keepOnSave.IsRequired(); }
    /// Keeps copies of these files (absolute) before a save replaces them. False when that fails, which has been
    /// explained; they must not be replaced then.
    [[nodiscard]] bool KeepReplaced(const QStringList &files);

    /// Makes a layout without components for a resolution, with a default ID; its folder. Null where there is no folder
    /// for layouts, and where the resolution's layout file wasn't loaded whole.
    CResFolder *CreateLayoutRes(qint32 resolutionIndex);
    /// By resolution, the paths of the layout files that weren't loaded whole: a save leaves those files as they are,
    /// and keeps their names.
    std::map<qint32, QByteArrayList> untouchedLayouts;
    /// The layout files that the list names in elements that the load left out.
    std::vector<Finding> leftOutLayouts;

    /// The files that the project was read from, absolute: its configuration, resource list, string file and layouts.
    [[nodiscard]] QStringList ProjectFiles();

    /// The selection of the document's window, which sets it here; null without a window.
    IFolderSelection *selection = nullptr;

    /// Asks for files to add; `mask` tells which kinds. Nothing is asked when the mask has none. `initialName` is a
    /// path as resources have it, or empty.
    void ChooseFiles(quint32 mask, bool multiSelect, const QString &initialName, QStringList &results);

private:
    [[nodiscard]] SaveResult SaveAll(const QString &path);
    [[nodiscard]] SaveResult RefuseSave(const QString &path);
    /// Loads the project again as long as other programs change it meanwhile: what is loaded is of one save. Throws
    /// ArchiveException when it doesn't load, or after five times.
    void LoadOneState();
    void Load();
    void EmptyTree();
    void KeepWhatIsLeftOut();
    /// What came of loading the project into another document.
    struct Attempt
    {
        bool isLoaded = false;
        int losses = 0;                  ///< errors, and what was left out
        QByteArrayList untouchedLayouts; ///< layout files that weren't loaded whole
        QString report;
        std::vector<Finding> findings; ///< which the listeners haven't received
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

    bool reloadFailed = false; // what is in memory is older than the files, or incomplete, and must not replace them
    bool unreadable = false;
    int losses = 0;       // of the last load, as an attempt counts them
    QString filePatterns; // of the types of files, in the last load
    FileStamps stamps;    // of the files that the project was read from
    FileStamps compared;
    KeepOnSave keepOnSave;
    CResSpy spy;
    const CFrameServices &services;
    ProjectWatches watches{services, *this};
    QString refPath; // of the string file that was read or written last
};
