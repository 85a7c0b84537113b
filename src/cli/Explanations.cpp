// SPDX-License-Identifier: MIT
#include "Explanations.h"

#include "FindingKinds.h"
#include "IdeCommandHandler.h"
#include "LayoutFileObject.h"
#include "PackFailure.h"
#include "Rules.h"
#include "Spreadsheet.h"
#include "StringFileFormat.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{

constexpr CodeText LAYOUT_CODES[] = {
    {LAYOUT_NOT_OPENED, "a layout file can't be opened", "Restore the file, or check its permissions."},
    {LAYOUT_NOT_WELL_FORMED, "a layout file isn't well-formed XML", "Correct the line that is named."},
    {LAYOUT_NOT_WRITTEN, "a layout file can't be written",
     "Check the permissions of the file and its folder, and the space on the disk."},
    {LAYOUT_NO_PATH, "a layout file has no path", "Save the project."},
    {LAYOUT_NO_ROOT, "a layout file has no element", "Restore the file."},
    {LAYOUT_WRONG_ROOT, "the outermost element of a layout file isn't TarvoXML", "Correct the file."},
    {LAYOUT_WRONG_CHILD, "TarvoXML has an element that isn't a Layout", "Correct the file."},
    {LAYOUT_NO_ID, "a layout has no ID", "Give its element the attribute id."},
    {LAYOUT_ID_REFUSED, "another resource has the ID of a layout", "Rename one of them."},
    {LAYOUT_CANT_BE_READ_BACK, "a layout couldn't be read back from its file",
     "Move components up, or remove attributes: the file can't hold so many levels or attributes."},
};

constexpr CodeText STRING_CODES[] = {
    {StringFileFormat::WRONG_HEADER, "one of the first two lines of the string file has another word than expected",
     "Restore the line."},
    {StringFileFormat::CANT_OPEN, "the string file can't be opened", "Restore the file, or check its permissions."},
    {StringFileFormat::CANT_READ_LINE, "the string file ends too early", "Restore the file."},
    {StringFileFormat::CANT_WRITE, "the string file can't be written",
     "Check the permissions of the file and its folder, and the space on the disk."},
    {StringFileFormat::UNKNOWN_LANGUAGE, "a language in line 2 of the string file has no number",
     "Write its number in brackets after its name, as in English(0)."},
};

constexpr CodeText WORKBOOK_CODES[] = {
    {SHEET_FAILED, "a workbook can't be read or written", "Standard error says why."},
    {SHEET_EMPTY, "a workbook has fewer than 3 rows or columns", "The string table must be on the first sheet."},
};

constexpr struct
{
    std::span<const CodeText> (*rows)();
    const char *kind;
    const char *document;
} CODES[] = {
    {PackFailures, "a pack failed", "pack-codes.md"},
    {ReportCodes, "the error line of a command", "channel.md"},
    {[] { return std::span<const CodeText>(LAYOUT_CODES); }, "a layout file", "formats/project-files.md"},
    {[] { return std::span<const CodeText>(STRING_CODES); }, "a string file", "formats/string-file.md"},
    {[] { return std::span<const CodeText>(WORKBOOK_CODES); }, "a workbook", "formats/workbook.md"},
};

QString Utf8(const char *text)
{
    return QString::fromUtf8(text);
}

/// The code of a pack that couldn't open an output: the system's number of an error.
std::optional<Explanation> SystemError(const QString &code)
{
    bool isNumber = false;
    const int error = code.toInt(&isNumber);
    if (!isNumber || error <= 0 || !strerrorname_np(error))
        return std::nullopt;
    return Explanation{code, u"a pack failed"_s, PackFailureText(error),
                       u"Make the folder, or correct its permissions or the path of --output."_s, u"pack-codes.md"_s};
}

/// Returns the code in a text that a user may have copied from a report, such as "### error -1016 ###" or "error 5".
QString CodeIn(const QString &text)
{
    static const QRegularExpression ERROR(u"^(?:###)? *error *:? *(-?[0-9]+):? *(?:###)?$"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    const QString trimmed = text.trimmed();
    const QRegularExpressionMatch match = ERROR.match(trimmed);
    return match.hasMatch() ? match.captured(1) : trimmed;
}

std::vector<Explanation> ExplanationsOfExactly(const QString &code)
{
    std::vector<Explanation> found;
    for (Explanation &one : AllExplanations()) {
        if (one.code == code)
            found.push_back(std::move(one));
    }
    if (auto error = SystemError(code))
        found.push_back(std::move(*error));
    return found;
}

} // namespace

QString Explanation::Text() const
{
    return u"%1 (%2): %3\n    %4\n    See %5.\n"_s.arg(code, kind, when, whatToDo, document);
}

std::vector<Explanation> AllExplanations()
{
    std::vector<Explanation> all;
    for (const auto &family : CODES) {
        std::vector<CodeText> rows(family.rows().begin(), family.rows().end());
        std::stable_sort(rows.begin(), rows.end(),
                         [](const CodeText &a, const CodeText &b) { return std::abs(a.code) < std::abs(b.code); });
        for (const CodeText &row : rows)
            all.push_back({QString::number(row.code), Utf8(family.kind), Utf8(row.when), Utf8(row.whatToDo),
                           Utf8(family.document)});
    }
    for (const FindingKind &row : FindingKinds())
        all.push_back({Utf8(row.code), u"a finding"_s, Utf8(row.when), Utf8(row.whatToDo), Utf8(row.document)});
    for (const Rule &rule : AllRules())
        all.push_back(
            {Utf8(rule.id), NameOfLevel(rule.level), Utf8(rule.summary), Utf8(rule.explanation), u"checks.md"_s});
    return all;
}

std::vector<Explanation> ExplanationsOf(const QString &text)
{
    const QString code = CodeIn(text);
    std::vector<Explanation> found = ExplanationsOfExactly(code);
    if (found.empty() && !code.isEmpty() && code[0].isDigit())
        found = ExplanationsOfExactly(u'-' + code); // most codes are below 0, and the sign is easily lost
    return found;
}
