// The texts of a table, in rows and columns counted from 0.
#pragma once

#include <QString>

#include <vector>

namespace platform {

class GridCells {
public:
    // Far more than any log has; a report that claims more is no report.
    static constexpr int MostRows = 10000;

    int Rows() const { return m_rows; }
    int Cols() const { return m_columns; }
    // Texts that still have a place are kept. Error 380 below 0 or above the most.
    void SetRows(int rows);
    void SetCols(int columns);

    // Error 381 for a cell that is not there.
    const QString &TextMatrix(int row, int column) const;
    void SetTextMatrix(int row, int column, const QString &text);
    // Empties all cells; rows and columns stay.
    void Clear();

private:
    size_t At(int row, int column) const;
    void Resize(int rows, int columns);

    int m_rows = 0;
    int m_columns = 0;
    std::vector<QString> m_texts;
};

} // namespace platform
