// SPDX-License-Identifier: MIT
#include "RowNotes.h"

#include "Rules.h"

namespace
{

/// Takes the next word off a list with commas. Returns false at its end.
bool TakeWord(QStringView &list, QStringView &word)
{
    if (list.isEmpty())
        return false;
    const qsizetype comma = list.indexOf(u',');
    word = (comma < 0 ? list : list.first(comma)).trimmed();
    list = comma < 0 ? QStringView() : list.sliced(comma + 1);
    return true;
}

/// Reads a word "NAME:NUMBER" into `number`. Returns whether it is one, with a number above 0.
bool ReadNumber(QStringView word, QStringView name, int &number)
{
    if (!word.startsWith(name) || word.size() <= name.size() || word[name.size()] != u':')
        return false;
    bool isNumber = false;
    const int value = word.sliced(name.size() + 1).trimmed().toInt(&isNumber);
    if (!isNumber || value <= 0)
        return false;
    number = value;
    return true;
}

QStringView IgnoredRule(QStringView word)
{
    constexpr QStringView IGNORE = u"ignore:";
    return word.startsWith(IGNORE) ? word.sliced(IGNORE.size()).trimmed() : QStringView();
}

enum class Meaning
{
    None,
    Empty,       ///< between two commas
    UnknownRule, ///< a rule to ignore that doesn't exist
    Note,
};

bool IsUnknown(Meaning meaning)
{
    return meaning == Meaning::None || meaning == Meaning::UnknownRule;
}

/// Reads a word into the notes.
Meaning ReadWord(QStringView word, RowNotes &notes)
{
    if (word.isEmpty())
        return Meaning::Empty;
    if (const QStringView ignored = IgnoredRule(word); !ignored.isEmpty())
        return FindRule(ignored) ? Meaning::Note : Meaning::UnknownRule;
    if (word == u"same") {
        notes.isSame = true;
        return Meaning::Note;
    }
    const bool isNumber = ReadNumber(word, u"length", notes.length) || ReadNumber(word, u"width", notes.width) ||
                          ReadNumber(word, u"lines", notes.lines);
    return isNumber ? Meaning::Note : Meaning::None;
}

} // namespace

bool RowNotes::Ignores(QStringView ruleId) const
{
    QStringView list = words;
    QStringView word;
    while (TakeWord(list, word)) {
        if (IgnoredRule(word) == ruleId)
            return true;
    }
    return false;
}

RowNotes NotesOf(QStringView description)
{
    const QStringView text = description.trimmed();
    if (!text.endsWith(u']'))
        return {};
    const qsizetype start = text.lastIndexOf(u'[');
    if (start < 0)
        return {};
    RowNotes notes;
    notes.words = text.sliced(start + 1).chopped(1);
    bool isNote = false;
    QStringView list = notes.words;
    QStringView word;
    while (TakeWord(list, word)) {
        const Meaning meaning = ReadWord(word, notes);
        isNote = isNote || meaning == Meaning::Note || meaning == Meaning::UnknownRule;
        notes.hasUnknown = notes.hasUnknown || IsUnknown(meaning);
    }
    return isNote ? notes : RowNotes();
}

void ForEachUnknownNote(const RowNotes &notes, const std::function<void(QStringView word)> &tell)
{
    RowNotes ignored;
    QStringView list = notes.words;
    QStringView word;
    while (TakeWord(list, word)) {
        if (IsUnknown(ReadWord(word, ignored)))
            tell(word);
    }
}
