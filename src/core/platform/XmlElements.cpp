// SPDX-License-Identifier: MIT
#include "XmlElements.h"

#include "XmlText.h"

#include <algorithm>
#include <cstring>
#include <utility>

/// Finds the elements of a text that has only plain elements: start tags whose attributes have values in double quotes,
/// and in each element either a text or other elements. Nothing in such a text can be an error for the parser, and it
/// reads an element in the same way alone and within the others.
class XmlElements::Finder
{
public:
    explicit Finder(QByteArray &text) : end(text.data() + ContentOf(text).size()), at(text.data()) {}

    /// Returns whether the whole text is plain.
    bool Find()
    {
        const QByteArrayView whole(at, end - at);
        if (!whole.isValidUtf8() || whole.contains("&#")) // some references to characters are errors
            return false;
        SkipBlanks();
        outermost = at;
        if (!Element(0))
            return false;
        SkipBlanks();
        return at == end;
    }

    char *outermost = nullptr; ///< where the outermost element begins
    char *content = nullptr;   ///< behind its start tag
    std::vector<Piece> pieces; ///< the elements in it
    char *const end;           ///< of the text

private:
    static constexpr int DEEPEST = 4; // levels; a resource list has three
    static constexpr size_t MOST_ELEMENTS = 2'000'000;
    static constexpr size_t MOST_ATTRIBUTES = 8;

    /// Finds the end of the element that begins at `at`.
    bool Element(int depth)
    {
        if (depth == DEEPEST || ++elements > MOST_ELEMENTS || at == end || *at != '<')
            return false;
        ++at;
        const QByteArrayView name = Name();
        bool isEmpty = false;
        if (name.isEmpty() || !Attributes(isEmpty))
            return false;
        if (depth == 0)
            content = at;
        return isEmpty || (Content(depth) && EndTag(name));
    }

    /// Skips attributes, and the end of the start tag.
    bool Attributes(bool &isEmpty)
    {
        QByteArrayView names[MOST_ATTRIBUTES];
        for (size_t count = 0; at < end; ++count) {
            const bool isApart = SkipBlanks();
            if (Skip(">"))
                return true;
            isEmpty = Skip("/>");
            if (isEmpty)
                return true;
            if (!isApart || count == MOST_ATTRIBUTES)
                return false;
            names[count] = Name();
            if (names[count].isEmpty() || std::find(names, names + count, names[count]) != names + count ||
                !Skip("=\""))
                return false;
            if (!Text('"'))
                return false;
            ++at;
        }
        return false;
    }

    /// Skips the content of an element: a text, or elements.
    bool Content(int depth)
    {
        SkipBlanks();
        if (at < end && *at != '<')
            return Text('<');
        while (end - at > 1 && at[1] != '/') {
            char *const begin = at;
            if (!Element(depth + 1))
                return false;
            if (depth == 0)
                pieces.push_back({begin, at});
            SkipBlanks();
        }
        return true;
    }

    bool EndTag(QByteArrayView name) { return Skip("</") && Skip(name) && Skip(">"); }

    /// Skips a text up to a character, which must follow.
    bool Text(char last)
    {
        char *const begin = at;
        at = static_cast<char *>(std::memchr(at, last, size_t(end - at)));
        if (!at) {
            at = end;
            return false;
        }
        return last == '<' || !std::memchr(begin, '<', size_t(at - begin));
    }

    QByteArrayView Name()
    {
        const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
        char *const begin = at;
        while (at < end && (isLetter(*at) || (at > begin && *at >= '0' && *at <= '9')))
            ++at;
        return {begin, at - begin};
    }

    bool Skip(QByteArrayView word)
    {
        if (end - at < word.size() || std::memcmp(at, word.data(), size_t(word.size())) != 0)
            return false;
        at += word.size();
        return true;
    }

    /// Returns whether there were any.
    bool SkipBlanks()
    {
        char *const begin = at;
        while (at < end && (*at == ' ' || *at == '\n' || *at == '\t'))
            ++at;
        return at > begin;
    }

    char *at;
    size_t elements = 0;
};

namespace
{

/// Sets the rows of an element and of those in it. `text` is where the element begins, in the row `row`.
void SetRows(TiXmlElement &element, const char *&text, qintptr &row)
{
    element.SetUserData(reinterpret_cast<void *>(row));
    for (auto *child = element.FirstChildElement(); child; child = child->NextSiblingElement()) {
        do {
            const auto *const tag = static_cast<const char *>(std::strchr(text + 1, '<'));
            row += std::count(text, tag, '\n');
            text = tag;
        } while (text[1] == '/');
        SetRows(*child, text, row);
    }
}

} // namespace

XmlElements::XmlElements()
{
    made.SetTabSize(0); // the parser counts no rows
}

int XmlElements::Load(const Environment &env, const QString &path)
{
    if (const int code = ReadXmlText(env, path, text, document))
        return code;
    Finder finder(text);
    isInPieces = finder.Find() && !finder.pieces.empty();
    if (!isInPieces)
        return ParseXmlText(text, document);
    pieces = std::move(finder.pieces);
    // The outermost element without its content.
    const QByteArray startTag(finder.outermost, finder.content - finder.outermost);
    const QByteArray endTag(pieces.back().end, finder.end - pieces.back().end);
    document.Parse((startTag + endTag).constData(), nullptr, TIXML_ENCODING_UTF8);
    row += std::count(text.constData(), static_cast<const char *>(finder.outermost), '\n');
    counted = finder.outermost;
    document.FirstChildElement()->SetUserData(reinterpret_cast<void *>(row));
    return 0;
}

const TiXmlElement *XmlElements::Next()
{
    if (!isInPieces) {
        TiXmlElement *const outermost = document.FirstChildElement();
        TiXmlElement *const done = current;
        current = done ? done->NextSiblingElement() : outermost ? outermost->FirstChildElement() : nullptr;
        if (done)
            outermost->RemoveChild(done);
        return current;
    }
    if (next == pieces.size())
        return nullptr;
    const Piece piece = pieces[next++];
    const char behind = std::exchange(*piece.end, '\0');
    made.Clear();
    made.Parse(piece.begin, nullptr, TIXML_ENCODING_UTF8);
    *piece.end = behind;
    TiXmlElement *const element = made.FirstChildElement();
    if (made.Error() || !element)
        qFatal("the parser refuses a plain element"); // to go on would lose it with the next save
    row += std::count(counted, static_cast<const char *>(piece.begin), '\n');
    counted = piece.begin;
    SetRows(*element, counted, row);
    return element;
}
