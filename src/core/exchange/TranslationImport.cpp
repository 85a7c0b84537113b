// SPDX-License-Identifier: MIT
#include "TranslationImport.h"

#include "Environment.h"
#include "ExchangeLanguages.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "IdNames.h"
#include "Locale.h"
#include "Paths.h"
#include "ResModel.h"
#include "StringFileFormat.h"
#include "TranslationFormats.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr qint64 LARGEST_FILE = qint64(256) << 20; // bytes

/// Returns whether a code is the beginning of another: "pt" of "pt-BR".
bool Begins(const QString &code, const QString &longer)
{
    return QString(longer + u'-').startsWith(QString(code + u'-'), Qt::CaseInsensitive);
}

/// Returns whether a name ends in a code: "my-app-de" in "de".
bool Ends(const QString &name, const QString &code)
{
    return QString(u'-' + name).endsWith(QString(u'-' + code), Qt::CaseInsensitive);
}

} // namespace

TranslationImport::TranslationImport(CResModel &model, const ExchangeLanguages &exchangeLanguages,
                                     ImportOptions importOptions)
    : document(model), languages(exchangeLanguages), options(std::move(importOptions)), table(model),
      plan(model, table, QString(), options)
{
    plan.MakeOnlyUsedLanguages();
}

bool TranslationImport::Read(const std::vector<ImportFile> &files, IImportWatch *watch)
{
    Environment &env = document.env;
    env.RefreshSettings();
    env.ResetCounts();
    env.LimitWarnings();
    for (const ImportFile &one : files)
        ReadOne(one);
    MakePlan(watch);
    TellOthers();
    const bool isFine = env.ErrorCount == 0;
    env.EndReport(FileTitle(document.PathName()), "import");
    return isFine;
}

void TranslationImport::ReadOne(const ImportFile &one)
{
    file = &one;
    isSkipped = true;
    const TranslationFormat *const format = TranslationFormatOf(one.path);
    QByteArray bytes = one.content.value_or(QByteArray());
    const int error = !format ? EINVAL : one.content ? 0 : ReadFile(one.path, bytes, LARGEST_FILE);
    if (error != 0)
        return Fault(0, {}, WhyNotRead(one.path, error));
    format->read(bytes, *this);
}

void TranslationImport::Begin(const TranslationHead &head, int line)
{
    const std::optional<qint32> target = TargetOf(head, line);
    const std::optional<qint32> source = target ? SourceOf(head, line) : std::nullopt;
    isSkipped = !source || *source == *target;
    if (!source)
        return;
    if (*source == *target)
        return Fault(
            line, {},
            u"the language of the translations, %1, is also the source language"_s.arg(languages.NameOf(*target)));
    table.BeginPart(*target, *source, file->path, file->name);
}

std::optional<qint32> TranslationImport::TargetOf(const TranslationHead &head, int line)
{
    const std::optional<qint32> inFile = languages.OfCode(head.targetCode);
    const QString codeInName = CodeOfLocale(FileTitle(file->path));
    const std::optional<qint32> inName = languages.OfCode(codeInName);
    const std::optional<qint32> chosen =
        options.languages.size() == 1 ? std::optional(options.languages.front()) : std::nullopt;
    const bool isInName = Begins(codeInName, head.targetCode) || Ends(codeInName, head.targetCode);
    if (inFile && inName && inFile != inName && !isInName) {
        if (chosen == inFile || chosen == inName)
            return chosen;
        Fault(line, {},
              u"the file says that its language is %1, but its name says %2; choose one with --language"_s.arg(
                  languages.NameOf(*inFile), languages.NameOf(*inName)));
        return std::nullopt;
    }
    if (inFile || inName || chosen)
        return inFile ? inFile : inName ? inName : chosen;
    Fault(line, {},
          head.targetCode.isEmpty()
              ? u"the file doesn't say its language; name it with --language"_s
              : u"neither the project nor tuvik.ini has the language \"%1\"; name another one with --language"_s.arg(
                    Cut(head.targetCode)));
    return std::nullopt;
}

std::optional<qint32> TranslationImport::SourceOf(const TranslationHead &head, int line)
{
    const std::optional<qint32> source =
        head.sourceCode.isEmpty() ? languages.Source() : languages.OfCode(head.sourceCode);
    if (!source)
        Fault(line, {},
              head.sourceCode.isEmpty()
                  ? u"the file doesn't say its source language, and the project has none"_s
                  : u"neither the project nor tuvik.ini has the source language \"%1\""_s.arg(Cut(head.sourceCode)));
    return source;
}

void TranslationImport::Take(TranslationText &text)
{
    if (isSkipped)
        return;
    if (!IsValidIdName(text.id) && !document.ids.Find(document.env.WideToNarrow(text.id), ANY_RESOLUTION))
        return Fault(text.line, text.id, u"this is no valid ID"_s);
    const QString id = text.id;
    int otherLine = 0;
    if (!table.Add(text, otherLine))
        Fault(text.line, id, u"the ID is in line %1 already, for the same language"_s.arg(otherLine));
}

void TranslationImport::Fault(int line, const QString &id, const QString &what)
{
    QString where = line > 0 ? file->name + u':' + QString::number(line) + u": "_s : QString();
    if (!id.isEmpty())
        where += Cut(id) + u": "_s;
    document.env.Report({"import.fault", Severity::Error, file->path, line, id, what}, "%s%s.",
                        Shown(where).constData(), Shown(what).constData());
}

void TranslationImport::MakePlan(IImportWatch *watch)
{
    const std::vector<TranslationTable::Column> &columns = table.Columns();
    for (quint32 i = 0; i < columns.size(); ++i) {
        if (i == 0 || columns[i].isUsed)
            plan.AddLanguage(columns[i].language, languages.NameOf(columns[i].language), i + 1,
                             columns[i].kind == TranslationTable::Kind::Source);
    }
    for (quint32 row = 0; row < table.RowCount(); ++row) {
        plan.AddRow(row, table.IsPush(row));
        if (watch)
            watch->RowPlanned(plan, row);
    }
}

void TranslationImport::TellOthers()
{
    const int unfinished = plan.Count(CellFate::Unfinished);
    if (unfinished > 0)
        document.env.Report({"import.unfinished", Severity::Warning, {}, 0, {}, {}},
                            "%d unfinished translations aren't imported.", unfinished);
}
