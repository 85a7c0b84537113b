// SPDX-License-Identifier: MIT
#pragma once

#include "SharedArguments.h"

// The options and arguments of the commands for the string table.

/// The options and arguments of `strings export`.
struct StringsExportArguments
{
    static constexpr char NAME[] = "export";
    CLI::App *Add(CLI::App &strings, const CommandWords &words);

    std::string project;
    std::string file;
    std::string format;
    std::vector<std::string> wanted;
    std::string wantedSource;
    bool onlyMissing = false;
};

/// The options and arguments of `strings import`.
struct StringsImportArguments
{
    static constexpr char NAME[] = "import";
    CLI::App *Add(CLI::App &strings, const CommandWords &words);

    std::string project;
    std::vector<std::string> names;
    std::vector<std::string> wanted;
    std::string format;
    bool replace = false;
    bool onlyExisting = false;
    bool acceptStale = false;
    bool includeUnfinished = false;
    bool ownNames = false;
    bool unguard = false;
    std::string sheet;
    bool dryRun = false;
    bool json = false;
    bool strict = false;
};

/// The options and arguments of `strings stats`.
struct StringsStatsArguments
{
    static constexpr char NAME[] = "stats";
    CLI::App *Add(CLI::App &strings, const CommandWords &words);

    std::string project;
    bool json = false;
};

/// The options and arguments of `strings codepoints`.
struct StringsCodePointsArguments
{
    static constexpr char NAME[] = "codepoints";
    CLI::App *Add(CLI::App &strings, const CommandWords &words);

    std::string project;
    std::vector<std::string> wanted;
    std::vector<std::string> resolutions;
    std::string format = "list";
};

/// The options and arguments of `strings cat`.
struct StringsCatArguments
{
    static constexpr char NAME[] = "cat";
    CLI::App *Add(CLI::App &strings, const CommandWords &words);

    std::string file;
};

/// The options and arguments of `strings list`.
struct StringsListArguments
{
    static constexpr char NAME[] = "list";
    CLI::App *Add(CLI::App &strings, const CommandWords &words);

    std::string project;
    std::vector<std::string> wanted;
    bool onlyMissing = false;
    bool json = false;
};

/// The options and arguments of `strings set`.
struct StringsSetArguments
{
    static constexpr char NAME[] = "set";
    CLI::App *Add(CLI::App &strings, const CommandWords &words);

    std::string project;
    std::string id;
    std::vector<std::string> texts;
    std::vector<std::string> languages;
    bool dryRun = false;
};

/// The options and arguments of `strings add-language`.
struct StringsAddLanguageArguments
{
    static constexpr char NAME[] = "add-language";
    CLI::App *Add(CLI::App &strings, const CommandWords &words);

    std::string project;
    std::vector<std::string> languages;
    bool dryRun = false;
};

/// The subcommands of `strings`.
struct StringsArguments
{
    static constexpr char NAME[] = "strings";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    CommandChoice<StringsExportArguments, StringsImportArguments, StringsStatsArguments, StringsCodePointsArguments,
                  StringsCatArguments, StringsListArguments, StringsSetArguments, StringsAddLanguageArguments>
        parts;
};
