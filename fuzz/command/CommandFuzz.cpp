// SPDX-License-Identifier: MIT
// A command as it is received: 4 bytes of dwData, and the record. Runs the handler for a document that never opens,
// and computes what would be packed. Aborts if a command leaves any state behind or its report has no end.
#include "CResoTable.h"
#include "CommandRecord.h"
#include "IdeCommandHandler.h"
#include "PackRequest.h"

#include <QtEndian>

#include <cstdlib>

namespace
{

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

class ClosedDocument : public CDocument
{
public:
    explicit ClosedDocument(Environment &environment) : env(environment) {}
    void Serialize(bool) override { throw ArchiveException{7}; }
    bool OnSaveDocument(const QString &) override { return false; }
    void ReportSaveLoadException(const QString &path, const ArchiveException &exception, bool) override
    {
        env.WriteOutput("%s\r\n### error %d ###\r\n", qUtf8Printable(path), exception.cause);
    }

private:
    Environment &env;
};

class Report : public IReportPipe
{
public:
    bool Open() override { return open = true; }
    [[nodiscard]] bool IsOpen() const override { return open; }
    void Write(QStringView piece) override
    {
        Require(open);
        text += piece;
    }
    void Close() override { open = false; }

    QString text;
    bool open = false;
};

/// Checks what must be true of every record that was read, and of the request to the packer.
void CheckRecord(const PackRequest &request, const Environment &env, const CResoTable &resolutions)
{
    for (const QString *path : {&request.projectPath, &request.inputFile, &request.outputFile})
        Require(path->size() <= 260 && !path->contains(QChar(u'\0')));
    Require(request.resolution.size() <= 32 && request.targetKind.size() <= 32);
    if (const auto parameters = PackInfoOf(request, env, resolutions)) {
        Require(parameters->scope >= -1 && parameters->scope < resolutions.Count());
        Require(parameters->packmode == PACK_TO_TARGET || parameters->packmode == PACK_TO_DLL);
    }
}

/// Checks that a record that was read is built as it was.
void CheckBuilding(const PackCommandRecord &record)
{
    std::string error;
    if (const auto built = BuildRecord(record, error)) {
        const auto again = ParsePackCommandRecord(*built);
        Require(again && again->inputFile == record.inputFile && again->version == record.version);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static Environment env(QStringLiteral("/nonexistent"));
    CResoTable resolutions;
    resolutions.Add("", 240, 320);
    resolutions.Add("", 320, 480);
    if (size < 4)
        return 0;
    const quint32 id = qFromLittleEndian<quint32>(data);
    const QByteArrayView record(data + 4, qsizetype(size) - 4);

    CDocManager documents([] { return std::make_unique<ClosedDocument>(env); });
    Report report;
    IdeCommandHandler handler(env, documents, report);
    Require(handler.Handle(id, record) == 1);
    Require(!report.open && documents.Documents().empty());
    Require(report.text.isEmpty() || report.text.contains(u" done\r\n"));
    if (const auto path = ProjectPathOf(record))
        Require(handler.GetCommandID(&*path) == 0);
    if (const auto request = PackRequestOf(record))
        CheckRecord(*request, env, resolutions);
    if (const auto parsed = ParsePackCommandRecord({record.data(), size_t(record.size())}))
        CheckBuilding(*parsed);
    return 0;
}
