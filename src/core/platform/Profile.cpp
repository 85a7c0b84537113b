// SPDX-License-Identifier: MIT
#include "Profile.h"

#include "HostFiles.h"
#include "Text.h"

#include <QSet>
#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <cerrno>

namespace
{

constexpr char UTF16_MARK[] = "\xFF\xFE";
constexpr char UTF8_MARK[] = "\xEF\xBB\xBF";
constexpr qint64 LARGEST_FILE = 1 << 20; // bytes; in memory each line takes several times its length

QString Unquoted(QStringView value)
{
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
    return (quoted ? value.sliced(1, value.size() - 2) : value).toString();
}

} // namespace

Profile Profile::Load(const QString &path)
{
    Profile profile;
    (void)Read(path, profile);
    return profile;
}

int Profile::Read(const QString &path, Profile &profile)
{
    const FileHandle file = OpenRead(path);
    return file.IsOpen() ? Read(file, profile) : errno;
}

int Profile::Read(const FileHandle &file, Profile &profile)
{
    QByteArray bytes;
    const int error = ReadFile(file, bytes, LARGEST_FILE);
    if (error == 0)
        profile = Parse(bytes);
    return error;
}

Profile Profile::Parse(QByteArrayView bytes)
{
    Profile profile;
    for (const QByteArrayView mark : {QByteArrayView(UTF16_MARK), QByteArrayView(UTF8_MARK)}) {
        if (bytes.startsWith(mark))
            profile.mark = mark.toByteArray();
    }
    const qsizetype unit = profile.IsUtf16() ? 2 : 1;
    bytes.chop(bytes.size() % unit); // an incomplete unit at the end
    profile.content = bytes.toByteArray();
    profile.lines.reserve(std::count(bytes.begin(), bytes.end(), '\n') + 1);
    QString section;
    for (qsizetype at = profile.mark.size(); at < bytes.size();) {
        qsizetype end = bytes.indexOf('\n', at);
        while (unit == 2 && end >= 0 && ((end - at) % unit != 0 || bytes[end + 1] != 0))
            end = bytes.indexOf('\n', end + 1);
        end = end < 0 ? bytes.size() : end + unit;
        profile.AddLine(QByteArray::fromRawData(profile.content.constData() + at, end - at), section);
        at = end;
    }
    return profile;
}

void Profile::AddLine(const QByteArray &raw, QString &section)
{
    const bool isComment = raw.startsWith(';');
    if (!IsUtf16() && (isComment || raw == "\n" || raw == "\r\n")) { // most lines, so they are not decoded
        if (lines.isEmpty() && raw.endsWith("\r\n"))
            lineEnd = QStringLiteral("\r\n");
        lines.append({raw, isComment ? QStringLiteral(";") : QString(), section, {}, false});
        return;
    }
    QString text = IsUtf16() ? QStringDecoder(QStringDecoder::Utf16LE)(raw) : QString::fromUtf8(raw);
    const bool isFed = text.endsWith(u'\n');
    text.chop(isFed);
    const bool isReturned = text.endsWith(u'\r');
    text.chop(isReturned);
    if (lines.isEmpty() && isFed && isReturned)
        lineEnd = QStringLiteral("\r\n");
    const QStringView trimmed = QStringView(text).trimmed();
    QString key;
    const bool isHead = trimmed.startsWith(u'[');
    if (isHead) {
        const qsizetype close = trimmed.indexOf(u']');
        section = ToUpperSimple(trimmed.sliced(1, (close < 0 ? trimmed.size() : close) - 1).trimmed());
    } else if (!trimmed.startsWith(u';')) {
        const qsizetype equals = trimmed.indexOf(u'=');
        if (equals > 0)
            key = ToUpperSimple(trimmed.first(equals).trimmed());
    }
    lines.append({raw, text, section, key, isHead});
}

QByteArray Profile::Encoded(const QString &text) const
{
    QStringEncoder encode(IsUtf16() ? QStringEncoder::Utf16LE : QStringEncoder::Utf8);
    return encode.encode(text);
}

std::pair<qsizetype, qsizetype> Profile::Range(const QString &upperSection) const
{
    qsizetype first = 0;
    while (first < lines.size() && !(lines[first].isHead && lines[first].section == upperSection))
        ++first;
    first = std::min(first + 1, lines.size());
    qsizetype behind = first;
    while (behind < lines.size() && !lines[behind].isHead)
        ++behind;
    return {first, behind};
}

