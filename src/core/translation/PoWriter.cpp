// SPDX-License-Identifier: MIT
#include "Locale.h"
#include "TranslationFormats.h"

#include <QDateTime>

namespace
{

/// The letter behind the "\" of a character's escape sequence; 0 if it needs none.
constexpr char EscapeOf(char c)
{
    switch (c) {
    case '\a':
        return 'a';
    case '\b':
        return 'b';
    case '\t':
        return 't';
    case '\n':
        return 'n';
    case '\v':
        return 'v';
    case '\f':
        return 'f';
    case '\r':
        return 'r';
    case '"':
    case '\\':
        return c;
    default:
        return 0;
    }
}

class PoWriter
{
public:
    explicit PoWriter(QByteArray &to) : bytes(to) {}

    void PutHead(const TranslationHead &head)
    {
        const QByteArray time =
            QDateTime::fromSecsSinceEpoch(head.revision, Qt::UTC).toString(u"yyyy-MM-dd hh:mm").toLatin1() + "+0000\n";
        Put("msgid ", QByteArray());
        Put("msgstr ", "Project-Id-Version: " + head.project.toUtf8().simplified() +
                           "\nReport-Msgid-Bugs-To: \nPOT-Creation-Date: " + time + "PO-Revision-Date: " + time +
                           "Last-Translator: \nLanguage-Team: \nLanguage: " + LocaleOfCode(head.targetCode).toUtf8() +
                           "\nMIME-Version: 1.0\nContent-Type: text/plain; charset=UTF-8\n"
                           "Content-Transfer-Encoding: 8bit\nX-Source-Language: " +
                           head.sourceCode.toUtf8() + "\n");
    }

    void PutText(const TranslationText &text, const QByteArray &original)
    {
        bytes += '\n';
        if (!text.note.isEmpty())
            PutComment("#. ", text.note.toUtf8());
        if (text.length > 0)
            PutComment("#. max-length: ", QByteArray::number(text.length));
        if (text.width > 0)
            PutComment("#. max-width: ", QByteArray::number(text.width));
        const QByteArray id = text.id.toUtf8();
        if (!id.contains(' '))
            PutComment("#: ", original + ':' + id);
        if (text.isFormat)
            bytes += "#, c-format\n";
        Put("msgctxt ", id);
        Put("msgid ", text.source.toUtf8());
        Put("msgstr ", text.target.toUtf8());
    }

private:
    void PutComment(const char *start, const QByteArray &text)
    {
        bytes += start;
        bytes += text;
        bytes += '\n';
    }

    /// Writes a keyword and its text; a text with several lines begins in a line of its own.
    void Put(const char *keyword, const QByteArray &text)
    {
        bytes += keyword;
        const qsizetype end = text.indexOf('\n');
        if (end >= 0 && end + 1 < text.size())
            bytes += "\"\"\n";
        bytes += '"';
        qsizetype written = 0;
        for (qsizetype at = 0; at < text.size(); ++at) {
            const char escape = EscapeOf(text[at]);
            if (escape == 0)
                continue;
            bytes.append(text.constData() + written, at - written);
            (bytes += '\\') += escape;
            written = at + 1;
            if (escape == 'n' && written < text.size())
                bytes += "\"\n\"";
        }
        bytes.append(text.constData() + written, text.size() - written);
        bytes += "\"\n";
    }

    QByteArray &bytes;
};

} // namespace

void WritePo(ITranslationSource &source, QByteArray &bytes)
{
    PoWriter writer(bytes);
    const TranslationHead head = source.Head();
    writer.PutHead(head);
    const QByteArray original = head.original.toUtf8();
    while (const TranslationText *text = source.Next())
        writer.PutText(*text, original);
}

bool FitsPo(QStringView text)
{
    return text.isValidUtf16() && !text.contains(QChar(u'\0'));
}

bool FitsPoNote(QStringView note)
{
    return FitsPo(note) && !note.contains(u'\n') && !note.contains(u'\r') && !note.startsWith(u"max-length:") &&
           !note.startsWith(u"max-width:");
}
