// SPDX-License-Identifier: MIT
#include "TextPool.h"

#include <QtEndian>

#include <algorithm>

TextPool::Ref TextPool::InFile(QByteArrayView characters, bool isWide) const
{
    Ref ref;
    ref.at = quint32(characters.data() - file.constData());
    ref.isWide = isWide;
    ref.length = quint32(characters.size() >> int(isWide)) & 0x7FFFFFFF;
    return ref;
}

TextPool::Ref TextPool::Add(QStringView text)
{
    const bool isWide = std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0xFF; });
    const qsizetype start = added.size();
    added.resize(start + (text.size() << int(isWide)));
    char *bytes = added.data() + start;
    if (isWide)
        qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes);
    else
        std::transform(text.begin(), text.end(), bytes, [](QChar c) { return char(c.unicode()); });
    Ref ref;
    ref.at = quint32(file.size() + start);
    ref.isWide = isWide;
    ref.length = quint32(text.size()) & 0x7FFFFFFF;
    return ref;
}

TextPool::Ref TextPool::AddLatin1(QByteArrayView characters)
{
    Ref ref;
    ref.at = quint32(file.size() + added.size());
    ref.length = quint32(characters.size()) & 0x7FFFFFFF;
    added.append(characters);
    return ref;
}

bool TextPool::IsText(Ref ref, QStringView text) const
{
    if (qsizetype(ref.length) != text.size())
        return false;
    if (ref.IsEmpty())
        return true;
    const QByteArrayView bytes = Bytes(ref);
    if (!ref.isWide)
        return QtPrivate::equalStrings(QLatin1String(bytes.data(), bytes.size()), text);
    const char *at = bytes.data();
    return std::all_of(text.begin(), text.end(), [&at](QChar c) {
        const bool isSame = qFromLittleEndian<char16_t>(at) == c.unicode();
        at += sizeof(char16_t);
        return isSame;
    });
}

QByteArrayView TextPool::Bytes(Ref ref) const
{
    const bool isInFile = ref.at < file.size();
    return isInFile ? QByteArrayView(file).sliced(ref.at, ref.Size())
                    : QByteArrayView(added).sliced(ref.at - file.size(), ref.Size());
}

QString TextPool::Text(Ref ref) const
{
    if (ref.IsEmpty())
        return QString();
    const QByteArrayView bytes = Bytes(ref);
    if (!ref.isWide)
        return QString::fromLatin1(bytes);
    QString text(ref.length, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(bytes.data(), text.size(), text.data());
    return text;
}
