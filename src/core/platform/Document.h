// SPDX-License-Identifier: MIT
#pragma once

#include "Notifier.h"
#include "Text.h"

#include <functional>
#include <memory>
#include <vector>

class CDocument;

/// Thrown to stop the loading of a document.
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
    /// Called when something other than this view changed the document. Acts only when `target` is null or this view,
    /// and only while visible.
    virtual void OnUpdate(CView *sender, long hint, CView *target) = 0;
};

/// A document of the framework: a path, a modified flag and views. It doesn't own its views.
class CDocument
{
public:
    CDocument() = default;
    virtual ~CDocument() = default;
    CDocument(const CDocument &) = delete;
    CDocument &operator=(const CDocument &) = delete;

    QString m_strPathName; // absolute

    virtual bool OnNewDocument() { return true; }
    /// Loads the document from the file at its path. Throws ArchiveException.
    virtual void Serialize(bool loading) = 0;
    virtual bool OnSaveDocument(const QString &path) = 0;
    /// Tells the user, or the IDE, that loading or saving failed.
    virtual void ReportSaveLoadException(const QString &path, const ArchiveException &exception, bool saving) = 0;
    virtual void OnCloseDocument() {}
    /// Called when the path of this open document is opened again.
    virtual void OnOpenAgain() {}

    void SetModifiedFlag(bool flag);
    [[nodiscard]] bool IsModified() const { return modified; }
    /// Reports each change of the modified flag.
    Notifier<> modifiedChanged;

    void AddView(CView *view) { views.push_back(view); }
    void RemoveView(CView *view);
    [[nodiscard]] const std::vector<CView *> &Views() const { return views; }
    /// Updates every view except `sender`. The hint is always 0.
    void UpdateAllViews(CView *sender, long hint = 0, CView *target = nullptr);

    /// Saves to the document's own path.
    [[nodiscard]] bool DoFileSave() { return OnSaveDocument(m_strPathName); }

private:
    bool modified = false;
    std::vector<CView *> views;
};

/// Owns the open documents of the process, in the order in which they were opened, and opens others.
class CDocManager
{
public:
    using Factory = std::function<std::unique_ptr<CDocument>()>;
    explicit CDocManager(Factory documentFactory) : factory(std::move(documentFactory)) {}

    /// Loads a file into a new document, or returns the document that is open from that path. Null when loading fails:
    /// the document has reported the failure (ReportSaveLoadException) and is closed. The manager owns the document.
    CDocument *OpenDocumentFile(const QString &path);
    /// Returns the first open document of that path (NamesSameFile); null if there is none.
    [[nodiscard]] CDocument *FindDocument(const QString &path) const;
    /// Calls the document's OnCloseDocument and destroys it.
    void CloseDocument(CDocument *document);
    void CloseAll();
    [[nodiscard]] const std::vector<std::unique_ptr<CDocument>> &Documents() const { return documents; }

    /// Called after a document has been opened; the window makes its frame then.
    std::function<void(CDocument &)> opened;
    /// Called when OpenDocumentFile gets the path of a document that is open already; the window comes to the front
    /// then.
    std::function<void(CDocument &)> foundOpen;

private:
    Factory factory;
    std::vector<std::unique_ptr<CDocument>> documents;
};
