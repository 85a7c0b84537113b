// SPDX-License-Identifier: MIT
#pragma once

#include "ExchangeLanguages.h"
#include "Session.h"
#include "TranslationExport.h"

#include <CLI/CLI.hpp>

/// The subcommand "strings export".
class StringsExport
{
public:
    /// Adds the subcommand below "strings". `projectPath` gets its argument PROJECT.
    CLI::App *Add(CLI::App &strings, std::string &projectPath);
    /// Makes paths absolute. Call it before a project is opened, which changes the current folder.
    void FixPaths();
    /// Exports the strings of an open project. Returns the exit status.
    [[nodiscard]] int Run(Session &session, CResDoc &document);

private:
    [[nodiscard]] bool ChooseFormat();
    [[nodiscard]] bool ChooseSource(const ExchangeLanguages &languages, const QString &ofSettings);
    [[nodiscard]] bool ChooseLanguages(const ExchangeLanguages &languages);
    [[nodiscard]] bool ChooseFiles(const ExchangeLanguages &languages, const QString &title);
    [[nodiscard]] bool MakeFolder() const;
    [[nodiscard]] int ExportWorkbook(Session &session, CResDoc &document) const;

    std::string file;
    std::string format;
    std::vector<std::string> wanted;
    std::string wantedSource;
    bool onlyMissing = false;

    QString path;
    bool isFolder = false;
    bool isTemplate = false;
    std::vector<qint32> chosen; // languages; empty for all
    TranslationExportJob job{};
};
