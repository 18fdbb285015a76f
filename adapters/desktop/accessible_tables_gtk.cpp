// Tables and cells as screen readers ask for them on GTK. A table's rows and columns are those
// below and beside the titles.
#include <algorithm>

#include "adapters/desktop/accessible_gtk.h"

namespace kelvane::desktop {

namespace {

SpokenSource::Shape ShapeOf(gpointer table) {
    SpokenReader* reader = ReaderOf(table);
    return reader == nullptr ? SpokenSource::Shape() : reader->Source().TableShape();
}

gint CountRows(AtkTable* table) {
    const auto shape = ShapeOf(table);
    return shape.rows - shape.titleRows;
}

gint CountColumns(AtkTable* table) {
    const auto shape = ShapeOf(table);
    return shape.columns - shape.titleColumns;
}

// The part in a row and a column below and beside the titles; -1 stands for the titles.
int PartIn(AtkTable* table, int row, int column) {
    const auto shape = ShapeOf(table);
    const bool titles = (row == -1 && shape.titleRows > 0) || row >= 0;
    const bool inside = column >= -1 && (column >= 0 || shape.titleColumns > 0) && titles &&
                        row < shape.rows - shape.titleRows &&
                        column < shape.columns - shape.titleColumns;
    if (!inside) return SpokenSource::kWhole;
    return (row + shape.titleRows) * shape.columns + column + shape.titleColumns;
}

AtkObject* RefAt(AtkTable* table, gint row, gint column) {
    SpokenReader* reader = ReaderOf(table);
    if (reader == nullptr || row < 0 || column < 0) return nullptr;
    return reader->RefPart(PartIn(table, row, column));
}

gint IndexAt(AtkTable* table, gint row, gint column) {
    SpokenReader* reader = ReaderOf(table);
    if (reader == nullptr || row < 0 || column < 0) return -1;
    const int part = PartIn(table, row, column);
    return part == SpokenSource::kWhole ? -1 : reader->NativeChildren() + part;
}

// Where a child of the table stands; -1 each among the titles and for what is no part.
struct Position {
    int row = -1;
    int column = -1;
};
Position PositionOf(gpointer table, int part) {
    const auto shape = ShapeOf(table);
    if (part < 0 || shape.columns == 0) return {};
    return {std::max(-1, part / shape.columns - shape.titleRows),
            std::max(-1, part % shape.columns - shape.titleColumns)};
}

int PartOfChild(AtkTable* table, int index) {
    SpokenReader* reader = ReaderOf(table);
    return reader == nullptr ? -1 : index - reader->NativeChildren();
}

gint RowAtIndex(AtkTable* table, gint index) {
    return PositionOf(table, PartOfChild(table, index)).row;
}

gint ColumnAtIndex(AtkTable* table, gint index) {
    return PositionOf(table, PartOfChild(table, index)).column;
}

gint ExtentAt(AtkTable* /*table*/, gint /*row*/, gint /*column*/) {
    return 1;
}

AtkObject* TitleAt(AtkTable* table, int row, int column) {
    SpokenReader* reader = ReaderOf(table);
    return reader == nullptr ? nullptr : reader->Title(PartIn(table, row, column));
}

AtkObject* ColumnHeader(AtkTable* table, gint column) {
    return TitleAt(table, -1, column);
}

AtkObject* RowHeader(AtkTable* table, gint row) {
    return TitleAt(table, row, -1);
}

const gchar* ColumnDescription(AtkTable* table, gint column) {
    AtkObject* header = ColumnHeader(table, column);
    return header == nullptr ? nullptr : atk_object_get_name(header);
}

gboolean IsSelected(AtkTable* table, gint row, gint column) {
    SpokenReader* reader = ReaderOf(table);
    const int part = PartIn(table, row, column);
    return reader != nullptr && part != SpokenSource::kWhole && reader->IsCurrent(part) ? TRUE
                                                                                        : FALSE;
}

gboolean CellPosition(AtkTableCell* cell, gint* row, gint* column) {
    const Position position = PositionOf(cell, PartOf(cell));
    if (row != nullptr) *row = position.row;
    if (column != nullptr) *column = position.column;
    return position.row >= 0 && position.column >= 0 ? TRUE : FALSE;
}

gint CellSpan(AtkTableCell* /*cell*/) {
    return 1;
}

gboolean CellPositionAndSpan(AtkTableCell* cell, gint* row, gint* column, gint* rows,
                             gint* columns) {
    *rows = *columns = 1;
    return CellPosition(cell, row, column);
}

AtkObject* CellTable(AtkTableCell* cell) {
    SpokenReader* reader = ReaderOf(cell);
    return reader == nullptr ? nullptr : ATK_OBJECT(g_object_ref(reader->Whole()));
}

GPtrArray* TitlesOf(AtkTableCell* cell, bool ofColumn) {
    GPtrArray* titles = g_ptr_array_new_with_free_func(g_object_unref);
    SpokenReader* reader = ReaderOf(cell);
    if (reader == nullptr) return titles;
    const Position position = PositionOf(cell, PartOf(cell));
    AtkTable* table = reinterpret_cast<AtkTable*>(reader->Whole());
    AtkObject* title = reader->RefPart(ofColumn ? PartIn(table, -1, position.column)
                                                : PartIn(table, position.row, -1));
    if (title != nullptr) g_ptr_array_add(titles, title);
    return titles;
}

GPtrArray* CellColumnTitles(AtkTableCell* cell) {
    return TitlesOf(cell, true);
}

GPtrArray* CellRowTitles(AtkTableCell* cell) {
    return TitlesOf(cell, false);
}

}  // namespace

void FillTable(gpointer interface, gpointer /*data*/) {
    auto* table = static_cast<AtkTableIface*>(interface);
    table->ref_at = RefAt;
    table->get_index_at = IndexAt;
    table->get_row_at_index = RowAtIndex;
    table->get_column_at_index = ColumnAtIndex;
    table->get_n_rows = CountRows;
    table->get_n_columns = CountColumns;
    table->get_row_extent_at = ExtentAt;
    table->get_column_extent_at = ExtentAt;
    table->get_column_header = ColumnHeader;
    table->get_row_header = RowHeader;
    table->get_column_description = ColumnDescription;
    table->is_selected = IsSelected;
}

void FillCell(gpointer interface, gpointer /*data*/) {
    auto* cell = static_cast<AtkTableCellIface*>(interface);
    cell->get_position = CellPosition;
    cell->get_row_span = CellSpan;
    cell->get_column_span = CellSpan;
    cell->get_row_column_span = CellPositionAndSpan;
    cell->get_table = CellTable;
    cell->get_column_header_cells = CellColumnTitles;
    cell->get_row_header_cells = CellRowTitles;
}

}  // namespace kelvane::desktop
