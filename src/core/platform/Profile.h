// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <utility>

/// A key with its value.
struct ProfileEntry
{
    QString section;
    QString key;
    QString value;
};

/// A text file of sections, keys and values ("INI"). It keeps the text of each line, so that lines that don't change
/// are written back byte for byte.
///
/// Section and key names are compared without regard to case. Blanks around names and values are ignored, one pair of
/// equal quotes around a value is removed, and a line that begins with ";" is a comment. Of several equal sections or
/// keys only the first counts, so a key that is only in the second of two equal sections isn't found. Text is UTF-8
/// unless it begins with a UTF-16 byte order mark.
class Profile
{
public:
    /// Reads a file. The profile is empty if the file doesn't exist, can't be read or has more than 1 MiB.
    static Profile Load(const QString &path);
    /// The same. Returns 0, or the system's error number when the profile couldn't be read.
    [[nodiscard]] static int Read(const QString &path, Profile &profile);
    [[nodiscard]] static int Read(const class FileHandle &file, Profile &profile);
    static Profile Parse(QByteArrayView bytes);

    [[nodiscard]] bool Has(QStringView section, QStringView key) const;
    /// Returns the line of a key, from 1; 0 if the profile doesn't have it.
    [[nodiscard]] int LineOf(QStringView section, QStringView key) const;
    [[nodiscard]] QString String(QStringView section, QStringView key, const QString &fallback) const;

    /// Returns the decimal number, with an optional sign, that the value begins with; 0 if it begins with none.
    [[nodiscard]] int Int(QStringView section, QStringView key, int fallback) const;

    /// Returns section and key of each line that has a key, in the order and spelling of the file. Leaves out those of
    /// repeated sections, which don't count.
    [[nodiscard]] QList<std::pair<QString, QString>> Keys() const;

    /// Returns the numbers of the lines, from 1, that have no meaning: those that are neither empty nor a comment, a
    /// section or a key with "=".
    [[nodiscard]] QList<int> StrayLines() const;
    /// Returns the numbers of the lines that begin a section, but aren't "[NAME]": the bracket isn't closed, or
    /// something other than a comment follows it.
    [[nodiscard]] QList<int> BrokenHeads() const;
    /// Returns the numbers of the lines, from 1, that begin a section of which there is an earlier one.
    [[nodiscard]] QList<int> RepeatedHeads() const;

    /// Returns the lines of a section without comments and empty lines. Stops before the line that would exceed `limit`
    /// characters, counting one character more for each line and one for the end.
    [[nodiscard]] QStringList Section(QStringView section, qsizetype limit = 4096) const;

    void Set(QStringView section, QStringView key, const QString &value);

    /// Returns the whole text in its encoding. New lines have the line end of the file's first line.
    [[nodiscard]] QByteArray Bytes() const;

private:
    struct Line
    {
        QByteArray raw;  // as it is in the file, with its line end; without a copy of its own if it was read
        QString text;    // without its line end; of a comment only its first character
        QString section; // the section that the line is in, in upper case
        QString key;     // in upper case; empty unless the line is `key=value`
        bool isHead;     // the line begins the section
    };

    /// Returns the range of lines of the first section of that name: its first line, and the line after its last.
    [[nodiscard]] std::pair<qsizetype, qsizetype> Range(const QString &upperSection) const;
    [[nodiscard]] bool IsUtf16() const { return mark.size() == 2; }
    [[nodiscard]] QByteArray Encoded(const QString &text) const;
    void AddLine(const QByteArray &raw, QString &section);

    [[nodiscard]] const Line *Find(QStringView section, QStringView key) const;

    QByteArray content; // the file as it was read, whose bytes the lines share; never changed
    QList<Line> lines;
    QString lineEnd = QStringLiteral("\n");
    QByteArray mark; // the byte order mark that the file begins with
};
