// SPDX-License-Identifier: MIT
#include "CatalogueFile.h"
#include "JsonWriter.h"
#include "LayoutSurvey.h"
#include "Paths.h"
#include "ProjectLayouts.h"
#include "Session.h"
#include "Subcommands.h"

namespace
{

class LayoutsSubcommand : public Subcommand<LayoutsArguments>
{
public:
    using Subcommand::Subcommand;

    int Run(Session &session) override
    {
        const QString path = AbsolutePath(project);
        CResDoc *const document = session.OpenQuietly(path);
        if (!document)
            return EXIT_FAILED;
        if (!document->root.FindFolder(KIND_LAYOUTS, 1)) {
            Complain(QStringLiteral("the settings turn layouts off; to turn them on, set folders=1 in section Layout "
                                    "of morvanite.ini beside the project, or of Morvanite.ini"));
            return EXIT_FAILED;
        }
        return check ? Check(session, *document) : List(session, *document);
    }

private:
    int List(Session &session, const CResDoc &document) const
    {
        const std::vector<ListedLayout> layouts = ListLayouts(document);
        session.report.WriteBytes(json ? LayoutsJson(document.env, layouts) : LayoutsText(document.env, layouts));
        return session.StatusAfter(MissingLayouts(document).isEmpty() ? EXIT_FINE : EXIT_FAILED);
    }

    int Check(Session &session, const CResDoc &document) const
    {
        const std::vector<CheckedLayoutFile> files = CheckLayoutsOf(document);
        if (!document.classes->loaded && CataloguePath(document.env).isEmpty())
            Complain(QStringLiteral("classes, properties and values are not checked because there is no catalogue (key "
                                    "catalogue in section Layout of Morvanite.ini)"));
        session.report.WriteBytes(json ? AsJson(files) : AsText(files));
        return session.StatusAfter(files.empty() && session.env.ErrorCount == 0 ? EXIT_FINE : EXIT_FAILED);
    }

    /// Calls `show(file, line, text)` for each finding. A finding about the catalogue has its place in the text.
    template <typename Show> static void ForEachFinding(const std::vector<CheckedLayoutFile> &files, const Show &show)
    {
        for (const CheckedLayoutFile &file : files) {
            if (file.listed.isEmpty()) {
                for (const QString &error : CatalogueErrors(file.findings))
                    show(QString(), 0, error);
                continue;
            }
            for (const Finding &finding : file.findings)
                show(file.listed, finding.line, finding.text);
        }
    }

    static QByteArray AsText(const std::vector<CheckedLayoutFile> &files)
    {
        QByteArray all;
        ForEachFinding(files, [&all](const QString &file, int line, const QString &text) {
            QString place = file;
            if (line > 0)
                place += QStringLiteral(", line %1").arg(line);
            all += (place.isEmpty() ? text : place + QStringLiteral(": ") + text).toUtf8() + '\n';
        });
        return all;
    }

    static QByteArray AsJson(const std::vector<CheckedLayoutFile> &files)
    {
        QByteArray bytes;
        JsonWriter writer(bytes);
        writer.BeginObject();
        writer.Key("version");
        writer.Number(1);
        writer.Key("findings");
        writer.BeginArray();
        ForEachFinding(files, [&writer](const QString &file, int line, const QString &text) {
            writer.BeginObject();
            writer.Key("file");
            writer.String(file);
            writer.Key("line");
            writer.Number(line);
            writer.Key("text");
            writer.String(text);
            writer.EndObject();
        });
        writer.EndArray();
        writer.EndObject();
        return bytes + '\n';
    }
};

} // namespace

std::unique_ptr<ISubcommand> MakeSubcommand(LayoutsArguments &&arguments)
{
    return std::make_unique<LayoutsSubcommand>(std::move(arguments));
}
