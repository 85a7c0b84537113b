#pragma once

#include "Notifier.h"
#include "Text.h"

#include <functional>
#include <memory>
#include <vector>

class CDocument;

/// Ends the loading of a document.
struct ArchiveException
{
    int cause;
};

/// The cause of an ArchiveException: the document can't be read.
inline constexpr int CAUSE_BAD_DOCUMENT = 7;

/// A view of a document; owned by its window.
class CView
{
public:
    virtual ~CView() = default;
    /// Some other place changed the document. Acts only when `target` is null or this view, and only while visible.
    virtual void OnUpdate(CView *sender, long hint, CView *target) = 0;
};

/// A document of the framework: a path, a modified flag and views. Views aren't owned.
class CDocument
{
public:
    CDocument() = default;
    virtual ~CDocument() = default;
    CDocument(const CDocument &) = delete;
    CDocument &operator=(const CDocument &) = delete;

    QString m_strPathName; // absolute

    virtual bool OnNewDocument() { return true; }
    /// Fills the document from the file of its path; throws ArchiveException.
    virtual void Serialize(bool loading) = 0;
    virtual bool OnSaveDocument(const QString &path) = 0;
    /// Tells the user, or the IDE, that loading or saving failed.
    virtual void ReportSaveLoadException(const QString &path, const ArchiveException &exception, bool saving) = 0;
    virtual void OnCloseDocument() {}
    /// Told when somebody opens the path of this open document.
    virtual void OnOpenAgain() {}

    void SetModifiedFlag(bool flag);
    [[nodiscard]] bool IsModified() const { return modified; }
    /// Tells of each change of the modified flag.
    Notifier<> modifiedChanged;

    void AddView(CView *view) { views.push_back(view); }
    void RemoveView(CView *view);
    [[nodiscard]] const std::vector<CView *> &Views() const { return views; }
    /// Tells every view but `sender`; the hint is always 0.
    void UpdateAllViews(CView *sender, long hint = 0, CView *target = nullptr);

    /// The framework's save to the document's own path.
    [[nodiscard]] bool DoFileSave() { return OnSaveDocument(m_strPathName); }

private:
    bool modified = false;
    std::vector<CView *> views;
};

/// The open documents of the process, in order of opening, and the way to open another.
class CDocManager
{
public:
    using Factory = std::function<std::unique_ptr<CDocument>()>;
    explicit CDocManager(Factory documentFactory) : factory(std::move(documentFactory)) {}

    /// Opens a path into a new document, or gives the open one of that path. Null when it doesn't load: the document
    /// has then reported it (ReportSaveLoadException) and is closed. Keeps ownership.
    CDocument *OpenDocumentFile(const QString &path);
    /// The first open document of that path (NamesSameFile); null if there is none.
    [[nodiscard]] CDocument *FindDocument(const QString &path) const;
    /// Runs OnCloseDocument and destroys it.
    void CloseDocument(CDocument *document);
    void CloseAll();
    [[nodiscard]] const std::vector<std::unique_ptr<CDocument>> &Documents() const { return documents; }

    /// Told after a document has been opened; the window makes its frame then.
    std::function<void(CDocument &)> opened;
    /// Told when the document that OpenDocumentFile was asked for is open already; the window comes to the front then.
    std::function<void(CDocument &)> foundOpen;

private:
    Factory factory;
    std::vector<std::unique_ptr<CDocument>> documents;
};
