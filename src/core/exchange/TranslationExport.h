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

/// Writes the files and replaces those that exist. Rows without a source text, and texts that the format can't have,
/// are left out; the report says how many, or which. Returns an empty text, or why a file isn't written; all old files
/// stay then, unless the system refuses to rename the new ones.
[[nodiscard]] QString ExportTranslations(CResModel &model, const ExchangeLanguages &languages,
                                         const CheckSettings &settings, const TranslationExportJob &job);
