// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/active_report.h"
#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane {

/// What the reports of the document need besides it.
struct Document_Report_Sources {
    const Declara_Zorvane& document;
    const Text_Metrics& metrics;
    std::string gridFont = reportFont; ///< name of the upper grid's font
};

/// The texts of a row of a field's table in a report, from column 1: values, or for a cell with messages the
/// text of the last message with the value's code. A cell with messages of which none answers shows the text
/// of the cell before it. A row that isn't there is failure 9.
[[nodiscard]] std::vector<std::string> reportRowTexts(const Field_Rec& field, std::int32_t row);

/// One field of the document: a head with its description and room for notes by hand, and its table.
class rptPrintKVRT : public ActiveReport {
  public:
    explicit rptPrintKVRT(Document_Report_Sources sources);

    std::int16_t Opcion = 0;  ///< the field's number; nothing is printed for 0 and below
    bool Grid = false;        ///< rules around the table's cells
    double FontSize = 8.25;   ///< points
    bool ChangeLocal = false; ///< columns fit their texts instead of having the template's widths

    /// Builds head and table from the field. A field that isn't there is failure 9.
    void PRO_Arma_Reporte();
    /// A column's width in twips. One beyond 16 bits is failure 6.
    void PRO_Ancho_Columna(std::int32_t column, std::int16_t& width);

  protected:
    void ActiveReport_DataInitialize() override;
    void ActiveReport_FetchData(bool& EOF_) override;

  private:
    [[nodiscard]] const Field_Rec& field() const { return sources_.document.Fields(Opcion); }
    void designHead();
    void fillHead();
    void fitLabel(Report_Control& label);
    void bindField(Report_Control& shown, const std::string& value);
    void addHeadings();
    void addRowControls();
    void setFont(Report_Control& control) const;

    Document_Report_Sources sources_;
    std::int16_t Row_Counter_ = 1; ///< the row that the next fetch gives
};

} // namespace zorvane
