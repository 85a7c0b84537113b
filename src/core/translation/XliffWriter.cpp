// SPDX-License-Identifier: MIT
#include "TranslationFormats.h"

#include <algorithm>

namespace
{

/// The reference to a character in XML; null if it needs none. In an attribute, a reader would change tabs
/// and line ends to blanks.
constexpr const char *ReferenceOf(char c, bool isAttribute)
{
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '\r':
        return "&#13;";
    case '"':
        return isAttribute ? "&quot;" : nullptr;
    case '\t':
        return isAttribute ? "&#9;" : nullptr;
    case '\n':
        return isAttribute ? "&#10;" : nullptr;
    default:
        return nullptr;
    }
}

class XliffWriter
{
public:
    explicit XliffWriter(QByteArray &to) : bytes(to) {}

    void PutHead(const TranslationHead &head)
    {
        bytes += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                 "<xliff version=\"1.2\" xmlns=\"urn:oasis:names:tc:xliff:document:1.2\">\n  <file";
        PutAttribute("original", head.original);
        PutAttribute("source-language", head.sourceCode);
        if (!head.targetCode.isEmpty())
            PutAttribute("target-language", head.targetCode);
        bytes += " datatype=\"plaintext\">\n    <body>\n";
    }

    void PutText(const TranslationText &text)
    {
        const bool isTranslated = !text.target.isEmpty();
        bytes += "      <trans-unit";
        PutAttribute("id", text.id);
        PutAttribute("resname", text.id);
        if (isTranslated)
            bytes += " approved=\"yes\"";
        if (text.length > 0 || text.width > 0) {
            bytes += " maxwidth=\"" + QByteArray::number(text.length > 0 ? text.length : text.width);
            bytes += text.length > 0 ? "\" size-unit=\"char\"" : "\" size-unit=\"pixel\"";
        }
        bytes += " xml:space=\"preserve\">\n        <source>";
        PutEscaped(text.source, /*isAttribute=*/false);
        bytes += isTranslated ? "</source>\n        <target state=\"translated\">"
                              : "</source>\n        <target state=\"needs-translation\">";
        PutEscaped(text.target, /*isAttribute=*/false);
        bytes += "</target>\n";
        if (!text.note.isEmpty()) {
            bytes += "        <note from=\"developer\">";
            PutEscaped(text.note, /*isAttribute=*/false);
            bytes += "</note>\n";
        }
        bytes += "      </trans-unit>\n";
    }

    void PutEnd() { bytes += "    </body>\n  </file>\n</xliff>\n"; }

private:
    void PutAttribute(const char *name, const QString &value)
    {
        ((bytes += ' ') += name) += "=\"";
        PutEscaped(value, /*isAttribute=*/true);
        bytes += '"';
    }

    void PutEscaped(const QString &text, bool isAttribute)
    {
        const QByteArray utf8 = text.toUtf8();
        qsizetype written = 0;
        for (qsizetype at = 0; at < utf8.size(); ++at) {
            const char *const reference = ReferenceOf(utf8[at], isAttribute);
            if (!reference)
                continue;
            bytes.append(utf8.constData() + written, at - written);
            bytes += reference;
            written = at + 1;
        }
        bytes.append(utf8.constData() + written, utf8.size() - written);
    }

    QByteArray &bytes;
};

} // namespace

void WriteXliff(ITranslationSource &source, QByteArray &bytes)
{
    XliffWriter writer(bytes);
    writer.PutHead(source.Head());
    while (const TranslationText *text = source.Next())
        writer.PutText(*text);
    writer.PutEnd();
}

bool FitsXliff(QStringView text)
{
    return text.isValidUtf16() && std::none_of(text.begin(), text.end(), [](QChar c) {
               return (c < u' ' && c != u'\t' && c != u'\n' && c != u'\r') || c >= u'\uFFFE';
           });
}
