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
    /// The same as one line, for the log: the names in quotes, whatever is in them.
    [[nodiscard]] QString CommandLine() const;

    /// Runs the converter and waits for its end. What is wrong with that is explained; one that can't be started is
    /// work that wasn't done.
    void Run(Environment &env) const;

    /// With what every run has in common: the converter, its subtool, the catalogue and the folder of the tables.
    [[nodiscard]] static LayoutConverterCall In(const Environment &env, const QString &projectFolder);
};

/// A setting of the layout conversion: the project's own in section `Layout`, else that in section `Path`; may be
/// empty.
[[nodiscard]] QString LayoutSetting(const Settings &settings, const char *key);

/// Says whether these files may be written; false, having said so, when a symbolic link leads one of them, or a folder
/// on the way, out of the project. As the converter does, it takes another spelling of a name for the name itself.
[[nodiscard]] bool MayWrite(Environment &env, const QString &projectFolder, const QStringList &paths);

/// A path, absolute and as the host has it.
[[nodiscard]] QString HostForm(const QString &path, const QString &base);
/// A path of the program's folder, as the host has it.
[[nodiscard]] QString InProgramDir(const Environment &env, const QString &name);
