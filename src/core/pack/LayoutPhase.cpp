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
    const IDRecord *id;
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

/// Writes an error to the report, and tells a trial of it.
int Refuse(const PackContext &context, const QString &text)
{
    context.Env().WriteOutput("\r\n[error] %s", qUtf8Printable(text));
    context.Reason(text);
    return PACK_FILE_INFO;
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
        names.insert(ToLowerSimple(env.NarrowToWide(output.id->name) + QStringLiteral(".bin")));
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
        outputs.push_back({&id, host, context.scratch.IsNamed() ? SignalCleanup::OfFile(host) : SignalCleanup()});
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
        return Refuse(context,
                      QStringLiteral("%1 has the number %2, in %3 it has %4: save the project, and compile the "
                                     "application with the new header")
                          .arg(context.Env().NarrowToWide(id->name), QString::number(id->value), header,
                               number ? QString::number(*number) : QStringLiteral("none")));
    }
    return PACK_OK;
}

/// Begins the item of a layout.
void BeginLayout(PackContext &context, const IDRecord &id)
{
    Environment &env = context.Env();
    const QByteArray name = env.Shown(id.name);
    context.image.AddItem(id.value, ITEM_LAYOUT, &id);
    if (qint32(id.value) <= 0) {
        env.WriteOutput("\r\n[error] Illegal resource id value :\"%s\" with value \"%d\"", name.constData(),
                        qint32(id.value));
    }
    env.WriteOutput("\r\n  %s", name.constData());
}

int AddLayout(PackContext &context, const LayoutOutput &output)
{
    Environment &env = context.Env();
    BeginLayout(context, *output.id);
    const PackFile file = PackFiles::OpenMade(output.host);
    const auto fail = [&env, host = output.host](ReadFailure failure) -> int {
        if (failure == ReadFailure::Size)
            return InfoFail(env, host);
        if (failure == ReadFailure::Content)
            return PACK_FILE_READ;
        env.WriteOutput("\r\n[error] Could not open file while read resource data : %s.\n", host.constData());
        return PACK_FILE_OPEN;
    };
    return ReadIntoPayload(context, file, {fail});
}

int AddLayouts(PackContext &context, const std::vector<LayoutOutput> &outputs)
{
    for (const LayoutOutput &output : outputs) {
        if (const int code = AddLayout(context, output))
            return code;
    }
    return PACK_OK;
}

/// The converter's command line for the layouts of a file.
LayoutConverterCall CallFor(PackContext &context, const NarrowText &source)
{
    const Environment &env = context.Env();
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
    return call;
}

/// Checks what doesn't depend on the layouts' contents before the converter runs.
int CheckCall(PackContext &context, const LayoutConverterCall &call, const Layouts &layouts)
{
    if ((call.input + call.output + call.header).contains(u'"')) {
        const QString fault =
            QStringLiteral("A name with a double quote can't be handed to the converter: %1").arg(call.input);
        return Refuse(context, fault);
    }
    if (const int code = CompareNumbers(context, call.header))
        return code;
    return StaysInPlace(context, call, layouts) ? PACK_OK : PACK_FILE_INFO;
}

/// Tells a trial what is wrong apart from the layouts, whose sizes don't depend on it.
void CheckSurroundings(PackContext &context, const LayoutConverterCall &call, const Layouts &layouts)
{
    (void)AfterStep(context.trial, CheckCall(context, call, layouts), call.input);
    if (!PathExists(call.header)) {
        context.Reason(FILE_MISSING + QStringLiteral("; a save of the project writes it"));
        (void)AfterStep(context.trial, PACK_FILE_INFO, call.header);
    }
    if (!PathExists(call.tool)) {
        context.Reason(FILE_MISSING);
        (void)AfterStep(context.trial, PACK_FILE_INFO, call.tool);
    }
}

/// Adds the sizes of the layouts, which are converted in memory.
int MeasureAll(PackContext &context, LayoutConverterCall call, const Layouts &layouts)
{
    const PackTrial &trial = *context.trial;
    if (trial.isOfResources) {
        call.table.clear();
    } else {
        CheckSurroundings(context, call, layouts);
    }
    IdNumbers numbers;
    const IDPool &ids = context.document.ids;
    for (const IDRecord *id = ids.sentinel.next; id != &ids.sentinel; id = id->next)
        numbers.Add(id->name, id->value);
    LayoutSizes sizes;
    QStringList faults;
    if (!trial.sizes.layouts || !trial.sizes.layouts(context.Env(), call, numbers, sizes, faults)) {
        for (const QString &fault : faults)
            context.Reason(fault);
        return PACK_FILE_INFO;
    }
    for (const CLayoutRes *layout : layouts) {
        BeginLayout(context, *layout->Id());
        const auto size = sizes.constFind(layout->Id()->name);
        if (size == sizes.constEnd())
            return context.After(PACK_FILE_INFO, context.Env().NarrowToWide(layout->Id()->name));
        if (!context.image.Fits(*size))
            return PACK_MEMORY;
        context.image.Skip(*size);
        if (!context.image.Pad())
            return PACK_MEMORY;
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

    const LayoutConverterCall call = CallFor(context, source);
    // The pack depends on the files that the converter reads.
    (void)context.files.Find(call.input);
    if (!LayoutSetting(env.settings, "export_xml").isEmpty())
        (void)context.files.Find(call.xml);
    if (context.trial)
        return context.After(MeasureAll(context, call, layouts), call.input);
    env.DebugTrace("Layout command:%s.", qUtf8Printable(call.CommandLine()));
    if (const int code = CheckCall(context, call, layouts))
        return code;
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
