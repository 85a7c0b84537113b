// SPDX-License-Identifier: MIT
#include "ExpatParser.h"
#include "TranslationFormats.h"
#include "Utf8.h"

#include <algorithm>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace
{

constexpr qsizetype LONGEST_TEXT = 1 << 20; // bytes
constexpr std::string_view NAMESPACES[] = {"urn:oasis:names:tc:xliff:document:1.2",
                                           "urn:oasis:names:tc:xliff:document:1.1", ""};

/// The elements that are read, by what they are in.
enum class Place
{
    Document,
    Root,
    File,
    Body, ///< or a group in it
    Unit,
    Source,
    Target,
    Segment, ///< of a source or a target
    Note,
    Contexts,
    Context,
};

constexpr struct
{
    Place in;
    std::string_view name;
    Place place;
} ELEMENTS[] = {
    {Place::Document, "xliff", Place::Root},
    {Place::Root, "file", Place::File},
    {Place::File, "body", Place::Body},
    {Place::Body, "group", Place::Body},
    {Place::Body, "trans-unit", Place::Unit},
    {Place::Unit, "source", Place::Source},
    {Place::Unit, "target", Place::Target},
    {Place::Source, "mrk", Place::Segment},
    {Place::Target, "mrk", Place::Segment},
    {Place::Unit, "note", Place::Note},
    {Place::Unit, "context-group", Place::Contexts},
    {Place::Contexts, "context", Place::Context},
};

/// Returns whether the state of a translation says that it isn't finished.
bool IsUnfinishedState(std::string_view state)
{
    return state == "new" || state.starts_with("needs-");
}

class XliffReader
{
public:
    explicit XliffReader(ITranslationSink &to) : sink(to)
    {
        XML_SetUserData(parser, this);
        XML_SetElementHandler(parser, OnStart, OnEnd);
        XML_SetCharacterDataHandler(parser, OnCharacters);
        XML_SetStartDoctypeDeclHandler(parser, OnDoctype);
    }

    void Read(const QByteArray &file)
    {
        const bool isParsed = XML_Parse(parser, file.constData(), int(file.size()), /*isFinal=*/true) == XML_STATUS_OK;
        if (isParsed && !hasFile)
            Fail(u"it has no element <file>, so there is nothing to import"_s);
        if (isParsed || hasFailed)
            return;
        const XML_Error error = XML_GetErrorCode(parser);
        if (error == XML_ERROR_NO_ELEMENTS || error == XML_ERROR_UNCLOSED_TOKEN)
            return Fail(u"the file ends too early, so it isn't complete"_s);
        Fail(error == XML_ERROR_NO_MEMORY ? u"its elements take too much memory"_s
                                          : u"this is no XML: "_s + QString::fromUtf8(XML_ErrorString(error)));
    }

private:
    // The functions that expat calls. It may call them once more after it was stopped.
    static void OnStart(void *user, const XML_Char *name, const XML_Char **attributes)
    {
        auto &reader = *static_cast<XliffReader *>(user);
        if (!reader.hasFailed)
            reader.Start(name, attributes);
    }

    static void OnEnd(void *user, const XML_Char *)
    {
        auto &reader = *static_cast<XliffReader *>(user);
        if (reader.hasFailed)
            return;
        if (reader.passedOver > 0) {
            --reader.passedOver;
            return;
        }
        reader.End(reader.places.back());
        reader.places.pop_back();
    }

    static void OnCharacters(void *user, const XML_Char *characters, int size)
    {
        auto &reader = *static_cast<XliffReader *>(user);
        if (reader.passedOver > 0 || reader.hasFailed)
            return;
        reader.gathered.append(characters, size);
        if (reader.gathered.size() > LONGEST_TEXT)
            reader.Fail(u"a text of more than %1 bytes"_s.arg(LONGEST_TEXT));
    }

    static void OnDoctype(void *user, const XML_Char *, const XML_Char *, const XML_Char *, int)
    {
        static_cast<XliffReader *>(user)->Fail(u"a document type is not allowed"_s);
    }

    void Fail(const QString &what)
    {
        if (hasFailed)
            return;
        hasFailed = true;
        sink.Fault(Line(), {}, what);
        XML_StopParser(parser, XML_FALSE);
    }

    [[nodiscard]] int Line() const { return int(XML_GetCurrentLineNumber(parser)); }

    void Start(std::string_view name, const XML_Char **attributes)
    {
        if (passedOver > 0) {
            ++passedOver;
            return;
        }
        const Place in = places.empty() ? Place::Document : places.back();
        const size_t separator = name.find(ExpatParser::SEPARATOR);
        const std::string_view space = separator == name.npos ? ""sv : name.substr(0, separator);
        const std::string_view local = separator == name.npos ? name : name.substr(separator + 1);
        const auto *const element = std::find_if(std::begin(ELEMENTS), std::end(ELEMENTS), [&](const auto &known) {
            return known.in == in && known.name == local;
        });
        const bool isKnown =
            element != std::end(ELEMENTS) && (element->place != Place::Segment || IsSegment(attributes));
        if (in == Place::Document && !(isKnown && Begins(space)))
            return Fail(space.starts_with("urn:oasis:names:tc:xliff:document:")
                            ? u"only XLIFF 1.1 and 1.2 can be read"_s
                            : u"the file begins with the element %1, so it is no XLIFF file"_s.arg(Quote(local)));
        const bool isInText = in == Place::Source || in == Place::Target || in == Place::Segment;
        const bool isRead = isKnown && space == rootSpace;
        if (isInText && !isRead && wrong.isEmpty())
            wrong = u"the element <%1> within a text can't be imported, since a string has no tags"_s.arg(Quote(local));
        if (!isRead) {
            ++passedOver;
            return;
        }
        places.push_back(element->place);
        if (element->place == Place::Segment)
            segmentStart = gathered.size(); // its text is a part of the whole
        else
            gathered.resize(0);
        Enter(element->place, attributes);
    }

    /// Returns whether an element "mrk" with those attributes is a segment. Others mark terms, comments and the like.
    static bool IsSegment(const XML_Char **attributes)
    {
        for (; *attributes; attributes += 2) {
            if (attributes[0] == "mtype"sv)
                return attributes[1] == "seg"sv;
        }
        return false;
    }

    /// Returns whether a file may have that namespace.
    bool Begins(std::string_view space)
    {
        rootSpace = space;
        return std::find(std::begin(NAMESPACES), std::end(NAMESPACES), space) != std::end(NAMESPACES);
    }

    void Enter(Place place, const XML_Char **attributes)
    {
        for (; *attributes; attributes += 2)
            ReadAttribute(place, attributes[0], attributes[1]);
        if (place == Place::File) {
            sink.Begin(head, Line());
            head = {};
            hasFile = true;
        }
        if (place == Place::Body)
            pluralDepth += pluralDepth > 0 || isPlural ? 1 : 0;
        isPlural = false;
        if (place == Place::Unit)
            text.line = Line();
    }

    void ReadAttribute(Place place, std::string_view name, const XML_Char *value)
    {
        if (place == Place::File && name == "source-language")
            head.sourceCode = QString::fromUtf8(value).trimmed();
        else if (place == Place::File && name == "target-language")
            head.targetCode = QString::fromUtf8(value).trimmed();
        else if (place == Place::Body && name == "restype")
            isPlural = value == "x-gettext-plurals"sv;
        else if (place == Place::Unit && name == "id")
            id = value;
        else if (place == Place::Unit && name == "resname")
            resname = value;
        else if (place == Place::Unit && name == "approved")
            text.isUnfinished = text.isUnfinished || value == "no"sv;
        else if (place == Place::Target && name == "state")
            text.isUnfinished = text.isUnfinished || IsUnfinishedState(value);
        else if (place == Place::Note && name == "from")
            isFromDeveloper = value == "developer"sv;
        else if (place == Place::Context && name == "context-type")
            isContext = value == "x-gettext-msgctxt"sv;
    }

    void End(Place place)
    {
        switch (place) {
        case Place::Body:
            pluralDepth -= pluralDepth > 0 ? 1 : 0;
            break;
        case Place::Source:
            emptySegments = fullSegments = 0;
            text.source = FromUtf8(gathered);
            break;
        case Place::Segment:
            ++(gathered.size() > segmentStart ? fullSegments : emptySegments);
            break;
        case Place::Target:
            EndSegments();
            if (!text.target.isEmpty() && wrong.isEmpty())
                wrong = u"a trans-unit has two targets, of which only one could be imported"_s;
            text.target = FromUtf8(gathered);
            break;
        case Place::Note:
            if (text.note.isEmpty() || (isFromDeveloper && !hasNote))
                text.note = FromUtf8(gathered);
            hasNote = hasNote || isFromDeveloper;
            isFromDeveloper = false;
            break;
        case Place::Context:
            if (isContext)
                context = gathered;
            isContext = false;
            break;
        case Place::Unit:
            EndUnit();
            break;
        default:
            break;
        }
    }

    /// A target with empty segments beside others isn't finished. If all are empty, so is the target, without the
    /// blanks between them.
    void EndSegments()
    {
        if (emptySegments > 0 && fullSegments == 0)
            gathered.resize(0);
        text.isUnfinished = text.isUnfinished || (emptySegments > 0 && fullSegments > 0);
        emptySegments = fullSegments = 0;
    }

    void EndUnit()
    {
        text.id = FromUtf8(!resname.isEmpty() ? resname : !context.isEmpty() ? context : id);
        if (pluralDepth > 0)
            wrong = u"plural forms can't be imported, since the string table has none"_s;
        if (wrong.isEmpty() && text.id.isEmpty())
            wrong = u"a trans-unit has neither a resname nor an id, one of which must be the ID"_s;
        if (wrong.isEmpty())
            sink.Take(text);
        else
            sink.Fault(text.line, text.id, wrong);
        text = {};
        wrong.clear();
        hasNote = false;
        for (QByteArray *part : {&id, &resname, &context})
            part->resize(0);
    }

    /// Returns the beginning of a name of the file for a message.
    static QString Quote(std::string_view name)
    {
        return QString::fromUtf8(name.data(), qsizetype(name.size())).left(60);
    }

    ITranslationSink &sink;
    const ExpatParser parser;
    std::string rootSpace;
    std::vector<Place> places; // of the open elements
    int passedOver = 0;        // the number of open elements within them that are skipped
    int pluralDepth = 0;       // the number of open groups from that with plural forms on
    bool isPlural = false;
    bool hasFile = false; // an element "file"
    bool hasFailed = false;
    QByteArray gathered;
    qsizetype segmentStart = 0; // in `gathered`
    int fullSegments = 0;       // of the present text
    int emptySegments = 0;

    TranslationHead head;
    TranslationText text;
    QString wrong; // with the unit
    QByteArray id;
    QByteArray resname;
    QByteArray context; // that other programs make of a PO file's msgctxt
    bool isContext = false;
    bool isFromDeveloper = false;
    bool hasNote = false; // from a developer
};

} // namespace

void ReadXliff(const QByteArray &file, ITranslationSink &sink)
{
    XliffReader(sink).Read(file);
}
