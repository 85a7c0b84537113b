// SPDX-License-Identifier: MIT
#include "Conversion.h"

#include "CatalogueFile.h"
#include "Environment.h"
#include "FilePlace.h"
#include "HostFiles.h"
#include "IdNames.h"
#include "LayoutRows.h"
#include "LayoutTables.h"
#include "LayoutWriter.h"
#include "Leftovers.h"
#include "RunTool.h"
#include "Xml.h"

#include <QSet>

#include <cstring>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr int MOST_ERRORS = 100; // reported
constexpr qint64 LARGEST_HEADER = 64 << 20;
constexpr qint64 LARGEST_TABLE = 16 << 20;

/// Not a screen: a layout of this name requests the tables. The packer deletes a file of this name if there is one.
constexpr char TABLES_LAYOUT[] = "ID_D279A4D9_BC6C_420b_9EC7_CE2FA9F8415D";

QString SystemError(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

bool IsFile(const QString &path)
{
    struct stat info;
    return !path.isEmpty() && stat(HostPath(path).constData(), &info) == 0 && S_ISREG(info.st_mode);
}

/// The path of a file in a folder, in the form for the file functions.
QString InFolder(const QString &folder, const QString &name)
{
    return folder.endsWith(u'/') || folder.endsWith(u'\\') ? folder + name : folder + u'/' + name;
}

} // namespace

bool Conversion::Run()
{
    if (!LoadLayouts() || !LoadTypes())
        return false;
    const LayoutTables tables(types);
    if (HasTooManyNames(tables))
        return false;
    if (AskForTables())
        return WriteTables(tables);
    std::vector<ConvertedLayout> layouts;
    return LoadNumbers() && !HasTablesOfOthers(tables) && Convert(tables, layouts) && WriteLayouts(layouts);
}

bool Conversion::Measure(const IdNumbers &idNumbers, QHash<NarrowText, quint64> &sizes)
{
    if (!LoadLayouts() || !LoadTypes())
        return false;
    if (AskForTables()) {
        messages.append(u"%1: the layout %2 asks for tables, so no layout is converted"_s.arg(
            options.input, QLatin1StringView(TABLES_LAYOUT)));
        return false;
    }
    const LayoutTables tables(types);
    numbers = idNumbers;
    std::vector<ConvertedLayout> layouts;
    if (HasTooManyNames(tables) || HasTablesOfOthers(tables) || !Convert(tables, layouts))
        return false;
    for (const auto &[id, bytes] : layouts)
        sizes.insert(id, quint64(bytes.size()));
    return true;
}

bool Conversion::HasTooManyNames(const LayoutTables &tables)
{
    if (!tables.Fit())
        messages.append(options.xml + u": more than 65535 classes or properties"_s);
    return !tables.Fit();
}

bool Conversion::AskForTables() const
{
    for (const auto &layout : file.All()) {
        if (layout->Id()->name == TABLES_LAYOUT)
            return true;
    }
    return false;
}

bool Conversion::LoadLayouts()
{
    const int code = file.Load(env.WideToNarrow(options.input));
    if (code != 0)
        TellWhyNotLoaded(code);
    return code == 0;
}

void Conversion::TellWhyNotLoaded(int code)
{
    const LayoutRows rows(env, options.input);
    const int culprit = rows.OfLayout(int(file.All().size()));
    const auto tell = [&](int row, const QString &text) {
        messages.append(u"%1, line %2: %3"_s.arg(options.input).arg(row).arg(text));
    };
    switch (code) {
    case LAYOUT_NOT_OPENED:
        messages.append(options.input + u": can't be opened"_s);
        break;
    case LAYOUT_NOT_WELL_FORMED:
        tell(rows.OfError(), u"this is not well-formed XML"_s);
        break;
    case LAYOUT_NO_ROOT:
        tell(1, u"there is no element <TarvoXML>"_s);
        break;
    case LAYOUT_WRONG_ROOT:
        tell(rows.OfRoot(), u"the outermost element should be <TarvoXML>"_s);
        break;
    case LAYOUT_WRONG_CHILD:
        tell(culprit, u"only <Layout> is allowed in <TarvoXML>"_s);
        break;
    case LAYOUT_NO_ID:
        tell(culprit, u"<Layout> needs the attribute \"id\""_s);
        break;
    default:
        tell(culprit, u"the ID of this layout is empty or already used"_s);
    }
}

bool Conversion::LoadTypes()
{
    if (!IsFile(options.xml)) {
        if (options.xml.endsWith(u".xml", Qt::CaseInsensitive))
            messages.append(options.xml + u": the file does not exist, so all properties remain text"_s);
        return true;
    }
    std::vector<Finding> errors;
    const bool isLoaded = LoadCatalogue(env, options.xml, types, errors);
    messages += CatalogueErrors(errors);
    return isLoaded;
}

