// SPDX-License-Identifier: MIT
#include "IdeCommandHandler.h"

#include "CommandRecord.h"
#include "ReportPipe.h"
#include "Sockets.h"
#include "TestProject.h"

using namespace Qt::StringLiterals;

namespace
{

/// A document whose save can fail.
struct TestDocument : CResDoc
{
    TestDocument(TestProject &project, const bool &savesNow)
        : CResDoc(*project.env, project.tables, project.services), saves(savesNow)
    {
    }
    bool OnSaveDocument(const QString &path) override { return saves && CResDoc::OnSaveDocument(path); }
    const bool &saves;
};

/// Commands for a project on disk, and the IDE that reads their reports.
class IdeCommandHandlerTest : public ::testing::Test
{
protected:
    IdeCommandHandlerTest()
    {
        std::string error;
        EXPECT_TRUE(ide.Open(runtime.Path(PIPE_SOCKET).toStdString(), ListeningSocket::Turn::Now, error));
        project.services.GetCommandID = [this](const QString &path) { return handler.GetCommandID(&path); };
        handler.idleOutput = [this](QStringView text) { pane += text.toUtf8(); };
        handler.bringToTop = [this] { ++raised; };
        project.folder.Put("bin/AppLogo.img", "a drawn logo");
        project.folder.Put("demo/large.bmp", "a picture for 240x320");
        project.folder.Put("demo/app.dll", "MZ and so on");
    }

    /// Runs a command whose record may be truncated. Returns the report.
    QByteArray Run(quint32 id, qsizetype size = 1696)
    {
        project.trace.clear();
        std::string error;
        EXPECT_EQ(handler.Handle(id, QByteArray::fromStdString(BuildRecord(request, error).value()).first(size)), 1);
        const QByteArray bytes = ReadAll(ide.Accept());
        return QString(reinterpret_cast<const QChar *>(bytes.constData()), bytes.size() / 2).toUtf8();
    }

