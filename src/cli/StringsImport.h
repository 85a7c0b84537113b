// SPDX-License-Identifier: MIT
#pragma once

#include "Session.h"
#include "TranslationImport.h"

#include <CLI/CLI.hpp>

/// The subcommand "strings import".
class StringsImport
{
public:
    /// Adds the subcommand below "strings". `projectPath` gets its argument PROJECT.
    CLI::App *Add(CLI::App &strings, std::string &projectPath);
    /// Makes paths absolute. Call it before a project is opened, which changes the current folder. Returns false, with
    /// a message, if the files can't be imported together.
    [[nodiscard]] bool FixPaths();
    [[nodiscard]] bool ChangesNothing() const { return dryRun; }
    [[nodiscard]] bool IsStrict() const { return strict; }
    /// Imports into an open project and saves it. Returns the exit status.
    [[nodiscard]] int Run(Session &session, CResDoc &document);

private:
    [[nodiscard]] bool ChooseLanguages(const ExchangeLanguages &languages);
    [[nodiscard]] int ImportWorkbook(Session &session, CResDoc &document, IImportWatch *watch) const;
    [[nodiscard]] int ImportTranslations(Session &session, CResDoc &document, const ExchangeLanguages &languages,
                                         IImportWatch *watch) const;

    std::vector<std::string> names;
    std::vector<std::string> wanted;
    std::string sheet;
    ImportOptions options;
    bool dryRun = false;
    bool json = false;
    bool strict = false;

    std::vector<TranslationImport::File> files;
    bool isWorkbook = false;
};
