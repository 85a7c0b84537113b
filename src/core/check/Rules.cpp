// SPDX-License-Identifier: MIT
#include "Rules.h"

#include "FileRules.h"
#include "FontRules.h"
#include "IdRules.h"
#include "ImageRules.h"
#include "LayoutRules.h"
#include "LoadRules.h"
#include "ProjectTextRules.h"
#include "SavedFormRules.h"
#include "TextFeatures.h"
#include "TextRules.h"

namespace
{

using enum RuleGroup;
using enum RuleLevel;

// The order is that of docs/checks.md and of findings at the same place.
constexpr Rule RULES[] = {
    {"translation-missing", Texts, Warning, "a text has no translation",
     "The source language has a text and this language has none, so the device shows nothing. Translate the text. With "
     "--summary there is one finding for each language.",
     TranslationMissing, IS_EMPTY},
    {"source-missing", Texts, Error, "a translation has no source text",
     "This language has a text and the source language has none. Write the source text, or delete the translation.",
     SourceMissing, IS_EMPTY},
    {"placeholder-mismatch", Texts, Error, "a translation has other placeholders than its source text",
     "The application fills placeholders such as %d, {name} or %1. If they differ, it shows garbage or crashes. Use "
     "the same placeholders as the source text. For printf they must have the same types and be in the same order, "
     "unless they are numbered, as in %1$s; width and precision may differ. The key placeholders of section Check says "
     "which kinds the project uses.",
     PlaceholderMismatch, HAS_PERCENT | HAS_BRACE},
    {"escape-mismatch", Texts, Error, "a translation has other escape sequences than its source text",
     "The numbers of \\n, \\t, \\r, \\\", \\\\ and \\x differ from those of the source text, or a text has an escape "
     "sequence that C doesn't have. Use the same ones as the source text. Other quotation marks may take the place of "
     "\\\".",
     EscapeMismatch, HAS_BACKSLASH},
    {"text-too-long", Texts, Error, "a text is longer than its limit",
     "The text has more characters, or more lines, than the limit in the row's description or in section Limit. Marks "
     "that are drawn above or below a letter, and invisible characters, don't count; an escape sequence is one "
     "character, and \\n begins a line. Shorten the text or raise the limit.",
     TextTooLong, HAS_TEXT},
    {"text-too-wide", Texts, Error, "a text is wider than its limit on the device",
     "A line of the text needs more pixels in the device's font than the limit in the row's description or in section "
     "Limit allows. Section Font names the fonts. Shorten the text.",
     TextTooWide, HAS_TEXT},
    {"glyph-missing", Texts, Error, "the device's font lacks characters of a language",
     "The device can't draw these characters. Section Font names the fonts. Add the characters to the font, or change "
     "the texts.",
     nullptr, 0, nullptr, nullptr, BeginGlyphMissing},
    {"control-character", Texts, Warning, "a text has an invisible or a control character",
     "Control characters, zero-width blanks, byte order marks and overrides of the writing direction usually come from "
     "copying, and the device shows them as boxes. Delete them. Zero-width blanks are right in Thai, Lao, Khmer and "
     "Burmese.",
     ControlCharacter, HAS_CONTROL},
    {"lone-surrogate", Texts, Error, "a text has a half of a character",
     "One half of a surrogate pair of UTF-16 is there without the other, so the text can't be converted, and the "
     "device may stop reading there. Delete it, or write the character again.",
     LoneSurrogate, HAS_CONTROL},
    {"blank-edge", Texts, Warning, "a translation begins or ends with other blanks than its source text",
     "Blanks at the edges matter when texts are put together. Use as many blanks as the source text. No blank is "
     "needed beside Chinese and Japanese punctuation.",
     BlankEdge, HAS_BLANK_EDGE},
    {"blank-only", Texts, Warning, "a text has only blanks",
     "The text looks like a missing one, but isn't reported as missing. Delete it or write a text.", BlankOnly,
     HAS_BLANK_EDGE},
    {"end-punctuation", Texts, Note, "a translation ends with other punctuation than its source text",
     "A colon or a full stop was added or forgotten. The equivalents of each language count as equal, and so do all "
     "quotation marks; the full stop of an abbreviation may be missing. Nothing is compared where a bracket closes. If "
     "the difference is right, write [ignore:end-punctuation] at the end of the row's description.",
     EndPunctuation, HAS_PUNCTUATION | HAS_BACKSLASH},
    {"same-as-source", Texts, Note, "a translation is equal to its source text",
     "The text was perhaps copied and never translated. Texts without a word, and short words of capitals such as USB, "
     "count as translated. If it is right, write [same] at the end of the row's description.",
     SameAsSource, HAS_TEXT},
    {"double-blank", Texts, Note, "a text has two blanks one after the other",
     "This is usually a typing error. Delete one of them.", DoubleBlank, HAS_BLANK_PAIR},
    {"not-normalised", Texts, Note, "a text isn't in Unicode's composed form",
     "A letter is followed by a separate accent, which many fonts of devices draw beside it. Use the composed letter "
     "(form NFC).",
     NotNormalised, MAY_BE_DECOMPOSED},
    {"number-mismatch", Texts, Off, "a translation has other digits than its source text",
     "A number was perhaps changed by mistake. Digits of other scripts are compared by their values.", NumberMismatch,
     HAS_DIGIT},
    {"case-start", Texts, Off, "a translation begins with a letter of another case than its source text",
     "Off by default, because many languages have rules of their own. Not checked for German and for scripts without "
     "case.",
     CaseStart, HAS_TEXT},
    {"duplicate-text", Texts, Note, "several IDs have the same texts in all languages",
     "One ID may be enough. If they may differ later, ignore the finding.", nullptr, 0, DuplicateText},
    {"inconsistent-translation", Texts, Note, "the same source text has different translations",
     "Rows with the same source text and the same description have different translations in a language. Use one, or "
     "say in the descriptions where the texts differ.",
     nullptr, 0, InconsistentTranslation},
    {"language-unknown", Texts, Warning, "the program's table of languages lacks a language of the project",
     "The language isn't in tuvik.ini, or has another number there. Then an import of a workbook takes its texts for "
     "those of another language, or doesn't find the language. Add the language to tuvik.ini.",
     nullptr, 0, LanguageUnknown},
    {"id-invalid", Ids, Error, "an ID isn't a valid name in C",
     "The header defines the ID as a macro, so it must be an identifier of C with 1 to 64 ASCII letters, digits and _, "
     "and not a keyword of C or C++. Rename it.",
     nullptr, 0, IdInvalid},
    {"id-conflict", Ids, Error, "an ID is used twice",
     "The load leaves out the second resource with the ID, or the texts of the first of two rows, and the next save "
     "loses them. Rename one of them.",
     nullptr, 0, IdConflict},
    {"id-case", Ids, Warning, "two IDs differ only in case", "They are easily confused. Rename one of them.", nullptr,
     0, IdCase},
    {"id-unused", Ids, Warning, "no source file uses an ID",
     "None of the files in section Sources and no layout uses the ID. Delete the resource, or ignore the ID in section "
     "Ignore if it is used in another way.",
     nullptr, 0, nullptr, nullptr, BeginIdUnused},
    {"id-undefined", Ids, Error, "a source file uses an ID that doesn't exist",
     "A file in section Sources uses a name with the project's prefix that no resource has. The application doesn't "
     "compile or uses an old header. Correct the name, or add the resource.",
     nullptr, 0, IdUndefined},
    {"id-renumbered", Ids, Error, "the number of an ID has changed since an earlier header",
     "Firmware that was compiled with the header of --header would fetch another resource, or none. Pack and compile "
     "together, or add resources with names that sort after the existing ones.",
     nullptr, 0, IdRenumbered},
    {"id-range", Ids, Warning, "the numbers for a kind of IDs are nearly used up",
     "Nine tenths of the numbers of this kind are used. When none is left, the project can't be packed.", nullptr, 0,
     IdRangeUsedUp},
    {"project-unreadable", Project, Error, "the project can't be opened",
     "A file that the project needs is missing or damaged. Nothing else could be checked."},
    {"element-dropped", Project, Error, "the load leaves something out",
     "The next save would lose it, and a pack doesn't have it. Correct the file as the finding says.", nullptr, 0,
     ElementDropped},
    {"conflict-marker", Project, Error, "a file has the marks of an unresolved merge",
     "A line begins with <<<<<<<, ======= or >>>>>>>. Resolve the conflict.", nullptr, 0, ConflictMarkerLeft},
    {"string-file-form", Project, Error, "the string file is damaged",
     "The file isn't UTF-16 with a byte order mark, a row has more fields than the line of languages, or there are "
     "fewer languages than the first line says.",
     nullptr, 0, StringFileForm},
    {"settings-missing", Project, Error, "a list that Morvanite.ini names is missing or damaged",
     "There is no list of screen sizes, so the images and layouts of a project are left out; or there are no types of "
     "resources; or the catalogue of layouts is missing or has an error, so their components aren't checked. Correct "
     "Morvanite.ini or the file.",
     nullptr, 0, SettingsMissing},
    {"resolution-unlisted", Project, Error, "the project uses a screen size that the list of sizes lacks",
     "Images and layouts of this size are left out. Add the size to the list that Morvanite.ini names.", nullptr, 0,
     ResolutionUnlisted},
    {"header-stale", Project, Warning, "a generated header isn't what a save would write",
     "The application is compiled with other numbers than the pack has. Save the project, or let the build make the "
     "headers.",
     nullptr, 0, nullptr, nullptr, BeginHeaderStale},
    {"lists-unsaved", Project, Note, "a list of the project isn't in the form that a save writes",
     "The next save changes lines that nobody edited. Save the project once.", nullptr, 0, nullptr, nullptr,
     BeginListsUnsaved},
    {"payload-budget", Project, Error, "the resources for a screen are larger than the budget",
     "A pack for the screen would have more bytes of resources than the key budget of section Check allows. Make the "
     "largest resources smaller, or raise the budget. If a resource can't be packed, the size isn't known; correct it "
     "first.",
     nullptr, 0, PayloadBudget},
    {"file-missing", Files, Error, "the file of a resource doesn't exist",
     "A pack fails or leaves the resource out. Restore the file or remove the resource.", nullptr, 0, nullptr,
     FileMissing},
    {"file-empty", Files, Error, "the file of an image is too short",
     "A pack refuses images of 8 bytes or less. Restore the file.", nullptr, 0, nullptr, FileEmpty},
    {"file-case", Files, Warning, "the name of a file differs in case",
     "The file is found only because names are compared without regard to case. Correct the name in the list.", nullptr,
     0, nullptr, FileCase},
    {"file-outside", Files, Warning, "the file of a resource is outside of the project",
     "An absolute path, or one above the project's folder, doesn't exist on other machines. Move the file into the "
     "project.",
     nullptr, 0, nullptr, FileOutside},
    {"duplicate-file", Files, Note, "several resources have files with the same bytes",
     "The payload then contains the bytes twice. Use one resource.", nullptr, 0, nullptr, DuplicateFile},
    {"file-type", Files, Error, "the content of a file isn't what its name says",
     "The device, and other programs, may go by the name. Rename the file, or convert it.", nullptr, 0, nullptr,
     FileType},
    {"image-unreadable", Images, Error, "an image can't be read",
     "The file is damaged or cut off, has a form that the converter doesn't know, or isn't a picture. Export the image "
     "again.",
     nullptr, 0, nullptr, ImageUnreadable},
    {"image-format", Images, Error, "an image is in a format that can't be converted",
     "A pack that converts images refuses it. Use BMP, GIF, JPEG or PNG, with names that end in bmp, gif, jpg or png. "
     "An image in the device's own format is right where a pack doesn't convert.",
     nullptr, 0, nullptr, ImageFormat},
    {"image-too-large", Images, Warning, "an image is larger than its screen",
     "The image is wider or higher than the screen of its folder. Make it smaller.", nullptr, 0, nullptr,
     ImageTooLarge},
    {"image-size-differs", Images, Note, "the sizes of an image aren't in proportion to those of the screens",
     "From one screen to another, the sides of an image should change no less and no more than the sides of the "
     "screens do, with a tolerance of a tenth. Make the image again for the screen that is named.",
     nullptr, 0, nullptr, ImageSizeDiffers},
    {"image-same-everywhere", Images, Note, "all screens have the same image",
     "The files have the same bytes for all screens. Put the image into the folder Default once.", nullptr, 0, nullptr,
     ImageSameEverywhere},
    {"image-alpha-few", Images, Warning, "few pixels of an image are transparent",
     "One pixel in a hundred or fewer isn't opaque, or none is more than slightly transparent. Because of them each "
     "pixel has 4 bytes instead of 2. Make the image opaque if it is meant to be.",
     nullptr, 0, nullptr, ImageAlphaFew},
    {"image-resolution-missing", Images, Error, "some screens lack an image",
     "Some of the screens have the ID and others don't, and neither does the folder Default. The application doesn't "
     "find the image on these screens. Add it.",
     nullptr, 0, nullptr, ImageResolutionMissing},
    {"audio-format", Files, Off, "a sound isn't in a form that the device plays",
     "The codec, the rate, the number of channels or the bits of a WAV file aren't in the lists of section Audio, "
     "whose keys are codec, rate, channels and bits: codec=pcm, rate=8000, 16000. A missing key allows anything.",
     nullptr, 0, nullptr, AudioFormat},
    {"list-line", Files, Warning, "a line of a list of further files can't be packed",
     "In the lists of previews and of version 1.0: the file is missing, the line is longer than 255 bytes, a name "
     "occurs twice or is reserved.",
     nullptr, 0, ListLine},
    {"layout-class", Layouts, Error, "a component has an unknown class",
     "The catalogue has no such class, or an element is in the wrong place, so the device can't make the component. "
     "Correct the layout or the catalogue.",
     nullptr, 0, LayoutClass},
    {"layout-property", Layouts, Error, "a component has an unknown property",
     "The class has no such property in the catalogue, so it isn't packed. Correct the layout or the catalogue.",
     nullptr, 0, LayoutProperty},
    {"layout-value", Layouts, Error, "the value of a property is invalid",
     "The type of the property doesn't accept the value. Correct it.", nullptr, 0, LayoutValue},
    {"layout-reference", Layouts, Error, "a layout refers to a resource that doesn't exist",
     "No resource of the layout's resolution has the ID, or one of another kind has it. Correct the ID, or add the "
     "resource.",
     nullptr, 0, LayoutReference},
    {"layout-name", Layouts, Error, "a layout or a component has no name of its own",
     "Two components of a layout have the same name, so the application finds only one of them; or the ID of a layout "
     "is missing, invalid or used twice. Rename one of them.",
     nullptr, 0, LayoutName},
    {"layout-outside", Layouts, Warning, "a component is outside of its screen",
     "All or a part of the component can't be seen. Components in it are not reported again. Move it or make it "
     "smaller.",
     nullptr, 0, LayoutOutside},
    {"check-settings", RuleGroup::Check, Error, "a line of morvanite-check.ini has no meaning",
     "A section, a key or a value is unknown, or the line is neither a section nor a key nor a comment, so it has no "
     "effect; or the project "
     "lacks "
     "the source language, a font can't be opened, or the notes of a row have an unknown word. Correct it."},
    {"baseline-line", RuleGroup::Check, Error, "a line of the baseline can't be read",
     "The line has another form than --write-baseline writes. Write the baseline again."},
    {"baseline-stale", RuleGroup::Check, Note, "a line of the baseline has no finding any more",
     "The finding was corrected. Delete the line, so that the finding is reported if it comes back."},
};

} // namespace

std::span<const Rule> AllRules()
{
    return RULES;
}

const Rule *FindRule(QStringView id)
{
    for (const Rule &rule : RULES) {
        if (id == QLatin1StringView(rule.id))
            return &rule;
    }
    return nullptr;
}

size_t IndexOf(const Rule &rule)
{
    return size_t(&rule - RULES);
}

QString NameOfLevel(RuleLevel level)
{
    static constexpr const char *WORDS[] = {"off", "note", "warning", "error"}; // in the order of RuleLevel
    return QString::fromLatin1(WORDS[int(level)]);
}

QString ExplanationOf(const Rule &rule)
{
    return QStringLiteral("%1 (%2): %3\n    %4\n")
        .arg(QString::fromLatin1(rule.id), NameOfLevel(rule.level), QString::fromUtf8(rule.summary),
             QString::fromUtf8(rule.explanation));
}
