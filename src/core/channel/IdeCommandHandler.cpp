// SPDX-License-Identifier: MIT
#include "IdeCommandHandler.h"

#include "CommandRecord.h"
#include "HostFiles.h"
#include "PackCodes.h"
#include "PackFailure.h"
#include "PackTrial.h"
#include "Paths.h"
#include "ProjectLayouts.h"

#include <utility>

namespace
{

constexpr CodeText REPORT_CODES[] = {
    {CAUSE_BAD_DOCUMENT, "the project can't be read",
     "The lines before say which file is missing or damaged. Another code follows."},
    {int(ReportCode::SaveFailed), "the save failed", "The lines before, and standard error, say which file and why."},
    {int(ReportCode::BadPackRequest),
     "the resolution does not have the form 240x320, or the target kind is neither axf nor dll",
     "Correct the resolution or the target kind."},
    {int(ReportCode::NotLoaded), "the project didn't open",
     "The lines before say which file is missing or damaged. morvanite-cli check finds the reasons too."},
    {int(ReportCode::NoDocument), "the project can't be opened",
     "The lines before say which file is missing or damaged. morvanite-cli check finds the reasons too."},
};

} // namespace

std::span<const CodeText> ReportCodes()
{
    return REPORT_CODES;
}

QString PackReportText(int errorCode)
{
    for (const int own : {int(ReportCode::BadPackRequest), int(ReportCode::NoDocument)}) {
        for (const CodeText &row : REPORT_CODES) {
            if (row.code == errorCode && errorCode == own)
                return QString::fromLatin1(row.when);
        }
    }
    return PackFailureText(errorCode);
}

/// The state of a running command. Its destructor ends the command.
class IdeCommandHandler::Running
{
public:
    Running(IdeCommandHandler &commandHandler, quint32 id) : handler(commandHandler)
    {
        handler.commandId = id;
        handler.env.FailureCount = 0;
        handler.env.DebugTrace("Morvanite: m_uCmdId=%ud\n", id);
    }
    ~Running()
    {
        handler.CommandTarget = nullptr;
        handler.commandId = 0;
        if (closesPipe && handler.pipe.IsOpen())
            handler.pipe.Close();
    }
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;

    void LeavePipe() { closesPipe = false; }

private:
    IdeCommandHandler &handler;
    bool closesPipe = true;
};

IdeCommandHandler::IdeCommandHandler(Environment &environment, CDocManager &documentManager, IReportPipe &reportPipe)
    : env(environment), documents(documentManager), pipe(reportPipe), previousOutput(env.output),
      previousFlush(env.flushOutput)
{
    env.flushOutput = [this] { pipe.Flush(); };
    env.output = [this](QStringView text) {
        if (commandId != 0) {
            if (pipe.IsOpen())
                pipe.Write(text);
        } else if (idleOutput) {
            idleOutput(text);
        }
    };
}

IdeCommandHandler::~IdeCommandHandler()
{
    env.output = std::move(previousOutput);
    env.flushOutput = std::move(previousFlush);
}

int IdeCommandHandler::Handle(quint32 dwData, QByteArrayView record)
{
    Running running(*this, dwData);
    switch (dwData) {
    case IDE_COMMAND_LOAD:
        RunLoad(ProjectPathOf(record));
        break;
    case IDE_COMMAND_SAVE:
        RunSave(ProjectPathOf(record));
        break;
    case IDE_COMMAND_PACK:
        RunPack(PackRequestOf(record));
        break;
    default:
        running.LeavePipe();
        break;
    }
    return 1;
}

void IdeCommandHandler::Load(const QString &projectPath)
{
    const Running running(*this, IDE_COMMAND_LOAD);
    RunLoad(projectPath);
}

void IdeCommandHandler::Save(const QString &projectPath)
{
    const Running running(*this, IDE_COMMAND_SAVE);
    RunSave(projectPath);
}

void IdeCommandHandler::Pack(const PackRequest &request)
{
    const Running running(*this, IDE_COMMAND_PACK);
    RunPack(request);
}

quint32 IdeCommandHandler::GetCommandID(const QString *docPath) const
{
    env.DebugTrace("enter CMainFrame::GetCommandID, docPath=%s", docPath ? qUtf8Printable(*docPath) : "(null)");
    if (CommandTarget && docPath && NamesSameFile(*CommandTarget, *docPath)) {
        env.DebugTrace("CMainFrame::GetCommandID, return m_uCmdId=%ud", commandId);
        return commandId;
    }
    env.DebugTrace("CMainFrame::GetCommandID, return m_uCmdId=0");
    return 0;
}

void IdeCommandHandler::RunLoad(const std::optional<QString> &projectPath)
{
    int errorCode = 0;
    if (projectPath) {
        env.DebugTrace("Morvanite got LOAD command\n");
        OpenPipe();
        CommandTarget = &*projectPath;
        const auto *doc = dynamic_cast<CResDoc *>(documents.OpenDocumentFile(*projectPath));
        if (!doc || doc->IsUnreadable())
            errorCode = int(ReportCode::NotLoaded);
        if (bringToTop)
            bringToTop();
        env.DebugTrace("Morvanite finished LOAD command\n");
    }
    env.DebugTrace("Morvanite ENDed LOAD command\n");
    Report("\r\n\r\nload done\r\n", errorCode);
}

