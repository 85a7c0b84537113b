// SPDX-License-Identifier: MIT
#include "CLayoutRes.h"
#include "Header.h"
#include "HostFiles.h"
#include "IdNames.h"
#include "IdNumbers.h"
#include "LayoutConverterCall.h"
#include "LayoutExport.h"
#include "Paths.h"
#include "Phases.h"
#include "SignalCleanup.h"

#include <QDir>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace
{

/// A file that the converter must write for a layout.
struct LayoutOutput
{
    qint32 value;
    NarrowText name;
    QByteArray host;
    SignalCleanup cleanup; // deletes it at the end
};

using Layouts = std::vector<const CLayoutRes *>;

Layouts Gather(const CResFolder *folder)
{
    Layouts layouts;
    if (!folder)
        return layouts;
    for (const auto &subfolder : folder->subfolders) {
        if (const CBaseRes *first = subfolder->resources.First())
            layouts.push_back(static_cast<const CLayoutRes *>(first));
    }
    return layouts;
}

int InfoFail(Environment &env, const QByteArray &host)
{
    env.WriteOutput("\r\n[error] Get file information fail: %s", host.constData());
    return PACK_FILE_INFO;
}

/// Removes files whose names are other spellings of an output's name. The converter would take such a file for the
/// output and, if it is a link, write to its target.
int RemoveOtherSpellings(Environment &env, const QString &folder, const std::vector<LayoutOutput> &outputs)
{
    QSet<QString> names;
    for (const LayoutOutput &output : outputs)
        names.insert(ToLowerSimple(env.NarrowToWide(output.name) + QStringLiteral(".bin")));
    for (const QString &name : QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System)) {
        const QByteArray host = (folder + u'/' + name).toUtf8();
        if (names.contains(ToLowerSimple(name)) && unlink(host.constData()) != 0)
            return InfoFail(env, host);
    }
    return PACK_OK;
}

/// Collects the expected files. Removes files of those names that an earlier run left, so that an old file is never
/// taken for a new one.
int Expect(PackContext &context, const Layouts &layouts, const QString &folder, std::vector<LayoutOutput> &outputs)
{
    Environment &env = context.Env();
    for (const CLayoutRes *layout : layouts) {
        const IDRecord &id = *layout->Id();
        const QString name = env.NarrowToWide(id.name);
        const QByteArray host = (folder + u'/' + name + QStringLiteral(".bin")).toUtf8();
        if (!IsValidIdName(name)) { // it may lead out of the folder
            env.WriteOutput("\r\n[error] The ID of a layout is invalid: \"%s\"", qUtf8Printable(name));
            return PACK_FILE_INFO;
        }
        if (unlink(host.constData()) != 0 && errno != ENOENT && errno != ENOTDIR)
            return InfoFail(env, host);
        outputs.push_back({qint32(id.value), id.name, host,
                           context.scratch.IsNamed() ? SignalCleanup::OfFile(host) : SignalCleanup()});
    }
    return RemoveOtherSpellings(env, folder, outputs);
}

/// True if the converter writes only to places where a pack may write.
bool StaysInPlace(PackContext &context, const LayoutConverterCall &call, const Layouts &layouts)
{
    QStringList paths;
    if (!context.scratch.IsNamed())
        paths.append(call.output + QStringLiteral("/layout.bin"));
    const auto &all = layouts.front()->File()->All();
    if (std::any_of(all.begin(), all.end(), [](const auto &layout) { return layout->Id()->name == TABLES_LAYOUT; }))
        paths += LayoutTableFilesIn(call.table);
    return MayWrite(context.Env(), context.projectFolder, paths);
}

/// The converter writes the numbers of the header into the layouts. The pack numbers the IDs again, and both must
/// agree: a layout with a wrong number shows a wrong text without any error.
int CompareNumbers(PackContext &context, const QString &header)
{
    constexpr qint64 LARGEST_HEADER = 64 << 20;
    QByteArray bytes;
    if (ReadFile(header, bytes, LARGEST_HEADER) != 0)
        return PACK_OK; // the converter reports it
    IdNumbers numbers;
    numbers.Read(bytes);
    const IDPool &ids = context.document.ids;
    for (const IDRecord *id = ids.sentinel.next; id != &ids.sentinel; id = id->next) {
        const auto number = numbers.Find(id->name);
        if (number == id->value || !IsValidIdName(context.Env().NarrowToWide(id->name)))
            continue;
        Environment &env = context.Env();
        env.WriteOutput("\r\n[error] %s has the number %u, in %s it has %s: save the project, and compile the "
                        "application with the new header",
                        env.Shown(id->name).constData(), id->value, qUtf8Printable(header),
                        number ? QByteArray::number(*number).constData() : "none");
        return PACK_FILE_INFO;
    }
    return PACK_OK;
}

