// SPDX-License-Identifier: MIT
#include "XmlText.h"

#include "Environment.h"
#include "HostFiles.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

namespace
{

constexpr int DEEPEST_NESTING = 256;       // the parser recurses
constexpr int MOST_ATTRIBUTES = 128;       // of an element; the parser searches the list for each of them
constexpr int MOST_TAGS = 4'000'000;       // the parser needs some 700 bytes for an element
constexpr qint64 LARGEST_FILE = 256 << 20; // bytes
constexpr int PADDING = 8;                 // bytes; the parser reads past an incomplete UTF-8 sequence

/// Checks whether the parser can read a document safely: how deeply its elements are nested, how many there are, and
/// how many attributes each of them has.
///
/// It recognizes tags as the parser does, not as the standard says: a "<" within the quotes of a tag begins no tag, and
/// an end tag without an open element is ignored.
class XmlGuard
{
public:
    explicit XmlGuard(QByteArrayView text) : at(text.data()), end(text.data() + text.size()) {}

    bool IsHarmless()
    {
        while ((at = Next('<')) < end) {
            if (++tags > MOST_TAGS || !Tag())
                return false;
        }
        return true;
    }

    /// The position at which the check ended.
    [[nodiscard]] const char *Place() const { return at; }
    /// The positions at which the elements and comments begin, in order.
    [[nodiscard]] const std::vector<const char *> &Nodes() const { return nodes; }

private:
    [[nodiscard]] const char *Next(char c) const
    {
        const void *found = at < end ? memchr(at, c, size_t(end - at)) : nullptr;
        return found ? static_cast<const char *>(found) : end;
    }

    void Skip(qsizetype opening, QByteArrayView closing)
    {
        const QByteArrayView rest(at + opening, end - at - opening);
        const qsizetype found = rest.indexOf(closing);
        at = found < 0 ? end : rest.data() + found + closing.size();
    }

    bool Tag()
    {
        const QByteArrayView rest(at, end - at);
        if (rest.size() > 1 && BeginsXmlName(rest[1])) { // most tags are start tags
            return StartTag();
        } else if (rest.startsWith("<!--")) {
            nodes.push_back(at);
            Skip(4, "-->");
        } else if (rest.startsWith("<![CDATA[")) {
            Skip(9, "]]>");
        } else if (rest.startsWith("<?")) {
            const char *const start = at;
            Skip(2, ">");
            return HasClosedValues({start, at - start});
        } else if (rest.startsWith("</")) {
            depth -= depth > 0;
            Skip(2, ">");
        } else {
            Skip(1, ">");
        }
        return true;
    }

    /// Returns whether the quotes in a declaration are closed. If they aren't, the parser looks for their end after the
    /// ">" and then finds other tags than this class.
    static bool HasClosedValues(QByteArrayView declaration)
    {
        char before = 0;
        for (qsizetype i = 0; i < declaration.size(); ++i) {
            const char c = declaration[i];
            if (before == '=' && (c == '"' || c == '\'') && declaration.indexOf(c, i + 1) < 0)
                return false;
            if (quint8(c) > ' ')
                before = c;
        }
        return true;
    }

    bool StartTag()
    {
        int attributes = 0;
        nodes.push_back(at);
        for (++at; at < end && *at != '>'; ++at) {
            attributes += *at == '=';
            if (*at == '"' || *at == '\'') {
                const char quote = *at++;
                at = Next(quote);
                if (at == end)
                    break;
            }
        }
        if (!(at < end && at[-1] == '/'))
            ++depth;
        return attributes <= MOST_ATTRIBUTES && depth <= DEEPEST_NESTING;
    }

    const char *at;
    const char *end;
    int depth = 0;
    int tags = 0;
    std::vector<const char *> nodes;
};

/// Returns the node after `node` in the order of the document.
TiXmlNode *NextInDocument(TiXmlNode *node)
{
    if (TiXmlNode *child = node->FirstChild())
        return child;
    while (node && !node->NextSibling())
        node = node->Parent();
    return node ? node->NextSibling() : nullptr;
}

/// Sets the row of each element. The parser's own count would take a tenth of its time, because it looks at each
/// character once more. Returns false when the parser found other elements than the guard.
bool SetRows(TiXmlDocument &document, const char *text, const std::vector<const char *> &nodes)
{
    size_t known = 0;
    qintptr row = 1;
    for (TiXmlNode *node = NextInDocument(&document); node; node = NextInDocument(node)) {
        if (!node->ToElement() && !node->ToComment())
            continue;
        if (known == nodes.size())
            return false;
        row += std::count(text, nodes[known], '\n');
        text = nodes[known++];
        node->SetUserData(reinterpret_cast<void *>(row));
    }
    return true;
}

/// Sets the document's error, at a given line, without reading any file.
void Refuse(TiXmlDocument &document, qsizetype line)
{
    const QByteArray broken = QByteArray(line - 1, '\n') + "<a";
    document.Parse(broken.constData(), nullptr, TIXML_ENCODING_UTF8);
}

/// Makes every line end with a line feed. The parser does that only when it opens a file itself.
void UnifyLineEnds(QByteArray &text)
{
    if (!text.contains('\r'))
        return;
    char *to = text.data();
    for (const char *from = to, *const end = to + text.size(); from < end; ++from) {
        if (from[0] == '\r' && from + 1 < end && from[1] == '\n')
            ++from;
        *to++ = *from == '\r' ? '\n' : *from;
    }
    text.truncate(to - text.constData());
}

} // namespace

bool BeginsXmlName(char c)
{
    return c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || quint8(c) >= 127;
}

int ReadXmlText(const Environment &env, const QString &path, QByteArray &text, TiXmlDocument &document)
{
    QByteArray bytes;
    if (const int error = ReadFile(path, bytes, LARGEST_FILE)) {
        document.SetError(TiXmlBase::TIXML_ERROR_OPENING_FILE, nullptr, nullptr, TIXML_ENCODING_UNKNOWN);
        errno = error;
        return -1;
    }
    text = XmlText(env, std::move(bytes));
    return 0;
}

QByteArray XmlText(const Environment &env, QByteArray bytes)
{
    QByteArray text =
        env.codePage.IsUtf8() || bytes.startsWith("\xEF\xBB\xBF") ? std::move(bytes) : env.NarrowToWide(bytes).toUtf8();
    // The parser stops at a zero byte, except within bytes that begin like a character of several bytes.
    if (const qsizetype zero = text.indexOf('\0'); zero >= 0)
        text.truncate(zero);
    UnifyLineEnds(text);
    return text.append(PADDING, '\0');
}

QByteArrayView ContentOf(const QByteArray &text)
{
    return QByteArrayView(text).chopped(PADDING);
}

int ParseXmlText(const QByteArray &text, TiXmlDocument &document)
{
    XmlGuard guard(ContentOf(text));
    if (!guard.IsHarmless()) {
        Refuse(document, 1 + std::count(text.constData(), guard.Place(), '\n'));
        return -2;
    }
    const int tabSize = document.TabSize();
    document.SetTabSize(0); // the parser counts no rows
    document.Parse(text.constData(), nullptr, TIXML_ENCODING_UTF8);
    document.SetTabSize(tabSize);
    if (document.Error() || !SetRows(document, text.constData(), guard.Nodes())) {
        document.Clear();
        document.ClearError();
        document.Parse(text.constData(), nullptr, TIXML_ENCODING_UTF8); // for the row of the error
    }
    return document.Error() ? -2 : 0;
}

bool KeepsXmlBounds(QByteArrayView text)
{
    return text.size() <= LARGEST_FILE && XmlGuard(text).IsHarmless();
}
