// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

class RuleReport;
class TextContext;
struct CheckInput;
struct FileCheckInput;
struct TextPair;

/// How serious the findings of a rule are. The settings can change it for each rule.
enum class RuleLevel : quint8
{
    Off, ///< the rule isn't run
    Note,
    Warning,
    Error,
};

/// What the rules of a group look at. The documentation has a section for each.
enum class RuleGroup : quint8
{
    Texts,
    Ids,
    Project,
    Files,
    Images,
    Layouts,
    Check, ///< the settings and the baseline of the check itself
};

/// Checks one text of a row against the source text. Returns what is wrong as a sentence without its full stop; empty
/// if nothing is. Must not allocate memory for a text without a finding. Called from several threads.
using TextRule = QString (*)(const TextPair &pair, const TextContext &context);

/// Checks a whole project, and reports each finding.
using ProjectRule = void (*)(const CheckInput &input, RuleReport &report);

/// Checks a whole project in parts, so that the window can let the user work between them. Keeps what it needs from one
/// part to the next; the project may have been edited meanwhile.
class RuleInParts
{
public:
    virtual ~RuleInParts() = default;
    /// Runs the next part, which takes a few milliseconds, and reports what it finds. Returns whether there are more.
    virtual bool Step(const CheckInput &input, RuleReport &report) = 0;
};
using BeginRule = std::unique_ptr<RuleInParts> (*)();

/// Checks the files that a project names, and reports each finding. May be called in another thread than the main one.
using FileRule = void (*)(const FileCheckInput &input, RuleReport &report);

/// A rule of the check: one row of the table.
struct Rule
{
    const char *id; ///< the stable name, such as "file-missing"
    RuleGroup group;
    RuleLevel level;         ///< if the settings don't say otherwise
    const char *summary;     ///< one line
    const char *explanation; ///< what the rule finds, why that is wrong, and what to do
    // At most one of the functions. A rule without one has findings that others report, such as the load.
    TextRule text = nullptr;
    /// A text rule is called only for pairs of texts that have one of these features (TextFeature).
    quint32 needs = 0;
    ProjectRule project = nullptr;
    FileRule files = nullptr;
    BeginRule parts = nullptr;
};
