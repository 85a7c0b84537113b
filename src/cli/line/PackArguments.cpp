// SPDX-License-Identifier: MIT
#include "PackArguments.h"

#include "Messages.h"
#include "ScreenSize.h"
#include "TargetKind.h"

#include <CLI/CLI.hpp>

CLI::App *PackArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "Pack a project's resources into a copy of an application file");
    if (!words.Name(*subcommand))
        return subcommand;
    AddProject(*subcommand, project);
    subcommand->add_option("--input", input, "The application file; it isn't changed")->type_name("FILE")->required();
    subcommand->add_option("--output", output, "The file to write (default: the input's name and \".pkd\")")
        ->type_name("FILE");
    subcommand->add_option("--resolution", resolution, "The screen size of the device, such as 240x320")
        ->type_name("WxH")
        ->required();
    subcommand->add_option("--target", target, "The format of the application file; axf is ELF")
        ->type_name("axf|dll")
        ->required();
    subcommand
        ->add_option("--convert-images", convertImages,
                     "Convert the pictures to the device's format unless N is 0 (default: 0)")
        ->type_name("N");
    subcommand->add_option("--ver", version, "The version number in the developer's log")->type_name("N");
    CLI::Option *depfileOption = subcommand->add_option("--depfile", depfile, DEPFILE_HELP)->type_name("FILE");
    CLI::Option *strictOption = subcommand->add_flag("--strict", strict, STRICT_HELP);
    CLI::Option *tempOption =
        subcommand->add_option("--temp", temp, "Write temporary files to DIR instead of beside the sources")
            ->type_name("DIR");
    CLI::Option *headersOption =
        subcommand
            ->add_option("--headers", headers,
                         "The folder with the headers (default: the folder that a save writes them to)")
            ->type_name("DIR");
    CLI::Option *pseudoOption =
        subcommand
            ->add_option("--pseudo", pseudo,
                         "Make the texts of this language from those of the source, to try out the application; "
                         "the project isn't changed")
            ->type_name("LANGUAGE");
    CLI::Option *budgetOption =
        subcommand
            ->add_option("--budget", budget,
                         "Write nothing and exit with 1 if the resources have more bytes than this; K and M are units")
            ->type_name("BYTES");
    CLI::Option *sortedOption = subcommand->add_flag(
        "--sorted", sorted, "Pack every table in ascending order of its numbers, so that the device finds them faster");
    std::vector<CLI::Option *> localOptions = AddSpeedOptions(*subcommand);
    CLI::Option *dryRunOption = subcommand->add_flag(
        "--dry-run", dryRun, "Write nothing, and print the sizes and everything that would make the pack fail");
    dryRunOption->excludes(depfileOption);
    CLI::Option *remoteOption = subcommand->add_flag("--remote", remote, REMOTE_HELP);
    for (CLI::Option *option : {depfileOption, strictOption, tempOption, headersOption, pseudoOption, budgetOption,
                                sortedOption, dryRunOption})
        localOptions.push_back(option);
    for (CLI::Option *option : localOptions)
        remoteOption->excludes(option);
    return subcommand;
}

/// Adds the options that change only how long a pack takes, and returns them.
std::vector<CLI::Option *> PackArguments::AddSpeedOptions(CLI::App &subcommand)
{
    return {
        subcommand.add_flag("--once", once,
                            "Make the side file from the bytes of the section, if the settings allow it"),
        subcommand
            .add_option("--jobs", jobs, "Convert N pictures at a time, 1 to 64 (default: the settings' number, or 1)")
            ->type_name("N"),
        subcommand.add_option("--cache", cache, "Keep converted pictures in DIR, for the next pack")->type_name("DIR"),
        subcommand
            .add_option("--cache-size", cacheSize,
                        "The most bytes that the files in the cache have; K and M are units (default: 1024M)")
            ->type_name("BYTES"),
    };
}

bool PackArguments::HasKnownTarget() const
{
    if (!ParseTargetKind(target)) {
        ComplainOfValue("--target", target, "axf (an ELF file) or dll");
        return false;
    }
    if (!ParseScreenSize(resolution)) { // stricter than for an IDE's record
        ComplainOfValue("--resolution", resolution, "a width and a height in pixels, such as 240x320");
        return false;
    }
    return true;
}

CLI::App *CacheArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand =
        app.add_subcommand(NAME, "Show or delete the converted pictures that packs keep in a folder");
    if (!words.Name(*subcommand))
        return subcommand;
    CLI::Option *statsFlag =
        subcommand->add_flag("--stats", stats, "Show the number of pictures and their bytes (default)");
    CLI::Option *clearFlag = subcommand->add_flag("--clear", clear, "Delete the pictures");
    statsFlag->excludes(clearFlag);
    subcommand->add_option("--cache", folder, "The folder (default: that of the settings)")->type_name("DIR");
    subcommand->add_flag("--json", json, JSON_HELP);
    return subcommand;
}

CLI::App *InspectArguments::Add(CLI::App &app, const CommandWords &words)
{
    CLI::App *subcommand = app.add_subcommand(NAME, "Show the contents of a packed file, or compare two");
    if (!words.Name(*subcommand))
        return subcommand;
    subcommand->add_option("FILE", file, "A packed application, a side file or a DLL-side file")
        ->type_name("")
        ->required();
    CLI::Option *other =
        subcommand->add_option("FILE_B", fileB, "With --diff: the file to compare with")->type_name("");
    subcommand->add_flag("--json", json, JSON_HELP);
    CLI::Option *extract =
        subcommand->add_option("--extract", folder, "Write each entry, item and language to its own file in DIR")
            ->type_name("DIR");
    subcommand->add_option("--ids", idFile, "Show the names of IDs, from a generated header or a .vcproj file")
        ->type_name("FILE");
    CLI::Option *sizeFlag =
        subcommand->add_flag("--size", size, "List the parts of the payload by size, with their shares");
    subcommand
        ->add_option("--only", only, "Only this item (by number or name), entry (by name) or language (language:N)")
        ->type_name("PART");
    CLI::Option *diffFlag = subcommand->add_flag(
        "--diff", diff, "List what differs between FILE and FILE_B; exit with 1 if anything does, otherwise with 0");
    subcommand->add_option("--ids-b", idFileB, "The same as --ids for FILE_B, if its IDs have other numbers")
        ->type_name("FILE")
        ->needs(diffFlag);
    diffFlag->excludes(extract)->excludes(sizeFlag);
    other->needs(diffFlag);
    return subcommand;
}
