// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class CResModel;
class ExchangeLanguages;
struct CheckSettings;
struct TranslationFormat;

/// What is exported to translation files.
struct TranslationExportJob
{
    /// A file with the translations of one language.
    struct File
    {
        QString path;    ///< absolute
        qint32 language; ///< ignored for a template
    };

    const TranslationFormat *format;
    qint32 source; ///< the language that is translated from
    std::vector<File> files;
    bool onlyMissing = false; ///< only rows without a translation
};

/// Returns the files of an export to a file that the user names, with all languages of the project besides `source`:
/// the file itself if there is only one language, or if the name is that of one language's file ("de.po"); otherwise a
/// file of each language beside it ("demo_de.po" for "demo.po").
[[nodiscard]] std::vector<TranslationExportJob::File> TranslationFilesFor(const QString &path,
                                                                          const TranslationFormat &format,
                                                                          const ExchangeLanguages &languages,
                                                                          qint32 source);

/// Returns why the files of an export can't be written together: two languages have the same file. Empty if they can.
[[nodiscard]] QString WhyNotTogether(const std::vector<TranslationExportJob::File> &files,
                                     const ExchangeLanguages &languages);

/// Writes the files and replaces those that exist. Rows without a source text, and texts that the format can't have,
/// are left out; the report says how many, or which. Returns an empty text, or why a file isn't written; all old files
/// stay then, unless the system refuses to rename the new ones.
[[nodiscard]] QString ExportTranslations(CResModel &model, const ExchangeLanguages &languages,
                                         const CheckSettings &settings, const TranslationExportJob &job);
