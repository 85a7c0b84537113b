// SPDX-License-Identifier: MIT
#include "Xml.h"

#include "Environment.h"
#include "XmlText.h"

#include <algorithm>
#include <cstring>

int LoadXml(const Environment &env, const QString &path, TiXmlDocument &document)
{
    QByteArray text;
    const int code = ReadXmlText(env, path, text, document);
    return code == 0 ? ParseXmlText(text, document) : code;
}

int ParseXml(const Environment &env, QByteArrayView bytes, TiXmlDocument &document)
{
    return ParseXmlText(XmlText(env, bytes.toByteArray()), document);
}

int RowOf(const TiXmlNode &node)
{
    const auto row = reinterpret_cast<qintptr>(node.GetUserData());
    return row > 0 ? int(row) : node.Row();
}

NarrowText FromXml(const Environment &env, const char *text)
{
    return text ? FromXml(env, QByteArray(text)) : NarrowText();
}

NarrowText FromXml(const Environment &env, const QByteArray &text)
{
    return env.codePage.IsUtf8() ? text : env.WideToNarrow(QString::fromUtf8(text));
}

namespace
{

/// Returns whether the parser would read the same text back. After a byte that begins a character of several bytes it
/// takes the following bytes as part of that character, whatever they are, even the "<" of the end tag.
bool ComesBackWhole(const QByteArray &text)
{
    if (text.isValidUtf8()) // most texts are, and this test is fast
        return true;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto first = quint8(text[i]);
        const int more = first < 0xC2 || first > 0xF4 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
        for (int k = 1; k <= more; ++k) {
            if (i + k >= text.size() || quint8(text[i + k]) < 0x80)
                return false;
        }
        i += more;
    }
    return true;
}

} // namespace

QByteArray ToXml(const Environment &env, const NarrowText &text)
{
    QByteArray utf8 = env.Shown(text);
    return ComesBackWhole(utf8) ? utf8 : QString::fromUtf8(utf8).toUtf8();
}

bool IsKeptByCodePage(const Environment &env, const QByteArray &text)
{
    if (env.codePage.IsUtf8())
        return ComesBackWhole(text);
    const QString wide = QString::fromUtf8(text);
    return !wide.contains(QChar::ReplacementCharacter) && env.NarrowToWide(env.WideToNarrow(wide)) == wide;
}

bool IsXmlName(QByteArrayView name)
{
    const auto continues = [](char c) { return BeginsXmlName(c) || (c >= '0' && c <= '9') || (c && strchr("-.:", c)); };
    return !name.isEmpty() && BeginsXmlName(name.front()) && std::all_of(name.begin(), name.end(), continues);
}

void CondenseWhiteSpace(bool on)
{
    TiXmlBase::SetCondenseWhiteSpace(on);
}
