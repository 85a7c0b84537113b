// SPDX-License-Identifier: MIT
#include "CommandLineParser.h"

#include "CommandLine.h"
#include "CommandLineWalk.h"
#include "ExitStatus.h"
#include "Messages.h"
#include "TypedText.h"

#include <algorithm>
#include <unistd.h>

namespace
{

/// The command that git runs.
constexpr std::string_view MERGE = "merge";

/// Shown if the program is called without a command.
constexpr char SHORT_HELP[] =
    "morvanite-cli COMMAND ...: manages, numbers and packs the resources of applications\n\n"
    "  morvanite-cli check clock.vcproj\n"
    "  morvanite-cli pack clock.vcproj --input clock.axf --resolution 240x320 --target axf\n\n"
    "\"morvanite-cli help\" lists the commands, \"morvanite-cli help pack\" the options of one.\n";

/// Says what is wrong with the command line. The parser's own messages don't suggest the word that was meant.
void ComplainOf(const CLI::App &app, const std::vector<std::string> &words, const CLI::ParseError &error)
{
    if (words.empty()) {
        (void)!write(STDERR_FILENO, SHORT_HELP, sizeof SHORT_HELP - 1);
        return;
    }
    CommandLineWalk walk(app);
    for (const std::string &word : words)
        walk.Take(word);
    if (const auto color = walk.Values().find("color"); color != walk.Values().end())
        SetColorMode(color->second);
    std::vector<std::string> inner;
    for (const CLI::App *command : CommandLine::CommandsOf(walk.Command()))
        inner.push_back(command->get_name());
    const std::string hint = "; \"" + walk.CommandName() + " --help\" lists the options";
    ComplainUtf8(!walk.Fault().empty() ? walk.Fault()
                 : !inner.empty()      ? "a command is missing: " + CommandLine::Alternatives(inner)
                                       : error.what() + hint);
}

/// Returns whether the words name the command that git runs.
bool NamesMerge(const CLI::App &app, const std::vector<std::string> &words)
{
    CommandLineWalk walk(app);
    for (auto word = words.begin(); word != words.end() && &walk.Command() == &app; ++word)
        walk.Take(*word);
    return walk.Command().get_name() == MERGE;
}

/// Returns the first option of the program or of the parsed command that has an empty value; null if there is none. An
/// empty argument can be right, such as a text.
const CLI::Option *FindEmpty(const CLI::App &app)
{
    for (const CLI::Option *option : CommandLine::OptionsOf(app)) {
        const std::vector<std::string> &values = option->results();
        if (std::find(values.begin(), values.end(), std::string()) != values.end())
            return option;
    }
    for (const CLI::App *command : app.get_subcommands()) {
        if (const CLI::Option *const option = FindEmpty(*command))
            return option;
    }
    return nullptr;
}

int StatusOf(bool isPrinted)
{
    return isPrinted ? int(EXIT_FINE) : FinalStatus(EXIT_FAILED);
}

} // namespace

CommandLineParser::CommandLineParser(const CommandWords &words)
    : app(std::make_unique<CLI::App>("Manage, number and pack the resources of applications for small devices",
                                     "morvanite-cli"))
{
    app->set_help_flag("-h,--help", "Show the options and exit");
    app->set_version_flag("-V,--version", std::string("morvanite-cli ") + MORVANITE_VERSION,
                          "Show the version and exit");
    app->add_option("--debug-log", debugLog, "Append the developer's log to FILE (\"-\": standard error)")
        ->envname("MORVANITE_DEBUG_LOG")
        ->type_name("FILE");
    app->add_option("--settings", "Read the user's settings from DIR/morvanite/Morvanite.ini")
        ->type_name("DIR")
        ->each([this](const std::string &folder) { settings = folder; });
    app->add_flag("-q,--quiet", isQuiet, "Print only the lines of errors and warnings, and what was asked for");
    app->add_flag("-v,--verbose", isVerbose, "Say on standard error which files are used and what each step does");
    AddChoice(*app, "--color", color, "auto|always|never", "When messages have colours (default: auto)");
    app->require_subcommand(1);
    app->fallthrough();
    commands.Add(*app, words);
    help = app->add_subcommand("help", "Show the commands, or the options of a command");
    help->add_option("COMMAND", helpWords, "A command, such as pack or strings import")->type_name("");
}

CommandLineParser::~CommandLineParser() = default;

std::optional<int> CommandLineParser::Parse(int argc, const char *const *argv)
{
    isMerge = NamesMerge(*app, {argv + 1, argv + argc});
    if (isMerge)
        SetMergeStatus();
    for (int i = 1; i < argc; ++i) {
        if (const std::string why = WhyNotUsable(argv[i]); !why.empty()) {
            ComplainUtf8(why);
            return FinalStatus(EXIT_WRONG_USE);
        }
    }
    try {
        app->parse(argc, argv);
    } catch (const CLI::CallForHelp &) {
        return StatusOf(Print(app->help()));
    } catch (const CLI::CallForVersion &version) {
        return StatusOf(Print(std::string(version.what()) + '\n'));
    } catch (const CLI::ParseError &error) {
        ComplainOf(*app, {argv + 1, argv + argc}, error);
        return FinalStatus(EXIT_WRONG_USE);
    }
    SetColorMode(color);
    if (const CLI::Option *const option = FindEmpty(*app)) {
        ComplainUtf8("the value of " + CommandLine::NamesOf(*option).front() + " is empty");
        return FinalStatus(EXIT_WRONG_USE);
    }
    return help->parsed() ? std::optional(PrintHelpOfWords()) : std::nullopt;
}

int CommandLineParser::PrintHelpOfWords() const
{
    CommandLineWalk walk(*app);
    for (const std::string &word : helpWords)
        walk.Take(word);
    if (!walk.Fault().empty() || !walk.Values().empty()) {
        ComplainUtf8(!walk.Fault().empty() ? walk.Fault() : walk.CommandName() + " has no commands");
        return EXIT_WRONG_USE;
    }
    // The parser's own function would show the help of `help`, because that is the command that was parsed.
    const CLI::App &command = walk.Command();
    return StatusOf(
        Print(command.get_formatter()->make_help(&command, walk.CommandName(), CLI::AppFormatMode::Normal)));
}
