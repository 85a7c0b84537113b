#include "CatalogueFile.h"
#include "LayoutCheck.h"
#include "LayoutListing.h"
#include "Paths.h"
#include "ProjectLayouts.h"
#include "Session.h"
#include "Subcommands.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{

/// What a layout of a resolution may refer to by that ID.
ReferenceKind KindOf(IDPool &ids, const NarrowText &id, qint16 resolution)
{
    const IDRecord *record = id.isEmpty() ? nullptr : ids.Find(id, resolution);
    if (!record && !id.isEmpty())
        record = ids.Find(id, ANY_RESOLUTION);
    const CBaseRes *const holder = record ? record->holders : nullptr;
    if (!holder)
        return ReferenceKind::NONE;
    if (dynamic_cast<const CStringRes *>(holder))
        return ReferenceKind::STRING;
    const CResFolder *const folder = holder->Folder();
    return folder && (folder->kind & KIND_ROOT) == KIND_IMAGES ? ReferenceKind::IMAGE : ReferenceKind::OTHER;
}

QString HostForm(const NarrowText &path, const Environment &env)
{
    return env.NarrowToWide(path).replace(u'\\', u'/');
}

/// A finding as it is printed.
struct PrintedFinding
{
    QString file; // as the list of resources has it
    int line = 0;
    QString text;
};

class LayoutsSubcommand : public ISubcommand
{
public:
    CLI::App *Add(CLI::App &app) override
    {
        CLI::App *subcommand = app.add_subcommand("layouts", "List a project's layouts with their components");
        subcommand->add_option("PROJECT", project, "The project's .vcproj file")->required();
        subcommand->add_flag("--json", json, "As JSON");
        subcommand->add_flag("--check", check, "List what is wrong in the layouts instead");
        return subcommand;
    }

    int Run(Session &session) override
    {
        const QString path = AbsolutePath(project);
        CResDoc *const document = session.OpenQuietly(path);
        if (!document)
            return EXIT_FAILED;
        if (!document->root.FindFolder(KIND_LAYOUTS, 1)) {
            Complain(QStringLiteral("the settings leave layouts out: see the key folders of section Layout in "
                                    "morvanite.ini beside the project, or "
                                    "in Morvanite.ini"));
            return EXIT_FAILED;
        }
        return check ? Check(session, *document, DirectoryOf(path)) : List(session, *document);
    }

private:
    /// Calls `function(folder, resolution)` for each resolution's folder.
    template <typename Function> static void ForEachResolution(CResDoc &document, Function &&function)
    {
        for (const auto &folder : document.root.FindFolder(KIND_LAYOUTS, 1)->subfolders) {
            QString resolution = QStringLiteral("Default");
            if (folder->index >= 0) {
                const CResoEntry &entry = document.tables.resolutions.At(folder->index);
                resolution = QStringLiteral("%1x%2").arg(entry.width).arg(entry.height);
            }
            function(*folder, resolution);
        }
    }

    int List(Session &session, CResDoc &document) const
    {
        std::vector<ListedLayout> layouts;
        bool isWhole = true;
        ForEachResolution(document, [&](const CResFolder &folder, const QString &resolution) {
            isWhole = isWhole && document.untouchedLayouts[folder.index].isEmpty();
            for (const auto &own : folder.subfolders) {
                for (const CBaseRes *res : own->resources) {
                    const auto *const layout = static_cast<const CLayoutRes *>(res);
                    layouts.push_back({resolution, HostForm(layout->File()->path, document.env), &layout->Layout()});
                }
            }
        });
        session.report.WriteBytes(json ? LayoutsJson(document.env, layouts) : LayoutsText(document.env, layouts));
        return session.StatusAfter(isWhole ? EXIT_FINE : EXIT_FAILED);
    }

    int Check(Session &session, CResDoc &document, const QString &folder) const
    {
        std::vector<PrintedFinding> findings;
        if (!document.classes->loaded && !CheckCatalogue(document.env, findings))
            Complain(
                QStringLiteral("without a catalogue (section Layout of Morvanite.ini) classes, properties and values "
                               "aren't checked"));
        ForEachResolution(document, [&](const CResFolder &resolution, const QString &) {
            QByteArrayList files = document.untouchedLayouts[resolution.index];
            if (const LayoutFileRef file = LayoutFileOf(resolution); file && !files.contains(file->path))
                files.prepend(file->path);
            for (const NarrowText &file : files) {
                QString path = document.env.NarrowToWide(file);
                MakeAbsolute(path, folder);
                const auto find = [&](const NarrowText &id) {
                    return KindOf(document.ids, id, qint16(resolution.index));
                };
                for (const Finding &found : CheckLayoutFile(document.env, path, *document.classes, find))
                    findings.push_back({HostForm(file, document.env), found.line, found.text});
            }
        });
        session.report.WriteBytes(json ? AsJson(findings) : AsText(findings));
        return session.StatusAfter(findings.empty() && session.env.ErrorCount == 0 ? EXIT_FINE : EXIT_FAILED);
    }

    /// Tells why the catalogue that the settings name isn't there. False when they name none.
    static bool CheckCatalogue(const Environment &env, std::vector<PrintedFinding> &findings)
    {
        QString file = env.settings.String("Layout", "catalogue");
        if (file.isEmpty())
            return false;
        MakeAbsolute(file, env.ProgramDir());
        ClassCatalogue catalogue;
        std::vector<Finding> errors;
        (void)LoadCatalogue(env, file, catalogue, errors);
        for (const QString &error : CatalogueErrors(errors))
            findings.push_back({{}, 0, error});
        return true;
    }

    static QByteArray AsText(const std::vector<PrintedFinding> &findings)
    {
        QByteArray text;
        for (const PrintedFinding &finding : findings) {
            QString place = finding.file;
            if (finding.line > 0)
                place += QStringLiteral(", line %1").arg(finding.line);
            text += (place.isEmpty() ? finding.text : place + QStringLiteral(": ") + finding.text).toUtf8() + '\n';
        }
        return text;
    }

    static QByteArray AsJson(const std::vector<PrintedFinding> &findings)
    {
        QJsonArray list;
        for (const PrintedFinding &finding : findings)
            list.append(QJsonObject{{QStringLiteral("file"), finding.file},
                                    {QStringLiteral("line"), finding.line},
                                    {QStringLiteral("text"), finding.text}});
        return QJsonDocument(QJsonObject{{QStringLiteral("findings"), list}}).toJson();
    }

    std::string project;
    bool json = false;
    bool check = false;
};

} // namespace

std::unique_ptr<ISubcommand> MakeLayoutsSubcommand()
{
    return std::make_unique<LayoutsSubcommand>();
}
