// SPDX-License-Identifier: MIT
#include "ToolArguments.h"

#include <CLI/CLI.hpp>

CLI::App *MergeArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand =
        app.add_subcommand(NAME, "Merge two versions of a string file or of a resource list, for git");
    if (!words.Name(*subcommand))
        return subcommand;
    const char *const helps[] = {"The version that both sides have changed; may be empty",
                                 "The version to merge into, which is replaced", "The other version"};
    const char *const names[] = {"BASE", "OURS", "THEIRS"};
    for (size_t side = 0; side < paths.size(); ++side)
        subcommand->add_option(names[side], paths[side], helps[side])->type_name("")->required();
    subcommand->add_option("--path", name, "The name of the file in messages")->type_name("FILE");
    AddChoice(*subcommand, "--conflicts", conflicts, "mark|base",
              "Mark conflicts in the file, or leave there what BASE has (default: mark)");
    return subcommand;
}

CLI::App *GitArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "Let git merge string files and resource lists and show changes");
    if (!words.Name(*subcommand))
        return subcommand;
    subcommand->require_subcommand(1);
    CLI::App *install = subcommand->add_subcommand("install", "Tell git which commands merge and show the files");
    install->callback([this] { isInstall = true; });
    install->add_flag("--global", isGlobal, "For all repositories of the user, not only for this clone");
    subcommand->add_subcommand("status", "Show what git still lacks to merge the files; exit with 1 if anything");
    return subcommand;
}

CLI::App *ServeArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand =
        app.add_subcommand(NAME, "Run the commands of IDEs without a window, until a signal ends it");
    if (!words.Name(*subcommand))
        return subcommand;
    subcommand
        ->add_option("--idle-close", idleMinutes,
                     "Close an unchanged project after so many minutes without a command; 0: never")
        ->type_name("MINUTES")
        ->capture_default_str()
        ->check(CLI::Range(0, MOST_MINUTES));
    return subcommand;
}
