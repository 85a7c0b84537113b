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

struct CountingView : CView
{
    void OnUpdate(CView *, long hint, CView *) override { updates += hint == 0; }
    int updates = 0;
};

} // namespace

TEST(Documents, APathOpensOnceAndOneThatDoesNotLoadIsReportedAndClosed)
{
    int opened = 0;
    CDocManager documents([] { return std::make_unique<FakeDocument>(); });
    documents.opened = [&](CDocument &) { ++opened; };
    CDocument *const first = documents.OpenDocumentFile(u"/p/Demo.vcproj"_s);
    ASSERT_TRUE(first && !first->IsModified());
    EXPECT_EQ(documents.OpenDocumentFile(u"/P/demo.VCPROJ"_s), first);
    EXPECT_EQ(documents.OpenDocumentFile(u"/bad.vcproj"_s), nullptr);
    EXPECT_EQ(opened, 1);
    documents.OpenDocumentFile(u"/q.vcproj"_s);
    documents.CloseAll();
    EXPECT_EQ(happened, QStringList({u"reported /bad.vcproj 7"_s, u"closed /bad.vcproj"_s, u"closed /q.vcproj"_s,
                                     u"closed /p/Demo.vcproj"_s}));
}

TEST(Documents, AnUpdateReachesEveryViewButItsSender)
{
    FakeDocument document;
    CountingView a, b;
    document.AddView(&a);
    document.AddView(&b);
    document.UpdateAllViews(&a);
    document.RemoveView(&b);
    EXPECT_TRUE(a.updates == 0 && b.updates == 1);
    document.UpdateAllViews(nullptr);
    EXPECT_TRUE(a.updates == 1 && b.updates == 1);
}
