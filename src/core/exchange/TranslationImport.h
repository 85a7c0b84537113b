// SPDX-License-Identifier: MIT
#pragma once

#include "ImportFile.h"
#include "ImportWatch.h"
#include "TranslationTable.h"

#include <memory>

class CResModel;
class ExchangeLanguages;

/// Imports translation files (PO, XLIFF): reads all of them and makes one plan, which can then be applied.
///
/// A file says its language itself, or else its name does ("de.po"), or else the only language of the options. Errors
/// don't stop the reading, so that all are reported, but nothing may be applied then.
///
///     TranslationImport import(model, languages, options);
///     if (import.Read(files))          // makes the plan and the report; doesn't change the model
///         import.Plan().Apply();
class TranslationImport : private ITranslationSink
{
public:
    /// `model` and `exchangeLanguages` must outlive this object.
    TranslationImport(CResModel &model, const ExchangeLanguages &exchangeLanguages, ImportOptions importOptions);

    /// Reads the files, whose extensions TranslationFormatOf knows, and makes the plan. Returns false if the report has
    /// an error.
    [[nodiscard]] bool Read(const std::vector<ImportFile> &files, IImportWatch *watch = nullptr);

    [[nodiscard]] ImportPlan &Plan() { return plan; }

private:
    void Begin(const TranslationHead &head, int line) override;
    void Take(TranslationText &text) override;
    void Fault(int line, const QString &id, const QString &what) override;

    void ReadOne(const ImportFile &one);
    void MakePlan(IImportWatch *watch);
    void TellOthers();
    [[nodiscard]] std::optional<qint32> TargetOf(const TranslationHead &head, int line);
    [[nodiscard]] std::optional<qint32> SourceOf(const TranslationHead &head, int line);

    CResModel &document;
    const ExchangeLanguages &languages;
    const ImportOptions options;
    TranslationTable table;
    ImportPlan plan;
    const ImportFile *file = nullptr; // that is read now
    bool isSkipped = false;           // its language isn't known
};
