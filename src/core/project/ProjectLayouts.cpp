// SPDX-License-Identifier: MIT
#include "ProjectLayouts.h"

#include "CResDoc.h"
#include "CounterNames.h"
#include "Environment.h"
#include "HostFiles.h"
#include "IdNames.h"
#include "LayoutFault.h"
#include "OpeningCheck.h"
#include "Paths.h"
#include "Xml.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// Puts a layout into a new folder at the end of its resolution's folder.
CResFolder &AddLayoutFolder(CResDoc &doc, CResFolder &folder, std::unique_ptr<CLayoutRes> layout)
{
    layout->NotifyAdded();
    folder.AddFolder(doc.CreateFolder(KIND_LAYOUT, folder.index));
    CResFolder &own = *folder.subfolders.back();
    own.title = doc.env.NarrowToWide(layout->Id()->name);
    own.AddResource(std::move(layout));
    return own;
}

/// Opens a layout in a folder of its own below `folder`. False when that fails.
bool AddLayout(CResDoc &doc, CResFolder &folder, const LayoutFileRef &file, LayoutObject *layout)
{
    std::unique_ptr<CLayoutRes> res = CLayoutRes::Create(file, layout, *doc.classes);
    if (!res)
        return false;
    AddLayoutFolder(doc, folder, std::move(res));
    return true;
}

} // namespace

LayoutFileRef LayoutFileOf(const CResFolder &folder)
{
    const CBaseRes *first = folder.subfolders.empty() ? nullptr : folder.subfolders.front()->resources.First();
    return first ? static_cast<const CLayoutRes *>(first)->File() : nullptr;
}

QByteArrayList LayoutFiles(const CResDoc &doc)
{
    QByteArrayList files;
    if (const CResFolder *all = doc.root.FindFolder(KIND_LAYOUTS, 1)) {
        for (const auto &resolution : all->subfolders) {
            if (const LayoutFileRef file = LayoutFileOf(*resolution); file && !file->path.isEmpty())
                files.append(file->path);
        }
    }
    for (const auto &[resolution, paths] : doc.untouchedLayouts)
        files += paths;
    return files;
}

QStringList MissingLayouts(const CResDoc &doc)
{
    QStringList reasons;
    for (const auto &[resolution, paths] : doc.untouchedLayouts) {
        QStringList files;
        for (const NarrowText &path : paths)
            files.append(ResolvePath(doc.env.NarrowToWide(path), DirectoryOf(doc.PathName())));
        const qsizetype before = reasons.size();
        for (const Finding &finding : doc.findings.All()) {
            if (files.contains(finding.file))
                reasons.append(FindingText(finding));
        }
        if (reasons.size() > before)
            continue;
        for (const QString &file : files)
            reasons.append(u"%1: the layout file is not loaded completely"_s.arg(file));
    }
    if (doc.root.FindFolder(KIND_LAYOUTS, 1))
        reasons += LeftOutLayouts(doc);
    return reasons;
}

QStringList LeftOutLayouts(const CResDoc &doc)
{
    QStringList reasons;
    for (const Finding &finding : doc.leftOutLayouts)
        reasons.append(FindingText(finding));
    return reasons;
}

void NoteLeftOutLayouts(CResDoc &doc, const QString &list, const TiXmlElement &element, const QString &why)
{
    if (const char *path = element.GetText(); path && element.ValueStr() == "LAYOUT")
        doc.leftOutLayouts.push_back({"list.layout-left-out",
                                      Severity::Error,
                                      list,
                                      RowOf(element),
                                      {},
                                      u"the layout file %1 is left out: %2"_s.arg(QString::fromUtf8(path), why)});
    for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement())
        NoteLeftOutLayouts(doc, list, *child, why);
}

QString NoFormText(const QString &text)
{
    return text.contains(QChar::ReplacementCharacter)
               ? u"\"%1\" has bytes that are not text in the project's code page; save the file in that code page"_s
                     .arg(Cut(text))
               : u"the project's code page can't express \"%1\""_s.arg(Cut(text));
}

