// SPDX-License-Identifier: MIT
#include "grids/commit/live_write.h"

#include "grids/commit/live_write_bar.h"
#include "values/colours.h"

namespace zorvane {

namespace {

constexpr std::int32_t settlingMs = 500;

/// Colours the current cell of the lower grid.
void colourCell(VSFlexGrid& grid, const std::string& fore, const std::string& back) {
    grid.setCellForeColor(colourOf(fore));
    grid.setCellBackColor(colourOf(back));
}

/// False when the document is gone.
bool waitForWrite(const Comm_Context& comm, const Document_Mark& document) {
    comm.mainForm.wait_until([&] {
        if (!document.holds()) return true;
        comm.form.Write_Busy = comm.link.WriteBusy();
        return !comm.form.Write_Busy;
    });
    return document.holds();
}

void report(const Grid_Context& grids, Live_Write_Variant& variant) {
    const Colour_Words& words = grids.comm.document.Colors;
    if (grids.comm.link.WriteFailed()) {
        colourCell(grids.FLX_Settings, words.Color_Txt_Error, words.Color_Back_Error);
        variant.failed();
    } else {
        colourCell(grids.FLX_Settings, words.Color_Txt_Modifiable, words.Color_Back_Modifiable);
        variant.succeeded();
    }
}

/// False when the document is gone.
bool exchange(const Grid_Context& grids, Live_Write_Variant& variant, Live_Write_Watch& watch) {
    const Comm_Context& comm = grids.comm;
    const Document_Mark document(comm.document);
    const Tab_Stop_Off tabStop(grids.FLX_Settings);
    comm.form.Write_Busy = comm.link.WriteBusy();
    comm.link.StartScan();
    const Colour_Words& words = comm.document.Colors;
    colourCell(grids.FLX_Settings, words.Color_Txt_Writing, words.Color_Back_Writing);
    if (comm.form.Write_Busy && !waitForWrite(comm, document)) return false;
    watch.begin();
    variant.start();
    if (!waitForWrite(comm, document)) return false;
    watch.noteEnd();
    comm.mainForm.wait_ms(settlingMs);
    if (!document.holds()) return false;
    report(grids, variant);
    return true;
}

} // namespace

Live_Write_Result writeLive(const Grid_Context& grids, Live_Write_Variant& variant) {
    Live_Write_Watch watch(grids);
    if (!exchange(grids, variant, watch)) {
        grids.comm.tell(event::Live_Write_Dropped{});
        return watch.dropped();
    }
    variant.close();
    watch.tell();
    return watch.result();
}

} // namespace zorvane
