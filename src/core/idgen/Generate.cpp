#include "IDGen.h"

#include "Environment.h"
#include "Header.h"
#include "HostFiles.h"
#include "Paths.h"
#include "ResModel.h"
#include "SortedIds.h"

#include <QSet>

namespace
{

/// The name of a component's header.
QString ComponentHeader(const Environment &env, const QString &component)
{
    return env.settings.String("ResID", "comp_header", "uix_rp_%s_def.h").replace(QStringLiteral("%s"), component);
}

QString MainHeader(const Environment &env, const QString &outputFolder)
{
    return ResolvePath(env.settings.String("ResID", "main_header", "ResID.h"), outputFolder);
}

/// The headers that one run writes, and the names that stand in one already.
class HeaderRun
{
public:
    HeaderRun(CResModel &model, const QString &folder) : document(model), env(model.env), outputFolder(folder) {}

    void WriteComponents()
    {
        const CResFolder *components = document.root.FindFolder(KIND_CPIMAGES, 2);
        if (!components)
            return;
        for (const auto &component : components->subfolders)
            WriteComponent(component->title);
    }

    void WriteMain(const std::vector<IDRecord *> &sorted)
    {
        const QString path = MainHeader(env, outputFolder);
        Header header(env.WideToNarrow(path));
        DefineThoseOf(sorted, /*push=*/false, header);
        header.EmptyLine();
        DefineThoseOf(sorted, /*push=*/true, header);
        Write(header, path);
    }

private:
    void WriteComponent(const QString &component)
    {
        const QString fileName = ComponentHeader(env, component);
        Header header(env.WideToNarrow(fileName));
        if (const CResFolder *images = document.root.FindFolder(KIND_COMPONENT, component, 2)) {
            for (const CBaseRes *image : images->resources) {
                header.Define(*image->Id());
                inComponents.insert(image->Id()->name);
            }
        }
        Write(header, outputFolder + u'\\' + fileName);
    }

    void DefineThoseOf(const std::vector<IDRecord *> &sorted, bool push, Header &header)
    {
        const NarrowText *last = nullptr; // equal names stand together
        for (size_t i = 0; i < sorted.size(); ++i) {
            const IDRecord &record = *sorted[i];
            if (record.push != push || (last && *last == record.name) || inComponents.contains(record.name) ||
                written.contains(record.name))
                continue;
            header.Define(record);
            last = &record.name;
            // A name whose records differ in kind stands once, in the first group; few need to be remembered for that.
            const bool hasBefore = i > 0 && sorted[i - 1]->name == record.name;
            if (hasBefore || (i + 1 < sorted.size() && sorted[i + 1]->name == record.name))
                written.insert(record.name);
        }
    }

    void Write(Header &header, const QString &path)
    {
        if (!header.Write(env, path))
            env.DebugTrace("IDGen::Generate(): cannot write %s\n", qUtf8Printable(path));
    }

    CResModel &document;
    Environment &env;
    QString outputFolder;
    QSet<NarrowText> inComponents;
    QSet<NarrowText> written;
};

} // namespace

int IDGen::Generate(IDPool *pool, const QString &outputFolder, CResModel &document)
{
    Environment &env = document.env;
    env.DebugTrace("enter IDGen::Generate()");
    const std::vector<IDRecord *> sorted = pool ? SortedIds(*pool) : std::vector<IDRecord *>();
    if (const int result = pool ? FillSorted(env, sorted) : FillValue(env, pool)) {
        env.DebugTrace("leave IDGen::Generate(): filled value failed, result=%d", result);
        return result;
    }
    if (outputFolder.isEmpty()) {
        env.DebugTrace("leave IDGen::Generate(): filled value, but not generated ID file(s)");
        return 0;
    }
    if (!PathExists(outputFolder))
        CreateFolderOnDisk(outputFolder);
    HeaderRun run(document, outputFolder);
    run.WriteComponents();
    run.WriteMain(sorted);
    env.DebugTrace("leave IDGen::Generate(), filled value, and generated ID file(s)");
    return 0;
}

QStringList IDGen::Headers(const QString &outputFolder, const CResModel &document)
{
    QStringList headers{MainHeader(document.env, outputFolder)};
    if (const CResFolder *components = document.root.FindFolder(KIND_CPIMAGES, 2)) {
        for (const auto &component : components->subfolders)
            headers.append(outputFolder + u'\\' + ComponentHeader(document.env, component->title));
    }
    return headers;
}