void LoadLayoutFile(CResDoc &doc, CResFolder &folder, const NarrowText &path)
{
    Environment &env = doc.env;
    const QString absolute = ResolvePath(env.NarrowToWide(path), CurrentFolder());
    const auto fail = [&](const Finding &finding) {
        ++env.DroppedCount;
        doc.findings.Add(finding);
        env.Report(finding, "failed to load layout file \"%s\".", env.Shown(path).constData());
    };
    const auto refuse = [&](const char *code, const QString &why) {
        fail({code, Severity::Error, absolute, 0, {}, why});
    };
    if (folder.index < 0) {
        refuse("list.layout-without-size", u"layouts belong to a screen size, but this file is listed without one"_s);
        return;
    }
    QByteArrayList &untouched = doc.untouchedLayouts[folder.index];
    if (const LayoutFileRef other = LayoutFileOf(folder); other || !untouched.empty()) {
        // A resolution has only one file. Neither file is overwritten until the list names only one.
        if (untouched.empty())
            untouched.append(other->path);
        untouched.append(path);
        refuse("list.layout-second", u"a screen size has only one layout file, but the list also names %1"_s.arg(
                                         env.NarrowToWide(untouched.front())));
        return;
    }
    env.WriteOutput("Loading layouts from \"%s\"...\r\n", env.Shown(path).constData());
    env.FlushOutput();
    const auto file = std::make_shared<LayoutFileObject>(env, doc.ids, qint16(folder.index));
    if (const int code = file->Load(path)) {
        untouched.append(path);
        fail(LayoutFault(env, absolute, code, int(file->All().size())));
        return;
    }
    env.DroppedCount += file->lostTexts;
    for (const LayoutFileObject::LostText &lost : file->lost) {
        const Finding finding{"layout.code-page", Severity::Error, absolute, lost.row, {}, NoFormText(lost.text)};
        doc.findings.Add(finding);
        env.Note(finding);
    }
    std::vector<LayoutObject *> layouts;
    for (const auto &layout : file->All())
        layouts.push_back(layout.get());
    int place = -1;
    for (LayoutObject *layout : layouts) {
        const NarrowText name = layout->Id()->name;
        ++place;
        if (AddLayout(doc, folder, file, layout))
            continue;
        ++env.DroppedCount;
        const QString id = env.NarrowToWide(name);
        const Finding finding{
            "layout.no-class",
            Severity::Error,
            absolute,
            RowOfLayout(env, absolute, place),
            id,
            u"the layout %1 can't be opened: a component has the name of a type that is not a class"_s.arg(id)};
        doc.findings.Add(finding);
        untouched = {path};
        env.Report(finding, "failed to load layout [%s].", env.Shown(name).constData());
    }
}

void CResDoc::ReloadLayouts(const QString &path)
{
    if (reloadFailed)
        return ReloadResources();
    const LayoutEntry entry = FindLayoutEntry(m_strPathName, path, *this);
    CResFolder *const folder = root.FindFolder(KIND_RESO_LAYOUTS, entry.resolution, 2);
    if (!folder)
        return;
    const CResFolder *selected = selection ? selection->SelectedFolder() : nullptr;
    const bool isInFolder = selected && selected->kind == KIND_LAYOUT && selected->index == folder->index;
    const QString title = isInFolder ? selected->title : QString(); // clearing the folder deletes it
    NoteFile(path);
    ClearFolder(*folder);
    const QByteArrayList untouched = std::exchange(untouchedLayouts[folder->index], {});
    (void)SetCurrentFolder(DirectoryOf(m_strPathName)); // it could be entered before
    LoadLayoutFile(*this, *folder, entry.resolution < 0 ? env.WideToNarrow(path) : entry.path);
    if (untouched.size() > 1)
        untouchedLayouts[folder->index] = untouched; // the list names another file too
    KeepWhatIsLeftOut();
    UpdateAllViews(nullptr);
    CResFolder *const again = title.isEmpty() ? nullptr : folder->FindFolder(KIND_LAYOUT, title, 1);
    if (again)
        selection->SelectFolder(again);
}

CResFolder *CResDoc::CreateLayoutRes(qint32 resolutionIndex)
{
    CResFolder *const folder = root.FindFolder(KIND_RESO_LAYOUTS, resolutionIndex, 2);
    if (!folder || !untouchedLayouts[resolutionIndex].empty())
        return nullptr;
    LayoutFileRef file = LayoutFileOf(*folder);
    if (!file && resolutionIndex < 0)
        return nullptr;
    if (!file)
        file = std::make_shared<LayoutFileObject>(env, ids, qint16(resolutionIndex));
    const CounterNames names(env.settings.String("DefaultID", "layout_id", "ID_LAYOUT_%04X"));
    IDRecord *record = nullptr;
    for (quint32 number = 1; !record; ++number) {
        const QString idName = names.Name(number);
        if (!IsValidIdName(idName))
            return nullptr;
        record = ids.Allocate(env.WideToNarrow(idName), file->resolution);
        if (!record && idName == names.Name(number + 1))
            return nullptr; // the template has no number
    }
    std::unique_ptr<CLayoutRes> layout = CLayoutRes::CreateEmpty(record, file, *classes);
    record->Release();
    return layout ? &AddLayoutFolder(*this, *folder, std::move(layout)) : nullptr;
}
