// SPDX-License-Identifier: MIT
#include "CheckSettings.h"

#include "ByteCount.h"
#include "FileFault.h"
#include "Paths.h"
#include "Profile.h"
#include "Rules.h"
#include "WaveHeader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{

/// Reads one key. Returns what is wrong with its value; empty if nothing is.
using ReadKey = QString (*)(CheckSettings &settings, const QString &key, const QString &value);

QStringList Words(const QString &value)
{
    QStringList words;
    for (const QString &word : value.split(u',', Qt::SkipEmptyParts)) {
        if (!word.trimmed().isEmpty())
            words.append(word.trimmed());
    }
    return words;
}

bool ReadCount(const QString &text, qint64 &number)
{
    bool isNumber = false;
    const qint64 value = text.toLongLong(&isNumber);
    if (!isNumber || value < 1)
        return false;
    number = value;
    return true;
}

QString ReadPlaceholders(CheckSettings &settings, const QString &value)
{
    quint32 kinds = 0;
    for (const QString &word : Words(value)) {
        if (word == u"printf"_s)
            kinds |= PLACEHOLDERS_PRINTF;
        else if (word == u"braces"_s)
            kinds |= PLACEHOLDERS_BRACES;
        else if (word == u"numbered"_s)
            kinds |= PLACEHOLDERS_NUMBERED;
        else if (word != u"none"_s)
            return u"\"%1\" isn't a kind of placeholder; use printf, braces, numbered or none"_s.arg(word);
    }
    settings.placeholders = kinds;
    return {};
}

QString ReadTarget(CheckSettings &settings, const QString &value)
{
    std::vector<ScreenSize> sizes;
    for (const QString &word : Words(value)) {
        const auto size = ParseScreenSize(word.toStdString());
        if (!size)
            return u"\"%1\" isn't the size of a screen, such as 240x320"_s.arg(word);
        sizes.push_back(*size);
    }
    settings.target = std::move(sizes);
    return {};
}

QString ReadBudget(CheckSettings &settings, const QString &value)
{
    const auto bytes = ParseByteCount(value.trimmed());
    settings.budget = bytes.value_or(0);
    return bytes ? QString() : u"\"%1\" isn't a number of bytes, such as 524288, 512K or 1M"_s.arg(value);
}

QString ReadConversion(CheckSettings &settings, const QString &value)
{
    settings.convertsImages = value.trimmed() != u"0";
    const bool isRight = !settings.convertsImages || value.trimmed() == u"1";
    return isRight ? QString() : u"\"%1\" must be 0 or 1"_s.arg(value);
}

QString ReadCheckKey(CheckSettings &settings, const QString &key, const QString &value)
{
    const QString name = key.toLower();
    if (name == u"source"_s)
        settings.source = value;
    else if (name == u"placeholders"_s)
        return ReadPlaceholders(settings, value);
    else if (name == u"target"_s)
        return ReadTarget(settings, value);
    else if (name == u"budget"_s)
        return ReadBudget(settings, value);
    else if (name == u"convert-images"_s)
        return ReadConversion(settings, value);
    else
        return u"section Check has the keys source, placeholders, target, budget and convert-images"_s;
    return {};
}

QString ReadSeverityKey(CheckSettings &settings, const QString &key, const QString &value)
{
    const Rule *const rule = FindRule(key);
    if (!rule)
        return u"there is no rule \"%1\""_s.arg(key);
    static constexpr const char *WORDS[] = {"off", "note", "warning", "error"}; // in the order of RuleLevel
    for (int level = 0; level < 4; ++level) {
        if (value == QLatin1StringView(WORDS[level])) {
            settings.levels[IndexOf(*rule)] = RuleLevel(level);
            return {};
        }
    }
    return u"the level of a rule is off, note, warning or error, not \"%1\""_s.arg(value);
}

QString ReadIgnoreKey(CheckSettings &settings, const QString &key, const QString &value)
{
    const Rule *const rule = FindRule(key);
    if (!rule)
        return u"there is no rule \"%1\""_s.arg(key);
    settings.ignored[IndexOf(*rule)] += Words(value);
    return {};
}

