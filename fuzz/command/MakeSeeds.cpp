// Writes the seeds of the command target: one of each command, and records at the edges.
#include "CommandHandler.h"
#include "CommandRecord.h"
#include "HostFiles.h"

#include <QtEndian>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_command_seeds FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    int failures = 0;
    const auto put = [&](const QString &name, quint32 id, const QByteArray &record) {
        QByteArray bytes(4, '\0');
        qToLittleEndian<quint32>(id, bytes.data());
        failures += WriteFileAtomically(folder + u'/' + name, bytes + record) != 0;
    };

    QString error;
    const QByteArray path = BuildRecord(CommandRecord{u"/home/x/demo/demo.vcproj"_s}, error).value_or(QByteArray());
    PackCommandRecord pack{u"/home/x/demo/demo.vcproj"_s,
                           u"/home/x/demo/app.axf"_s,
                           u"/home/x/demo/out.axf"_s,
                           u"240x320"_s,
                           u"axf"_s,
                           1,
                           20};
    put(u"load"_s, COMMAND_LOAD, path);
    put(u"save"_s, COMMAND_SAVE, path);
    put(u"pack_axf"_s, COMMAND_PACK, BuildRecord(pack, error).value_or(QByteArray()));
    pack.targetKind = u"DLL"_s;
    pack.resolution = u" -320X*480"_s;
    pack.outputFile.clear();
    put(u"pack_dll"_s, COMMAND_PACK, BuildRecord(pack, error).value_or(QByteArray()));
    pack.resolution = u"99999999999x99999999999"_s;
    put(u"pack_large_resolution"_s, COMMAND_PACK, BuildRecord(pack, error).value_or(QByteArray()));
    put(u"load_short"_s, COMMAND_LOAD, path.first(519));
    put(u"pack_unterminated"_s, COMMAND_PACK, QByteArray(1696, 'a'));
    put(u"pack_longer"_s, COMMAND_PACK, BuildRecord(pack, error).value_or(QByteArray()) + QByteArray(64, 'z'));
    put(u"unknown"_s, 0xAFBDDBFE, path);
    return failures != 0;
}
