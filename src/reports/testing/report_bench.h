// SPDX-License-Identifier: MIT
#pragma once

#include "reports/documents/main_rep_kvrt.h"
#include "reports/testing/even_metrics.h"
#include "template/model/declara_zorvane.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// A main report's context that note what is asked of them.
class Noting_Host : public Main_Report_Host {
  public:
    std::vector<std::string> notes;

    void showBusy() override { notes.emplace_back("busy"); }
    void endBusy() override { notes.emplace_back("not busy"); }
    void SaveConfig(const Twips_Rect&) override { notes.emplace_back("window stored"); }
    void showPages(MainRepKVRT& report) override {
        notes.push_back("pages: " + std::to_string(report.Pages.Count()));
    }
    void showFontDialog(MainRepKVRT&) override { notes.emplace_back("font dialog"); }
    void dropFontDialog(MainRepKVRT&) override { notes.emplace_back("font dialog dropped"); }
    void exportReport(MainRepKVRT&) override { notes.emplace_back("export"); }
};

struct Column_Design {
    std::string heading;
    std::int16_t width = 1000;
    std::string alignment{};
    bool modifiable = false;
};

using Row_Texts = std::initializer_list<std::string>;

/// Gives a field its columns and the values of its rows.
inline void design(Field_Rec& field, const std::string& description,
                   std::initializer_list<Column_Design> columns, std::initializer_list<Row_Texts> rows) {
    field.Description = description;
    field.Columns = static_cast<std::int16_t>(columns.size());
    field.Rows = static_cast<std::int16_t>(rows.size());
    field.Cells.redim(field.Rows, field.Columns);
    std::int32_t column = 0;
    for (const Column_Design& each : columns) {
        Cell_Rec& head = field.Cells(0, ++column);
        head.Value = each.heading;
        head.Width = each.width;
        head.Alignment = each.alignment;
        head.Modifiable = each.modifiable;
    }
    std::int32_t row = 0;
    for (const Row_Texts& texts : rows) {
        ++row;
        column = 0;
        for (const std::string& text : texts)
            field.Cells(row, ++column).Value = text;
    }
}

/// Gives a cell its messages, entry 0 empty as in every list.
inline void giveMessages(Cell_Rec& cell, std::initializer_list<Message_Rec> messages) {
    cell.Has_Messages = true;
    cell.Messages.redim(static_cast<std::int32_t>(messages.size()));
    std::int32_t entry = 0;
    for (const Message_Rec& message : messages)
        cell.Messages(++entry) = message;
}

/// The document "/site/site7.ABC" with two fields, and what a report of it needs. It is 9:05 on 21 November.
struct Report_Bench {
    Report_Bench() {
        PRO_Limpia_Modelo(document);
        document.Fields.redim(2);
        document.Field_Count = 2;
        document.File_Folder = "/site/";
        document.File_Stem = "SITE7";
        document.File_Extension = "ABC";
        design(document.Fields(1), "Inputs", {{"Name", 1100, "LEFT"}, {"Level", 800, "RIGHT", true}},
               {{"low", "10"}, {"high", "20"}});
        design(document.Fields(2), "Outputs", {{"Name", 900, "CENTER"}}, {{"all"}});
    }
    Report_Bench(const Report_Bench&) = delete;
    Report_Bench& operator=(const Report_Bench&) = delete;

    Declara_Zorvane document;
    Even_Metrics metrics;
    Noting_Host host;
    Report_Clock clock = [] { return Report_Time{"11/21/2026", 9, 5}; };

    [[nodiscard]] Document_Report_Sources sources() const { return {document, metrics, "Grid Font"}; }
};

} // namespace zorvane::doubles