void IdeCommandHandler::RunSave(const std::optional<QString> &projectPath)
{
    int errorCode = 0;
    if (projectPath) {
        env.DebugTrace("Morvanite got SAVE command\n");
        OpenPipe();
        CDocument *doc = documents.FindDocument(*projectPath);
        CommandTarget = &*projectPath;
        if (doc && !doc->DoFileSave())
            errorCode = int(ReportCode::SaveFailed);
    }
    env.DebugTrace("Morvanite finished SAVE command\n");
    Report("\r\n\r\nsave done\r\n", errorCode);
}

void IdeCommandHandler::RunPack(const std::optional<PackRequest> &request)
{
    int errorCode = 0;
    if (request) {
        OpenPipe();
        env.DebugTrace("Morvanite got PACK command\n");
        CDocument *open = documents.FindDocument(request->projectPath);
        CommandTarget = &request->projectPath;
        env.DebugTrace("Morvanite: m_szCmdTarget=%s\n", qUtf8Printable(request->projectPath));
        if (!open)
            open = documents.OpenDocumentFile(request->projectPath);
        else
            open->OnOpenAgain();
        auto *const doc = dynamic_cast<CResDoc *>(open);
        if (doc && doc->IsUnreadable()) {
            env.Explain(
                QStringLiteral(
                    "%1: nothing was packed because the project's files can't be read, and the project that is open "
                    "here is older or incomplete. Repair the files, or close the project and open it again")
                    .arg(request->projectPath));
            errorCode = PACK_UNREADABLE;
        } else if (doc) {
            if (beforePack && !beforePack(*doc)) {
                pipe.Close();
                lastError = 0;
                return;
            }
            NumberIds(*doc, request->projectPath);
            errorCode = PackDocument(*doc, *request);
        } else {
            errorCode = int(ReportCode::NoDocument);
        }
        env.DebugTrace("Morvanite finished PACK command, err code=%d\n", errorCode);
    }
    Report("\r\n\r\npack done\r\n", errorCode);
}

namespace
{

/// Returns false, and explains why, if the code page can't express the path of the input or of the output: the pack
/// would use another file.
bool HasPathsOfCodePage(const Environment &env, const PackRequest &request)
{
    for (const QString &path : {request.inputFile, request.outputFile}) {
        const QString missing = env.codePage.FirstMissing(path);
        if (missing.isEmpty())
            continue;
        env.Explain(QStringLiteral("%1: the path can't be expressed in the project's code page, which lacks the "
                                   "character \"%2\"; rename the folder or file, or choose another code page "
                                   "(section Text, key code_page)")
                        .arg(path, missing));
        return false;
    }
    return true;
}

} // namespace

void IdeCommandHandler::NumberIds(CResDoc &doc, const QString &projectPath) const
{
    doc.env.RefreshSettings();
    env.DebugTrace("implicit ID Gen before Pack\n");
    const int generated = doc.GenerateIds(nullptr);
    env.DebugTrace("implicit ID Gen before Pack done, result is %d\n", generated);
    if (generated != 0)
        env.ExplainFailure(QStringLiteral("%1: there are more IDs of one kind than there are numbers, so some IDs of "
                                          "the pack have wrong numbers")
                               .arg(projectPath));
}

void IdeCommandHandler::TryPack(CResDoc &document, const PackRequest &request, PackTrial &trial)
{
    env.FailureCount = 0;
    NumberIds(document, request.projectPath);
    if (const int code = PackDocument(document, request, &trial))
        trial.Note(code, {});
}

int IdeCommandHandler::PackDocument(CResDoc &doc, const PackRequest &request, PackTrial *trial)
{
    auto parameters = PackInfoOf(request, doc.env, doc.tables.resolutions);
    if (!parameters)
        return int(ReportCode::BadPackRequest);
    if (!HasPathsOfCodePage(doc.env, request))
        return PACK_CODE_PAGE;
    parameters->temp = packTemp;
    parameters->depfile = packDepfile;
    parameters->headers = packHeaders;
    parameters->budget = packBudget;
    parameters->options = PackOptionsOf(doc.env.settings, [&doc](const QString &text) { doc.env.Explain(text); });
    if (packOptions)
        packOptions(parameters->options);
    parameters->projectFiles = doc.ProjectFiles();
    if (const QStringList missing = MissingLayouts(doc); !missing.isEmpty()) {
        for (const QString &reason : missing)
            trial ? trial->reasons.append(reason) : env.Explain(reason);
        if (AfterStep(trial, PACK_LAYOUT_FILE) != 0)
            return PACK_LAYOUT_FILE;
    }
    for (const QString &reason : LeftOutLayouts(doc))
        env.ExplainFailure(reason +
                           QStringLiteral("; the pack has no such layout, and the IDs are numbered without it"));
    if (!SetCurrentFolder(DirectoryOf(doc.PathName())))
        return int(ReportCode::NoDocument); // its folder is gone
    if (!trial)
        return Packer::Pack(*parameters, doc, packInputs);
    Packer::Try(*parameters, doc, *trial);
    return PACK_OK;
}

void IdeCommandHandler::OpenPipe()
{
    if (!pipe.IsOpen() && !pipe.Open())
        env.DebugTrace("Could not open pipe");
}

void IdeCommandHandler::Report(const char *doneText, int errorCode)
{
    lastError = errorCode;
    if (!pipe.IsOpen())
        return;
    QString text = QString::fromLatin1(doneText);
    if (errorCode != 0)
        text += QStringLiteral("\r\n### error %1 ###\r\n").arg(errorCode);
    pipe.Write(text);
    pipe.Close();
}