QString ReadSourcesKey(CheckSettings &settings, const QString &key, const QString &value)
{
    if (key.toLower() == u"files"_s)
        settings.sourceFiles = Words(value);
    else if (key.toLower() == u"prefix"_s)
        settings.sourcePrefix = value;
    else
        return u"section Sources has the keys files and prefix"_s;
    return {};
}

QString ReadFontKey(CheckSettings &settings, const QString &key, const QString &value)
{
    QString rest = value.trimmed();
    FontSetting font;
    if (rest.endsWith(u" shaped"_s)) {
        font.isShaped = true;
        rest = rest.chopped(7).trimmed();
    }
    const qsizetype blank = rest.lastIndexOf(u' ');
    qint64 size = 0;
    constexpr qint64 MOST_PIXELS = 1000;
    if (blank < 0 || !ReadCount(rest.sliced(blank + 1), size) || size > MOST_PIXELS)
        return u"write a font as a file and a size in pixels from 1 to 1000, such as \"fonts/ui.ttf 16\""_s;
    font.written = rest.first(blank).trimmed();
    font.file = ResolvePath(font.written, DirectoryOf(settings.file));
    font.size = int(size);
    settings.fonts[key.toLower()] = font;
    return {};
}

QString ReadLimitKey(CheckSettings &settings, const QString &key, const QString &value)
{
    TextLimit limit{key};
    for (const QString &word : Words(value)) {
        const qsizetype blank = word.indexOf(u' ');
        const QString name = blank < 0 ? word : word.first(blank);
        qint64 number = 0;
        int *const field = name == u"length"_s  ? &limit.length
                           : name == u"width"_s ? &limit.width
                           : name == u"lines"_s ? &limit.lines
                                                : nullptr;
        if (!field || blank < 0 || !ReadCount(word.sliced(blank + 1).trimmed(), number) || number > INT_MAX)
            return u"\"%1\" isn't a limit; use limits such as \"length 12, width 80, lines 1\""_s.arg(word);
        *field = int(number);
    }
    settings.limits.push_back(limit);
    return {};
}

/// Returns whether a text has the form of a language's code: parts of 1 to 8 ASCII letters and digits.
bool IsCode(const QString &text)
{
    for (const QString &part : text.split(u'-')) {
        const auto isRight = [](QChar c) { return c.unicode() < 0x80 && c.isLetterOrNumber(); };
        if (part.isEmpty() || part.size() > 8 || !std::all_of(part.begin(), part.end(), isRight))
            return false;
    }
    return true;
}

QString ReadLanguageKey(CheckSettings &settings, const QString &key, const QString &value)
{
    bool isNumber = false;
    const int number = key.toInt(&isNumber);
    if (!isNumber || number < 0 || number > 65534)
        return u"the key is the number of a language from 0 to 65534"_s;
    if (!IsCode(value))
        return u"\"%1\" isn't a BCP 47 code, such as de-AT"_s.arg(value);
    settings.codes[number] = value;
    return {};
}

QString ReadAudioKey(CheckSettings &settings, const QString &key, const QString &value)
{
    AudioLimits &audio = settings.audio;
    const QString name = key.toLower();
    std::vector<int> *const list = name == u"codec"_s      ? &audio.codecs
                                   : name == u"rate"_s     ? &audio.rates
                                   : name == u"channels"_s ? &audio.channels
                                   : name == u"bits"_s     ? &audio.bits
                                                           : nullptr;
    if (!list)
        return u"section Audio has the keys codec, rate, channels and bits"_s;
    list->clear();
    for (const QString &word : Words(value)) {
        qint64 number = 0;
        if (list == &audio.codecs)
            number = WaveCodecOf(word);
        else if (!ReadCount(word, number) || number > INT_MAX)
            number = -1;
        if (number < 0)
            return list == &audio.codecs
                       ? u"\"%1\" isn't a codec; use %2 or a number"_s.arg(word, WaveCodecNames().join(u", "_s))
                       : u"\"%1\" isn't a number above 0"_s.arg(word);
        list->push_back(int(number));
    }
    return {};
}

