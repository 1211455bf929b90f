// SPDX-License-Identifier: MIT
#include "bench/window/large_field.h"

namespace zorvane::bench {

std::string largeValue(std::int32_t row, std::int32_t column) {
    return std::to_string(100 + (row * 7 + column * 131) % 32000);
}

std::unique_ptr<Declara_Zorvane> largeDocument() {
    auto document = std::make_unique<Declara_Zorvane>();
    PRO_Limpia_Modelo(*document);
    PRO_Prepara_Lectura(*document);
    document->Field_Count = 1;
    Field_Rec& field = document->Fields(1);
    field.Description = "Measurements";
    field.Rows = largeRows;
    field.Columns = largeColumns;
    field.Cells.redim(largeRows, largeColumns);
    for (std::int32_t column = 1; column <= largeColumns; ++column) {
        Cell_Rec& definition = field.Cells(0, column);
        definition.Value = "Column " + std::to_string(column);
        definition.Width = 900;
        definition.Alignment = "RIGHT";
        definition.Column_Type = "NUMERIC";
        definition.Modifiable = column % 2 == 0;
    }
    for (std::int32_t row = 1; row <= largeRows; ++row)
        for (std::int32_t column = 1; column <= largeColumns; ++column) {
            Cell_Rec& cell = field.Cells(row, column);
            cell.Address = std::to_string(1 + (row * largeColumns + column) % 60000);
            cell.Min_Value = "-32768";
            cell.Max_Value = "32767";
            cell.Value = largeValue(row, column);
        }
    return document;
}

} // namespace zorvane::bench
