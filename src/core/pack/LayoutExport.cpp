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

/// What the converter may leave in its output folder and nobody wants.
constexpr char16_t LEFT_OVER[] = u"ID_D279A4D9_BC6C_420b_9EC7_CE2FA9F8415D.bin";

QString WithoutLastSeparator(QString folder)
{
    if (folder.size() > 1 && folder.endsWith(u'/'))
        folder.chop(1);
    return folder;
}

/// Keeps one generation of a generated table. Only of a file: a setting may name a folder.
void MoveAside(const QString &table)
{
    const QByteArray host = HostPath(table);
    struct stat info;
    if (lstat(host.constData(), &info) == 0 && S_ISDIR(info.st_mode))
        return;
    const QByteArray old = host + ".old";
    (void)unlink(old.constData()); // also when there is no newer one: it belongs to the run before the last
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
    DeleteFileOnDisk(call.output + u'/' + QString::fromUtf16(LEFT_OVER));
}

} // namespace

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
        return; // nothing to export; the tables of before stay in use

    LayoutConverterCall call = TablesCall(env, projectFolder);
    if (!MayWrite(env, projectFolder, call.table, LAYOUT_TABLE_FILES))
        return;
    call.output = WithoutLastSeparator(env.ProgramDir());

    const Settings &settings = env.settings;
    const QString headers = ResolvePath(settings.String("Path", "header_output", ".\\ResID"), projectFolder);
    for (const char *key : {"zul_xml_enum_i", "zul_xml_table_i"}) {
        const QString table = settings.String("Path", key);
        if (!table.isEmpty())
            MoveAside(ResolvePath(table, headers));
    }
    for (const QString &input : {call.input, call.xml}) {
        if (!PathExists(input))
            env.ExplainFailure(
                u"%1, which export_layout or export_xml names, isn't there: the layout tables weren't made"_s.arg(
                    input));
    }
    Run(env, call);
}