const Profile::Line *Profile::Find(QStringView section, QStringView key) const
{
    const QString upperSection = ToUpperSimple(section);
    const QString upperKey = ToUpperSimple(key);
    const auto [first, behind] = Range(upperSection);
    for (qsizetype i = first; i < behind; ++i) {
        if (!upperKey.isEmpty() && lines[i].key == upperKey)
            return &lines[i];
    }
    return nullptr;
}

bool Profile::Has(QStringView section, QStringView key) const
{
    return Find(section, key) != nullptr;
}

int Profile::LineOf(QStringView section, QStringView key) const
{
    const Line *const line = Find(section, key);
    return line ? int(line - lines.constData()) + 1 : 0;
}

QString Profile::String(QStringView section, QStringView key, const QString &fallback) const
{
    const Line *line = Find(section, key);
    if (!line)
        return fallback;
    return Unquoted(QStringView(line->text).sliced(line->text.indexOf(u'=') + 1).trimmed());
}

int Profile::Int(QStringView section, QStringView key, int fallback) const
{
    if (!Has(section, key))
        return fallback;
    return LeadingNumber(String(section, key, {}));
}

QList<std::pair<QString, QString>> Profile::Keys() const
{
    QList<std::pair<QString, QString>> keys;
    const QList<int> repeated = RepeatedHeads();
    QString section;
    bool counts = true;
    for (const Line &line : lines) {
        if (line.isHead) {
            section = QStringView(line.text).trimmed().sliced(1).split(u']').front().trimmed().toString();
            counts = !std::binary_search(repeated.begin(), repeated.end(), int(&line - lines.constData()) + 1);
        } else if (counts && !line.key.isEmpty()) {
            keys.emplaceBack(section, QStringView(line.text).first(line.text.indexOf(u'=')).trimmed().toString());
        }
    }
    return keys;
}

QList<int> Profile::StrayLines() const
{
    QList<int> numbers;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QStringView text = QStringView(lines[i].text).trimmed();
        if (!lines[i].isHead && lines[i].key.isEmpty() && !text.isEmpty() && !text.startsWith(u';'))
            numbers.append(int(i) + 1);
    }
    return numbers;
}

QList<int> Profile::BrokenHeads() const
{
    QList<int> numbers;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QStringView text = QStringView(lines[i].text).trimmed();
        const qsizetype close = text.indexOf(u']');
        const QStringView behind = text.sliced(close + 1).trimmed();
        if (lines[i].isHead && (close < 0 || (!behind.isEmpty() && !behind.startsWith(u';'))))
            numbers.append(int(i) + 1);
    }
    return numbers;
}

QList<int> Profile::RepeatedHeads() const
{
    QList<int> numbers;
    QSet<QString> sections;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].isHead && sections.contains(lines[i].section))
            numbers.append(int(i) + 1);
        else if (lines[i].isHead)
            sections.insert(lines[i].section);
    }
    return numbers;
}

QStringList Profile::Section(QStringView section, qsizetype limit) const
{
    const QString upperSection = ToUpperSimple(section);
    QStringList result;
    qsizetype used = 1;
    const auto [first, behind] = Range(upperSection);
    for (qsizetype i = first; i < behind; ++i) {
        const QStringView text = QStringView(lines[i].text).trimmed();
        if (text.isEmpty() || text.startsWith(u';'))
            continue;
        used += text.size() + 1;
        if (used > limit)
            break;
        result.append(text.toString());
    }
    return result;
}

void Profile::Set(QStringView section, QStringView key, const QString &value)
{
    const QString text = key.toString() + u'=' + value;
    const QByteArray raw = Encoded(text + lineEnd);
    if (const Line *found = Find(section, key)) {
        auto *const line = const_cast<Line *>(found);
        line->text = text;
        line->raw = raw;
        return;
    }
    const QString upperSection = ToUpperSimple(section);
    auto [first, place] = Range(upperSection);
    if (first == lines.size() && !(first > 0 && lines.last().isHead && lines.last().section == upperSection)) {
        const QString head = u'[' + section.toString() + u']';
        lines.append({Encoded(head + lineEnd), head, upperSection, {}, true});
        first = place = lines.size();
    }
    while (place > first && lines[place - 1].text.trimmed().isEmpty())
        --place; // keeps the empty lines before the next section
    lines.insert(place, {raw, text, upperSection, ToUpperSimple(key), false});
}

QByteArray Profile::Bytes() const
{
    const QByteArray feed = Encoded(QStringLiteral("\n"));
    QByteArray bytes = mark;
    for (const Line &line : lines) {
        bytes += line.raw;
        if (&line != &lines.last() && !line.raw.endsWith(feed)) // it was the last line
            bytes += Encoded(lineEnd);
    }
    return bytes;
}
