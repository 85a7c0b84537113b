// SPDX-License-Identifier: MIT
#pragma once

#include "ExchangeLanguages.h"
#include "Session.h"
#include "Subcommands.h"
#include "TranslationExport.h"

/// The subcommand "strings export".
class StringsExportSubcommand : public Subcommand<StringsExportArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override;

private:
    [[nodiscard]] int Export(Session &session, CResDoc &document);
    [[nodiscard]] int ExportToOutput(Session &session, CResDoc &document);
    [[nodiscard]] bool ChooseFormat();
    [[nodiscard]] bool ChooseSource(const ExchangeLanguages &languages, const QString &ofSettings);
    [[nodiscard]] bool ChooseLanguages(const ExchangeLanguages &languages);
    [[nodiscard]] bool ChooseFiles(const ExchangeLanguages &languages, const QString &title);
    [[nodiscard]] static bool MayWrite(const QStringList &outputs, CResDoc &document, const CheckSettings &settings);
    [[nodiscard]] bool MakeFolder() const;
    [[nodiscard]] int ExportWorkbook(Session &session, CResDoc &document) const;

    QString path;
    bool isFolder = false;
    bool isTemplate = false;
    std::vector<qint32> chosen; // languages; empty for all
    TranslationExportJob job{};
};
