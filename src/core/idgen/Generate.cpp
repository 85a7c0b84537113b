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
        const QString format = env.settings.String("ResID", "comp_header", "uix_rp_%s_def.h");
        for (const auto &component : components->subfolders)
            WriteComponent(format, component->title);
    }

    void WriteMain(const std::vector<IDRecord *> &sorted)
    {
        const QString path = ResolvePath(env.settings.String("ResID", "main_header", "ResID.h"), outputFolder);
        Header header(env.WideToNarrow(path));
        DefineThoseOf(sorted, /*push=*/false, header);
        header.EmptyLine();
        DefineThoseOf(sorted, /*push=*/true, header);
        Write(header, path);
    }

private:
    void WriteComponent(const QString &format, const QString &component)
    {
        QString fileName = format;
        fileName.replace(QStringLiteral("%s"), component);
        Header header(env.WideToNarrow(fileName));
        if (const CResFolder *images = document.root.FindFolder(KIND_COMPONENT, component, 2)) {
            for (const CBaseRes *image : images->resources) {
                (void)Define(*image->Id(), header);
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
            last = &record.name;
            if (!Define(record, header))
                continue;
            // A name whose records differ in kind stands once, in the first group; few need to be remembered for that.
            const bool hasBefore = i > 0 && sorted[i - 1]->name == record.name;
            if (hasBefore || (i + 1 < sorted.size() && sorted[i + 1]->name == record.name))
                written.insert(record.name);
        }
    }

    /// Adds an ID's line to a header. False for a name with a control character: what follows a line end in it would
    /// become lines of the header.
    bool Define(const IDRecord &record, Header &header)
    {
        const auto isControl = [](char c) { return quint8(c) < 0x20 || c == 0x7F; };
        if (std::none_of(record.name.begin(), record.name.end(), isControl)) {
            header.Define(record);
            return true;
        }
        QByteArray shown = env.Shown(record.name);
        std::replace_if(shown.begin(), shown.end(), isControl, '?');
        env.ExplainFailure(
            QStringLiteral("the ID [%1] has a control character and is left out of the headers; rename it")
                .arg(QString::fromUtf8(shown)));
        return false;
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
