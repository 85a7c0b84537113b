// SPDX-License-Identifier: MIT
#include "Document.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

QStringList happened;

struct FakeDocument : CDocument
{
    void Serialize(bool) override
    {
        SetModifiedFlag(true);
        if (m_strPathName.contains(u"bad"))
            throw ArchiveException{7};
    }
    bool OnSaveDocument(const QString &) override { return true; }
    void ReportSaveLoadException(const QString &path, const ArchiveException &exception, bool) override
    {
        happened << u"reported %1 %2"_s.arg(path).arg(exception.cause);
    }
    void OnCloseDocument() override { happened << u"closed "_s + m_strPathName; }
};

} // namespace

TEST(Documents, OpenEachPathOnceAndReportAndCloseOneThatDoesNotLoad)
{
    CDocManager documents([] { return std::make_unique<FakeDocument>(); });
    documents.opened = [&](CDocument &document) { happened << u"opened "_s + document.m_strPathName; };
    CDocument *const first = documents.OpenDocumentFile(u"/Demo"_s);
    ASSERT_TRUE(first && !first->IsModified());
    for (const QString &same : {u"/demO"_s, u"//x\\..\\.\\demo"_s})
        EXPECT_EQ(documents.OpenDocumentFile(same), first);
    EXPECT_EQ(documents.OpenDocumentFile(u"/bad"_s), nullptr);
    documents.OpenDocumentFile(u"/q"_s);
    documents.CloseAll();
    EXPECT_EQ(happened.join(u", "), u"opened /Demo, reported /bad 7, closed /bad, opened /q, closed /q, closed /Demo");
}
