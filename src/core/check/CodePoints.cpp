// SPDX-License-Identifier: MIT
#include "CodePoints.h"

#include "Escapes.h"
#include "ResModel.h"
#include "TakeCodePoint.h"

#include <algorithm>
#include <bit>

namespace
{

/// Adds the characters that the device draws for a text: an escape sequence such as "\n" isn't drawn, except that of a
/// quotation mark and the like.
void AddDrawn(CodePoints &points, QStringView text)
{
    qsizetype start = 0;
    for (qsizetype at = text.indexOf(u'\\'); at >= 0; at = text.indexOf(u'\\', start)) {
        points.Add(text.sliced(start, at - start));
        const EscapeSequence escape = EscapeAt(text, at);
        start = at + escape.size;
        if (QStringView(u"\"'?\\").contains(escape.letter))
            points.Add(QStringView(&escape.letter, 1));
    }
    points.Add(text.sliced(start));
}

/// Returns the code points of those texts of a language for which `isWanted(resource)` is true.
template <typename IsWanted> CodePoints CodePointsIf(const CResModel &model, qint32 language, const IsWanted &isWanted)
{
    CodePoints points;
    const CResFolder *const strings = model.root.FindFolder(KIND_STRINGS, 2);
    const CResFolder *const folder = strings ? strings->FindFolder(KIND_LANGUAGE, language, 1) : nullptr;
    if (!folder)
        return points;
    for (const CBaseRes *res : folder->resources) {
        if (isWanted(*res))
            AddDrawn(points, static_cast<const CStringRes *>(res)->Text());
    }
    return points;
}

} // namespace

void CodePoints::Add(QStringView text)
{
    for (qsizetype at = 0; at < text.size();) {
        const char32_t character = TakeCodePoint(text, at);
        if (Has(character) || QChar::isSurrogate(character))
            continue;
        const size_t word = character / BITS;
        if (word >= words.size())
            words.resize(word + 1);
        words[word] |= quint64(1) << (character % BITS);
    }
}

void CodePoints::Add(const CodePoints &others)
{
    words.resize(std::max(words.size(), others.words.size()));
    for (size_t word = 0; word < others.words.size(); ++word)
        words[word] |= others.words[word];
}

std::vector<char32_t> CodePoints::All() const
{
    std::vector<char32_t> all;
    for (size_t word = 0; word < words.size(); ++word) {
        for (quint64 bits = words[word]; bits != 0; bits &= bits - 1)
            all.push_back(char32_t(word * BITS + size_t(std::countr_zero(bits))));
    }
    return all;
}

CodePoints CodePointsOf(const CResModel &model, qint32 language)
{
    return CodePointsIf(model, language, [](const CBaseRes &) { return true; });
}

CodePoints CodePointsOf(const CResModel &model, qint32 language, const QSet<NarrowText> &ids)
{
    return CodePointsIf(model, language, [&ids](const CBaseRes &res) { return ids.contains(res.Id()->name); });
}

QByteArray CodePointsText(const CodePoints &points, CodePointFormat format)
{
    QString text;
    const std::vector<char32_t> all = points.All();
    for (size_t from = 0; from < all.size();) {
        size_t to = from; // the last of the range
        while (format != CodePointFormat::List && to + 1 < all.size() && all[to + 1] == all[to] + 1)
            ++to;
        const QString first = CodePointName(all[from]);
        const QString last = CodePointName(all[to]);
        if (format == CodePointFormat::C)
            text += QStringLiteral("    {0x%1, 0x%2},\n").arg(first.sliced(2), last.sliced(2));
        else if (format == CodePointFormat::Ranges)
            text += (from == to ? first : first + u'-' + last) + u'\n';
        else
            text += QStringLiteral("%1 %2\n").arg(first, QString::fromUcs4(&all[from], 1));
        from = to + 1;
    }
    if (format == CodePointFormat::C)
        text = QStringLiteral("static const unsigned long code_points[][2] = {\n%1};\n").arg(text);
    return text.toUtf8();
}

QString CodePointName(char32_t character)
{
    return QStringLiteral("U+%1").arg(QString::number(uint(character), 16).toUpper(), 4, u'0');
}
