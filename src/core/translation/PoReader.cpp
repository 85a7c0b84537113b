// SPDX-License-Identifier: MIT
#include "Locale.h"
#include "TranslationFormats.h"

#include <QByteArrayList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

QByteArrayView WithoutBlanks(QByteArrayView line)
{
    while (!line.isEmpty() && IsBlank(line.front()))
        line = line.sliced(1);
    return line;
}

constexpr int DigitOf(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = char(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : 16;
}

/// Returns the character of an escape sequence of one letter; 0 for another letter.
constexpr char CharacterOf(char letter)
{
    switch (letter) {
    case 'a':
        return '\a';
    case 'b':
        return '\b';
    case 't':
        return '\t';
    case 'n':
        return '\n';
    case 'v':
        return '\v';
    case 'f':
        return '\f';
    case 'r':
        return '\r';
    case '"':
    case '\\':
        return letter;
    default:
        return 0;
    }
}

/// Reads a file line by line. A message ends where the next one begins, or with the file.
class PoReader
{
public:
    explicit PoReader(ITranslationSink &to) : sink(to) {}

    void Read(const QByteArray &file)
    {
        isUtf8 = file.isValidUtf8();
        hasZero = file.contains('\0');
        QByteArrayView rest = file;
        if (rest.startsWith("\xEF\xBB\xBF"))
            rest = rest.sliced(3);
        while (!rest.isEmpty() && !hasFailed) {
            ++line;
            const qsizetype end = rest.indexOf('\n');
            QByteArrayView content = end < 0 ? rest : rest.first(end);
            rest = end < 0 ? QByteArrayView() : rest.sliced(end + 1);
            if (content.endsWith('\r'))
                content = content.chopped(1);
            ReadLine(content);
        }
        if (!hasFailed)
            EndMessage();
        if (!hasFailed && !hasBegun)
            sink.Begin({}, 1);
    }

private:
    /// The parts of a message, in their order.
    enum Part
    {
        NOTHING,
        CONTEXT,
        SOURCE,
        PLURAL,
        TARGET,
    };

    void Fail(int where, const QString &what)
    {
        hasFailed = true;
        sink.Fault(where, {}, what);
    }

    void ReadLine(QByteArrayView content)
    {
        if (hasZero && content.contains('\0'))
            return Fail(line, u"there is a zero byte; a PO file is a text in UTF-8"_s);
        if (!isUtf8 && !content.toByteArray().isValidUtf8())
            return Fail(line, u"this isn't UTF-8; convert the file, such as with \"msgconv -t UTF-8\""_s);
        content = WithoutBlanks(content);
        if (content.isEmpty())
            return;
        if (content.front() == '#')
            ReadComment(content.sliced(1));
        else if (content.front() == '"')
            ReadString(content);
        else
            ReadKeyword(content);
    }

    void ReadComment(QByteArrayView comment)
    {
        if (part == TARGET)
            EndMessage();
        if (comment.startsWith('.')) {
            comment = comment.sliced(comment.startsWith(". ") ? 2 : 1);
            if (comment.startsWith("max-length:") || comment.startsWith("max-width:"))
                return;
            if (hasNote)
                note += ' ';
            note += comment;
            hasNote = true;
        } else if (comment.startsWith(',')) {
            for (const QByteArray &flag : comment.sliced(1).toByteArray().split(','))
                isFuzzy = isFuzzy || flag.trimmed() == "fuzzy";
        }
    }

    void ReadKeyword(QByteArrayView content)
    {
        const auto end = std::find_if(content.begin(), content.end(), [](char c) { return IsBlank(c) || c == '"'; });
        const QByteArrayView word = content.first(end - content.begin());
        if (word == "msgctxt")
            BeginPart(CONTEXT);
        else if (word == "msgid")
            BeginPart(SOURCE);
        else if (word == "msgid_plural")
            BeginPart(PLURAL);
        else if (word == "msgstr" || word.startsWith("msgstr["))
            BeginPart(TARGET, word.size() > 6);
        else
            return Fail(line, u"\"%1\" is no part of a PO file"_s.arg(Quote(word)));
        const QByteArrayView text = WithoutBlanks(content.sliced(word.size()));
        if (hasFailed)
            return;
        if (text.isEmpty() || text.front() != '"')
            return Fail(line, u"a text in double quotes is missing behind \"%1\""_s.arg(Quote(word)));
        ReadString(text);
    }

    /// Begins a part of the message. A part that can't be behind the previous one begins the next message.
    void BeginPart(Part next, bool isNumbered = false)
    {
        if (next == TARGET && part < SOURCE)
            return Fail(line, u"a msgstr without a msgid before it"_s);
        if (next == PLURAL && part != SOURCE)
            return Fail(line, u"a msgid_plural without a msgid before it"_s);
        if (next <= part && part != TARGET)
            return Fail(line, u"the message before this line has no msgstr"_s);
        if (next == TARGET && part == TARGET && !isNumbered)
            return Fail(line, u"a second msgstr of one message"_s);
        if (next < TARGET && part == TARGET)
            EndMessage();
        if (part == NOTHING)
            start = line;
        isPlural = isPlural || next == PLURAL || isNumbered;
        part = next;
    }

    /// Reads a text in double quotes, which continues the present part.
    void ReadString(QByteArrayView content)
    {
        if (part == NOTHING)
            return Fail(line, u"a text without a keyword before it"_s);
        QByteArray &text = part == CONTEXT ? context : part == SOURCE ? source : part == TARGET ? target : plural;
        qsizetype at = 1;
        while (at < content.size() && content[at] != '"') {
            const qsizetype begin = at;
            while (at < content.size() && content[at] != '"' && content[at] != '\\')
                ++at;
            text.append(content.data() + begin, at - begin);
            if (at < content.size() && content[at] == '\\' && !ReadEscape(content, at, text))
                return;
        }
        if (at >= content.size())
            return Fail(line, u"the closing double quote is missing"_s);
        if (!WithoutBlanks(content.sliced(at + 1)).isEmpty())
            Fail(line, u"there is something behind the closing double quote"_s);
    }

    /// Reads the escape sequence at `at` and moves behind it.
    bool ReadEscape(QByteArrayView content, qsizetype &at, QByteArray &text)
    {
        const char letter = at + 1 < content.size() ? content[at + 1] : '\0';
        const bool isHex = letter == 'x';
        const int base = isHex ? 16 : 8;
        if (const char c = CharacterOf(letter); c != 0) {
            text += c;
            at += 2;
            return true;
        }
        qsizetype end = at + (isHex ? 2 : 1);
        const qsizetype first = end;
        int value = 0;
        for (; end < content.size() && end < first + (isHex ? 2 : 3) && DigitOf(content[end]) < base; ++end)
            value = value * base + DigitOf(content[end]);
        // A number above 127 would be a part of a character.
        if (end == first || value == 0 || value > 0x7F) {
            Fail(line, u"\"%1\" is no escape sequence of a PO file"_s.arg(
                           Quote(content.sliced(at, qMin(content.size() - at, end - at + 1)))));
            return false;
        }
        text += char(value);
        at = end;
        return true;
    }

    void EndMessage()
    {
        if (part != NOTHING && part != TARGET)
            return Fail(line, u"the file ends within a message, so it isn't complete"_s);
        if (part == TARGET)
            PassOn();
        part = NOTHING;
        isFuzzy = isPlural = hasNote = false;
        for (QByteArray *text : {&context, &source, &plural, &target, &note})
            text->resize(0);
    }

    void PassOn()
    {
        if (context.isEmpty() && source.isEmpty() && !hasBegun)
            return ReadHead();
        if (!hasBegun)
            sink.Begin({}, start);
        hasBegun = true;
        message.id = QString::fromUtf8(context);
        if (isPlural)
            return sink.Fault(start, message.id, u"plural forms can't be imported, since the string table has none"_s);
        if (context.isEmpty())
            return sink.Fault(start, {}, u"a message has no msgctxt, which must have the ID"_s);
        message.source = QString::fromUtf8(source);
        message.target = QString::fromUtf8(target);
        message.note = QString::fromUtf8(note);
        message.isUnfinished = isFuzzy;
        message.line = start;
        sink.Take(message);
    }

    void ReadHead()
    {
        TranslationHead head;
        QString other;
        for (const QByteArray &field : target.split('\n')) {
            const qsizetype colon = field.indexOf(':');
            const QByteArray name = field.left(colon).trimmed().toLower();
            const QByteArray value = colon < 0 ? QByteArray() : field.mid(colon + 1).trimmed();
            if (name == "language")
                head.targetCode = CodeOfLocale(QString::fromUtf8(value));
            else if (name == "x-language")
                other = CodeOfLocale(QString::fromUtf8(value));
            else if (name == "x-source-language")
                head.sourceCode = CodeOfLocale(QString::fromUtf8(value));
            else if (name == "content-type" && !CheckCharset(value))
                return;
        }
        if (head.targetCode.isEmpty())
            head.targetCode = other;
        hasBegun = true;
        sink.Begin(head, start);
    }

    bool CheckCharset(const QByteArray &type)
    {
        const qsizetype at = type.toLower().indexOf("charset=");
        const QByteArray charset = at < 0 ? QByteArray("UTF-8") : type.mid(at + 8).trimmed().toUpper();
        if (charset == "UTF-8" || charset == "UTF8" || charset == "US-ASCII" || charset == "ASCII" ||
            charset == "CHARSET")
            return true;
        Fail(start, u"the file is in %1; convert it, such as with \"msgconv -t UTF-8\""_s.arg(Quote(charset)));
        return false;
    }

    /// Returns the beginning of a text of the file for a message.
    static QString Quote(QByteArrayView text) { return QString::fromUtf8(text).left(60); }

    ITranslationSink &sink;
    TranslationText message;
    bool isUtf8 = true;
    bool hasZero = false;
    int line = 0;  // the present one
    int start = 0; // that of the message
    bool hasFailed = false;
    bool hasBegun = false;
    Part part = NOTHING;
    bool isPlural = false;
    bool isFuzzy = false;
    bool hasNote = false;
    QByteArray context;
    QByteArray source;
    QByteArray plural;
    QByteArray target;
    QByteArray note;
};

} // namespace

void ReadPo(const QByteArray &file, ITranslationSink &sink)
{
    PoReader(sink).Read(file);
}
