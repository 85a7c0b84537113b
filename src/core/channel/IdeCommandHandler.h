// SPDX-License-Identifier: MIT
#pragma once

#include "CResDoc.h"
#include "CodeText.h"
#include "Environment.h"
#include "PackOptions.h"
#include "PackRequest.h"

#include <functional>
#include <span>

struct PackTrial;

/// Explains the error code of a pack's report in one sentence; empty for 0.
[[nodiscard]] QString PackReportText(int errorCode);

/// All codes of a report that aren't those of a pack.
[[nodiscard]] std::span<const CodeText> ReportCodes();

/// The error codes of a report that don't come from an operation. A pack has further codes of its own.
enum class ReportCode : int
{
    SaveFailed = 29,
    BadPackRequest = 87, ///< resolution or target kind not recognised
    NotLoaded = 110,
    NoDocument = 404, ///< a pack of a project that isn't open and couldn't be opened
};

/// The destination of a report: the IDE's pipe, or the standard output of the headless program.
class IReportPipe
{
public:
    virtual ~IReportPipe() = default;
    /// Connects. Returns false if no program serves the pipe.
    virtual bool Open() = 0;
    [[nodiscard]] virtual bool IsOpen() const = 0;
    /// Writes the whole UTF-16 text and blocks if necessary; silently drops the rest if the other end is gone. May keep
    /// text for a moment, until `Flush` or `Close` at the latest.
    virtual void Write(QStringView text) = 0;
    /// Sends the text that `Write` has kept. Called before a step that may take long.
    virtual void Flush() {}
    virtual void Close() = 0;
};

/// Runs commands, with or without a window. Main thread only; one command at a time.
///
/// While it exists, it receives the environment's output and passes it to the pipe while a command runs, otherwise to
/// `idleOutput`. Its destructor restores the previous output.
class IdeCommandHandler
{
public:
    /// All arguments must outlive this object.
    IdeCommandHandler(Environment &environment, CDocManager &documentManager, IReportPipe &reportPipe);
    ~IdeCommandHandler();
    IdeCommandHandler(const IdeCommandHandler &) = delete;
    IdeCommandHandler &operator=(const IdeCommandHandler &) = delete;

    /// Runs one command. Always returns 1. `record` is only used during the call. An exception of an operation is
    /// passed on after the pipe is closed and the command has ended.
    int Handle(quint32 dwData, QByteArrayView record);

    // The same with what a record says. The paths may be longer than a record allows.
    void Load(const QString &projectPath);
    void Save(const QString &projectPath);
    void Pack(const PackRequest &request);

    /// The command that is running for the document with that path (NamesSameFile); 0 if there is none.
    [[nodiscard]] quint32 GetCommandID(const QString *docPath) const;

    /// Tries a pack of an open document (Packer::Try): nothing is written, and there is no report. Numbers the IDs.
    void TryPack(CResDoc &document, const PackRequest &request, PackTrial &trial);

    /// Receives the output while no command runs; empty by default.
    Environment::Sink idleOutput;
    /// Brings the main window to the top; may be empty.
    std::function<void()> bringToTop;
    /// Gets the host path of every file that a pack reads, for a build tool's list of dependencies; null if not needed.
    std::vector<QByteArray> *packInputs = nullptr;
    /// Called after a project is opened and before it is packed. If it returns false, the project isn't packed and the
    /// report ends there. May be empty.
    std::function<bool(CResDoc &document)> beforePack;
    /// The folder for a pack's own temporary files (packinfo::temp); empty: beside the sources.
    QString packTemp;
    /// The file that the caller writes after a pack (packinfo::depfile); empty: none.
    QString packDepfile;
    /// The folder with the headers of a pack's project (packinfo::headers); empty: the folder that the project's
    /// settings name.
    QString packHeaders;
    /// The most bytes that the payload of a pack may have (packinfo::budget); 0: no limit.
    quint64 packBudget = 0;
    /// Changes the options that the settings give a pack; may be empty.
    std::function<void(PackOptions &options)> packOptions;
    /// The error code of the last report, 0 if it had none.
    [[nodiscard]] int LastError() const { return lastError; }

private:
    class Running;
    // Without a record, the message was too short.
    void RunLoad(const std::optional<QString> &projectPath);
    void RunSave(const std::optional<QString> &projectPath);
    void RunPack(const std::optional<PackRequest> &request);
    void NumberIds(CResDoc &doc, const QString &projectPath) const;
    [[nodiscard]] int PackDocument(CResDoc &doc, const PackRequest &request, PackTrial *trial = nullptr);
    void OpenPipe();
    void Report(const char *doneText, int errorCode);

    Environment &env;
    CDocManager &documents;
    IReportPipe &pipe;
    Environment::Sink previousOutput;
    std::function<void()> previousFlush;
    quint32 commandId = 0;
    const QString *CommandTarget = nullptr; // only while a command runs
    int lastError = 0;
};
