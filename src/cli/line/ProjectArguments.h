// SPDX-License-Identifier: MIT
#pragma once

#include "SharedArguments.h"

// The options and arguments of the commands that make, open, change and save projects.

/// The options and arguments of `init`.
struct InitArguments
{
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string folder;
    std::string name;
    bool hasName = false; ///< whether --name is given
    std::vector<std::string> resolutions;
    std::vector<std::string> languages;
    std::string git = "safe";
    bool hasBuild = false;
    bool dryRun = false;
};

/// The options and arguments of `add`.
struct AddArguments
{
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    std::vector<std::string> files;
    std::string resolution;
    std::string id;
    bool hasId = false; ///< whether --id is given
    bool isPush = false;
    bool canCopy = false;
    bool dryRun = false;
};

/// The options and arguments of `load`.
struct LoadArguments
{
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    bool remote = false;
    bool strict = false;
};

/// The options and arguments of `save`.
struct SaveArguments
{
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    bool remote = false;
    bool strict = false;
};

/// The options and arguments of `headers`.
struct HeadersArguments
{
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
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    std::string oldHeader;
    bool json = false;
};

/// The options and arguments of `layouts`.
struct LayoutsArguments
{
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    bool json = false;
    bool check = false;
};

/// The options and arguments of `kept`.
struct KeptArguments
{
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string project;
    int number = 0;
};

/// The options and arguments of `resolutions`.
struct ResolutionsArguments
{
    CLI::App *Add(CLI::App &app, const CommandWords &words);
};
