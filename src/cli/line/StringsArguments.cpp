// SPDX-License-Identifier: MIT
#include "StringsArguments.h"

#include <CLI/CLI.hpp>

namespace
{

/// Adds the option --language, which chooses languages of the project and can be repeated.
void AddProjectLanguages(CLI::App &subcommand, std::vector<std::string> &wanted)
{
    subcommand
        .add_option("--language", wanted, "Only this language, by name, number or code; can be repeated (default: all)")
        ->type_name("LANGUAGE")
        ->allow_extra_args(false);
}

} // namespace

CLI::App *StringsExportArguments::Add(CLI::App &strings, const CommandWords &words)
{
    CLI::App *const subcommand = strings.add_subcommand(
        NAME, "Write the string table to a workbook (.xls, .xlsx or .csv) or to translation files (.po, .xlf)");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    subcommand
        ->add_option(
            "FILE", file,
            "The file, whose extension selects the format, or a folder for several files (\"-\": standard output)")
        ->type_name("")
        ->required();
    AddChoice(*subcommand, "--format", format, "xls|xlsx|csv|po|xliff", "The format of the files in a folder");
    subcommand
        ->add_option("--language", wanted,
                     "Only this language, by name, number or code; can be repeated (\"none\": a template without "
                     "translations, .pot)")
        ->type_name("LANGUAGE")
        ->allow_extra_args(false);
    subcommand
        ->add_option("--source", wantedSource,
                     "The language to translate from (default: that of the settings, or the first)")
        ->type_name("LANGUAGE");
    subcommand->add_flag("--only-missing", onlyMissing, "Only rows that lack a translation");
    return subcommand;
}

CLI::App *StringsImportArguments::Add(CLI::App &strings, const CommandWords &words)
{
    CLI::App *const subcommand = strings.add_subcommand(
        NAME, "Fill the string table from a workbook, or from translation files, and save the project");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    subcommand
        ->add_option("FILE", names,
                     "A workbook or translation files; the extension selects the format (\"-\": standard input)")
        ->type_name("")
        ->required();
    AddChoice(*subcommand, "--format", format, "xls|xlsx|csv|po|xliff", "The format of standard input");
    subcommand->add_option("--language", wanted, "Import only this language, by name, number or code; can be repeated")
        ->type_name("LANGUAGE")
        ->allow_extra_args(false);
    subcommand->add_flag("--replace", replace, "Put texts in place of other ones");
    subcommand->add_flag("--only-existing", onlyExisting, "Make no new rows and languages");
    subcommand->add_flag("--accept-stale", acceptStale, "Import translations of other source texts too");
    subcommand->add_flag("--include-unfinished", includeUnfinished, "Import unfinished translations too");
    subcommand->add_flag("--own-names", ownNames,
                         "Workbooks: find languages by the project's own names before those of tuvik.ini");
    subcommand->add_flag("--unguard", unguard,
                         "Workbooks: remove the apostrophe before texts such as '=1+1, as from .csv files");
    subcommand->add_option("--sheet", sheet, "Workbooks: the name or the number of the sheet (default: the first)")
        ->type_name("SHEET");
    CLI::Option *const dryRunOption =
        subcommand->add_flag("--dry-run", dryRun, "Change nothing; show what would happen to each text");
    subcommand->add_flag("--json", json, JSON_HELP)->needs(dryRunOption);
    subcommand->add_flag("--strict", strict, STRICT_HELP);
    return subcommand;
}

CLI::App *StringsStatsArguments::Add(CLI::App &strings, const CommandWords &words)
{
    CLI::App *subcommand = strings.add_subcommand(NAME, "Count the texts of each language");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    subcommand->add_flag("--json", json, JSON_HELP);
    return subcommand;
}

CLI::App *StringsCodePointsArguments::Add(CLI::App &strings, const CommandWords &words)
{
    CLI::App *subcommand = strings.add_subcommand(NAME, "List the characters that the texts use");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    AddProjectLanguages(*subcommand, wanted);
    subcommand
        ->add_option("--resolution", resolutions,
                     "Only the texts in the layouts of this screen, such as 240x320; can be repeated")
        ->type_name("WxH")
        ->allow_extra_args(false);
    AddChoice(*subcommand, "--format", format, "list|ranges|c",
              "The form of the list: one character a line, ranges, or a table in C (default: list)");
    return subcommand;
}

CLI::App *StringsCatArguments::Add(CLI::App &strings, const CommandWords &words)
{
    CLI::App *subcommand = strings.add_subcommand(NAME, "Print a string file as UTF-8, for git");
    if (!words.Name(*subcommand))
        return subcommand;
    subcommand->add_option("FILE", file, "The string file")->type_name("")->required();
    return subcommand;
}

CLI::App *StringsListArguments::Add(CLI::App &strings, const CommandWords &words)
{
    CLI::App *subcommand = strings.add_subcommand(NAME, "List the texts of a project");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    AddProjectLanguages(*subcommand, wanted);
    subcommand->add_flag("--missing", onlyMissing, "Only the texts that are missing");
    subcommand->add_flag("--json", json, JSON_HELP);
    return subcommand;
}

CLI::App *StringsSetArguments::Add(CLI::App &strings, const CommandWords &words)
{
    CLI::App *subcommand = strings.add_subcommand(NAME, "Set texts of a string and save the project");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    subcommand->add_option("ID", id, "The string's ID; it is made if it doesn't exist")->type_name("")->required();
    subcommand->add_option("TEXT", texts, "The text; one for each --language, in the same order")
        ->type_name("")
        ->required();
    subcommand->add_option("--language", languages, "The text's language, by name, number or code; can be repeated")
        ->type_name("LANGUAGE")
        ->allow_extra_args(false)
        ->required();
    subcommand->add_flag("--dry-run", dryRun, SAVE_DRY_RUN_HELP);
    return subcommand;
}

CLI::App *StringsAddLanguageArguments::Add(CLI::App &strings, const CommandWords &words)
{
    CLI::App *subcommand = strings.add_subcommand(NAME, "Add languages to a project and save it");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    subcommand->add_option("LANGUAGE", languages, "A language, by name, number or code")->type_name("")->required();
    subcommand->add_flag("--dry-run", dryRun, SAVE_DRY_RUN_HELP);
    return subcommand;
}

CLI::App *StringsArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *const subcommand =
        app.add_subcommand(NAME, "List, set, count, export or import the strings of a project");
    subcommand->require_subcommand(1);
    if (words.Name(*subcommand))
        parts.Add(*subcommand, words);
    return subcommand;
}
