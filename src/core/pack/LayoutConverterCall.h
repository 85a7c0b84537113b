// SPDX-License-Identifier: MIT
#pragma once

#include "Text.h"

#include <QStringList>

class Environment;
class Settings;

/// The options of one run of the layout converter.
struct LayoutConverterCall
{
    QString tool;    ///< the program
    QString input;   ///< -i
    QString output;  ///< -o
    QString xml;     ///< -x
    QString table;   ///< -t
    QString header;  ///< -h
    bool p = true;   ///< -p
    QString subtool; ///< -e -E

    /// The program and its arguments.
    [[nodiscard]] QStringList Words() const;
    /// The same as one line, for the log. Names are in quotes; nothing in them is escaped.
    [[nodiscard]] QString CommandLine() const;

    /// Runs the converter and waits until it ends. Problems are explained; a converter that can't be started counts as
    /// work that wasn't done.
    void Run(Environment &env) const;

    /// Returns a call with the options that all runs share: the converter, its subtool, the catalogue and the folder of
    /// the tables.
    [[nodiscard]] static LayoutConverterCall In(const Environment &env, const QString &projectFolder);
};

/// A setting of the layout conversion: the project's own in section `Layout`, else that in section `Path`; may be
/// empty.
[[nodiscard]] QString LayoutSetting(const Settings &settings, const char *key);

/// Returns true if these files may be written. Returns false, and writes a message, if a symbolic link leads one of
/// them, or a folder of its path, out of the project. Like the converter, it treats another spelling of a name as the
/// name itself.
[[nodiscard]] bool MayWrite(Environment &env, const QString &projectFolder, const QStringList &paths);

/// Returns a path in absolute host form.
[[nodiscard]] QString HostForm(const QString &path, const QString &base);
/// Returns the host form of a path in the program's folder.
[[nodiscard]] QString InProgramDir(const Environment &env, const QString &name);
