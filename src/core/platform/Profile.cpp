#include "Profile.h"

#include "HostFiles.h"
#include "Text.h"

#include <QStringDecoder>

namespace {

QString Decode(QByteArrayView bytes)
{
    if (bytes.startsWith("\xFF\xFE")) {
        QStringDecoder decode(QStringDecoder::Utf16LE);
        return decode(bytes.sliced(2));
    }
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes = bytes.sliced(3);
    return QString::fromUtf8(bytes);
}

QString Unquoted(QStringView value)
{
    const bool quoted = value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
    return (quoted ? value.sliced(1, value.size() - 2) : value).toString();
}

} // namespace

Profile Profile::Load(const QString &path)
{
    QByteArray bytes;
    if (ReadFile(path, bytes, 16 << 20) != 0)
        return {};
    return Parse(bytes);
}

Profile Profile::Parse(QByteArrayView bytes)
{
    Profile profile;
    const QString text = Decode(bytes);
    if (text.contains(u"\r\n"))
        profile.lineEnd = QStringLiteral("\r\n");
    QString section;
    qsizetype at = 0;
    while (at < text.size()) {
        qsizetype end = text.indexOf(u'\n', at);
        if (end < 0)
            end = text.size();
        QStringView line = QStringView(text).sliced(at, end - at);
        if (line.endsWith(u'\r'))
            line.chop(1);
        at = end + 1;
        const QStringView trimmed = line.trimmed();
        QString key;
        if (trimmed.startsWith(u'[')) {
            const qsizetype close = trimmed.indexOf(u']');
            section = ToUpperSimple(trimmed.sliced(1, (close < 0 ? trimmed.size() : close) - 1).trimmed());
        } else if (!trimmed.startsWith(u';')) {
            const qsizetype equals = trimmed.indexOf(u'=');
            if (equals > 0)
                key = ToUpperSimple(trimmed.first(equals).trimmed());
        }
        profile.lines.append({line.toString(), section, key});
    }
    return profile;
}

const Profile::Line *Profile::Find(QStringView section, QStringView key) const
{
    const QString upperSection = ToUpperSimple(section);
    const QString upperKey = ToUpperSimple(key);
    for (const Line &line : lines) {
        if (!line.key.isEmpty() && line.key == upperKey && line.section == upperSection)
            return &line;
    }
    return nullptr;
}

bool Profile::Has(QStringView section, QStringView key) const
{
    return Find(section, key) != nullptr;
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

QStringList Profile::Section(QStringView section, qsizetype limit) const
{
    const QString upperSection = ToUpperSimple(section);
    QStringList result;
    qsizetype used = 1;
    for (const Line &line : lines) {
        const QStringView text = QStringView(line.text).trimmed();
        if (line.section != upperSection || text.isEmpty() || text.startsWith(u';') || text.startsWith(u'['))
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
    if (const Line *line = Find(section, key)) {
        const_cast<Line *>(line)->text = text;
        return;
    }
    const QString upperSection = ToUpperSimple(section);
    qsizetype place = -1;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (lines[i].section == upperSection && !lines[i].text.trimmed().isEmpty())
            place = i + 1;
    }
    if (place < 0) {
        lines.append({u'[' + section.toString() + u']', upperSection, {}});
        place = lines.size();
    }
    lines.insert(place, {text, upperSection, ToUpperSimple(key)});
}

QByteArray Profile::Bytes() const
{
    QString text;
    for (const Line &line : lines)
        text += line.text + lineEnd;
    return text.toUtf8();
}
