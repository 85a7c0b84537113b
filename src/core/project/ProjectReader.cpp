#include "CResDoc.h"
#include "Environment.h"
#include "FileClassifier.h"
#include "FileFault.h"
#include "HostFiles.h"
#include "IdNames.h"
#include "Paths.h"
#include "ProjectContext.h"
#include "ProjectLayouts.h"
#include "StringFile.h"
#include "UnreadContent.h"
#include "Xml.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{

using Text = UnreadContent::Text;

constexpr int CANNOT_OPEN = -1;
constexpr int WRONG_FORMAT = 11;

/// The two elements that make file resources, by the word that their messages have.
constexpr char FILE_TAG[] = "file";
constexpr char IMAGE_TAG[] = "image";

const QString ID_RULE = u"1 to 64 letters, digits and \"_\", and no digit at the front"_s;
const QString NO_ID = u"it has no attribute \"id\""_s;
const QString NO_FILE = u"it names no file"_s;

int LineOf(const TiXmlElement &element)
{
    return RowOf(element) + 1;
}

const char *TextOf(const TiXmlElement &element)
{
    const char *text = element.GetText();
    return text ? text : "";
}

/// The elements in it, itself counted.
int CountElements(const TiXmlElement &element)
{
    int count = 1;
    for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement())
        count += CountElements(*child);
    return count;
}

QByteArray WithoutOuterQuotes(QByteArray text)
{
    if (text.startsWith('"'))
        text.remove(0, 1);
    if (text.endsWith('"'))
        text.chop(1);
    return text;
}

/// One reading of a resource list.
class ProjectReader
{
public:
    explicit ProjectReader(const ProjectContext &projectContext)
        : context(projectContext), doc(context.doc), env(context.env), list(context.Absolute(context.ResourcePath())),
          unread([this](int row, const QString &text, bool isComment) {
              if (isComment)
                  return doc.findings.AddComment({"list.comment", Severity::Warning, list, row, {}, text});
              ++env.DroppedCount;
              const Finding finding{"list.unread", Severity::Error, list, row, {}, text};
              doc.findings.Add(finding);
              env.Note(finding);
          })
    {
    }

    int Read(TiXmlElement &app)
    {
        int code = 0;
        unread.Look(app, {"id"}, Text::IsNone);
        // Each element goes as soon as it is read, which keeps the memory of the largest projects near the parser's.
        while (TiXmlNode *node = app.FirstChild()) {
            if (TiXmlElement *element = node->ToElement())
                code = ReadElement(*element);
            app.RemoveChild(node);
            if (code != 0)
                break;
        }
        return code;
    }

    /// Leaves out what is around the list.
    void DropAround(const TiXmlDocument &document, const TiXmlElement &app)
    {
        unread.LookAround(document);
        for (auto *other = app.NextSiblingElement(); other; other = other->NextSiblingElement())
            env.Note(Dropped(*other, "list.element-behind", Severity::Error,
                             u"a resource list has one element, the first"_s));
    }

private:
    int ReadElement(const TiXmlElement &element)
    {
        const std::string &tag = element.ValueStr();
        if (tag == "FILE")
            ReadFile(element);
        else if (tag == "IMAGE")
            ReadImage(element, DefaultImages(), ANY_RESOLUTION);
        else if (tag == "RESOLUTION")
            return ReadResolution(element);
        else if (tag == "STRING")
            return ReadStrings(element);
        else if (tag == "COMPONENT")
            ReadComponent(element);
        else
            UnknownTag(element);
        return 0;
    }

    CResFolder *DefaultImages()
    {
        if (!defaultImages)
            defaultImages = doc.root.FindFolder(KIND_RESO_IMAGES, -1, 2);
        return defaultImages;
    }

    CResFolder *FilesFolder(quint32 kind)
    {
        const size_t place = kind == KIND_AUDIO ? 0 : kind == KIND_VIDEO ? 1 : 2;
        if (!files[place])
            files[place] = doc.root.FindFolder(kind, 2);
        return files[place];
    }

