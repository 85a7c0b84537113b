// SPDX-License-Identifier: MIT
#include "LayoutExport.h"

#include "Environment.h"
#include "HostFiles.h"
#include "LayoutConverterCall.h"
#include "Paths.h"

#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

QString WithoutLastSeparator(QString folder)
{
    if (folder.size() > 1 && folder.endsWith(u'/'))
        folder.chop(1);
    return folder;
}

/// Keeps the previous version of a generated table. Files only: a setting may name a folder.
void MoveAside(const QString &table)
{
    const QByteArray host = HostPath(table);
    struct stat info;
    if (lstat(host.constData(), &info) == 0 && S_ISDIR(info.st_mode))
        return;
    const QByteArray old = host + ".old";
    (void)unlink(old.constData()); // even if there is no newer one: it is from the run before the last
    (void)std::rename(host.constData(), old.constData());
}

LayoutConverterCall TablesCall(const Environment &env, const QString &projectFolder)
{
    LayoutConverterCall call = LayoutConverterCall::In(env, projectFolder);
    call.input = InProgramDir(env, LayoutSetting(env.settings, "export_layout"));
    call.header = InProgramDir(env, env.settings.String("Path", "export_h"));
    return call;
}

void Run(Environment &env, const LayoutConverterCall &call)
{
    call.Run(env);
    // A file that the converter may leave in its output folder and that nothing needs.
    DeleteFileOnDisk(call.output + u'/' + QLatin1String(TABLES_LAYOUT) + u".bin"_s);
}

/// The previous tables to move aside, in the order of moving.
QStringList OldTables(const Settings &settings, const QString &projectFolder)
{
    const QString headers = ResolvePath(settings.String("Path", "header_output", ".\\ResID"), projectFolder);
    QStringList tables;
    for (const char *key : {"zul_xml_enum_i", "zul_xml_table_i"}) {
        const QString table = settings.String("Path", key);
        if (!table.isEmpty())
            tables.append(ResolvePath(table, headers));
    }
    return tables;
}

} // namespace

QStringList LayoutTableFilesIn(const QString &folder)
{
    QStringList paths;
    for (const QString &name : LAYOUT_TABLE_FILES)
        paths.append(folder + u'/' + name);
    return paths;
}

bool HasLayoutTables(const Environment &env)
{
    return !LayoutSetting(env.settings, "export_layout").isEmpty() &&
           !LayoutSetting(env.settings, "export_xml").isEmpty();
}

QStringList LayoutTableInputs(const Environment &env)
{
    const LayoutConverterCall call = TablesCall(env, {});
    QStringList inputs{call.input, call.xml};
    if (!env.settings.String("Path", "export_h").isEmpty())
        inputs.append(call.header);
    return inputs;
}

void MakeLayoutTables(Environment &env, const QString &projectFolder, const QString &folder)
{
    LayoutConverterCall call = TablesCall(env, projectFolder);
    call.output = folder;
    call.table = folder;
    Run(env, call);
}

void ExportLayoutTables(Environment &env, const QString &projectFolder)
{
    if (!HasLayoutTables(env))
        return; // nothing to export; the previous tables stay in use

    LayoutConverterCall call = TablesCall(env, projectFolder);
    const QStringList oldTables = OldTables(env.settings, projectFolder);
    if (!MayWrite(env, projectFolder, LayoutTableFilesIn(call.table) + oldTables))
        return;
    call.output = WithoutLastSeparator(env.ProgramDir());
    for (const QString &table : oldTables)
        MoveAside(table);
    for (const QString &input : {call.input, call.xml}) {
        if (!PathExists(input))
            env.ExplainFailure(
                u"%1, which the key export_layout or export_xml names, does not exist, so the layout tables are "
                "not written"_s.arg(input));
    }
    Run(env, call);
}
