#include "LayoutCommand.h"

#include "Environment.h"
#include "HostFiles.h"
#include "Paths.h"
#include "RunTool.h"

using namespace Qt::StringLiterals;

QString LayoutCommand::CommandLine() const
{
    return tool + u" -i \""_s + input + u"\" -o \""_s + output + u"\" -x \""_s + xml + u"\" -t \""_s + table +
           u"\" -h \""_s + header + u'"' + (p ? u" -p "_s : QString()) + u" -e -E \""_s + subtool + u'"';
}

QString HostForm(const QString &path, const QString &base)
{
    return QString::fromUtf8(HostPath(ResolvePath(path, base)));
}

QString InProgramDir(const Environment &env, const QString &name)
{
    return QString::fromUtf8(HostPath(env.ProgramDir() + name));
}

QString LayoutSetting(const Settings &settings, const char *key)
{
    const QString projects = settings.String("Layout", key);
    return projects.isEmpty() ? settings.String("Path", key) : projects;
}

void LayoutCommand::Run(Environment &env) const
{
    ToolEnd end;
    (void)RunTool(env, CommandLine(), &end);
    const QString text = QStringLiteral("%1: the layout converter %2 %3").arg(input, tool, end.Text());
    if (end.startError != 0)
        env.ExplainFailure(text);
    else if (!end.Text().isEmpty())
        env.Explain(text);
}

LayoutCommand LayoutCommand::In(const Environment &env, const QString &projectFolder)
{
    const Settings &settings = env.settings;
    LayoutCommand command;
    command.tool = InProgramDir(env, settings.String("Application", "layout_convert_tool", "zul_xml_conv.exe"));
    command.xml = InProgramDir(env, LayoutSetting(settings, "export_xml"));
    command.table =
        HostForm(DirectoryOf(settings.String("ResID", "layout_include_table", ".\\ResID\\")), projectFolder);
    command.subtool =
        InProgramDir(env, settings.String("Application", "layout_convert_sub", "convert_i_2_h\\convert_i_2_h.exe"));
    return command;
}
