// SPDX-License-Identifier: MIT
#include "Merge.h"

#include "BothVersions.h"
#include "ConflictMarkers.h"
#include "Environment.h"
#include "ListMerge.h"
#include "StringMerge.h"
#include "TextForm.h"
#include "Xml.h"
#include "XmlWriter.h"

using namespace Qt::StringLiterals;

namespace
{

using Files = std::array<QByteArray, MERGE_SIDES>;

constexpr QByteArrayView UTF8_MARK("\xEF\xBB\xBF");

QString About(size_t side, const QString &problem)
{
    return u"%1: %2"_s.arg(QLatin1String(SIDE_NAMES[side]), problem);
}

QByteArrayView WithoutMark(QByteArrayView bytes)
{
    return bytes.sliced(bytes.startsWith(UTF8_MARK) ? UTF8_MARK.size() : 0);
}

bool IsXml(QByteArrayView bytes)
{
    return WithoutMark(bytes).trimmed().startsWith('<');
}

void Write(XmlWriter &writer, const ListElement &element)
{
    if (element.tag.isEmpty() && !element.children.empty()) {
        writer.Line(MARKER_OURS);
        Write(writer, element.children[0]);
        writer.Line(MARKER_BETWEEN);
        Write(writer, element.children[1]);
        writer.Line(MARKER_THEIRS);
        return;
    }
    if (element.tag.isEmpty())
        return;
    TiXmlElement written(element.tag.constData());
    for (const auto &[name, value] : element.attributes)
        written.SetAttribute(name.toStdString(), value.toStdString());
    if (HasText(element.tag)) {
        written.LinkEndChild(new TiXmlText(element.text.toStdString()));
        writer.Put(written);
        return;
    }
    writer.Begin(written);
    for (const ListElement &child : element.children)
        Write(writer, child);
    writer.End();
}

/// Returns the declaration that a list begins with, with its line end; empty if it has none.
QByteArrayView DeclarationOf(QByteArrayView bytes)
{
    if (!bytes.startsWith("<?xml"))
        return {};
    const qsizetype feed = bytes.indexOf('\n', std::max<qsizetype>(bytes.indexOf("?>"), 0));
    return bytes.first(feed + 1);
}

/// Returns a list as a save writes it, with the mark, the declaration and the line ends of ours. Nothing if the code
/// page lacks one of its characters.
std::optional<QByteArray> ListBytes(Environment &env, const ListElement &list, const QByteArray &ours)
{
    XmlWriter writer(env);
    Write(writer, list);
    const bool hasMark = ours.startsWith(UTF8_MARK);
    QByteArray bytes = hasMark ? writer.Text().toByteArray() : writer.Bytes();
    if (!hasMark && !env.codePage.IsUtf8() && env.NarrowToWide(bytes).toUtf8() != writer.Text())
        return std::nullopt;
    if (const qsizetype feed = ours.indexOf('\n'); feed > 0 && ours[feed - 1] == '\r')
        bytes.replace('\n', "\r\n");
    const QByteArrayView declaration = DeclarationOf(WithoutMark(ours));
    return ours.first(hasMark ? UTF8_MARK.size() : 0) + declaration.toByteArray() + bytes;
}

MergeResult MergeResourceLists(Environment &env, const Files &files, OnConflict onConflict)
{
    MergeResult result;
    std::array<ListElement, MERGE_SIDES> lists;
    for (size_t side = BASE; side < MERGE_SIDES; ++side) {
        const QString problem =
            side == BASE && files[side].isEmpty() ? QString() : ReadList(env, files[side], lists[side]);
        if (!problem.isEmpty()) {
            result.refusal = About(side, problem);
            return result;
        }
    }
    ListMerge merge(onConflict);
    const ListElement merged = merge.Merge(lists[BASE], lists[OURS], lists[THEIRS]);
    result.conflicts = merge.conflicts;
    if (merged == lists[OURS]) { // also if it isn't in the form of a save
        result.bytes = files[OURS];
    } else if (std::optional<QByteArray> bytes = ListBytes(env, merged, files[OURS])) {
        result.bytes = std::move(*bytes);
    } else {
        result.refusal = u"the code page of the settings lacks a character of theirs"_s;
    }
    return result;
}

MergeResult MergeStringFiles(const Environment &env, const Files &files, OnConflict onConflict)
{
    MergeResult result;
    std::array<TextForm, MERGE_SIDES> forms;
    std::array<QString, MERGE_SIDES> texts;
    MergeTables tables;
    for (size_t side = BASE; side < MERGE_SIDES; ++side) {
        QString problem = forms[side].Decode(files[side], texts[side]);
        if (problem.isEmpty() && texts[side].isEmpty() && side != BASE)
            problem = u"the file is empty"_s;
        if (problem.isEmpty())
            problem = tables[side].Read(env, texts[side]);
        if (!problem.isEmpty()) {
            result.refusal = About(side, problem);
            return result;
        }
    }
    StringMerge merge(tables, onConflict, forms[OURS].LineEnd());
    result.refusal = merge.Run();
    if (!result.refusal.isEmpty())
        return result;
    result.conflicts = merge.conflicts;
    if (std::optional<QByteArray> bytes = forms[OURS].Encode(merge.text))
        result.bytes = std::move(*bytes);
    else
        result.refusal = u"a text of theirs has half of a surrogate pair, which UTF-8 can't express"_s;
    return result;
}

/// Gives all lines of a text one end.
QString WithLineEnd(QString text, QStringView lineEnd)
{
    text.replace(u"\r\n"_s, u"\n"_s);
    return lineEnd == u"\n" ? text : text.replace(u"\n"_s, lineEnd.toString());
}

/// Returns both versions of a file as one conflict, in the encoding and with the line ends of `ours`, or of `theirs` if
/// `ours` is empty. Nothing if one of them is no text, or that encoding lacks one of its characters.
std::optional<QByteArray> BothAsConflict(const QByteArray &ours, const QByteArray &theirs)
{
    if (!IsXml(ours)) {
        TextForm ofOurs;
        TextForm ofTheirs;
        QString our;
        QString their;
        if (!ofOurs.Decode(ours, our).isEmpty() || !ofTheirs.Decode(theirs, their).isEmpty() ||
            our.contains(QChar(0)) || their.contains(QChar(0)))
            return std::nullopt;
        const TextForm &form = ours.isEmpty() ? ofTheirs : ofOurs;
        return form.Encode(BothVersions(our, WithLineEnd(their, form.LineEnd()), form.LineEnd()));
    }
    const QByteArrayView mark = UTF8_MARK.first(ours.size() - WithoutMark(ours).size());
    if (ours.contains('\0') || theirs.contains('\0') || theirs.startsWith(UTF8_MARK) == mark.isEmpty())
        return std::nullopt;
    const QStringView lineEnd = ours.contains("\r\n") ? u"\r\n" : u"\n";
    const auto text = [](const QByteArray &bytes) {
        return QString::fromLatin1(WithoutMark(bytes));
    }; // of any encoding
    return mark.toByteArray() + BothVersions(text(ours), WithLineEnd(text(theirs), lineEnd), lineEnd).toLatin1();
}

} // namespace

MergeResult MergeFiles(Environment &env, const Files &files, OnConflict onConflict)
{
    for (size_t side = BASE; side < MERGE_SIDES; ++side) {
        for (const ConflictMarker &found : ConflictMarkersIn(files[side], 1)) {
            MergeResult result;
            result.refusal = About(side, u"line %1 begins with the conflict marker %2 of an earlier merge"_s.arg(
                                             QString::number(found.line), found.marker));
            return result;
        }
    }
    MergeResult result =
        IsXml(files[OURS]) ? MergeResourceLists(env, files, onConflict) : MergeStringFiles(env, files, onConflict);
    if (!result.refusal.isEmpty() && onConflict == OnConflict::Mark && files[OURS] != files[THEIRS])
        result.bytes = BothAsConflict(files[OURS], files[THEIRS]).value_or(QByteArray());
    return result;
}
