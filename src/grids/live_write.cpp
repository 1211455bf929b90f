#include "grids/live_write.h"

#include "values/colours.h"

namespace zorvane {

namespace {

constexpr std::int32_t settlingMs = 500;

/// Colours the current cell of the lower grid.
void colourCell(VSFlexGrid& grid, const std::string& fore, const std::string& back) {
    grid.setCellForeColor(colourOf(fore));
    grid.setCellBackColor(colourOf(back));
}

void waitForWrite(const Comm_Context& comm) {
    comm.frame.wait_until([&comm] {
        comm.form.Write_Busy = comm.link.WriteBusy();
        return !comm.form.Write_Busy;
    });
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

void exchange(const Grid_Context& grids, Live_Write_Variant& variant) {
    const Comm_Context& comm = grids.comm;
    const Tab_Stop_Off tabStop(grids.FLX_Settings);
    comm.form.Write_Busy = comm.link.WriteBusy();
    comm.link.StartScan();
    const Colour_Words& words = comm.document.Colors;
    colourCell(grids.FLX_Settings, words.Color_Txt_Writing, words.Color_Back_Writing);
    if (comm.form.Write_Busy) waitForWrite(comm);
    variant.start();
    waitForWrite(comm);
    comm.frame.wait_ms(settlingMs);
    report(grids, variant);
}

} // namespace

void writeLive(const Grid_Context& grids, Live_Write_Variant& variant) {
    exchange(grids, variant);
    variant.close();
}

std::string statusLine(std::string_view value, std::string_view address, std::string_view progress) {
    std::string line = "Write: ";
    line.append(value).append(" @").append(address).append(progress);
    return line;
}

void showStatusLine(const Grid_Context& grids, std::string_view value, std::string_view address,
                    std::string_view progress) {
    grids.comm.frame.setPanel(Panel::Message, statusLine(value, address, progress));
}

} // namespace zorvane
