// SPDX-License-Identifier: MIT
#pragma once

#include "SharedArguments.h"

#include <optional>

// The options and arguments of the commands that write and read packed files.

/// The options and arguments of `pack`.
struct PackArguments
{
    static constexpr char NAME[] = "pack";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    /// Returns false, with a message, if `target` or `resolution` is none that a pack knows.
    [[nodiscard]] bool HasKnownTarget() const;

    std::string project;
    std::string input;
    std::string output;
    std::string resolution;
    std::string target;
    std::string depfile;
    std::string temp;
    std::string headers;
    std::string pseudo;
    int convertImages = 0;
    int version = 0;
    bool remote = false;
    bool strict = false;
    bool dryRun = false;
    bool sorted = false;
    std::string budget;
    bool once = false;
    std::optional<int> jobs;
    std::string cache;
    std::string cacheSize;

private:
    std::vector<CLI::Option *> AddSpeedOptions(CLI::App &subcommand);
};

/// The options and arguments of `cache`.
struct CacheArguments
{
    static constexpr char NAME[] = "cache";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    bool stats = false;
    bool clear = false;
    std::string folder;
    bool json = false;
};

/// The options and arguments of `inspect`.
struct InspectArguments
{
    static constexpr char NAME[] = "inspect";
    CLI::App *Add(CLI::App &app, const CommandWords &words);

    std::string file;
    std::string fileB;
    std::string folder;
    std::string idFile;
    std::string idFileB;
    std::string only;
    bool json = false;
    bool size = false;
    bool diff = false;
};
