#include "CommandRecord.h"
#include "TestProject.h"

#include "FakePipe.h"
#include "ReportPipe.h"
#include "Sockets.h"

using namespace Qt::StringLiterals;

namespace
{

/// The commands on a real project.
class ProjectCommands : public ::testing::Test
{
protected:
    ProjectCommands()
    {
        services.GetCommandID = [this](const QString &path) { return handler.GetCommandID(&path); };
        request.projectPath = project.Project();
        request.inputFile = u"app.axf"_s; // the project's folder is the current one
        request.resolution = u"240x320"_s;
        request.targetKind = u"axf"_s;
    }

    /// The report of packing as requested.
    QString Pack()
    {
        QString error;
        pipe.report.clear();
        EXPECT_EQ(handler.Handle(COMMAND_PACK, BuildRecord(request, error).value()), 1);
        return pipe.report;
    }

    TestProject project;
    Environment env{project.ProgramDir()};
    ProcessTables tables;
    CFrameServices services;
    CDocManager documents{[this] { return std::make_unique<CResDoc>(env, tables, services); }};
    FakePipe pipe;
    CommandHandler handler{env, documents, pipe};
    PackCommandRecord request;
};

TEST_F(ProjectCommands, PackOpensTheProjectAndLeavesItOpen)
{
    SetCurrentFolder(u"/"_s);
    const QString report = Pack();
    EXPECT_TRUE(report.startsWith(u"Loading resource from \""_s)) << qPrintable(report);
    EXPECT_TRUE(report.contains(u"\r\npack resource started\r\n"_s)) << qPrintable(report);
    EXPECT_TRUE(report.endsWith(u"\r\npack resource done, result=0\r\n\r\n\r\npack done\r\n"_s)) << qPrintable(report);
    EXPECT_TRUE(documents.FindDocument(project.Project()));
    EXPECT_EQ(CurrentFolder(), DirectoryOf(project.Project()));
    EXPECT_TRUE(project.Get("demo/app.axf.pkd").contains("ding dong"));
    EXPECT_FALSE(PathExists(project.Path("demo/ResID"))); // the numbers are fresh, but no header is written
    EXPECT_FALSE(Pack().contains(u"Loading"_s));
}

TEST_F(ProjectCommands, EverySpellingOfAResolutionPacksTheSameAndOneThatIsNotKnownPacksToo)
{
    project.Put("demo/large.bmp", "a picture for 240x320");
    project.Put("demo/res/demo.res.xml", "<APP><RESOLUTION width=\"240\" height=\"320\" class=\"image\">"
                                         "<IMAGE id=\"ID_IMAGE_LARGE\">.\\large.bmp</IMAGE></RESOLUTION></APP>");
    Pack();
    const QByteArray expected = project.Get("demo/app.axf.pkd");
    EXPECT_TRUE(expected.contains("a picture for 240x320"));
    for (const auto &spelling : {u"240*320"_s, u"240X320"_s}) {
        request.resolution = spelling;
        EXPECT_TRUE(Pack().endsWith(u"pack done\r\n"_s));
        EXPECT_EQ(project.Get("demo/app.axf.pkd"), expected);
    }
    QStringList trace;
    env.trace = [&](QStringView text) { trace += text.toString(); };
    request.resolution = u"1x1"_s;
    EXPECT_TRUE(Pack().endsWith(u"pack done\r\n"_s));
    EXPECT_FALSE(project.Get("demo/app.axf.pkd").contains("a picture for 240x320"));
    EXPECT_TRUE(trace.contains(u"packinfo.scope=-1\n"_s));
    EXPECT_TRUE(trace.contains(u"implicit ID Gen before Pack done, result is 0\n"_s));
}

TEST_F(ProjectCommands, PackIntoADllWhateverTheCaseOfItsName)
{
    project.Put("demo/app.dll", "MZ and so on");
    request.inputFile = u"app.dll"_s;
    request.outputFile = u"out.dll"_s;
    request.targetKind = u"DLL"_s;
    EXPECT_TRUE(Pack().endsWith(u"result=0\r\n\r\n\r\npack done\r\n"_s));
    EXPECT_TRUE(project.Get("demo/out.dll").startsWith(QByteArray("MZ and so on.zp_res\0", 20)));
}

TEST_F(ProjectCommands, WhatIsNotRecognisedGives87AndPackCodesComeThrough)
{
    request.targetKind = u"elf"_s;
    const QString report = Pack();
    EXPECT_TRUE(report.endsWith(u"\r\n\r\npack done\r\n\r\n### error 87 ###\r\n"_s)) << qPrintable(report);
    EXPECT_FALSE(report.contains(u"pack resource started"_s));
    request.targetKind = u"axf"_s;
    request.resolution = u"240"_s;
    EXPECT_EQ(Pack(), u"\r\n\r\npack done\r\n\r\n### error 87 ###\r\n"_s);
    request.resolution = u"240x320"_s;
    request.inputFile.clear();
    EXPECT_TRUE(Pack().endsWith(u"\r\n\r\npack done\r\n\r\n### error -1000 ###\r\n"_s));
    EXPECT_EQ(handler.LastError(), -1000);
}

TEST_F(ProjectCommands, LoadOfAProjectWithoutConfigurationReportsBothErrors)
{
    QString error;
    handler.Handle(COMMAND_LOAD, BuildRecord(CommandRecord{project.Path("other/other.vcproj")}, error).value());
    EXPECT_EQ(pipe.report, u"\r\n### error 7 ###\r\n\r\n\r\nload done\r\n\r\n### error 110 ###\r\n"_s);
}

TEST_F(ProjectCommands, ACommandGoesOnWhenTheIdeGoesAwayInTheMiddleOfTheReport)
{
    TestRuntime runtime;
    const FileHandle listener = ListenAt(runtime.Path(PIPE_SOCKET));
    ReportPipe realPipe;
    CommandHandler withIde(env, documents, realPipe);
    services.GetCommandID = [&](const QString &path) {
        FileHandle(accept(listener.Get(), nullptr, nullptr)); // the IDE dies between two lines
        return withIde.GetCommandID(&path);
    };
    documents.opened = [&](CDocument &) { FileHandle(accept(listener.Get(), nullptr, nullptr)); };
    QString error;
    EXPECT_EQ(withIde.Handle(COMMAND_PACK, BuildRecord(request, error).value()), 1);
    EXPECT_EQ(withIde.LastError(), 0);
    EXPECT_TRUE(project.Get("demo/app.axf.pkd").contains("ding dong"));
    services.GetCommandID = nullptr;
}

} // namespace
