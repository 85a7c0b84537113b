// SPDX-License-Identifier: MIT
#include "CheckArguments.h"

#include <CLI/CLI.hpp>

CLI::App *CheckArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "Check a project for faults in its texts, files and layouts");
    if (!words.Name(*subcommand))
        return subcommand;
    CLI::Option *projectOption =
        subcommand->add_option("PROJECT", project, "The project's .vcproj file")->type_name("");
    AddChoice(*subcommand, "--format", format, "text|json|sarif", "The form of the findings (default: text)");
    subcommand->add_option("-o,--output", output, "Write the findings to FILE (\"-\": to standard output, the default)")
        ->type_name("FILE");
    AddChoice(*subcommand, "--fail-on", failOn, "error|warning|note|never",
              "Exit with 1 if there is a finding of this level or above (default: error)");
    subcommand->add_option("--rule", rules, "Run only this rule; can be repeated")
        ->type_name("RULE")
        ->allow_extra_args(false);
    subcommand->add_option("--resolution", resolutions, "Check only this screen, such as 240x320; can be repeated")
        ->type_name("WxH")
        ->allow_extra_args(false);
    subcommand->add_option("--header", header, "A header of an earlier version, to find IDs with other numbers")
        ->type_name("FILE");
    subcommand->add_option("--baseline", baseline, "Leave out the findings that this file accepts")->type_name("FILE");
    subcommand
        ->add_option("--write-baseline", newBaseline,
                     "Write a baseline that accepts all present findings (\"-\": to standard output)")
        ->type_name("FILE");
    subcommand->add_flag("--summary", summary, "Count missing translations for each language");
    CLI::Option *explainOption =
        subcommand->add_option("--explain", explain, "Explain a rule, or all of them (\"all\")")->type_name("RULE");
    projectOption->excludes(explainOption);
    return subcommand;
}

CLI::App *ExplainArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "Explain an error code or a rule of the check, or list all");
    if (!words.Name(*subcommand))
        return subcommand;
    subcommand->add_option("CODE", code, "The number of an error, the code of a finding, or a rule")->type_name("");
    return subcommand;
}