bool Conversion::LoadNumbers()
{
    QByteArray header;
    const int error = ReadFile(options.header, header, LARGEST_HEADER);
    if (error != 0) {
        messages.append(u"%1: %2; save the project to write this file"_s.arg(options.header, SystemError(error)));
        return false;
    }
    numbers.Read(header);
    return true;
}

/// Checks for tables with other numbers. An application that was compiled with these would confuse the properties.
bool Conversion::HasTablesOfOthers(const LayoutTables &tables)
{
    const QString path = InFolder(options.table, QLatin1String(LayoutTables::TABLE_FILE));
    QByteArray table;
    if (options.table.isEmpty() || ReadFile(path, table, LARGEST_TABLE) != 0 ||
        LayoutTables::StampOf(table) == tables.Stamp()) {
        return false;
    }
    messages.append(path +
                    u": the file was made from another catalogue; save the project, then compile the application"_s);
    return true;
}

bool Conversion::Convert(const LayoutTables &tables, std::vector<ConvertedLayout> &results)
{
    QSet<QString> names;
    std::unique_ptr<LayoutRows> rows; // read again if there is a message
    int errors = 0;
    int layoutNumber = 0;
    const auto tell = [&](const ComponentObject *component, const QByteArray &text) {
        if (++errors > MOST_ERRORS)
            return;
        if (!rows)
            rows = std::make_unique<LayoutRows>(env, options.input, file);
        const int row = component ? rows->OfComponent(component) : rows->OfLayout(layoutNumber);
        messages.append(u"%1, line %2: %3"_s.arg(options.input).arg(row).arg(env.NarrowToWide(text)));
    };
    LayoutWriter writer(types, tables, numbers, tell);
    for (const auto &layout : file.All()) {
        const NarrowText &id = layout->Id()->name;
        if (!IsValidIdName(env.NarrowToWide(id)))
            tell(nullptr, "the ID of this layout is not valid: an ID has at most 64 letters, digits and \"_\", and "
                          "doesn't begin with a digit");
        const QString name = env.NarrowToWide(id) + u".bin"_s;
        if (names.contains(ToUpperSimple(name)))
            tell(nullptr, "the ID differs from that of another layout only in upper and lower case");
        names.insert(ToUpperSimple(name));
        results.push_back({id, writer.Write(id, layout->components)});
        ++layoutNumber;
    }
    if (errors > MOST_ERRORS)
        messages.append(u"%1: %2 more errors are not shown"_s.arg(options.input).arg(errors - MOST_ERRORS));
    return errors == 0;
}

bool Conversion::WriteLayouts(const std::vector<ConvertedLayout> &layouts)
{
    for (const auto &[id, bytes] : layouts) {
        if (!WriteFile(InFolder(options.output, env.NarrowToWide(id) + u".bin"_s), bytes))
            return false;
    }
    return true;
}

bool Conversion::WriteTables(const LayoutTables &tables)
{
    CreateFolderOnDisk(options.table);
    const QString table = InFolder(options.table, QLatin1String(LayoutTables::TABLE_FILE));
    const QString enums = InFolder(options.table, QLatin1String(LayoutTables::ENUM_FILE));
    if (!WriteFile(table, tables.TableFile()) || !WriteFile(enums, tables.EnumFile()))
        return false;
    return options.subtool.isEmpty() ||
           RunSubTool(enums, table, InFolder(options.table, QLatin1String(LayoutTables::HEADER_FILE)));
}

bool Conversion::RunSubTool(const QString &enums, const QString &table, const QString &header)
{
    const auto host = [](const QString &path) { return QString::fromUtf8(HostPath(path)); };
    RemoveLeftovers(FolderOf(HostPath(header)), QByteArray(LayoutTables::HEADER_FILE));
    ToolEnd end;
    (void)RunTool(env, {options.subtool, host(table), host(enums), host(header)}, &end);
    if (end.startError != 0)
        messages.append(u"%1: %2"_s.arg(options.subtool, SystemError(end.startError)));
    return end.Text().isEmpty(); // otherwise the reason has been reported
}

bool Conversion::WriteFile(const QString &path, const QByteArray &bytes)
{
    // An equal file isn't replaced, so that nothing is compiled anew because of it.
    QByteArray old;
    if (ReadFile(path, old, LARGEST_TABLE) == 0 && old == bytes)
        return true;
    const int error = WriteFileAtomically(path, bytes);
    if (error != 0)
        messages.append(u"%1: %2"_s.arg(path, SystemError(error)));
    return error == 0;
}