struct SectionReader
{
    QStringView name;
    ReadKey read;
};
constexpr SectionReader SECTIONS[] = {
    {u"Check", ReadCheckKey},       {u"Severity", ReadSeverityKey}, {u"Ignore", ReadIgnoreKey},
    {u"Sources", ReadSourcesKey},   {u"Font", ReadFontKey},         {u"Limit", ReadLimitKey},
    {u"Language", ReadLanguageKey}, {u"Audio", ReadAudioKey},
};

QString SectionNames()
{
    QStringList names;
    for (const SectionReader &section : SECTIONS)
        names.append(section.name.toString());
    return names.join(u", "_s);
}

} // namespace

CheckSettings::CheckSettings() : ignored(AllRules().size()), sourcePrefix(u"ID_"_s)
{
    for (const Rule &rule : AllRules())
        levels.push_back(rule.level);
}

RuleLevel CheckSettings::LevelOf(const Rule &rule) const
{
    return levels[IndexOf(rule)];
}

bool CheckSettings::Ignores(const Rule &rule, const QString &id) const
{
    for (const QString &pattern : ignored[IndexOf(rule)]) {
        if (MatchesPattern(id, pattern))
            return true;
    }
    return false;
}

bool MatchesPattern(QStringView text, QStringView pattern)
{
    qsizetype at = 0;
    qsizetype in = 0;
    qsizetype star = -1; // the last "*" so far
    qsizetype retry = 0; // where its match ends
    while (at < text.size()) {
        if (in < pattern.size() && pattern[in] == u'*') {
            star = in++;
            retry = at;
        } else if (in < pattern.size() && pattern[in] == text[at]) {
            ++in;
            ++at;
        } else if (star >= 0) {
            in = star + 1;
            at = ++retry;
        } else {
            return false;
        }
    }
    while (in < pattern.size() && pattern[in] == u'*')
        ++in;
    return in == pattern.size();
}

QString CheckSettingsPath(const QString &folder)
{
    return folder + u"/morvanite-check.ini"_s;
}

CheckSettings ReadCheckSettings(const QString &folder, std::vector<Finding> &findings)
{
    CheckSettings settings;
    settings.file = CheckSettingsPath(folder);
    const auto tell = [&](const QString &text, int line) {
        findings.push_back({"check-settings", Severity::Error, settings.file, line, {}, text});
    };
    Profile profile;
    if (const int error = Profile::Read(settings.file, profile); error != 0) {
        if (error != ENOENT)
            tell(u"the settings of the check can't be read: "_s + ReadFault(error), 0);
        return settings;
    }
    for (const int line : profile.BrokenHeads())
        tell(u"a section must be alone in its line, as in [Check]"_s, line);
    for (const int line : profile.RepeatedHeads())
        tell(u"the section is there a second time, and only the first one counts: move the keys there"_s, line);
    for (const int line : profile.StrayLines())
        tell(u"the line is neither a section such as [Check], nor a key with \"=\" and a value, nor a comment that "
             u"begins "
             "with \";\""_s,
             line);
    for (const auto &[section, key] : profile.Keys()) {
        const int line = profile.LineOf(section, key);
        const SectionReader *reader = nullptr;
        for (const SectionReader &candidate : SECTIONS)
            reader = candidate.name.compare(section, Qt::CaseInsensitive) == 0 ? &candidate : reader;
        if (!reader) {
            tell(section.isEmpty()
                     ? u"the key %1 is before the first section"_s.arg(key)
                     : u"section %1: there is no such section; there are %2"_s.arg(section, SectionNames()),
                 line);
            continue;
        }
        const QString wrong = reader->read(settings, key, profile.String(section, key, {}));
        if (!wrong.isEmpty())
            tell(u"section %1, key %2: %3"_s.arg(section, key, wrong), line);
    }
    for (auto &[key, font] : settings.fonts)
        font.line = profile.LineOf(u"Font", key);
    settings.sourceLine = profile.LineOf(u"Check", u"source");
    settings.sourceFilesLine = profile.LineOf(u"Sources", u"files");
    settings.budgetLine = profile.LineOf(u"Check", u"budget");
    return settings;
}
