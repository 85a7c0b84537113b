#pragma once

#include "FileTransaction.h"
#include "Finding.h"
#include "Notifier.h"
#include "Settings.h"
#include "Text.h"
#include "WarningLimit.h"

#include <cstdarg>
#include <functional>
#include <memory>

/// How the report's line of a finding begins.
enum class LineStart
{
    BySeverity, ///< "Error 3: " or "Warning 3: "
    Warning,    ///< "Warning 3: ", though it counts as an error and has its number
    Fatal,      ///< "Fatal error: "
};

/// What one running program shares: its folder, settings, code page, both logs and the counters of the current
/// operation. A test makes a fresh one. Main thread only.
///
/// Each document has an environment of its own, made of the process's: the two share logs and counters, but a project
/// has its own settings and code page.
class Environment
{
public:
    using Sink = std::function<void(QStringView)>;

    /// `programFolder` is the folder of the program's own files. Reads "Morvanite.ini" there and in the user's folder:
    /// "morvanite" in `configFolder`, or in the user's configuration folder where that is empty.
    explicit Environment(const QString &programFolder = FindProgramDir(), const QString &configFolder = {});
    /// The environment of a project that isn't open yet. `process` must live longer.
    explicit Environment(Environment &process);
    ~Environment();
    Environment(const Environment &) = delete;
    Environment &operator=(const Environment &) = delete;

    /// The value of MORVANITE_PROGRAM_DIR, else the folder of the executable.
    static QString FindProgramDir();

    /// The program's folder with its trailing separator.
    [[nodiscard]] const QString &ProgramDir() const { return programDir; }
    /// The configuration folder that was given in place of the user's; empty when none was.
    [[nodiscard]] const QString &ConfigFolder() const { return ownConfigFolder; }
    /// The files that settings and the language table are read from; some may not be there.
    [[nodiscard]] QStringList SettingsFiles() const;

    [[nodiscard]] NarrowText WideToNarrow(QStringView text) const { return codePage.FromWide(text); }
    [[nodiscard]] QString NarrowToWide(QByteArrayView text) const { return codePage.ToWide(text); }

    /// Narrow text as the UTF-8 that the log functions take for %s.
    [[nodiscard]] QByteArray Shown(const NarrowText &text) const;

    /// The user-visible log. Text beyond 511 characters is cut to 508 and "...". %s takes UTF-8.
    void WriteOutput(const char *format, ...) __attribute__((format(printf, 2, 3)));

    /// The developer's log, cut in the same way; goes nowhere unless somebody listens.
    void DebugTrace(const char *format, ...) __attribute__((format(printf, 2, 3)));

private:
    /// What the environments of a process have in common.
    struct Shared
    {
        Sink output;
        std::function<void()> flushOutput;
        std::function<void()> whileWaiting;
        Sink trace;
        std::function<void(const QString &text)> explain;
        int errors = 0;
        int warnings = 0;
        int dropped = 0;
        int failures = 0;
        Notifier<const Finding &> found;
        WarningLimit warningLimit;
    };
    std::unique_ptr<Shared> own; // of the process's environment
    Shared &shared;

public:
    /// Who gets what `WriteOutput` writes. The frame and the command handler set it.
    Sink &output = shared.output;
    /// What `FlushOutput` calls; may be empty.
    std::function<void()> &flushOutput = shared.flushOutput;
    /// Called again and again while the program waits for an outside tool; may be empty.
    std::function<void()> &whileWaiting = shared.whileWaiting;
    /// Who gets what `DebugTrace` writes; empty by default.
    Sink &trace = shared.trace;
    /// Who gets what `Explain` and `ExplainFailure` say; may be empty. The command line shows it on standard error, the
    /// window in its output.
    std::function<void(const QString &text)> &explain = shared.explain;

    /// Tells of every finding.
    Notifier<const Finding &> &found = shared.found;

    /// Errors and warnings of the current load, save or import; `Report` counts them, and they number its lines.
    int &ErrorCount = shared.errors;
    int &WarningCount = shared.warnings;
    /// How many elements and rows the current load left out, so that a save would lose them.
    int &DroppedCount = shared.dropped;
    /// How many times `ExplainFailure` was called in the current operation.
    int &FailureCount = shared.failures;

    /// Sets the four counters to 0, at the beginning of an operation.
    void ResetCounts();

    /// Counts a finding by its severity, writes its line of the report, and hands it to the listeners. `format` and the
    /// arguments, of which %s takes UTF-8, give the line behind "Error 3: "; it gets a line end. A finding without a
    /// text is handed on with the line's.
    void Report(const Finding &finding, const char *format, ...) __attribute__((format(printf, 3, 4)));
    void Report(const Finding &finding, LineStart start, const char *format, ...) __attribute__((format(printf, 4, 5)));
    /// Hands a finding to the listeners that the report has no line for. No counter counts it.
    void Note(const Finding &finding) { found.Tell(finding); }
    /// From now to the end of the report, only the first 1,000 warnings of one code have a line each.
    void LimitWarnings() { shared.warningLimit.Begin(); }
    /// Ends the report of an operation: the warnings that have no line each, then "[NAME] OPERATION - " and the counts.
    void EndReport(const QString &name, const char *operation);

    /// Says in plain words what the report of an operation has no line for: which file, why, what to do. One sentence
    /// without a line end.
    void Explain(const QString &text) const;
    /// Says it of work that was not done although the report has no error line for it: the command line ends with 1.
    void ExplainFailure(const QString &text);

    Settings settings;
    /// Takes in what has been changed in the settings and the language table; at the beginning of an operation. The
    /// code page stays: what is in memory has it.
    void RefreshSettings();
    /// Puts the settings of the project in `folder` over the program's and selects the project's code page. What is
    /// wrong with them is explained. False when they name a code page that doesn't exist. Before anything is read.
    [[nodiscard]] bool UseProjectSettings(const QString &folder);
    CodePage codePage;
    /// True when the settings name a code page that doesn't exist; UTF-8 is used then.
    bool codePageUnknown = false;

    /// Sends on what `WriteOutput` wrote and is held back, since something that takes long comes next.
    void FlushOutput();

    /// Replaces a file in one step, or together with the others of the transaction that is under way. 0, or the
    /// system's error number, which has been explained (ExplainFailure).
    [[nodiscard]] int ReplaceFile(QStringView path, QByteArrayView bytes, IfRefused ifRefused = IfRefused::Stop);
    /// The transaction under way; it sets this itself.
    FileTransaction *transaction = nullptr;

    /// The language table's section `Language` of "tuvik.ini", lines of the form name=number.
    [[nodiscard]] QStringList ReadLanguageTable() const;
    /// The number of a language of that table, or -1.
    [[nodiscard]] int LanguageNumber(const QString &name) const;

private:
    void SelectCodePage();
    void ReportLine(const Finding &finding, LineStart lineStart, const char *format, va_list arguments);
    QString programDir;
    QString ownConfigFolder;
    mutable std::unique_ptr<ProfileFile> languages; // read at the first use
    [[nodiscard]] const Profile &Languages() const;
    [[nodiscard]] QString LanguageFile() const;
};
