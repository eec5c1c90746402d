// A table to read: row 0 is its heading and stays in sight, column 0 counts the rows.
#pragma once

#include "platform/controls/grid_cells.h"
#include "platform/controls/visual_control.h"

#include <vector>

class QTableView;

namespace platform {

class GridModel;

// The classic alignments of a column that are used here.
enum class CellAlignment { LeftTop = 0, CenterTop = 3 };

class Grid : public VisualControl {
public:
    Grid(const ControlId &id, const Place &place);

    int Rows() const { return m_cells.Rows(); }
    int Cols() const { return m_cells.Cols(); }
    void SetRows(int rows);
    void SetCols(int columns);
    const QString &TextMatrix(int row, int column) const { return m_cells.TextMatrix(row, column); }
    void SetTextMatrix(int row, int column, const QString &text);
    void Clear();

    double ColWidth(int column) const; // twips; error 381 outside
    void SetColWidth(int column, double twips);
    CellAlignment ColAlignment(int column) const;
    void SetColAlignment(int column, CellAlignment alignment);

protected:
    void Refresh() override;

private:
    friend class GridModel;
    struct Column {
        double Width = 960; // twips
        CellAlignment Alignment = CellAlignment::LeftTop;
    };
    const Column &At(int column) const;
    void Changed();

    GridCells m_cells;
    std::vector<Column> m_columns;
    QTableView *m_view;
    GridModel *m_model;
};

} // namespace platform
