#include "ProjectLayouts.h"

#include "CResDoc.h"
#include "Environment.h"
#include "HostFiles.h"
#include "LayoutFault.h"
#include "OpeningCheck.h"
#include "Paths.h"
#include "Xml.h"

using namespace Qt::StringLiterals;

namespace
{

/// Opens a layout in a folder of its own below `folder`. False when it can't be.
bool AddLayout(CResDoc &doc, CResFolder &folder, const LayoutFileRef &file, LayoutObject *layout)
{
    std::unique_ptr<CLayoutRes> res = CLayoutRes::Create(file, layout, *doc.classes);
    if (!res)
        return false;
    doc.AddLayoutFolder(folder, std::move(res));
    return true;
}

} // namespace

LayoutFileRef LayoutFileOf(const CResFolder &folder)
{
    const CBaseRes *first = folder.subfolders.empty() ? nullptr : folder.subfolders.front()->resources.First();
    return first ? static_cast<const CLayoutRes *>(first)->File() : nullptr;
}

QStringList MissingLayouts(const CResDoc &doc)
{
    QStringList reasons;
    for (const auto &[resolution, paths] : doc.untouchedLayouts) {
        QStringList files;
        for (const NarrowText &path : paths)
            files.append(ResolvePath(doc.env.NarrowToWide(path), DirectoryOf(doc.PathName())));
        const qsizetype before = reasons.size();
        for (const LoadFinding &finding : doc.findings.All()) {
            if (files.contains(finding.file))
                reasons.append(FindingText(finding));
        }
        if (reasons.size() > before)
            continue;
        for (const QString &file : files)
            reasons.append(u"%1: the layout file isn't loaded whole"_s.arg(file));
    }
    for (const LoadFinding &finding : doc.leftOutLayouts)
        reasons.append(FindingText(finding));
    return reasons;
}

void NoteLeftOutLayouts(CResDoc &doc, const QString &list, const TiXmlElement &element, const QString &why)
{
    if (const char *path = element.GetText(); path && element.ValueStr() == "LAYOUT")
        doc.leftOutLayouts.push_back(
            {list, RowOf(element), u"the layout file %1 is left out: %2"_s.arg(QString::fromUtf8(path), why)});
    for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement())
        NoteLeftOutLayouts(doc, list, *child, why);
}

QString NoFormText(const QString &text)
{
    return text.contains(QChar::ReplacementCharacter)
               ? u"\"%1\" has bytes that are no text of the project's code page; store the file in that code page"_s
                     .arg(Cut(text))
               : u"the code page has no form of \"%1\""_s.arg(Cut(text));
}

void LoadLayoutFile(CResDoc &doc, CResFolder &folder, const NarrowText &path)
{
    Environment &env = doc.env;
    const QString absolute = ResolvePath(env.NarrowToWide(path), CurrentFolder());
    const auto fail = [&](const LoadFinding &finding) {
        const int count = ++env.ErrorCount;
        ++env.DroppedCount;
        doc.findings.Add(finding.file, finding.line, finding.text);
        env.WriteOutput("Error %d: failed to load layout file \"%s\".\r\n", count, env.Shown(path).constData());
    };
    if (folder.index < 0) {
        fail({absolute, 0, u"layouts belong to a screen size, and this file is listed without one"_s});
        return;
    }
    QByteArrayList &untouched = doc.untouchedLayouts[folder.index];
    if (const LayoutFileRef other = LayoutFileOf(folder); other || !untouched.empty()) {
        // A resolution has one file. Neither is overwritten until the list says which.
        if (untouched.empty())
            untouched.append(other->path);
        untouched.append(path);
        fail({absolute, 0,
              u"a screen size has one layout file, and the list names %1 too"_s.arg(
                  env.NarrowToWide(untouched.front()))});
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
    for (const LayoutFileObject::LostText &lost : file->lost)
        doc.findings.Add(absolute, lost.row, NoFormText(lost.text));
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
        doc.findings.Add(absolute, RowOfLayout(env, absolute, place),
                         u"the layout %1 can't be opened: one of its components has the name of a type that is no "
                         "class"_s.arg(env.NarrowToWide(name)));
        untouched = {path};
        const int count = ++env.ErrorCount;
        env.WriteOutput("Error %d: failed to load layout [%s].\r\n", count, env.Shown(name).constData());
    }
}
