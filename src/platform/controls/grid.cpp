#include "platform/controls/grid.h"

#include "platform/controls/form_window.h"

#include <QAbstractTableModel>
#include <QFont>
#include <QFontMetrics>
#include <QHeaderView>
#include <QPalette>
#include <QTableView>

namespace platform {

// Row 0 and column 0 are the view's headings, so the view counts from the cells behind them.
class GridModel : public QAbstractTableModel {
public:
    GridModel(Grid &grid, QObject *parent) : QAbstractTableModel(parent), m_grid(grid) {}

    // Never without a row, since a screen reader asks the cells of the first one for the headings;
    // where the table has none, the view hides it.
    int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : std::max(1, m_grid.Rows() - 1);
    }
    int columnCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : std::max(0, m_grid.Cols() - 1);
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::DisplayRole)
            return Text(index.row() + 1, index.column() + 1);
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(Alignment(index.column() + 1));
        return {};
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        const bool heading = orientation == Qt::Horizontal;
        if (role == Qt::DisplayRole)
            return heading ? Text(0, section + 1) : Text(section + 1, 0);
        if (role == Qt::TextAlignmentRole)
            return static_cast<int>(Alignment(heading ? section + 1 : 0));
        return {};
    }
    void Reset()
    {
        beginResetModel();
        endResetModel();
    }

private:
    // The view may ask while rows and columns change.
    QString Text(int row, int column) const
    {
        return row < m_grid.Rows() && column < m_grid.Cols() ? m_grid.TextMatrix(row, column)
                                                             : QString();
    }
    Qt::Alignment Alignment(int column) const
    {
        // A row is as high as its text, so the top is the middle too.
        return Qt::AlignVCenter |
               (m_grid.ColAlignment(column) == CellAlignment::CenterTop ? Qt::AlignHCenter
                                                                        : Qt::AlignLeft);
    }

    Grid &m_grid;
};

Grid::Grid(const ControlId &id, const Place &place)
    : VisualControl(id, place, new QTableView), m_view(static_cast<QTableView *>(Widget())),
      m_model(new GridModel(*this, m_view))
{
    TellsItsClicks();
    m_view->setModel(m_model);
    m_view->setSelectionMode(QAbstractItemView::NoSelection);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->setCornerButtonEnabled(false);
    m_view->setAlternatingRowColors(true);
    m_view->setFocusPolicy(Qt::StrongFocus);
    for (QHeaderView *header : {m_view->horizontalHeader(), m_view->verticalHeader()}) {
        header->setSectionsClickable(false);
        header->setHighlightSections(false);
        header->setSectionResizeMode(QHeaderView::Fixed);
        header->setMinimumSectionSize(0);
    }
    Grid::Refresh();
}

const Grid::Column &Grid::At(int column) const
{
    if (column < 0 || column >= static_cast<int>(m_columns.size()))
        throw RunTimeError(InvalidArrayIndex);
    return m_columns[static_cast<size_t>(column)];
}

void Grid::SetRows(int rows)
{
    m_cells.SetRows(rows);
    Changed();
}

void Grid::SetCols(int columns)
{
    m_cells.SetCols(columns);
    m_columns.resize(static_cast<size_t>(columns));
    Changed();
}

void Grid::SetTextMatrix(int row, int column, const QString &text)
{
    m_cells.SetTextMatrix(row, column, text);
    if (row == 0 || column == 0)
        m_view->horizontalHeader()->viewport()->update();
    m_view->viewport()->update();
}

void Grid::Clear()
{
    m_cells.Clear();
    Changed();
}

double Grid::ColWidth(int column) const
{
    return At(column).Width;
}

void Grid::SetColWidth(int column, double twips)
{
    At(column);
    m_columns[static_cast<size_t>(column)].Width = twips;
    if (column == 0)
        m_view->verticalHeader()->setFixedWidth(ToPixels(twips));
    else
        m_view->setColumnWidth(column - 1, ToPixels(twips));
}

CellAlignment Grid::ColAlignment(int column) const
{
    return At(column).Alignment;
}

void Grid::SetColAlignment(int column, CellAlignment alignment)
{
    At(column);
    m_columns[static_cast<size_t>(column)].Alignment = alignment;
    Changed();
}

void Grid::Changed()
{
    m_model->Reset();
    m_view->setRowHidden(0, Rows() <= 1);
    for (int column = 1; column < Cols(); ++column)
        m_view->setColumnWidth(column - 1, ToPixels(At(column).Width));
}

void Grid::Refresh()
{
    const QFont font = ToQFont(Font(), Font().Size);
    m_view->setFont(font);
    const int height = QFontMetrics(font).height() * 3 / 2;
    m_view->verticalHeader()->setDefaultSectionSize(height);
    m_view->horizontalHeader()->setFixedHeight(height);
    QFont bold = font;
    bold.setBold(true);
    m_view->horizontalHeader()->setFont(bold);
    m_view->verticalHeader()->setFont(font);
}

} // namespace platform
