#include "CommandHandler.h"

#include "CommandRecord.h"

#include <gtest/gtest.h>

#include "FakePipe.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

const QString DEMO = u"/x/demo.vcproj"_s;

QByteArray RecordOf(const QString &path)
{
    QString error;
    return BuildRecord(CommandRecord{path}, error).value();
}

QByteArray PackRecordOf(const QString &path)
{
    QString error;
    return BuildRecord(PackCommandRecord{path, {}, {}, u"240x320"_s, u"axf"_s}, error).value();
}

/// A document whose operations do as the test wants, and write a line.
class FakeDocument : public CDocument
{
public:
    struct Orders
    {
        Environment &env;
        std::function<void()> load;
        std::function<bool()> save;
    };
    explicit FakeDocument(const Orders &fakeOrders) : orders(fakeOrders) {}
    void Serialize(bool) override
    {
        orders.env.WriteOutput("loading\r\n");
        if (orders.load)
            orders.load();
    }
    bool OnSaveDocument(const QString &) override
    {
        orders.env.WriteOutput("saving\r\n");
        return !orders.save || orders.save();
    }
    void ReportSaveLoadException(const QString &, const ArchiveException &exception, bool) override
    {
        orders.env.WriteOutput("\r\n### error %d ###\r\n", exception.cause);
    }

private:
    const Orders &orders;
};

class CommandHandlerTest : public ::testing::Test
{
protected:
    CommandHandlerTest()
    {
        handler.idleOutput = [this](QStringView text) { pane += text; };
        env.trace = [this](QStringView text) { trace += text.toString(); };
    }

    Environment env{u"/nonexistent"_s};
    FakeDocument::Orders orders{env, nullptr, nullptr};
    CDocManager documents{[this] { return std::make_unique<FakeDocument>(orders); }};
    FakePipe pipe;
    CommandHandler handler{env, documents, pipe};
    QString pane;
    QStringList trace;
};

TEST_F(CommandHandlerTest, LoadOpensTheDocumentAndReports)
{
    int raised = 0;
    handler.bringToTop = [&] { ++raised; };
    EXPECT_EQ(handler.Handle(COMMAND_LOAD, RecordOf(DEMO)), 1);
    EXPECT_EQ(pipe.report, u"loading\r\n\r\n\r\nload done\r\n"_s);
    EXPECT_EQ(handler.LastError(), 0);
    EXPECT_FALSE(pipe.open);
    EXPECT_EQ(raised, 1);
    ASSERT_TRUE(documents.FindDocument(DEMO));
    EXPECT_EQ(trace, QStringList({u"Morvanite: m_uCmdId=2948455419d\n"_s, u"Morvanite got LOAD command\n"_s,
                                  u"Morvanite finished LOAD command\n"_s, u"Morvanite ENDed LOAD command\n"_s}));

    pipe.report.clear();
    handler.Handle(COMMAND_LOAD, RecordOf(u"/X/DEMO.vcproj"_s)); // is open
    EXPECT_EQ(pipe.report, u"\r\n\r\nload done\r\n"_s);
    EXPECT_EQ(documents.Documents().size(), 1U);
}

TEST_F(CommandHandlerTest, LoadThatFailsReports110BehindTheDocumentsOwnError)
{
    orders.load = [] { throw ArchiveException{7}; };
    int raised = 0;
    handler.bringToTop = [&] { ++raised; };
    EXPECT_EQ(handler.Handle(COMMAND_LOAD, RecordOf(DEMO)), 1);
    EXPECT_EQ(pipe.report, u"loading\r\n\r\n### error 7 ###\r\n\r\n\r\nload done\r\n\r\n### error 110 ###\r\n"_s);
    EXPECT_EQ(handler.LastError(), 110);
    EXPECT_EQ(raised, 1);
    EXPECT_TRUE(documents.Documents().empty());
}

TEST_F(CommandHandlerTest, SaveSavesWhatIsOpen)
{
    handler.Handle(COMMAND_SAVE, RecordOf(DEMO));
    EXPECT_EQ(pipe.report, u"\r\n\r\nsave done\r\n"_s); // no document is no error
    documents.OpenDocumentFile(DEMO);
    pipe.report.clear();
    trace.clear();
    handler.Handle(COMMAND_SAVE, RecordOf(DEMO.toUpper()));
    EXPECT_EQ(pipe.report, u"saving\r\n\r\n\r\nsave done\r\n"_s);
    EXPECT_EQ(trace, QStringList({u"Morvanite: m_uCmdId=2948455420d\n"_s, u"Morvanite got SAVE command\n"_s,
                                  u"Morvanite finished SAVE command\n"_s}));

    pipe.report.clear();
    orders.save = [] { return false; };
    handler.Handle(COMMAND_SAVE, RecordOf(DEMO));
    EXPECT_EQ(pipe.report, u"saving\r\n\r\n\r\nsave done\r\n\r\n### error 29 ###\r\n"_s);
    EXPECT_EQ(handler.LastError(), 29);
}

