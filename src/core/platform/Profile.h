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

/// A text file of sections, keys and values ("INI"), kept line by line: what isn't changed is written back byte for
/// byte.
///
/// Section and key names compare without regard to case, blanks around names and values don't count, one pair of equal
/// quotes around a value is taken off, a line that begins with ";" is a comment. Of several equal sections or keys the
/// first counts, so a key that only the second of two equal sections has isn't found. Text is UTF-8 unless it begins
/// with a UTF-16 mark.
class Profile
{
public:
    /// Reads a file; an absent or unreadable one, or one above 1 MiB, gives an empty profile.
    static Profile Load(const QString &path);
    /// The same, and the system's error number when there is no profile to read; 0 otherwise.
    [[nodiscard]] static int Read(const QString &path, Profile &profile);
    static Profile Parse(QByteArrayView bytes);

    [[nodiscard]] bool Has(QStringView section, QStringView key) const;
    [[nodiscard]] QString String(QStringView section, QStringView key, const QString &fallback) const;

    /// A leading decimal number, with a sign if need be; 0 for a value that doesn't begin with one.
    [[nodiscard]] int Int(QStringView section, QStringView key, int fallback) const;

    /// Section and key of each line that has a key, in the file's order and spelling.
    [[nodiscard]] QList<std::pair<QString, QString>> Keys() const;

    /// The lines of a section, comments and empty lines left out, as many as fit whole into `limit` characters when a
    /// zero is counted behind each line and one more behind the last.
    [[nodiscard]] QStringList Section(QStringView section, qsizetype limit = 4096) const;

    void Set(QStringView section, QStringView key, const QString &value);

    /// The whole text in its encoding; new lines end as the first one did.
    [[nodiscard]] QByteArray Bytes() const;

private:
    struct Line
    {
        QByteArray raw;  // as it stands in the file, with its line end
        QString text;    // without its line end
        QString section; // upper case; of the section that the line is in
        QString key;     // upper case; empty unless the line is `key=value`
        bool isHead;     // begins the section
    };

    /// The lines of the first section of that name: its first, and the one behind its last.
    [[nodiscard]] std::pair<qsizetype, qsizetype> Range(const QString &upperSection) const;
    [[nodiscard]] bool IsUtf16() const { return mark.size() == 2; }
    [[nodiscard]] QByteArray Encoded(const QString &text) const;
    void AddLine(QByteArrayView raw, QString &section);

    [[nodiscard]] const Line *Find(QStringView section, QStringView key) const;

    QList<Line> lines;
    QString lineEnd = QStringLiteral("\n");
    QByteArray mark; // the byte order mark that the file begins with
};
