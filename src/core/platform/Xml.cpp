#include "Xml.h"

#include "Environment.h"
#include "HostFiles.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int DEEPEST_NESTING = 256;     // the parser recurses
constexpr int MOST_ATTRIBUTES = 1000;    // its attribute lists are searched one by one
constexpr qint64 LARGEST_FILE = 1 << 30; // bytes
constexpr int PADDING = 8;               // it reads past a cut UTF-8 sequence

/// Says whether the parser can take a document: how deep its elements stand and how many attributes they have.
///
/// Follows the parser in what it takes for a tag, not the standard: a "<" within a tag's quotes opens nothing.
bool IsHarmless(const char *at, const char *end, int &line)
{
    int depth = 0;
    const auto skipPast = [&](const char *mark, size_t size) {
        while (at < end && (size_t(end - at) < size || memcmp(at, mark, size) != 0))
            line += *at++ == '\n';
        at = size_t(end - at) < size ? end : at + size;
    };
    while (at < end) {
        const char *open = static_cast<const char *>(memchr(at, '<', size_t(end - at)));
        const char *const stop = open ? open : end;
        line += int(std::count(at, stop, '\n'));
        at = stop;
        if (!open)
            break;
        const QByteArrayView rest(at, end - at);
        if (rest.startsWith("<!--")) {
            skipPast("-->", 3);
        } else if (rest.startsWith("<![CDATA[")) {
            skipPast("]]>", 3);
        } else if (rest.startsWith("<!") || rest.startsWith("<?")) {
            skipPast(">", 1);
        } else if (rest.startsWith("</")) {
            --depth;
            skipPast(">", 1);
        } else {
            ++at;
            int attributes = 0;
            char quote = 0;
            while (at < end && (quote || *at != '>')) {
                if (quote)
                    quote = *at == quote ? char(0) : quote;
                else if (*at == '"' || *at == '\'')
                    quote = *at;
                attributes += !quote && *at == '=';
                line += *at++ == '\n';
            }
            const bool closed = at < end && at[-1] == '/';
            if (!closed && ++depth > DEEPEST_NESTING)
                return false;
            if (attributes > MOST_ATTRIBUTES)
                return false;
        }
    }
    return true;
}

/// Has the document's error set without reading anything.
void Refuse(TiXmlDocument &document, int line)
{
    const QByteArray broken = QByteArray(line - 1, '\n') + "<";
    document.Parse(broken.constData(), nullptr, TIXML_ENCODING_UTF8);
}

} // namespace

int LoadXml(const Environment &env, const QString &path, TiXmlDocument &document)
{
    QByteArray bytes;
    if (ReadFile(path, bytes, LARGEST_FILE) != 0)
        return -1;
    return ParseXml(env, bytes, document);
}

int ParseXml(const Environment &env, QByteArrayView bytes, TiXmlDocument &document)
{
    QByteArray text;
    if (env.codePage.IsUtf8() || bytes.startsWith("\xEF\xBB\xBF")) {
        text.reserve(bytes.size() + PADDING);
        text.append(bytes);
    } else {
        text = env.NarrowToWide(bytes).toUtf8();
    }
    text.append(PADDING, '\0');
    int line = 1;
    if (!IsHarmless(text.constData(), text.constData() + strlen(text.constData()), line)) {
        Refuse(document, line);
        return -2;
    }
    document.Parse(text.constData(), nullptr, TIXML_ENCODING_UTF8);
    return document.Error() ? -2 : 0;
}

bool SaveXml(const Environment &env, const TiXmlDocument &document, const QString &path)
{
    TiXmlPrinter printer;
    document.Accept(&printer);
    const QByteArrayView text(printer.CStr(), qsizetype(printer.Size()));
    if (env.codePage.IsUtf8())
        return WriteFileAtomically(path, text) == 0;
    return WriteFileAtomically(path, env.WideToNarrow(QString::fromUtf8(text))) == 0;
}

NarrowText FromXml(const Environment &env, const char *text)
{
    if (!text)
        return {};
    return env.codePage.IsUtf8() ? NarrowText(text) : env.WideToNarrow(QString::fromUtf8(text));
}

QByteArray ToXml(const Environment &env, const NarrowText &text)
{
    return env.Shown(text);
}

void CondenseWhiteSpace(bool on)
{
    TiXmlBase::SetCondenseWhiteSpace(on);
}