TEST_F(CommandHandlerTest, PackOfAProjectThatDoesNotOpenReports404)
{
    orders.load = [] { throw ArchiveException{7}; };
    EXPECT_EQ(handler.Handle(COMMAND_PACK, PackRecordOf(DEMO)), 1);
    EXPECT_EQ(pipe.report, u"loading\r\n\r\n### error 7 ###\r\n\r\n\r\npack done\r\n\r\n### error 404 ###\r\n"_s);
    EXPECT_EQ(trace, QStringList({u"Morvanite: m_uCmdId=2948455421d\n"_s, u"Morvanite got PACK command\n"_s,
                                  u"Morvanite: m_szCmdTarget=/x/demo.vcproj\n"_s,
                                  u"Morvanite finished PACK command, err code=404\n"_s}));
}

TEST_F(CommandHandlerTest, OutputGoesToThePipeOnlyWhileACommandRuns)
{
    env.WriteOutput("before\r\n");
    handler.Handle(COMMAND_LOAD, RecordOf(DEMO));
    env.WriteOutput("after\r\n");
    EXPECT_EQ(pane, u"before\r\nafter\r\n"_s);
    handler.idleOutput = nullptr;
    env.WriteOutput("dropped\r\n");
}

TEST_F(CommandHandlerTest, WithoutAPipeTheCommandIsCarriedOutAndItsOutputLost)
{
    pipe.served = false;
    EXPECT_EQ(handler.Handle(COMMAND_LOAD, RecordOf(DEMO)), 1);
    EXPECT_TRUE(documents.FindDocument(DEMO));
    EXPECT_EQ(pipe.report, QString());
    EXPECT_EQ(pane, QString());
    EXPECT_TRUE(trace.contains(u"Could not open pipe"_s));
}

TEST_F(CommandHandlerTest, RecordThatIsTooSmallDoesNothingAndReachesNoPipe)
{
    documents.OpenDocumentFile(DEMO);
    orders.save = []() -> bool { throw std::logic_error("saved"); };
    EXPECT_EQ(handler.Handle(COMMAND_LOAD, RecordOf(u"/x/other.vcproj"_s).first(519)), 1);
    EXPECT_EQ(handler.Handle(COMMAND_SAVE, RecordOf(DEMO).first(519)), 1);
    EXPECT_EQ(handler.Handle(COMMAND_PACK, PackRecordOf(u"/x/other.vcproj"_s).first(1695)), 1);
    EXPECT_EQ(handler.Handle(COMMAND_LOAD, {}), 1);
    EXPECT_EQ(pipe.opened, 0);
    EXPECT_EQ(pipe.report, QString());
    EXPECT_EQ(documents.Documents().size(), 1U);
    EXPECT_EQ(handler.LastError(), 0);
    env.WriteOutput("idle");
    EXPECT_TRUE(pane.endsWith(u"idle"_s));
}

TEST_F(CommandHandlerTest, UnknownCommandIsIgnoredAndLeavesAnOpenPipeOpen)
{
    pipe.Open();
    EXPECT_EQ(handler.Handle(0xAFBDDBFE, PackRecordOf(DEMO)), 1);
    EXPECT_TRUE(pipe.open);
    EXPECT_EQ(pipe.report, QString());
    EXPECT_TRUE(documents.Documents().empty());
    env.WriteOutput("idle");
    EXPECT_EQ(pane, u"idle"_s);

    handler.Handle(COMMAND_SAVE, RecordOf(DEMO)); // takes the open one
    EXPECT_EQ(pipe.opened, 1);
    EXPECT_EQ(pipe.report, u"\r\n\r\nsave done\r\n"_s);
    EXPECT_FALSE(pipe.open);
}

TEST_F(CommandHandlerTest, TellsADocumentWhichCommandRunsForIt)
{
    const QString demo = DEMO.toUpper();
    const QString other = u"/x/other.vcproj"_s;
    quint32 own = 0;
    orders.load = [&] {
        own = handler.GetCommandID(&demo);
        EXPECT_EQ(handler.GetCommandID(&other), 0U);
        EXPECT_EQ(handler.GetCommandID(nullptr), 0U);
    };
    handler.Handle(COMMAND_LOAD, RecordOf(DEMO));
    EXPECT_EQ(own, quint32(COMMAND_LOAD));
    EXPECT_EQ(trace.mid(2, 4), QStringList({u"enter CMainFrame::GetCommandID, docPath=/X/DEMO.VCPROJ"_s,
                                            u"CMainFrame::GetCommandID, return m_uCmdId=2948455419d"_s,
                                            u"enter CMainFrame::GetCommandID, docPath=/x/other.vcproj"_s,
                                            u"CMainFrame::GetCommandID, return m_uCmdId=0"_s}));
    EXPECT_EQ(handler.GetCommandID(&DEMO), 0U);
}

TEST_F(CommandHandlerTest, WhatAnOperationThrowsLeavesNoCommandRunning)
{
    orders.load = [] { throw std::bad_alloc(); };
    EXPECT_THROW(handler.Handle(COMMAND_LOAD, RecordOf(DEMO)), std::bad_alloc);
    EXPECT_FALSE(pipe.open);
    EXPECT_EQ(handler.GetCommandID(&DEMO), 0U);
    env.WriteOutput("idle");
    EXPECT_EQ(pane, u"idle"_s);
}

} // namespace
