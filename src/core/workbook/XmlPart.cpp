// SPDX-License-Identifier: MIT
#include "XmlPart.h"

#include "ExpatParser.h"
#include "ZipFile.h"

#include <cstring>

namespace
{

constexpr size_t LONGEST_TEXT = 1 << 20; // bytes; a cell has 32,767 characters
constexpr qint64 LONGEST_TAG = 1 << 20;  // bytes; expat scans a tag from its start for each piece of it

} // namespace

std::optional<std::string_view> XmlAttributes::Find(std::string_view name) const
{
    for (const XML_Char *const *pair = list; *pair; pair += 2) {
        if (std::strncmp(pair[0], name.data(), name.size()) == 0 && pair[0][name.size()] == 0)
            return pair[1];
    }
    return std::nullopt;
}

/// The functions that expat calls. It may call them once more after it was stopped.
struct XmlPart::Handlers
{
    static void Start(void *user, const XML_Char *name, const XML_Char **attributes)
    {
        XmlPart &part = *static_cast<XmlPart *>(user);
        if (part.outcome.HasFailed())
            return;
        const XmlStep *const step = part.passedOver == 0 ? part.FindStep(name) : nullptr;
        if (!step && part.places.empty() && part.passedOver == 0)
            return part.FailAtLine(part.grammar.otherRoot,
                                   QStringLiteral("it begins with the unknown element %1")
                                       .arg(QString::fromUtf8(name).section(QLatin1Char(ExpatParser::SEPARATOR), -1)));
        if (!step) {
            ++part.passedOver;
            return;
        }
        part.places.push_back(step->place);
        part.gathered.clear();
        part.Enter(step->place, XmlAttributes(attributes));
    }

    static void End(void *user, const XML_Char *)
    {
        XmlPart &part = *static_cast<XmlPart *>(user);
        if (part.outcome.HasFailed())
            return;
        if (part.passedOver > 0) {
            --part.passedOver;
            return;
        }
        part.Leave(part.places.back(), {part.gathered.data(), qsizetype(part.gathered.size())});
        part.places.pop_back();
    }

    static void Characters(void *user, const XML_Char *text, int size)
    {
        XmlPart &part = *static_cast<XmlPart *>(user);
        if (part.passedOver > 0 || part.outcome.HasFailed())
            return;
        part.gathered.append(text, size_t(size));
        if (part.gathered.size() > LONGEST_TEXT)
            part.FailAtLine(WorkbookFault::TooLarge, QStringLiteral("a text of more than %1 bytes").arg(LONGEST_TEXT));
    }

    static void Doctype(void *user, const XML_Char *, const XML_Char *, const XML_Char *, int)
    {
        static_cast<XmlPart *>(user)->FailAtLine(WorkbookFault::Broken,
                                                 QStringLiteral("a document type is not allowed"));
    }
};

WorkbookResult XmlPart::Read(const ZipFile &zip, const QByteArray &name)
{
    const ExpatParser expat;
    parser = expat;
    partName = QString::fromUtf8(name);
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, Handlers::Start, Handlers::End);
    XML_SetCharacterDataHandler(parser, Handlers::Characters);
    XML_SetStartDoctypeDeclHandler(parser, Handlers::Doctype);
    const WorkbookResult unpacked = zip.Read(name, [this](QByteArrayView piece) { return Take(piece); });
    if (!outcome.HasFailed() && !unpacked.HasFailed())
        (void)Take({});
    return outcome.HasFailed() ? outcome : unpacked;
}

/// Parses a piece. An empty piece is the last one. False when parsing fails.
bool XmlPart::Take(QByteArrayView piece)
{
    fed += piece.size();
    if (XML_Parse(parser, piece.data(), int(piece.size()), piece.isEmpty()) != XML_STATUS_OK) {
        const XML_Error error = XML_GetErrorCode(parser);
        if (error == XML_ERROR_NO_MEMORY)
            FailAtLine(WorkbookFault::TooLarge, QStringLiteral("its elements take too much memory"));
        FailAtLine(WorkbookFault::Broken, QString::fromUtf8(XML_ErrorString(error)));
    } else if (fed - XML_GetCurrentByteIndex(parser) > LONGEST_TAG) {
        FailAtLine(WorkbookFault::TooLarge, QStringLiteral("a tag of more than %1 bytes").arg(LONGEST_TAG));
    }
    return !outcome.HasFailed();
}

const XmlStep *XmlPart::FindStep(std::string_view name) const
{
    const int parent = places.empty() ? XmlGrammar::DOCUMENT : places.back();
    for (const XmlStep &step : grammar.steps) {
        if (step.parent != parent || !name.ends_with(step.name))
            continue;
        const std::string_view space = name.substr(0, name.size() - step.name.size());
        for (const std::string_view known : grammar.namespaces) {
            if (space.size() == known.size() + 1 && space.back() == ExpatParser::SEPARATOR && space.starts_with(known))
                return &step;
        }
    }
    return nullptr;
}

void XmlPart::Fail(WorkbookFault fault, const QString &reason)
{
    if (outcome.HasFailed())
        return;
    outcome = {fault, reason};
    XML_StopParser(parser, XML_FALSE);
}

void XmlPart::FailAtLine(WorkbookFault fault, const QString &what)
{
    Fail(fault, QStringLiteral("%1, line %2: %3").arg(partName).arg(XML_GetCurrentLineNumber(parser)).arg(what));
}
