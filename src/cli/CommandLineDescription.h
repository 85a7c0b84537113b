// SPDX-License-Identifier: MIT
#pragma once

#include "JsonWriter.h"

#include <CLI/CLI.hpp>

/// Describes the command line as JSON: the program, its options and commands, and theirs. The manual pages and the
/// synopses of the documents are made from it.
class CommandLineDescription
{
public:
    /// Returns the whole text. The same parser always gives the same bytes.
    [[nodiscard]] static QByteArray Of(const CLI::App &program);

private:
    explicit CommandLineDescription(QByteArray &to) : json(to) {}

    void WriteProgram(const CLI::App &program);
    void WriteContent(const CLI::App &app);
    void WriteArgument(const CLI::Option &argument);
    void WriteOption(const CLI::Option &option, bool isForAll);
    void WriteValue(const CLI::Option &option);

    void Text(const char *key, const std::string &value);
    void Flag(const char *key, bool value);
    void List(const char *key, const std::vector<std::string> &values);

    JsonWriter json;
};
