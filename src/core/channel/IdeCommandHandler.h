#pragma once

#include "CResDoc.h"
#include "CommandRecord.h"
#include "Environment.h"

#include <functional>

/// Commands that an IDE sends; the number is what the message carries.
enum IdeCommand : quint32
{
    IDE_COMMAND_LOAD = 0xAFBDDBFB,
    IDE_COMMAND_SAVE = 0xAFBDDBFC,
    IDE_COMMAND_PACK = 0xAFBDDBFD,
};

/// What the error code of a pack's report means, in one sentence; empty for 0.
[[nodiscard]] QString PackReportText(int errorCode);

/// The error codes of a report that no operation gave. A pack adds its own.
enum class ReportCode : int
{
    SaveFailed = 29,
    BadPackRequest = 87, ///< resolution or target kind not recognised
    NotLoaded = 110,
    NoDocument = 404, ///< a pack of a project that isn't open and couldn't be opened
};

/// Where a report goes: the IDE's pipe, or the standard output of the headless program.
class IReportPipe
{
public:
    virtual ~IReportPipe() = default;
    /// Connects; false when nobody serves the pipe.
    virtual bool Open() = 0;
    [[nodiscard]] virtual bool IsOpen() const = 0;
    /// Takes UTF-16 text whole, blocking; drops the rest silently when the other end is gone. May hold text back for a
    /// moment, until `Flush` or `Close` at the latest.
    virtual void Write(QStringView text) = 0;
    /// Sends what is held back: a step that may take long comes next.
    virtual void Flush() {}
    virtual void Close() = 0;
};

/// What a command does, with a window and without. Main thread only; one command at a time.
///
/// For its life it is what the environment's output leads to: to the pipe while a command runs, else to `idleOutput`.
/// Afterwards the output goes where it went before.
class IdeCommandHandler
{
public:
    /// Everything handed in must live longer.
    IdeCommandHandler(Environment &environment, CDocManager &documentManager, IReportPipe &reportPipe);
    ~IdeCommandHandler();
    IdeCommandHandler(const IdeCommandHandler &) = delete;
    IdeCommandHandler &operator=(const IdeCommandHandler &) = delete;

    /// Runs one command; always 1. `record` is only looked at during the call. What an operation throws goes through,
    /// with the pipe closed and no command running.
    int Handle(quint32 dwData, QByteArrayView record);

    // The same for records at hand, whose paths may be longer than a message has room for.
    void Load(const CommandRecord &record);
    void Save(const CommandRecord &record);
    void Pack(const PackCommandRecord &record);

    /// The command that is running for the document of that path (NamesSameFile); 0 when none is.
    [[nodiscard]] quint32 GetCommandID(const QString *docPath) const;

    /// Where output goes while no command runs; nothing by default.
    Environment::Sink idleOutput;
    /// Brings the main window to the top; may be empty.
    std::function<void()> bringToTop;
    /// Gets the host path of every file that a pack reads, for a build tool's list of dependencies; null: not wanted.
    std::vector<QByteArray> *packInputs = nullptr;
    /// Asked when a project is open and before it is packed; false: it isn't packed, and the report ends there. May be
    /// empty.
    std::function<bool(CResDoc &document)> beforePack;
    /// The folder for what a pack makes for itself (packinfo::temp); empty: beside the sources.
    QString packTemp;
    /// What the caller writes when a pack is done (packinfo::depfile); empty: nothing.
    QString packDepfile;
    /// The folder that the headers of a pack's project were written to (packinfo::headers); empty: the project's.
    QString packHeaders;
    /// The error code of the last report, 0 if it had none.
    [[nodiscard]] int LastError() const { return lastError; }

private:
    class Running;
    // Without a record: its message was too short.
    void RunLoad(const std::optional<CommandRecord> &record);
    void RunSave(const std::optional<CommandRecord> &record);
    void RunPack(const std::optional<PackCommandRecord> &record);
    [[nodiscard]] int PackDocument(CResDoc &doc, const PackCommandRecord &record);
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
