#include "CompoundFile.h"

#include <gsf/gsf.h>

#include <memory>

namespace
{

struct Release
{
    void operator()(void *object) const { g_object_unref(object); }
};

} // namespace

WorkbookResult WriteCompoundFile(const char *name, std::initializer_list<QByteArrayView> stream, QByteArray &file)
{
    const std::unique_ptr<GsfOutput, Release> memory(gsf_output_memory_new());
    const std::unique_ptr<GsfOutfile, Release> container(gsf_outfile_msole_new(memory.get()));
    const std::unique_ptr<GsfOutput, Release> child(gsf_outfile_new_child(container.get(), name, FALSE));
    bool isWritten = child != nullptr;
    for (const QByteArrayView piece : stream)
        isWritten = isWritten &&
                    gsf_output_write(child.get(), size_t(piece.size()), reinterpret_cast<const guint8 *>(piece.data()));
    isWritten = isWritten && gsf_output_close(child.get()) && gsf_output_close(GSF_OUTPUT(container.get()));
    const guint8 *bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(memory.get()));
    if (!isWritten || !bytes)
        return {WorkbookFault::CannotWrite, QStringLiteral("the compound file can't be made")};
    file = QByteArray(reinterpret_cast<const char *>(bytes), qsizetype(gsf_output_size(memory.get())));
    return {};
}