    TestRuntime runtime;
    ListeningSocket ide;
    TestProject project{"<APP><RESOLUTION width=\"240\" height=\"320\" class=\"image\">"
                        "<IMAGE id=\"ID_IMAGE_LARGE\">.\\large.bmp</IMAGE></RESOLUTION></APP>"};
    bool saves = true;
    CDocManager documents{[this] { return std::make_unique<TestDocument>(project, saves); }};
    ReportPipe pipe;
    IdeCommandHandler handler{*project.env, documents, pipe};
    PackCommandRecord request{project.Path().toStdU16String(), u"app.dll", u"out.dll", u"240x320", u"Dll"};
    QByteArray pane;
    int raised = 0;
};

const QByteArray LOADED =
    "Loading resource from \"res\\demo.res.xml\"...\r\n[demo] open - 0 error(s), 0 warning(s)\r\n";

TEST_F(IdeCommandHandlerTest, LoadOpensAndSaveSavesAProjectWithItsPathInAnyCase)
{
    EXPECT_EQ(Run(IDE_COMMAND_SAVE), "\r\n\r\nsave done\r\n") << "a missing document is not an error";
    EXPECT_EQ(Run(IDE_COMMAND_LOAD), LOADED + "\r\n\r\nload done\r\n");
    EXPECT_EQ(project.trace, "Morvanite: m_uCmdId=2948455419d\nMorvanite got LOAD command\n"
                             "Morvanite finished LOAD command\nMorvanite ENDed LOAD command\n");
    request.projectPath = project.Path().toUpper().toStdU16String();
    EXPECT_EQ(Run(IDE_COMMAND_LOAD), "\r\n\r\nload done\r\n");
    EXPECT_EQ(Run(IDE_COMMAND_SAVE), "[demo] save - 0 error(s), 0 warning(s)\r\n\r\n\r\nsave done\r\n");
    EXPECT_TRUE(project.trace.startsWith("Morvanite: m_uCmdId=2948455420d\nMorvanite got SAVE command\n"));
    EXPECT_TRUE(project.trace.endsWith("Morvanite finished SAVE command\n"));
    EXPECT_TRUE(project.folder.Has("demo/ResID/ResID.h"));
    EXPECT_EQ(documents.Documents().size(), 1U);
    EXPECT_EQ(raised, 2);
    EXPECT_EQ(handler.LastError(), 0);
}

TEST_F(IdeCommandHandlerTest, PackOpensTheProjectAndAcceptsEverySpellingOfTheResolution)
{
    QByteArray opening = LOADED;
    for (const auto &[resolution, found] : {std::pair(u"240x320"_s, true), {u"240*320"_s, true}, {u"1x1"_s, false}}) {
        QDir::setCurrent(u"/"_s);
        request.resolution = resolution.toStdU16String();
        const QByteArray report = Run(IDE_COMMAND_PACK);
        EXPECT_TRUE(report.startsWith(opening + "\r\npack resource started\r\n")) << report.constData();
        EXPECT_TRUE(report.endsWith("\r\npack resource done, result=0\r\n\r\n\r\npack done\r\n")) << report.constData();
        EXPECT_EQ(QDir::currentPath(), project.folder.Path("demo"));
        EXPECT_TRUE(project.folder.Get("demo/out.dll").startsWith(QByteArray("MZ and so on.zp_res\0", 20)));
        EXPECT_EQ(project.folder.Get("demo/out.dll").contains("a picture for 240x320"), found);
        EXPECT_FALSE(project.folder.Has("demo/ResID")) << "IDs are numbered, but no header is written";
        EXPECT_TRUE(project.trace.contains("implicit ID Gen before Pack done, result is 0\n"));
        EXPECT_TRUE(project.trace.contains("Morvanite: m_szCmdTarget=" + project.Path().toUtf8() + '\n'));
        EXPECT_TRUE(project.trace.endsWith("Morvanite finished PACK command, err code=0\n"));
        opening.clear(); // the project stays open
    }
}

TEST_F(IdeCommandHandlerTest, ReturnsACodeForEachFailure)
{
    EXPECT_EQ(Run(IDE_COMMAND_LOAD), LOADED + "\r\n\r\nload done\r\n");
    saves = false;
    EXPECT_EQ(Run(IDE_COMMAND_SAVE), "\r\n\r\nsave done\r\n\r\n### error 29 ###\r\n");
    request.resolution = u"240";
    EXPECT_EQ(Run(IDE_COMMAND_PACK), "\r\n\r\npack done\r\n\r\n### error 87 ###\r\n");
    request.resolution = u"240x320";
    project.folder.Put("demo/morvanite.ini", "[Text]\ncode_page=1252\n");
    QString explained;
    project.env->explain = [&](const QString &text) { explained = text; };
    request.inputFile = u"/home/Müller/日本/app.dll";
    EXPECT_TRUE(Run(IDE_COMMAND_PACK).endsWith("\r\n### error -1046 ###\r\n"));
    EXPECT_TRUE(explained.contains(u"/home/Müller/日本/app.dll") && explained.contains(u"\"日\""_s))
        << qPrintable(explained);
    QFile::remove(project.folder.Path("demo/morvanite.ini"));
    request.inputFile.clear();
    EXPECT_TRUE(Run(IDE_COMMAND_PACK).endsWith("\r\n\r\npack done\r\n\r\n### error -1000 ###\r\n"));
    EXPECT_EQ(handler.LastError(), -1000);
    request.projectPath = project.folder.Path("none.vcproj").toStdU16String();
    EXPECT_EQ(Run(IDE_COMMAND_LOAD), "\r\n### error 7 ###\r\n\r\n\r\nload done\r\n\r\n### error 110 ###\r\n");
    EXPECT_EQ(Run(IDE_COMMAND_PACK), "\r\n### error 7 ###\r\n\r\n\r\npack done\r\n\r\n### error 404 ###\r\n");
    EXPECT_TRUE(project.trace.endsWith("Morvanite finished PACK command, err code=404\n"));
}

TEST_F(IdeCommandHandlerTest, RunsACommandWithoutAnIdeAndDropsItsOutput)
{
    unlink(runtime.Path(PIPE_SOCKET).constData());
    EXPECT_EQ(Run(IDE_COMMAND_LOAD), "");
    EXPECT_TRUE(project.trace.contains("Could not open pipe"));
    EXPECT_TRUE(documents.FindDocument(project.Path()));
    EXPECT_EQ(pane, "");
}

TEST_F(IdeCommandHandlerTest, IgnoresShortRecordsAndUnknownCommands)
{
    documents.OpenDocumentFile(project.Path());
    const std::pair<quint32, qsizetype> ignored[] = {{IDE_COMMAND_LOAD, 519},
                                                     {IDE_COMMAND_LOAD, 0},
                                                     {IDE_COMMAND_SAVE, 519},
                                                     {IDE_COMMAND_PACK, 1695},
                                                     {0xAFBDDBFE, 1696}};
    for (const auto &[id, size] : ignored) {
        EXPECT_EQ(Run(id, size), "");
        EXPECT_FALSE(project.trace.contains(" got ") || project.trace.contains("pipe")) << project.trace.constData();
    }
    EXPECT_FALSE(project.folder.Has("demo/ResID"));
    pipe.Open();
    EXPECT_EQ(Run(0xAFBDDBFE), "");
    EXPECT_TRUE(pipe.IsOpen());
}

TEST_F(IdeCommandHandlerTest, TellsTheDocumentWhichCommandRunsAndWhenItEndsEvenByAnException)
{
    const QString own = project.Path().toUpper();
    const QString other = u"/other"_s;
    documents.opened = [&](CDocument &) {
        project.trace.clear();
        EXPECT_EQ(handler.GetCommandID(&own), quint32(IDE_COMMAND_LOAD));
        EXPECT_EQ(handler.GetCommandID(&other), 0U);
        EXPECT_EQ(handler.GetCommandID(nullptr), 0U);
        throw std::bad_alloc();
    };
    EXPECT_THROW(Run(IDE_COMMAND_LOAD), std::bad_alloc);
    EXPECT_TRUE(project.trace.contains("CMainFrame::GetCommandID, return m_uCmdId=2948455419d"
                                       "enter CMainFrame::GetCommandID, docPath=/other"
                                       "CMainFrame::GetCommandID, return m_uCmdId=0"));
    EXPECT_FALSE(pipe.IsOpen());
    EXPECT_EQ(handler.GetCommandID(&own), 0U);
    project.env->WriteOutput("idle");
    EXPECT_EQ(pane, "idle");
}

} // namespace

TEST_F(IdeCommandHandlerTest, TheNextCommandSeesChangesMadeByAnotherProgram)
{
    const char *const list = "demo/res/demo.res.xml";
    EXPECT_TRUE(Run(IDE_COMMAND_LOAD).endsWith("\r\nload done\r\n"));
    project.folder.Put(list, "<APP><FILE id=\"ID_OUTSIDE\">app.dll</FILE></APP>");
    EXPECT_TRUE(Run(IDE_COMMAND_PACK).contains("app.dll")) << "an old output must not look like a new one";
    project.folder.Put(list, "<APP>");
    QString explained;
    project.env->explain = [&](const QString &text) { explained = text; };
    EXPECT_TRUE(Run(IDE_COMMAND_PACK).endsWith("\r\n### error -1045 ###\r\n"));
    EXPECT_TRUE(explained.contains(QLatin1String("nothing was packed"))) << qPrintable(explained);
    EXPECT_TRUE(Run(IDE_COMMAND_LOAD).endsWith("\r\n### error 110 ###\r\n"));
}
