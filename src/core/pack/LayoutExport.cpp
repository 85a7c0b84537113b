#include "LayoutExport.h"

#include "Environment.h"
#include "HostFiles.h"
#include "LayoutCommand.h"
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

} // namespace

void ExportLayoutTables(Environment &env, const QString &projectFolder)
{
    const Settings &settings = env.settings;
    const QString layouts = settings.String("Path", "export_layout");
    if (layouts.isEmpty() || settings.String("Path", "export_xml").isEmpty())
        return; // nothing to export; the tables of before stay in use

    LayoutCommand command = LayoutCommand::In(env, projectFolder);
    command.input = InProgramDir(env, layouts);
    command.output = WithoutLastSeparator(env.ProgramDir());
    command.header = InProgramDir(env, settings.String("Path", "export_h"));

    const QString headers = ResolvePath(settings.String("Path", "header_output", ".\\ResID"), projectFolder);
    for (const char *key : {"zul_xml_enum_i", "zul_xml_table_i"}) {
        const QString table = settings.String("Path", key);
        if (!table.isEmpty())
            MoveAside(ResolvePath(table, headers));
    }
    command.Run(env);
    DeleteFileOnDisk(command.output + u'/' + QString::fromUtf16(LEFT_OVER));
}