int AddLayout(PackContext &context, const LayoutOutput &output)
{
    Environment &env = context.Env();
    const QByteArray name = env.Shown(output.name);
    context.image.AddItem(quint32(output.value), ITEM_LAYOUT);
    if (output.value <= 0) {
        env.WriteOutput("\r\n[error] Illegal resource id value :\"%s\" with value \"%d\"", name.constData(),
                        output.value);
    }
    env.WriteOutput("\r\n  %s", name.constData());
    const PackFile file = PackFiles::OpenMade(output.host);
    const auto fail = [&](ReadFailure failure) -> int {
        if (failure == ReadFailure::Size)
            return InfoFail(env, output.host);
        if (failure == ReadFailure::Content)
            return PACK_FILE_READ;
        env.WriteOutput("\r\n[error] Could not open file while read resource data : %s.\n", output.host.constData());
        return PACK_FILE_OPEN;
    };
    const auto place = [&](quint64 size) { return context.image.ExtendItem(size); };
    if (const int code = ReadIntoPayload(env, file, {place, fail}))
        return code;
    return context.image.PadItem() ? PACK_OK : PACK_MEMORY;
}

int AddLayouts(PackContext &context, const std::vector<LayoutOutput> &outputs)
{
    for (const LayoutOutput &output : outputs) {
        if (const int code = AddLayout(context, output))
            return code;
    }
    return PACK_OK;
}

} // namespace

int ConstructLayouts(PackContext &context)
{
    Environment &env = context.Env();
    const Layouts layouts = Gather(context.document.root.FindFolder(KIND_RESO_LAYOUTS, context.info.scope, 2));
    if (layouts.empty()) {
        env.WriteOutput("\r\nthere are no any layout xml ");
        return PACK_OK;
    }
    const NarrowText &source = layouts.front()->File()->path;
    env.WriteOutput("\r\n%s", env.Shown(source).constData());
    env.FlushOutput();

    const Settings &settings = env.settings;
    LayoutConverterCall call = LayoutConverterCall::In(env, context.projectFolder);
    call.input = HostForm(env.NarrowToWide(source), context.projectFolder);
    call.output =
        context.scratch.IsNamed()
            ? QString::fromUtf8(context.scratch.Path())
            : HostForm(DirectoryOf(settings.String("Path", "layout_temp", ".\\res\\tmp\\")), context.projectFolder);
    call.header = HostForm(ResolvePath(settings.String("ResID", "main_header", "ResID.h"),
                                       settings.String("Path", "header_output", ".\\ResID")),
                           context.projectFolder);
    if (const QString &headers = context.info.headers; !headers.isEmpty()) {
        call.header = HostForm(HeaderIn(headers, settings.String("ResID", "main_header", "ResID.h")), {});
        call.table = HostForm(headers, {});
    }
    // The pack depends on the files that the converter reads.
    (void)context.files.Find(call.input);
    if (!LayoutSetting(settings, "export_xml").isEmpty())
        (void)context.files.Find(call.xml);
    env.DebugTrace("Layout command:%s.", qUtf8Printable(call.CommandLine()));
    if ((call.input + call.output + call.header).contains(u'"')) {
        env.WriteOutput("\r\n[error] A name with a double quote can't be handed to the converter: %s",
                        qUtf8Printable(call.input));
        return PACK_FILE_INFO;
    }
    if (const int code = CompareNumbers(context, call.header))
        return code;
    if (!StaysInPlace(context, call, layouts))
        return PACK_FILE_INFO;
    if (!PathExists(call.output))
        CreateFolderOnDisk(call.output);

    std::vector<LayoutOutput> outputs;
    if (const int code = Expect(context, layouts, call.output, outputs))
        return code;
    call.Run(env);
    const int code = AddLayouts(context, outputs);
    if (context.scratch.IsNamed()) {
        for (const LayoutOutput &output : outputs)
            unlink(output.host.constData());
    }
    return code;
}
