#include "Document.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

QStringList happened;

class FakeDocument : public CDocument
{
public:
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

class FakeView : public CView
{
public:
    void OnUpdate(CView *, long hint, CView *) override { updates += hint == 0; }
    int updates = 0;
};

} // namespace

TEST(Documents, OneThatDoesNotLoadIsReportedClosedAndNotKept)
{
    happened.clear();
    CDocManager documents([] { return std::make_unique<FakeDocument>(); });
    EXPECT_EQ(documents.OpenDocumentFile(u"/bad.vcproj"_s), nullptr);
    EXPECT_EQ(happened, QStringList({u"reported /bad.vcproj 7"_s, u"closed /bad.vcproj"_s}));
    EXPECT_TRUE(documents.Documents().empty());
}

TEST(Documents, APathOpensOnceAndItsDocumentIsCleanAtFirst)
{
    happened.clear();
    int opened = 0;
    CDocManager documents([] { return std::make_unique<FakeDocument>(); });
    documents.opened = [&](CDocument &) { ++opened; };
    CDocument *const first = documents.OpenDocumentFile(u"/p/Demo.vcproj"_s);
    ASSERT_NE(first, nullptr);
    EXPECT_FALSE(first->IsModified());
    EXPECT_EQ(documents.OpenDocumentFile(u"/P/demo.VCPROJ"_s), first);
    EXPECT_EQ(opened, 1);
    documents.OpenDocumentFile(u"/q.vcproj"_s);
    documents.CloseAll();
    EXPECT_EQ(happened, QStringList({u"closed /q.vcproj"_s, u"closed /p/Demo.vcproj"_s}));
}

TEST(Documents, AnUpdateReachesEveryViewButItsSender)
{
    FakeDocument document;
    FakeView a;
    FakeView b;
    document.AddView(&a);
    document.AddView(&b);
    document.UpdateAllViews(&a);
    EXPECT_EQ(a.updates, 0);
    EXPECT_EQ(b.updates, 1);
    document.RemoveView(&b);
    document.UpdateAllViews(nullptr);
    EXPECT_EQ(a.updates, 1);
    EXPECT_EQ(b.updates, 1);
}
