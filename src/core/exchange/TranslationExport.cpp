// SPDX-License-Identifier: MIT
#include "TranslationExport.h"

#include "CheckSettings.h"
#include "Environment.h"
#include "ExchangeLanguages.h"
#include "FileFault.h"
#include "FileReplacement.h"
#include "LackingSource.h"
#include "Paths.h"
#include "Placeholders.h"
#include "ResModel.h"
#include "RowNotes.h"
#include "StringFileFormat.h"
#include "TextLimits.h"
#include "TranslationFormats.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// A row of the string table that is exported, with all that doesn't depend on the language.
struct ExportedRow
{
    CStringRes *head;
    TranslationText text;
};

/// Collects the rows that are exported, and reports what is left out.
class RowCollector
{
public:
    RowCollector(CResModel &document, const ExchangeLanguages &exchangeLanguages, const CheckSettings &checkSettings,
                 const TranslationExportJob &exportJob)
        : model(document), languages(exchangeLanguages), settings(checkSettings), job(exportJob)
    {
    }

    [[nodiscard]] std::vector<ExportedRow> Collect()
    {
        std::vector<ExportedRow> rows;
        const CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
        const CResFolder *const heads =
            strings ? strings->FindFolder(KIND_LANGUAGE, StringFileFormat::DESCRIPTION, 1) : nullptr;
        int lacking = 0;
        for (CBaseRes *row = heads ? heads->resources.First() : nullptr; row; row = row->NextInFolder()) {
            auto &head = static_cast<CStringRes &>(*row);
            const CStringRes *const source = head.FindLanguage(job.source);
            if (!source || !source->HasText())
                ++lacking;
            else
                Put(rows, head, source->Text().toString());
        }
        ReportLackingSource(model.env, lacking, languages.NameOf(job.source));
        return rows;
    }

private:
    void Put(std::vector<ExportedRow> &rows, CStringRes &head, const QString &source)
    {
        TranslationText text;
        text.id = model.env.NarrowToWide(head.Id()->name);
        text.source = source;
        if (!job.format->fits(text.id) || !job.format->fits(source)) {
            model.env.Report(
                {"export.row-refused", Severity::Warning, {}, 0, text.id, {}},
                "%s is left out, since its ID or its text in %s has characters that the format can't have.",
                Shown(text.id).constData(), Shown(languages.NameOf(job.source)).constData());
            return;
        }
        if (job.format->fitsNote(head.Text()))
            text.note = head.Text().toString();
        else
            model.env.Report({"export.note-refused", Severity::Warning, {}, 0, text.id, {}},
                             "the description of %s is left out, since the format can't have it.",
                             Shown(text.id).constData());
        const TextLimit limit = LimitOf(settings, text.id, NotesOf(head.Text()));
        text.length = limit.length;
        text.width = limit.width;
        const quint32 kinds = source.contains(u'%') ? PlaceholderKindsOf(source, settings.placeholders) : 0;
        text.isFormat = (kinds & PLACEHOLDERS_PRINTF) && !(kinds & PLACEHOLDERS_NUMBERED) &&
                        PrintfUseOf(source, /*hasNumbered=*/false).IsFormat();
        rows.push_back({&head, std::move(text)});
    }

    CResModel &model;
    const ExchangeLanguages &languages;
    const CheckSettings &settings;
    const TranslationExportJob &job;
};

/// The rows with the translations of one language.
class LanguageRows : public ITranslationSource
{
public:
    LanguageRows(CResModel &document, const ExchangeLanguages &exchangeLanguages, std::vector<ExportedRow> &exported,
                 const TranslationExportJob &exportJob, qint32 target)
        : model(document), languages(exchangeLanguages), rows(exported), job(exportJob), language(target)
    {
    }

    TranslationHead Head() const override
    {
        const QString title = FileTitle(model.PathName());
        const qint64 revision = qEnvironmentVariable("SOURCE_DATE_EPOCH").toLongLong();
        return {title, u"res/ref_list_%1.txt"_s.arg(title), languages.CodeOf(job.source),
                job.format->isTemplate ? QString() : languages.CodeOf(language), revision};
    }

