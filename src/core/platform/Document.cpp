// SPDX-License-Identifier: MIT
#include "Document.h"

#include "HostFiles.h"

#include <algorithm>

void CDocument::SetModifiedFlag(bool flag)
{
    if (modified == flag)
        return;
    modified = flag;
    modifiedChanged.Tell();
}

void CDocument::RemoveView(CView *view)
{
    std::erase(views, view);
}

void CDocument::UpdateAllViews(CView *sender, long hint, CView *target)
{
    const std::vector<CView *> told = views; // a view may add or remove other views
    for (CView *view : told) {
        if (view != sender && std::find(views.begin(), views.end(), view) != views.end())
            view->OnUpdate(sender, hint, target);
    }
}

CDocument *CDocManager::OpenDocumentFile(const QString &path)
{
    if (CDocument *open = FindDocument(path)) {
        open->OnOpenAgain();
        if (foundOpen)
            foundOpen(*open);
        return open;
    }
    std::unique_ptr<CDocument> document = factory();
    document->m_strPathName = path;
    try {
        document->Serialize(true);
    } catch (const ArchiveException &exception) {
        document->ReportSaveLoadException(path, exception, false);
        document->OnCloseDocument();
        return nullptr;
    } catch (...) {
        document->OnCloseDocument();
        throw;
    }
    document->SetModifiedFlag(false);
    documents.push_back(std::move(document));
    CDocument *open = documents.back().get();
    if (opened)
        opened(*open);
    return open;
}

CDocument *CDocManager::FindDocument(const QString &path) const
{
    const auto found = std::find_if(documents.begin(), documents.end(),
                                    [&](const auto &document) { return NamesSameFile(document->m_strPathName, path); });
    return found == documents.end() ? nullptr : found->get();
}

void CDocManager::CloseDocument(CDocument *document)
{
    const auto found =
        std::find_if(documents.begin(), documents.end(), [&](const auto &open) { return open.get() == document; });
    if (found == documents.end())
        return;
    document->OnCloseDocument();
    documents.erase(found);
}

void CDocManager::CloseAll()
{
    while (!documents.empty())
        CloseDocument(documents.back().get());
}
