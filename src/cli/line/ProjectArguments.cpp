// SPDX-License-Identifier: MIT
#include "ProjectArguments.h"

#include <CLI/CLI.hpp>

CLI::App *InitArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "Make the files of a new project in a folder");
    if (!words.Name(*subcommand))
        return subcommand;
    subcommand->add_option("DIR", folder, "The folder; it is made if it doesn't exist")->type_name("")->required();
    subcommand->add_option("--name", name, "The project's name (default: the name of the folder)")->type_name("NAME");
    subcommand->add_option("--resolution", resolutions, "A screen, such as 240x320; can be repeated")
        ->type_name("WxH")
        ->allow_extra_args(false)
        ->required();
    subcommand->add_option("--language", languages, "A language, by name, number or code; can be repeated")
        ->type_name("LANGUAGE")
        ->allow_extra_args(false)
        ->required();
    AddChoice(*subcommand, "--git", git, "safe|text|none",
              "The string file in git: unchanged bytes, text, or no files for git (default: safe)");
    subcommand->add_flag("--cmake", hasBuild, "Also make a small application and its build with CMake");
    subcommand->add_flag("--dry-run", dryRun, "Make nothing; show what would be made");
    return subcommand;
}

CLI::App *AddArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "Add files to a project and save it");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    subcommand->add_option("FILE", files, "A picture, a sound, a video or another file")->type_name("")->required();
    subcommand->add_option("--resolution", resolution, "The screen of the pictures (default: all screens)")
        ->type_name("WxH");
    subcommand->add_option("--id", id, "The ID of a single file (default: from its name)")->type_name("ID");
    subcommand->add_flag("--push", isPush, "Give the files IDs of the type Push");
    subcommand->add_flag("--copy", canCopy, "Copy files that are outside of the project's folder into it");
    subcommand->add_flag("--dry-run", dryRun, SAVE_DRY_RUN_HELP);
    return subcommand;
}

CLI::App *LoadArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "Open a project and report its errors");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    CLI::Option *remoteOption = subcommand->add_flag("--remote", remote, REMOTE_HELP);
    subcommand->add_flag("--strict", strict, STRICT_HELP)->excludes(remoteOption);
    return subcommand;
}

CLI::App *SaveArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "Number a project's IDs and save its headers and files");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    CLI::Option *remoteOption = subcommand->add_flag("--remote", remote, REMOTE_HELP);
    subcommand->add_flag("--strict", strict, STRICT_HELP)->excludes(remoteOption);
    return subcommand;
}

CLI::App *HeadersArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand =
        app.add_subcommand(NAME, "Write a project's headers to a folder without changing the project");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    CLI::Option *outputOption =
        subcommand->add_option("--output", folder, "Write the headers to DIR, which is created if necessary")
            ->type_name("DIR");
    CLI::Option *listOption =
        subcommand->add_flag("--list", isList, "Only list the names of the headers that the settings determine");
    listOption->excludes(outputOption);
    CLI::Option *depfileOption = subcommand->add_option("--depfile", depfile, DEPFILE_HELP)->type_name("FILE");
    subcommand
        ->add_option("--depfile-target", depfileTarget, "The target in the depfile (default: the header of the IDs)")
        ->type_name("NAME")
        ->needs(depfileOption);
    return subcommand;
}

CLI::App *IdsArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "List a project's IDs and their numbers, sorted by name");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    subcommand
        ->add_option("--against", oldHeader,
                     "List what differs from the numbers of an earlier header; exit with 1 if one of its numbers has "
                     "changed or is gone")
        ->type_name("FILE");
    subcommand->add_flag("--json", json, JSON_HELP);
    return subcommand;
}

CLI::App *LayoutsArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "List a project's layouts and their components");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    subcommand->add_flag("--json", json, JSON_HELP);
    subcommand->add_flag("--check", check, "List the errors in the layouts instead");
    return subcommand;
}

CLI::App *KeptArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "List or restore the copies of files that saves replaced");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    subcommand->add_option("--restore", number, "Restore the files of an entry, and keep the files that they replace")
        ->type_name("ENTRY")
        ->check(CLI::PositiveNumber);
    return subcommand;
}

CLI::App *ResolutionsArguments::Add(CLI::App &app, const CommandWords & /*words*/)
{
    return app.add_subcommand(NAME, "List the screen sizes of the settings");
}
