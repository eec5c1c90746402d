// The record reader takes any bytes, ends, and fails only with the errors that it names.
#include "platform/base/errors.h"
#include "platform/files/files.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace platform;

// The first byte says which kinds of fields are read, one bit a field, over and over.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray content(reinterpret_cast<const char *>(data + 1),
                             static_cast<qsizetype>(size - 1));
    RecordReader reader(content);
    qsizetype length = 0;
    unsigned turn = 0;
    while (!reader.AtEnd()) {
        const unsigned kind = (unsigned{data[0]} >> (turn++ % 4U * 2U)) & 3U;
        const int error = Skipping([&] {
            if (kind == 0)
                length += reader.Text().size();
            else if (kind == 1)
                length += reader.Number() < 0 ? 1 : 0;
            else if (kind == 2)
                length += reader.Integer() < 0 ? 1 : 0;
            else
                length += reader.Line().size();
        });
        if (error != 0 && error != Overflow && error != TypeMismatch && error != InputPastEnd)
            std::abort();
    }
    // Each turn takes at least a byte, and nothing is read twice.
    if (length > content.size() || turn > size)
        std::abort();
    if (ToCodePage(FromCodePage(content)) != content)
        std::abort();
    return 0;
}
