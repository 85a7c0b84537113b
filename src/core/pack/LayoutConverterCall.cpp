// SPDX-License-Identifier: MIT
#include "LayoutConverterCall.h"

#include "Environment.h"
#include "FileFault.h"
#include "FilePlace.h"
#include "HostFiles.h"
#include "Paths.h"
#include "RunTool.h"

using namespace Qt::StringLiterals;

QStringList LayoutConverterCall::Words() const
{
    QStringList words{tool, u"-i"_s, input, u"-o"_s, output, u"-x"_s, xml, u"-t"_s, table, u"-h"_s, header};
    if (p)
        words.append(u"-p"_s);
    return words + QStringList{u"-e"_s, u"-E"_s, subtool};
}

QString LayoutConverterCall::CommandLine() const
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

void LayoutConverterCall::Run(Environment &env) const
{
    ToolEnd end;
    (void)RunTool(env, Words(), &end);
    const QString text = QStringLiteral("%1: the layout converter %2 %3").arg(input, tool, end.Text());
    if (end.startError != 0)
        env.ExplainFailure(text);
    else if (!end.Text().isEmpty())
        env.Explain(text);
}

QString LayoutSetting(const Settings &settings, const char *key)
{
    const QString projects = settings.String("Layout", key);
    return projects.isEmpty() ? settings.String("Path", key) : projects;
}

bool MayWrite(Environment &env, const QString &projectFolder, const QStringList &paths)
{
    if (env.settings.Int("Path", "follow_links", 0) != 0)
        return true;
    for (const QString &path : paths) {
        const QByteArray host = HostPath(path);
        QByteArray place;
        if (!StaysInProject(host, HostPath(projectFolder), place)) {
            env.ExplainFailure(WhyOutside(QString::fromUtf8(host), place));
            return false;
        }
    }
    return true;
}

LayoutConverterCall LayoutConverterCall::In(const Environment &env, const QString &projectFolder)
{
    const Settings &settings = env.settings;
    LayoutConverterCall call;
    call.tool = InProgramDir(env, settings.String("Application", "layout_convert_tool", "zul_xml_conv.exe"));
    call.xml = InProgramDir(env, LayoutSetting(settings, "export_xml"));
    call.table = HostForm(DirectoryOf(settings.String("ResID", "layout_include_table", ".\\ResID\\")), projectFolder);
    call.subtool =
        InProgramDir(env, settings.String("Application", "layout_convert_sub", "convert_i_2_h\\convert_i_2_h.exe"));
    return call;
}
