// SPDX-License-Identifier: MIT
#include "FileElements.h"

#include "CResDoc.h"
#include "IdNames.h"

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{

/// The words for the two elements in messages.
constexpr char FILE_TAG[] = "file";
constexpr char IMAGE_TAG[] = "image";

const QString ID_RULE = u"an ID has 1 to 64 letters, digits and \"_\", and doesn't begin with a digit"_s;

} // namespace

FileElements::FileElements(const ProjectContext &context, ListReport &listReport)
    : doc(context.doc), env(context.env), report(listReport), classifier(env.settings)
{
}

void FileElements::ReadFile(const TiXmlElement &element)
{
    const quint32 kind = KindOf(WithoutOuterQuotes(TextOf(element)));
    AddFileRes(element, FILE_TAG, FilesFolder(kind), ANY_RESOLUTION, CResModel::PushKindOf(kind));
}

void FileElements::ReadDefaultImage(const TiXmlElement &element)
{
    if (!defaultImages)
        defaultImages = doc.root.FindFolder(KIND_RESO_IMAGES, -1, 2);
    ReadImage(element, defaultImages, ANY_RESOLUTION);
}

void FileElements::ReadImage(const TiXmlElement &element, CResFolder *folder, qint16 scope)
{
    AddFileRes(element, IMAGE_TAG, folder, scope, PUSH_IMAGE);
}

/// Returns the kind of a file from the part of its path after the last dot. Keeps the last result, because most files
/// have the same kind as the file before.
quint32 FileElements::KindOf(const QByteArray &path)
{
    const QByteArray end = path.sliced(std::max<qsizetype>(path.lastIndexOf('.'), 0));
    if (lastKind == 0 || end != lastEnd) {
        lastEnd = end;
        lastKind = classifier.Classify(KIND_FILES, QString::fromUtf8(path));
    }
    return lastKind;
}

CResFolder *FileElements::FilesFolder(quint32 kind)
{
    const size_t place = kind == KIND_AUDIO ? 0 : kind == KIND_VIDEO ? 1 : 2;
    if (!files[place])
        files[place] = doc.root.FindFolder(kind, 2);
    return files[place];
}

void FileElements::CheckElement(const TiXmlElement &element, const char *id, const char *text)
{
    if (!IsValidIdName(QByteArrayView(id))) {
        env.Report(report.About(element, "list.id-invalid", Severity::Error,
                                u"\"%1\" is not a valid ID: %2"_s.arg(QString::fromUtf8(id), ID_RULE)),
                   "invalid ID format - [%s] (Line %d).", id, LineOf(element));
    } else if (*text && !hostPaths.Exists(QByteArray(text))) {
        env.Report(report.About(element, "list.file-missing", Severity::Warning), "file not found - [%s] (Line %d).",
                   id, LineOf(element));
    }
}

void FileElements::AddFileRes(const TiXmlElement &element, const char *tag, CResFolder *folder, qint16 scope,
                              PushKind pushKind)
{
    const char *id = element.Attribute("id");
    if (!id) {
        env.Report(report.Dropped(element, "list.no-id", Severity::Error, NO_ID), "invalid %s tag (Line %d).", tag,
                   LineOf(element));
        return;
    }
    const char *text = TextOf(element);
    CheckElement(element, id, text);
    std::unique_ptr<CFileRes> res = doc.CreateFileRes(report.Narrow(element, id), scope);
    if (!res) {
        env.Report(report.Dropped(element, "list.id-conflict", Severity::Error,
                                  u"another resource has the ID %1"_s.arg(QString::fromUtf8(id))),
                   "failed to load %s [%s].", tag, id);
        return;
    }
    const char *type = element.Attribute("type");
    if (type && std::strcmp(type, "Push") == 0) {
        res->Id()->push = true;
        res->Id()->pushKind = pushKind;
    } else if (type && std::strcmp(type, "Normal") != 0) {
        ++env.DroppedCount;
        env.Note(report.About(element, "list.type", Severity::Error,
                              u"the type \"%1\" of %2 is neither Normal nor Push; Normal is used"_s.arg(
                                  QString::fromUtf8(type), QString::fromUtf8(id))));
    }
    CFileRes *const added = res.get();
    folder->AddResource(std::move(res));
    added->SetPath(report.Narrow(element, WithoutOuterQuotes(text)));
    report.DropOthers(element, {"id", "type"});
}
