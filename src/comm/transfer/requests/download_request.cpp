// SPDX-License-Identifier: MIT
#include "comm/transfer/requests/download_request.h"

#include "cells/format/cell_encoding.h"
#include "comm/transfer/requests/ascii_block.h"
#include "comm/transfer/requests/download_blocks.h"
#include "values/code_page.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

/// The cell at work, with what every case asks of it.
struct Cell_View {
    const Request_Sources& sources;
    const Cell_Place& place;
    const Field_Rec& field;
    const Cell_Rec& definition;
    const Cell_Rec& cell;

    [[nodiscard]] double val() const { return Val(cell.Value); }
    [[nodiscard]] std::int32_t address() const { return longValue(cell.Address); }
    [[nodiscard]] bool boardFamily() const { return isBoardFamily(sources.document.Controller_Model); }
    [[nodiscard]] std::int32_t unit() const { return sources.image.unit(); }
};

Cell_Request send(Write_Order order) { return Cell_Request{std::move(order), false}; }

/// Nothing goes out, yet the walk looks at the link as after a write.
Cell_Request sendNothing() { return Cell_Request{}; }

Cell_Request sendSingle(std::int32_t slave, std::int32_t address, double value) {
    return send(Single_Write{slave, address, toLong(value)});
}

Cell_Request halfOnBoard(const Cell_View& view, std::int32_t address, std::int32_t word) {
    const auto block = findBlock(view.sources.document.Download_Blocks, Block_Kind::Message_List, address);
    if (!block) return sendNothing();
    Block_Image image(*block, view.sources.image, true);
    image.at(address) = word;
    return send(Multiple_Write{view.sources.slave, block->first, image.values()});
}

Cell_Request halfRequest(const Cell_View& view) {
    if (view.cell.Address.find('/') == std::string::npos) return Cell_Request{{}, true};
    const auto half = halfAddress(view.cell.Address);
    if (!half) return sendNothing();
    const std::int32_t address = longValue(half->number);
    const std::int32_t word = withHalf(half->half, view.val(), view.sources.image.signedAt(address));
    if (view.boardFamily()) return halfOnBoard(view, address, word);
    return sendSingle(view.sources.slave, address, word);
}

/// On the board family texts of 16 characters go out in pairs of neighbouring columns; the last column has no
/// neighbour and sends nothing by itself.
Cell_Request asciiRequest(const Cell_View& view) {
    if (!view.boardFamily()) return send(Ascii_Write{view.cell.Value});
    if (view.place.column >= view.field.Cells.columns()) return sendNothing();
    const Cell_Rec& next = view.field.Cells(view.place.row, view.place.column + 1);
    return send(Ascii_Write{filledTo16(view.cell.Value) + filledTo16(next.Value)});
}

/// The other half of a time, from the register of the grids' present selection: the rule of a live edit.
std::int32_t neighbourSeconds(const Cell_View& view) {
    const Grid_Selection& at = view.sources.selection;
    const Field_Rec& field = view.sources.document.Fields(at.configurationRow);
    const Cell_Rec& neighbour = field.Cells(at.settingsRow, at.settingsCol + 1);
    return view.sources.image.signedAt(strictLong(neighbour.Address));
}

/// The word of a cell whose format has a rule of its own on a plain model.
std::optional<double> formatWord(const Cell_View& view) {
    static_assert(paths::download.otherPart == Other_Part::Grid_Selection);
    return encodedByFormat(paths::download, view.cell, view.cell.Value,
                           [&] { return neighbourSeconds(view); });
}

std::int32_t boardElement(const Cell_View& view, std::int32_t old) {
    static_assert(paths::boardDownload.otherPart == Other_Part::Own_Register);
    const auto word = encodedByFormat(paths::boardDownload, view.cell, view.cell.Value, [&] { return old; });
    return word ? toLong(*word) : plainWord(paths::boardDownload, view.val());
}

Cell_Request numberOnBoard(const Cell_View& view) {
    const std::int32_t address = view.address();
    const auto block = findBlock(view.sources.document.Download_Blocks, Block_Kind::Numeric, address);
    if (!block) return sendNothing();
    Block_Image image(*block, view.sources.image, false);
    std::int32_t& element = image.at(address);
    element = boardElement(view, element);
    return send(Multiple_Write{view.sources.slave, block->first, image.values()});
}

Cell_Request numberRequest(const Cell_View& view) {
    const bool plainSign = trimBlanks(view.definition.Bits_Negative_Format).empty();
    if (view.val() < 0 && !plainSign)
        return send(Single_Write{view.unit(), view.address(), view.sources.Negative_Word});
    if (view.boardFamily()) return numberOnBoard(view);
    return sendSingle(view.sources.slave, view.address(), view.val());
}

} // namespace

bool isNotDownloadable(const Declara_Zorvane& document, const std::string& address) {
    const std::string_view wanted = trimBlanks(address);
    for (std::int32_t i = 1; i <= document.Not_Downloadable_Count; ++i)
        if (trimBlanks(document.Not_Downloadable(i)) == wanted) return true;
    return false;
}

Cell_Request buildRequest(const Request_Sources& sources, const Cell_Place& place) {
    const Field_Rec& field = sources.document.Fields(place.field);
    const Cell_View view{sources, place, field, field.Cells(0, place.column),
                         field.Cells(place.row, place.column)};
    if (!isNumeric(view.cell.Address)) return halfRequest(view);
    if (view.cell.Is_Ascii_Range) return asciiRequest(view);
    if (view.cell.Has_Messages) return sendSingle(view.unit(), view.address(), view.val());
    if (!view.boardFamily())
        if (const auto word = formatWord(view)) return sendSingle(view.unit(), view.address(), *word);
    return numberRequest(view);
}

} // namespace zorvane
