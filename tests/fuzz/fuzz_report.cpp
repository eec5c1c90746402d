// The reader of reports takes any bytes, ends, keeps within its table and fails only with the
// errors that it names.
#include "platform/base/errors.h"
#include "platform/controls/grid_cells.h"
#include "results/report.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace platform;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    GridCells table;
    table.SetCols(5);
    table.SetRows(3);
    qsizetype letters = 0;
    const int error = Skipping([&] {
        RecordReader file(content);
        LeggiResoconto(
            file, [&](QString TitoliResoconto::*, const QString &text) { letters += text.size(); },
            table);
    });
    if (error != 0 && error != Overflow && error != TypeMismatch && error != InputPastEnd &&
        error != InvalidPropertyValue && error != InvalidArrayIndex)
        std::abort();
    for (int row = 0; row < table.Rows(); ++row)
        for (int column = 0; column < table.Cols(); ++column)
            letters += column == 0 ? 0 : table.TextMatrix(row, column).size();
    if (letters > content.size() || table.Rows() > GridCells::MostRows)
        std::abort();
    // A second row is never reached.
    if (error == 0 && table.Rows() > 1)
        std::abort();
    return 0;
}
