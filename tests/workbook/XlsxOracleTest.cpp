// What other programs read in our workbooks, and what we read in theirs.
#include "TempFolder.h"
#include "TestTable.h"

#include <QProcess>

namespace
{

void RunProgram(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    ASSERT_TRUE(process.waitForFinished(120'000))
        << program.toStdString() << ": " << process.errorString().toStdString();
    ASSERT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
}

/// What a program keeps: Gnumeric knows no escapes, so that gets no control characters.
TestTable CommonTable(bool hasEscapes)
{
    Rows rows;
    rows.push_back(
        {QStringLiteral("ID"), QStringLiteral("type"), QStringLiteral("English"), QStringLiteral("\u4F60\u597D")});
    rows.push_back({QStringLiteral("=1+1"), QStringLiteral("-5"), QStringLiteral("@x"), QStringLiteral("+a")});
    rows.push_back({QStringLiteral("007"), QStringLiteral("TRUE"), QStringLiteral("1/2"), QStringLiteral("1e5")});
    rows.push_back({QStringLiteral(" blanks  "), QStringLiteral("two\nlines\n"), QStringLiteral("\ttab"),
                    QStringLiteral("\"q\"\"")});
    rows.push_back({QStringLiteral("<&>]]>'"), QStringLiteral("_x004 _x"), QStringLiteral("\U0001F600\U00020000"),
                    QStringLiteral("a,b;c")});
    rows.push_back({QStringLiteral("\u05E9\u202E"), QStringLiteral("http://example.org/"), QString(),
                    QStringLiteral("e\u0301 \u00A0")});
    rows.push_back({QString(32'000, QChar(0x4E00))});
    if (hasEscapes)
        rows.push_back({QStringLiteral("_x0041_"), QStringLiteral("a\u001Fb_x000D__")});
    return TestTable(rows);
}

class Oracle : public testing::TestWithParam<bool>
{
protected:
    /// What a program makes of our workbook, in another format.
    [[nodiscard]] QByteArray Converted(const char *extension) const
    {
        folder.Put("table.xlsx", Written(WriteXlsx, CommonTable(GetParam())));
        folder.MakeFolder("out");
        const QString kind = QString::fromLatin1(extension);
        const QByteArray out = QByteArray("out/table.") + extension;
        if (!GetParam())
            RunProgram(QStringLiteral("ssconvert"), {folder.Path("table.xlsx"), folder.Path(out.constData())});
        else
            RunProgram(
                QStringLiteral("soffice"),
                {QStringLiteral("-env:UserInstallation=file://") + folder.Path("profile"), QStringLiteral("--headless"),
                 QStringLiteral("--convert-to"),
                 kind == QLatin1String("csv") ? QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76,1") : kind,
                 QStringLiteral("--outdir"), folder.Path("out"), folder.Path("table.xlsx")});
        return folder.Get(out.constData());
    }

    TempFolder folder;
};

} // namespace

TEST_P(Oracle, ReadsCellForCellWhatWeWrite)
{
    EXPECT_EQ(Read(ReadCsv, Converted("csv")), CommonTable(GetParam()).rows);
}

TEST_P(Oracle, WritesWhatWeReadCellForCell)
{
    EXPECT_EQ(Read(ReadXlsx, Converted("xlsx")), CommonTable(GetParam()).rows);
}

INSTANTIATE_TEST_SUITE_P(Programs, Oracle, testing::Bool(),
                         [](const auto &program) { return program.param ? "LibreOffice" : "Gnumeric"; });
