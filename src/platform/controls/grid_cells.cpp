#include "platform/controls/grid_cells.h"

#include "platform/base/errors.h"

#include <algorithm>

namespace platform {

namespace {
constexpr int MostColumns = 100;
}

void GridCells::SetRows(int rows)
{
    if (rows < 0 || rows > MostRows)
        throw RunTimeError(InvalidPropertyValue, QString::number(rows));
    Resize(rows, m_columns);
}

void GridCells::SetCols(int columns)
{
    if (columns < 0 || columns > MostColumns)
        throw RunTimeError(InvalidPropertyValue, QString::number(columns));
    Resize(m_rows, columns);
}

const QString &GridCells::TextMatrix(int row, int column) const
{
    return m_texts[At(row, column)];
}

void GridCells::SetTextMatrix(int row, int column, const QString &text)
{
    m_texts[At(row, column)] = text;
}

void GridCells::Clear()
{
    std::fill(m_texts.begin(), m_texts.end(), QString());
}

size_t GridCells::At(int row, int column) const
{
    if (row < 0 || row >= m_rows || column < 0 || column >= m_columns)
        throw RunTimeError(InvalidArrayIndex);
    return static_cast<size_t>(row) * static_cast<size_t>(m_columns) + static_cast<size_t>(column);
}

void GridCells::Resize(int rows, int columns)
{
    std::vector<QString> texts(static_cast<size_t>(rows) * static_cast<size_t>(columns));
    for (int row = 0; row < std::min(rows, m_rows); ++row)
        for (int column = 0; column < std::min(columns, m_columns); ++column)
            texts[static_cast<size_t>(row) * static_cast<size_t>(columns) +
                  static_cast<size_t>(column)] = std::move(m_texts[At(row, column)]);
    m_rows = rows;
    m_columns = columns;
    m_texts = std::move(texts);
}

} // namespace platform