    /// What is wrong with an element. Without a `text` the report's line says it.
    Finding About(const TiXmlElement &element, const char *code, Severity severity, const QString &text = {})
    {
        Finding finding{code, severity, list, RowOf(element), {}, text};
        if (text.isEmpty() && env.found.IsEmpty())
            return finding; // nobody asks for the ID, and there can be 100,000
        finding.id = QString::fromUtf8(element.Attribute("id"));
        if (!text.isEmpty())
            doc.findings.Add(finding);
        return finding;
    }

    /// An element and what it holds are left out, and why: the next save would lose them.
    Finding Dropped(const TiXmlElement &element, const char *code, Severity severity, const QString &why)
    {
        env.DroppedCount += CountElements(element);
        NoteLeftOutLayouts(doc, list, element, why);
        return About(element, code, severity, u"<%1> is left out: %2"_s.arg(QString::fromUtf8(element.Value()), why));
    }

    /// Leaves out what an element has beside a text and these attributes.
    void DropOthers(const TiXmlElement &element, std::initializer_list<const char *> attributes)
    {
        unread.Look(element, attributes, Text::IsRead);
        for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement())
            env.Note(Dropped(*child, "list.element-inside", Severity::Error,
                             u"<%1> has only a text"_s.arg(QString::fromUtf8(element.Value()))));
    }

    /// A text of an element in the code page. Says so when that lacks a character, which the next save would lose.
    NarrowText Narrow(const TiXmlElement &element, const QByteArray &utf8)
    {
        NarrowText text = FromXml(env, utf8);
        if (!IsKeptByCodePage(env, utf8)) {
            ++env.DroppedCount;
            env.Note(About(element, "list.code-page", Severity::Error, NoFormText(QString::fromUtf8(utf8))));
        }
        return text;
    }

    void ReadFile(const TiXmlElement &element)
    {
        const quint32 kind = KindOf(WithoutOuterQuotes(TextOf(element)));
        AddFileRes(element, FILE_TAG, FilesFolder(kind), ANY_RESOLUTION, CResModel::PushKindOf(kind));
    }

    /// The kind of a file, which the end of its path decides from its last dot on; most have the same as the one
    /// before.
    quint32 KindOf(const QByteArray &path)
    {
        const QByteArray end = path.sliced(std::max<qsizetype>(path.lastIndexOf('.'), 0));
        if (lastKind == 0 || end != lastEnd) {
            lastEnd = end;
            lastKind = classifier.Classify(KIND_FILES, QString::fromUtf8(path));
        }
        return lastKind;
    }

    void ReadImage(const TiXmlElement &element, CResFolder *folder, qint16 scope)
    {
        AddFileRes(element, IMAGE_TAG, folder, scope, PUSH_IMAGE);
    }

    void AddFileRes(const TiXmlElement &element, const char *tag, CResFolder *folder, qint16 scope, PushKind pushKind)
    {
        const char *id = element.Attribute("id");
        if (!id) {
            env.Report(Dropped(element, "list.no-id", Severity::Error, NO_ID), "invalid %s tag (Line %d).", tag,
                       LineOf(element));
            return;
        }
        const char *text = TextOf(element);
        if (!IsValidIdName(QByteArrayView(id))) {
            env.Report(About(element, "list.id-invalid", Severity::Error,
                             u"\"%1\" is no ID: %2"_s.arg(QString::fromUtf8(id), ID_RULE)),
                       "invalid ID format - [%s] (Line %d).", id, LineOf(element));
        } else if (*text && !hostPaths.Exists(QByteArray(text))) {
            env.Report(About(element, "list.file-missing", Severity::Warning), "file not found - [%s] (Line %d).", id,
                       LineOf(element));
        }
        std::unique_ptr<CFileRes> res = doc.CreateFileRes(Narrow(element, id), scope);
        if (!res) {
            env.Report(Dropped(element, "list.id-conflict", Severity::Error,
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
            env.Note(About(element, "list.type", Severity::Error,
                           u"the type \"%1\" of %2 is neither Normal nor Push; it becomes Normal"_s.arg(
                               QString::fromUtf8(type), QString::fromUtf8(id))));
        }
        CFileRes *const added = res.get();
        folder->AddResource(std::move(res));
        added->SetPath(Narrow(element, WithoutOuterQuotes(text)));
        DropOthers(element, {"id", "type"});
    }

    int ReadResolution(const TiXmlElement &element)
    {
        const char *widthText = element.Attribute("width");
        const char *heightText = element.Attribute("height");
        const int width = widthText ? LeadingNumber(QString::fromUtf8(widthText)) : 0;
        const int height = heightText ? LeadingNumber(QString::fromUtf8(heightText)) : 0;
        if (width < 1 || height < 1) {
            env.Report(
                Dropped(element, "list.size-invalid", Severity::Error, u"it needs a width and a height above 0"_s),
                "invalid resolution tag (Line %d).", LineOf(element));
            return 0;
        }
        const qint16 index = doc.tables.resolutions.IndexOf(width, height);
        if (index < 0) {
            env.Report(Dropped(element, "list.size-unlisted", Severity::Warning,
                               u"the list of sizes has no %1x%2"_s.arg(width).arg(height)),
                       "unsupported resolution (%dx%d) discarded.", width, height);
            return 0;
        }
        unread.Look(element, {"width", "height", "class"}, Text::IsNone);
        const char *group = element.Attribute("class");
        CResFolder *images = group && std::strstr(group, "image") ? doc.UseResolutionImages(index) : nullptr;
        CResFolder *layouts = group && std::strstr(group, "layout") ? doc.UseResolutionLayouts(index) : nullptr;
        for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement()) {
            if (images && child->ValueStr() == "IMAGE")
                ReadImage(*child, images, index);
            else if (layouts && child->ValueStr() == "LAYOUT")
                ReadLayouts(*child, *layouts);
            else
                UnknownTag(*child);
        }
        return 0;
    }

    void ReadLayouts(const TiXmlElement &element, CResFolder &folder)
    {
        QByteArray text = TextOf(element);
        if (text.isEmpty()) {
            env.Report(Dropped(element, "list.no-layout-file", Severity::Error, NO_FILE), LineStart::Warning,
                       "layout file not found.");
            return;
        }
        DropOthers(element, {});
        text.replace('"', "");
        (void)SetCurrentFolder(context.dir); // which could be entered before
        const QString absolute = context.Absolute(QString::fromUtf8(text));
        doc.NoteFile(absolute);
        LoadLayoutFile(doc, folder, Narrow(element, text));
        doc.WatchFile(absolute, CResDoc::WATCH_LAYOUT);
    }

    int ReadStrings(const TiXmlElement &element)
    {
        QByteArray text = TextOf(element);
        if (text.isEmpty()) {
            env.Report(Dropped(element, "list.no-string-file", Severity::Warning, NO_FILE),
                       "ref_list not found (Line %d).", LineOf(element));
            return 0;
        }
        DropOthers(element, {});
        text.replace('"', "");
        (void)SetCurrentFolder(context.dir); // which could be entered before
        const QString path = QString::fromUtf8(text);
        const QString absolute = context.Absolute(path);
        doc.NoteFile(absolute);
        const int code = ReadStringFile(path, doc);
        if (code == 0)
            doc.WatchFile(absolute, CResDoc::WATCH_STRINGS);
        return code;
    }

    void ReadComponent(const TiXmlElement &element)
    {
        const char *id = element.Attribute("id");
        if (!id) {
            env.Report(Dropped(element, "list.no-id", Severity::Error, NO_ID), "invalid component tag (Line %d).",
                       LineOf(element));
            return;
        }
        const CResFolder *component = doc.root.FindFolder(KIND_COMPONENT, QString::fromUtf8(id), 2);
        if (!component) {
            env.Report(Dropped(element, "list.component-unknown", Severity::Warning,
                               u"there is no component \"%1\""_s.arg(QString::fromUtf8(id))),
                       "unknow component [%s] discarded.", id);
            return;
        }
        unread.Look(element, {"id"}, Text::IsNone);
        for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement()) {
            if (child->ValueStr() == "IMAGE")
                ReadComponentImage(*child, *component);
            else
                UnknownTag(*child);
        }
    }

    void ReadComponentImage(const TiXmlElement &element, const CResFolder &component)
    {
        const char *id = element.Attribute("id");
        if (!id) {
            env.Report(Dropped(element, "list.no-id", Severity::Error, NO_ID), "invalid component image tag (Line %d).",
                       LineOf(element));
            return;
        }
        auto *image = static_cast<CFileRes *>(component.FindResource(FromXml(env, id)));
        if (!image) {
            env.Report(Dropped(element, "list.image-unknown", Severity::Warning,
                               u"the component has no image \"%1\""_s.arg(QString::fromUtf8(id))),
                       "unknown component image [%s] discarded.", id);
            return;
        }
        const QByteArray text = WithoutOuterQuotes(TextOf(element));
        if (!text.isEmpty())
            image->SetPath(Narrow(element, text));
        DropOthers(element, {"id"});
        image->inUse = true;
        if (image->observer)
            image->observer->NodeAdded(image);
    }

    void UnknownTag(const TiXmlElement &element)
    {
        const bool isSwitchedOff = element.ValueStr() == "LAYOUT" && !doc.root.FindFolder(KIND_LAYOUTS, 1);
        env.Report(Dropped(element, isSwitchedOff ? "list.layouts-off" : "list.tag-unknown", Severity::Warning,
                           isSwitchedOff ? u"the settings have no layouts (section Layout, key folders)"_s
                                         : u"nothing of that name is known in this place"_s),
                   "unknown XML tag [%s] discarded (Line %d).", element.Value(), LineOf(element));
    }

    const ProjectContext &context;
    CResDoc &doc;
    Environment &env;
    const QString list; // absolute path
    UnreadContent unread;
    HostPaths hostPaths;
    CResFolder *defaultImages = nullptr;
    CResFolder *files[3] = {};
    FileClassifier classifier{env.settings};
    QByteArray lastEnd;
    quint32 lastKind = 0;
};

