// SPDX-License-Identifier: MIT
#pragma once

#include "SharedArguments.h"

// The options and arguments of the commands that make, open, change and save projects.

/// The options and arguments of `init`.
struct InitArguments
{
    static constexpr char NAME[] = "init";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string folder;
    std::string name;
    std::vector<std::string> resolutions;
    std::vector<std::string> languages;
    std::string git = "safe";
    bool hasBuild = false;
    bool dryRun = false;
};

/// The options and arguments of `add`.
struct AddArguments
{
    static constexpr char NAME[] = "add";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    std::vector<std::string> files;
    std::string resolution;
    std::string id;
    bool isPush = false;
    bool canCopy = false;
    bool dryRun = false;
};

/// The options and arguments of `load`.
struct LoadArguments
{
    static constexpr char NAME[] = "load";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    bool remote = false;
    bool strict = false;
};

/// The options and arguments of `save`.
struct SaveArguments
{
    static constexpr char NAME[] = "save";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    bool remote = false;
    bool strict = false;
};

/// The options and arguments of `headers`.
struct HeadersArguments
{
    static constexpr char NAME[] = "headers";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    std::string folder;
    std::string depfile;
    std::string depfileTarget;
    bool isList = false;
};

/// The options and arguments of `ids`.
struct IdsArguments
{
    static constexpr char NAME[] = "ids";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    std::string oldHeader;
    bool json = false;
};

/// The options and arguments of `layouts`.
struct LayoutsArguments
{
    static constexpr char NAME[] = "layouts";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    bool json = false;
    bool check = false;
};

/// The options and arguments of `kept`.
struct KeptArguments
{
    static constexpr char NAME[] = "kept";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    int number = 0;
};

/// The options and arguments of `resolutions`.
struct ResolutionsArguments
{
    static constexpr char NAME[] = "resolutions";
    CLI::App *Add(CLI::App &app, const CommandWords &words);
};
