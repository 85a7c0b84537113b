// SPDX-License-Identifier: MIT
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

/// How a finding's line in the report begins.
enum class LineStart
{
    BySeverity, ///< "Error 3: " or "Warning 3: "
    Warning,    ///< "Warning 3: ", although it counts as an error and has an error's number
    Fatal,      ///< "Fatal error: "
};

/// The state that all parts of a running program share: the program's folder, the settings, the code page, both logs
/// and the counters of the current operation. A test makes a fresh one. Main thread only.
///
/// Each document has an environment of its own, which is made from the process's environment. The two share logs and
/// counters, but a project has its own settings and code page.
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

    /// Returns the value of MORVANITE_PROGRAM_DIR, or the folder of the executable if that isn't set.
    static QString FindProgramDir();

    /// The program's folder with its trailing separator.
    [[nodiscard]] const QString &ProgramDir() const { return programDir; }
    /// The configuration folder that the constructor got in place of the user's; empty if it got none.
    [[nodiscard]] const QString &ConfigFolder() const { return ownConfigFolder; }
    /// The files that settings and the language table are read from. Some of them may not exist.
    [[nodiscard]] QStringList SettingsFiles() const;

    [[nodiscard]] NarrowText WideToNarrow(QStringView text) const { return codePage.FromWide(text); }
    [[nodiscard]] QString NarrowToWide(QByteArrayView text) const { return codePage.ToWide(text); }

    /// Converts narrow text to the UTF-8 that the log functions take for %s.
    [[nodiscard]] QByteArray Shown(const NarrowText &text) const;

    /// Writes to the log that the user sees. A text of more than 511 characters is cut to 508 and "...". %s takes
    /// UTF-8.
    void WriteOutput(const char *format, ...) __attribute__((format(printf, 2, 3)));

    /// Writes to the developer's log, with the same limit. Does nothing while `trace` is empty.
    void DebugTrace(const char *format, ...) __attribute__((format(printf, 2, 3)));

private:
    /// What all environments of a process share.
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
    std::unique_ptr<Shared> own; // only the process's environment has it
    Shared &shared;

public:
    /// Gets what `WriteOutput` writes. The frame and the command handler set it.
    Sink &output = shared.output;
    /// What `FlushOutput` calls; may be empty.
    std::function<void()> &flushOutput = shared.flushOutput;
    /// Called repeatedly while the program waits for an outside tool; may be empty.
    std::function<void()> &whileWaiting = shared.whileWaiting;
    /// Gets what `DebugTrace` writes; empty by default.
    Sink &trace = shared.trace;
    /// Gets the texts of `Explain` and `ExplainFailure`; may be empty. The command line shows them on standard error,
    /// the window in its output.
    std::function<void(const QString &text)> &explain = shared.explain;

    /// Reports every finding.
    Notifier<const Finding &> &found = shared.found;

    /// The errors and warnings of the current load, save or import. `Report` counts them and numbers its lines with
    /// them.
    int &ErrorCount = shared.errors;
    int &WarningCount = shared.warnings;
    /// How many elements and rows the current load left out. A save would lose them.
    int &DroppedCount = shared.dropped;
    /// How many times `ExplainFailure` was called in the current operation.
    int &FailureCount = shared.failures;

    /// Sets the four counters to 0, at the beginning of an operation.
    void ResetCounts();

    /// Counts a finding by its severity, writes its line of the report, and passes it to the listeners of `found`.
    /// `format` and the arguments (%s takes UTF-8) make the text of the line after "Error 3: "; a line end is added. If
    /// the finding has no text, the listeners get it with the text of the line.
    void Report(const Finding &finding, const char *format, ...) __attribute__((format(printf, 3, 4)));
    void Report(const Finding &finding, LineStart start, const char *format, ...) __attribute__((format(printf, 4, 5)));
    /// Passes a finding that has no line in the report to the listeners. No counter counts it.
    void Note(const Finding &finding) { found.Tell(finding); }
    /// From this call to the end of the report, only the first 1,000 warnings of each code have a line of their own.
    void LimitWarnings() { shared.warningLimit.Begin(); }
    /// Ends the report of an operation. Writes one line for each code whose warnings exceed the limit, and then the
    /// line
    /// "[NAME] OPERATION - " with the counts.
    void EndReport(const QString &name, const char *operation);

    /// Explains in plain words what the report of an operation has no line for: which file, why, what to do. `text` is
    /// one sentence without a line end.
    void Explain(const QString &text) const;
    /// Explains why some work was not done for which the report has no error line, and counts the failure. The exit
    /// status of the command line is 1 then.
    void ExplainFailure(const QString &text);

    Settings settings;
    /// Reads the settings and the language table again if their files have changed. Call it at the beginning of an
    /// operation. The code page doesn't change, because the texts in memory are in it.
    void RefreshSettings();
    /// Makes the settings of the project in `folder` override the program's and selects the project's code page.
    /// Explains what is wrong with them. Returns false when they name a code page that doesn't exist. Call it before
    /// anything of the project is read.
    [[nodiscard]] bool UseProjectSettings(const QString &folder);
    CodePage codePage;
    /// True when the settings name a code page that doesn't exist. UTF-8 is used then.
    bool codePageUnknown = false;

    /// Passes on what `WriteOutput` wrote and is still buffered. Call it before something that takes long.
    void FlushOutput();

    /// Replaces a file atomically, or together with the other files of the current transaction. Returns 0, or the
    /// system's error number, which has been explained (ExplainFailure).
    [[nodiscard]] int ReplaceFile(QStringView path, QByteArrayView bytes, IfRefused ifRefused = IfRefused::Stop);
    [[nodiscard]] int ReplaceFile(QStringView path, const FilePieces &content, IfRefused ifRefused = IfRefused::Stop);
    /// The current transaction, which sets this by itself; null if there is none.
    FileTransaction *transaction = nullptr;

    /// Returns the section `Language` of the language table "tuvik.ini": lines of the form name=number.
    [[nodiscard]] QStringList ReadLanguageTable() const;
    /// Returns the section `Code` of the same file: lines of the form number=code.
    [[nodiscard]] QStringList ReadLanguageCodes() const;
    /// Returns the number of a language of that table, or -1.
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
