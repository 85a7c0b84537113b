// SPDX-License-Identifier: MIT
#include "CommandRecord.h"

#include <QtEndian>

using namespace Qt::StringLiterals;

namespace
{

/// A text field: its offset and its number of characters.
struct Field
{
    qsizetype offset;
    qsizetype characters;
    QLatin1StringView name;
};

constexpr Field PROJECT{0, 260, "project path"_L1};
constexpr Field INPUT{520, 260, "input file"_L1};
constexpr Field OUTPUT{1040, 260, "output file"_L1};
constexpr Field RESOLUTION{1560, 32, "resolution"_L1};
constexpr Field TARGET_KIND{1624, 32, "target kind"_L1};
constexpr qsizetype IMAGE_CONVERT_AT = 1688;
constexpr qsizetype VERSION_AT = 1692;

/// `bytes` must extend to the end of the field.
QString TextOf(QByteArrayView bytes, const Field &field)
{
    QString text(field.characters, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(bytes.data() + field.offset, field.characters, text.data());
    const qsizetype end = text.indexOf(QChar(u'\0'));
    if (end >= 0)
        text.truncate(end);
    return text;
}

bool PutText(QByteArray &bytes, const Field &field, const QString &text, QString &error)
{
    if (text.size() >= field.characters) {
        error = u"the %1 has %2 characters, but a command has room for %3 only: %4"_s.arg(field.name)
                    .arg(text.size())
                    .arg(field.characters - 1)
                    .arg(text);
        return false;
    }
    if (text.contains(QChar(u'\0'))) {
        error = u"the %1 contains a null character"_s.arg(field.name);
        return false;
    }
    qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes.data() + field.offset);
    return true;
}

} // namespace

std::optional<CommandRecord> ParseCommandRecord(QByteArrayView bytes)
{
    if (bytes.size() < COMMAND_RECORD_SIZE)
        return std::nullopt;
    return CommandRecord{TextOf(bytes, PROJECT)};
}

std::optional<PackCommandRecord> ParsePackCommandRecord(QByteArrayView bytes)
{
    if (bytes.size() < PACK_COMMAND_RECORD_SIZE)
        return std::nullopt;
    PackCommandRecord record;
    record.projectPath = TextOf(bytes, PROJECT);
    record.inputFile = TextOf(bytes, INPUT);
    record.outputFile = TextOf(bytes, OUTPUT);
    record.resolution = TextOf(bytes, RESOLUTION);
    record.targetKind = TextOf(bytes, TARGET_KIND);
    record.imageConvert = qFromLittleEndian<qint32>(bytes.data() + IMAGE_CONVERT_AT);
    record.version = qFromLittleEndian<qint32>(bytes.data() + VERSION_AT);
    return record;
}

std::optional<QByteArray> BuildRecord(const CommandRecord &record, QString &error)
{
    QByteArray bytes(COMMAND_RECORD_SIZE, '\0');
    if (!PutText(bytes, PROJECT, record.projectPath, error))
        return std::nullopt;
    return bytes;
}

std::optional<QByteArray> BuildRecord(const PackCommandRecord &record, QString &error)
{
    QByteArray bytes(PACK_COMMAND_RECORD_SIZE, '\0');
    if (!PutText(bytes, PROJECT, record.projectPath, error) || !PutText(bytes, INPUT, record.inputFile, error) ||
        !PutText(bytes, OUTPUT, record.outputFile, error) || !PutText(bytes, RESOLUTION, record.resolution, error) ||
        !PutText(bytes, TARGET_KIND, record.targetKind, error))
        return std::nullopt;
    qToLittleEndian<qint32>(record.imageConvert, bytes.data() + IMAGE_CONVERT_AT);
    qToLittleEndian<qint32>(record.version, bytes.data() + VERSION_AT);
    return bytes;
}
