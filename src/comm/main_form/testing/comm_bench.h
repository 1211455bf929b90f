// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "comm/main_form/testing/recording_form.h"
#include "comm/modbus_control/testing/journal.h"
#include "comm/modbus_control/testing/scripted_link.h"
#include "template/sections/messages.h"

#include <cstdint>
#include <string>

namespace zorvane::doubles {

/// A document, a form, a scripted link and a recording form on one journal. Waits let the link go on.
struct Comm_Bench {
    Comm_Bench() {
        document.Fields.redim(highestField);
        document.Download_Blocks.redim(0);
        document.Holding_Blocks.redim(0);
        mainForm.advance = [this] { return link.advance(); };
    }
    Comm_Bench(const Comm_Bench&) = delete;
    Comm_Bench& operator=(const Comm_Bench&) = delete;

    /// A field with a table, and its row in the upper grid. The first column isn't modifiable, the others
    /// are.
    Field_Rec& addField(std::int16_t rows, std::int16_t columns) {
        Field_Rec& field = document.Fields(++document.Field_Count);
        field.Rows = rows;
        field.Columns = columns;
        field.Cells.redim(rows, columns);
        for (std::int32_t column = 2; column <= columns; ++column)
            field.Cells(0, column).Modifiable = true;
        mainForm.grid.rows = document.Field_Count + 1;
        return field;
    }

    /// A scan block, as the template reader stores it.
    void addScanBlock(std::int32_t first, std::int32_t last, const std::string& request = "NONE") {
        document.Holding_Blocks.redimPreserve(++document.Holding_Block_Count);
        document.Holding_Blocks(document.Holding_Block_Count) = Holding_Block_Rec{first, last, 3, request};
        if (request == "ALWAYS") ++document.Always_Block_Count;
        link.blockCount = document.Holding_Block_Count;
    }

    /// A download block; the last entry stays empty.
    void addDownloadBlock(const std::string& first, const std::string& last, std::int16_t kind) {
        const std::int32_t bottom = document.Download_Blocks.upperBound();
        document.Download_Blocks.redimPreserve(bottom + 1);
        document.Download_Blocks(bottom) = Download_Block_Rec{document.Controller_Model, first, last, kind};
    }

    void addNotDownloadable(const std::string& address) {
        document.Not_Downloadable.redimPreserve(++document.Not_Downloadable_Count);
        document.Not_Downloadable(document.Not_Downloadable_Count) = address;
    }

    Journal journal;
    Declara_Zorvane document;
    Main_Form_State form;
    Scripted_Link link{journal};
    Recording_Form mainForm{journal};
    Comm_Context comm{document, form, link, mainForm};
};

} // namespace zorvane::doubles