/// The row of the message is one more than the true one.
QString WhyNoXml(const QString &path, const TiXmlDocument &document)
{
    const QString file = QString::fromUtf8(HostPath(ResolvePath(path, CurrentFolder())));
    return document.ErrorRow() == 0
               ? QStringLiteral("\"%1\" is empty").arg(file)
               : QStringLiteral("\"%1\", line %2: this is no well-formed XML").arg(file).arg(document.ErrorRow());
}

int ReadInto(const ProjectContext &context, const QString &path)
{
    Environment &env = context.env;
    env.WriteOutput("Loading resource from \"%s\"...\r\n", qUtf8Printable(path));
    env.FlushOutput();
    TiXmlDocument document;
    if (const int code = LoadXml(env, path, document)) {
        const QString why = code == CANNOT_OPEN ? WhyNotRead(path, errno) : WhyNoXml(path, document);
        env.Report({code == CANNOT_OPEN ? "list.unreadable" : "list.malformed",
                    Severity::Error,
                    ResolvePath(path, CurrentFolder()),
                    document.ErrorRow(),
                    {},
                    why},
                   LineStart::Fatal, "invalid resource format (Line %d).", document.ErrorRow() + 1);
        env.Explain(why);
        return code;
    }
    TiXmlElement *app = document.FirstChildElement();
    if (!app || app->ValueStr() != "APP") {
        env.Report({"list.root", Severity::Error, ResolvePath(path, CurrentFolder()), app ? RowOf(*app) : 0, {}, {}},
                   "invalid resource format \"%s\".", qUtf8Printable(path));
        return WRONG_FORMAT;
    }
    ProjectReader reader(context);
    reader.DropAround(document, *app);
    return reader.Read(*app);
}

} // namespace

int ReadProject(const QString &path, CResDoc &doc)
{
    const ProjectContext context(path, doc);
    const QString file = context.ResourcePath();
    doc.NoteFile(context.Absolute(file));
    const int code = SetCurrentFolder(context.dir) ? ReadInto(context, file) : CANNOT_OPEN;
    doc.env.EndReport(context.name, "open");
    if (code == 0)
        doc.WatchFile(context.Absolute(file), CResDoc::WATCH_RESOURCES);
    return code;
}
