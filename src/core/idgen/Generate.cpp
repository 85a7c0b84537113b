// SPDX-License-Identifier: MIT
#include "IDGen.h"

#include "Environment.h"
#include "Header.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ResModel.h"
#include "SortedIds.h"

#include <QSet>

#include <algorithm>

namespace
{

/// The name of a component's header.
QString ComponentHeader(const Environment &env, const QString &component)
{
    return env.settings.String("ResID", "comp_header", "uix_rp_%s_def.h").replace(QStringLiteral("%s"), component);
}

QString MainHeader(const Environment &env)
{
    return env.settings.String("ResID", "main_header", "ResID.h");
}

/// The headers that one run makes, and the names that already have a line.
class HeaderRun
{
public:
    HeaderRun(CResModel &model, const QString &folder, std::vector<GeneratedHeader> &made)
        : document(model), env(model.env), outputFolder(folder), headers(made)
    {
    }

    void MakeComponents()
    {
        const CResFolder *components = document.root.FindFolder(KIND_CPIMAGES, 2);
        if (!components)
            return;
        for (const auto &component : components->subfolders)
            MakeComponent(component->title);
    }

    void MakeMain(const std::vector<IDRecord *> &sorted)
    {
        const QString fileName = MainHeader(env);
        const QString path = ResolvePath(fileName, outputFolder);
        Header header(env.WideToNarrow(path));
        header.Reserve(sorted.size());
        std::vector<size_t> pushed;
        for (size_t i = 0; i < sorted.size(); ++i) {
            if (sorted[i]->push)
                pushed.push_back(i);
            else
                DefineOnce(sorted, i, header);
        }
        header.EmptyLine();
        for (const size_t i : pushed)
            DefineOnce(sorted, i, header);
        headers.push_back({path, fileName, header.Finish()});
    }

private:
    void MakeComponent(const QString &component)
    {
        const QString fileName = ComponentHeader(env, component);
        Header header(env.WideToNarrow(fileName));
        if (const CResFolder *images = document.root.FindFolder(KIND_COMPONENT, component, 2)) {
            for (const CBaseRes *image : images->resources) {
                Define(*image->Id(), header);
                inComponents.insert(image->Id()->name);
            }
        }
        headers.push_back({outputFolder + u'\\' + fileName, fileName, header.Finish()});
    }

    /// Defines an ID, unless a header of this run has it already. A name whose records differ in kind has one line, in
    /// the first group.
    void DefineOnce(const std::vector<IDRecord *> &sorted, size_t i, Header &header)
    {
        const IDRecord &record = *sorted[i];
        if (inComponents.contains(record.name) || written.contains(record.name))
            return;
        const bool isRepeated = (i > 0 && sorted[i - 1]->name == record.name) ||
                                (i + 1 < sorted.size() && sorted[i + 1]->name == record.name);
        if (isRepeated) // only these are remembered
            written.insert(record.name);
        Define(record, header);
    }

    /// Adds an ID's line to a header, unless the name has a control character: text after a line end in it would become
    /// lines of the header.
    void Define(const IDRecord &record, Header &header)
    {
        const auto isControl = [](char c) { return quint8(c) < 0x20 || c == 0x7F; };
        if (std::none_of(record.name.begin(), record.name.end(), isControl)) {
            header.Define(record);
            return;
        }
        QByteArray shown = env.Shown(record.name);
        std::replace_if(shown.begin(), shown.end(), isControl, '?');
        env.ExplainFailure(
            QStringLiteral("the ID [%1] contains a control character, so it is left out of the headers; rename it")
                .arg(QString::fromUtf8(shown)));
    }

    CResModel &document;
    Environment &env;
    QString outputFolder;
    std::vector<GeneratedHeader> &headers;
    QSet<NarrowText> inComponents;
    QSet<NarrowText> written;
};

} // namespace

int IDGen::MakeHeaders(IDPool *pool, const QString &outputFolder, CResModel &document,
                       std::vector<GeneratedHeader> &headers)
{
    return pool ? MakeHeaders(SortedIds(*pool), outputFolder, document, headers) : FillValue(document.env, pool);
}

int IDGen::MakeHeaders(const std::vector<IDRecord *> &sorted, const QString &outputFolder, CResModel &document,
                       std::vector<GeneratedHeader> &headers)
{
    if (const int result = FillSorted(document.env, sorted))
        return result;
    if (outputFolder.isEmpty())
        return 0;
    HeaderRun run(document, outputFolder, headers);
    run.MakeComponents();
    run.MakeMain(sorted);
    return 0;
}

int IDGen::Generate(IDPool *pool, const QString &outputFolder, CResModel &document)
{
    Environment &env = document.env;
    env.DebugTrace("enter IDGen::Generate()");
    std::vector<GeneratedHeader> headers;
    if (const int result = MakeHeaders(pool, outputFolder, document, headers)) {
        env.DebugTrace("leave IDGen::Generate(): filled value failed, result=%d", result);
        return result;
    }
    if (outputFolder.isEmpty()) {
        env.DebugTrace("leave IDGen::Generate(): filled value, but not generated ID file(s)");
        return 0;
    }
    if (!PathExists(outputFolder))
        CreateFolderOnDisk(outputFolder);
    for (const GeneratedHeader &header : headers) {
        if (env.ReplaceFile(header.path, header.text, IfRefused::GoOn) != 0)
            env.DebugTrace("IDGen::Generate(): cannot write %s\n", qUtf8Printable(header.path));
    }
    env.DebugTrace("leave IDGen::Generate(), filled value, and generated ID file(s)");
    return 0;
}

QStringList IDGen::Headers(const QString &outputFolder, const CResModel &document)
{
    QStringList headers{ResolvePath(MainHeader(document.env), outputFolder)};
    if (const CResFolder *components = document.root.FindFolder(KIND_CPIMAGES, 2)) {
        for (const auto &component : components->subfolders)
            headers.append(outputFolder + u'\\' + ComponentHeader(document.env, component->title));
    }
    return headers;
}