    const TranslationText *Next() override
    {
        while (next < rows.size()) {
            ExportedRow &row = rows[next++];
            const CStringRes *const cell = job.format->isTemplate ? nullptr : row.head->FindLanguage(language);
            const bool isTranslated = cell && cell->HasText();
            if (isTranslated && job.onlyMissing)
                continue;
            row.text.target = isTranslated ? cell->Text().toString() : QString();
            if (isTranslated && !job.format->fits(row.text.target))
                LeaveOut(row.text);
            return &row.text;
        }
        return nullptr;
    }

private:
    void LeaveOut(TranslationText &text)
    {
        text.target.clear();
        model.env.Report({"export.text-refused", Severity::Warning, {}, 0, text.id, {}},
                         "the text of %s in %s is left out, since it has characters that the format can't have.",
                         Shown(text.id).constData(), Shown(languages.NameOf(language)).constData());
    }

    CResModel &model;
    const ExchangeLanguages &languages;
    std::vector<ExportedRow> &rows;
    const TranslationExportJob &job;
    qint32 language;
    size_t next = 0;
};

/// Writes the new files beside the old ones, and then puts all of them in place.
QString WriteFiles(CResModel &model, const ExchangeLanguages &languages, std::vector<ExportedRow> &rows,
                   const TranslationExportJob &job)
{
    std::vector<FileReplacement> replacements(job.files.size());
    for (size_t i = 0; i < job.files.size(); ++i) {
        QByteArray bytes;
        LanguageRows source(model, languages, rows, job, job.files[i].language);
        job.format->write(source, bytes);
        const QString &path = job.files[i].path;
        if (const int error = replacements[i].Write(path, OnePiece(bytes), IfDevice::WriteThrough))
            return WhyNotWritten(path, error);
    }
    for (size_t i = 0; i < job.files.size(); ++i) {
        if (const int error = replacements[i].PutInPlace())
            return WhyNotWritten(job.files[i].path, error);
        SyncFolder(replacements[i].Folder());
    }
    return {};
}

} // namespace

std::vector<TranslationExportJob::File> TranslationFilesFor(const QString &path, const TranslationFormat &format,
                                                            const ExchangeLanguages &languages, qint32 source)
{
    if (format.isTemplate)
        return {{path, source}};
    const QString extension = FileExtension(path);
    const QString beginning = path.chopped(extension.size() + 1) + u'_';
    std::vector<TranslationExportJob::File> files;
    for (const qint32 language : languages.OfProject()) {
        if (language == source)
            continue;
        const QString title = FileTitle(FileNameOf(languages.CodeOf(language), format));
        if (EqualsNoCase(FileTitle(path), title))
            return {{path, language}};
        files.push_back({beginning + title + u'.' + extension, language});
    }
    if (files.size() == 1)
        files.front().path = path;
    return files;
}

QString WhyNotTogether(const std::vector<TranslationExportJob::File> &files, const ExchangeLanguages &languages)
{
    for (auto end = files.begin(); end != files.end(); ++end) {
        const auto same = std::find_if(files.begin(), end, [&](const auto &one) { return one.path == end->path; });
        if (same != end)
            return u"%1 and %2 have the same code, so they can't be in one folder; see section Language of "
                   "morvanite-check.ini"_s.arg(languages.NameOf(same->language), languages.NameOf(end->language));
    }
    return {};
}

QString ExportTranslations(CResModel &model, const ExchangeLanguages &languages, const CheckSettings &settings,
                           const TranslationExportJob &job)
{
    Environment &env = model.env;
    env.ResetCounts();
    env.LimitWarnings();
    std::vector<ExportedRow> rows = RowCollector(model, languages, settings, job).Collect();
    const QString why = WriteFiles(model, languages, rows, job);
    if (!why.isEmpty())
        env.Report({"export.failed", Severity::Error, {}, 0, {}, why}, "failed to export the strings.");
    env.EndReport(FileTitle(model.PathName()), "export");
    return why;
}
