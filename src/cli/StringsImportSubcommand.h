// SPDX-License-Identifier: MIT
#pragma once

#include "Session.h"
#include "SheetReading.h"
#include "Subcommands.h"
#include "TranslationImport.h"

/// The subcommand "strings import".
class StringsImportSubcommand : public Subcommand<StringsImportArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override;

private:
    [[nodiscard]] bool ChooseFiles();
    [[nodiscard]] bool ChooseOptions() const;
    [[nodiscard]] bool ReadInput();
    void BeginReading();
    /// Imports into an open project and saves it. Returns the exit status.
    [[nodiscard]] int Import(Session &session, CResDoc &document);
    [[nodiscard]] bool ChooseLanguages(const ExchangeLanguages &languages);
    [[nodiscard]] int ImportWorkbook(Session &session, CResDoc &document, IImportWatch *watch);
    [[nodiscard]] int ImportTranslations(Session &session, CResDoc &document, const ExchangeLanguages &languages,
                                         IImportWatch *watch) const;

    ImportOptions options;

    std::vector<ImportFile> files;
    bool isWorkbook = false;
    std::unique_ptr<SheetReading> reading; // of a workbook, while the project is loaded
};
