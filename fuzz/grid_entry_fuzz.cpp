// SPDX-License-Identifier: MIT
// Any text as what the user leaves in any kind of cell, offline and online: the commit takes one of its ways
// out, what it refuses stays, nothing but the cell's texts changes, and a number that went to the controller
// is read back as the cell's value.

#include "cells/cell_reading.h"
#include "comm/modbus_control/dry_run_link.h"
#include "fuzz/require.h"
#include "fuzz/split.h"
#include "grids/commit/commit_value.h"
#include "grids/flx_settings.h"
#include "grids/testing/grid_bench.h"
#include "values/code_page.h"
#include "values/registers.h"
#include "values/times.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;
using fuzz::require;

/// Lines of the input, a member each; the text of the user is the rest.
struct Scene {
    Cell_Rec definition;
    Cell_Rec cell;
    std::string request;
    bool online = false;
    std::string text;
};

constexpr std::size_t memberLines = 9;

Scene sceneFrom(std::string_view input) {
    std::vector<std::string> lines = fuzz::split(input, '\n');
    lines.resize(std::max(lines.size(), memberLines + 1));
    Scene scene;
    scene.definition.Modifiable = true;
    scene.definition.Column_Type = lines[0];
    scene.definition.Bits_Negative_Format = lines[1];
    scene.cell.Format = lines[2];
    scene.cell.Address = lines[3];
    scene.cell.Address_End = lines[4];
    scene.cell.Is_Ascii_Range = !lines[4].empty();
    scene.cell.Value = lines[5];
    scene.cell.Min_Value = lines[6];
    scene.cell.Max_Value = lines[7];
    scene.online = lines[8].starts_with("online");
    scene.cell.Has_Messages = lines[8].ends_with("list");
    if (scene.cell.Has_Messages) scene.cell.Messages.redim(2);
    if (scene.cell.Has_Messages) scene.cell.Messages(1) = {1, "On"};
    for (std::size_t line = memberLines; line < lines.size(); ++line)
        scene.text += (line == memberLines ? "" : "\n") + lines[line];
    return scene;
}

/// The cell alone in its field, on a link on which every write succeeds.
struct Table {
    explicit Table(const Scene& scene) {
        document.Fields.redim(highestField);
        document.Field_Count = 1;
        Field_Rec& field = document.Fields(1);
        field.Rows = 1;
        field.Columns = 1;
        field.Cells.redim(1, 1);
        field.Cells(0, 1) = scene.definition;
        field.Cells(1, 1) = scene.cell;
        upper.setCols(2);
        upper.setRows(2);
        upper.setRow(1);
        lower.setCols(1);
        lower.setRows(2);
        lower.setRow(1);
        lower.setCol(0);
        lower.setText(scene.text);
        form.Online = scene.online;
        form.Unit_Id = 3;
    }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    [[nodiscard]] const Cell_Rec& cell() const { return document.Fields(1).Cells(1, 1); }

    doubles::Journal journal;
    Declara_Zorvane document;
    Main_Form_State form;
    Dry_Run_Link link;
    doubles::Recording_Form frame{journal};
    Memory_Grid upper;
    Memory_Grid lower;
    Navigation_State navigation;
    Hidden_Editors editors;
    doubles::Recording_Windows windows;
    Grid_Context grids{{document, form, link, frame}, upper, lower, navigation, editors, windows};
};

/// The decision alone, on a copy of the cell with its limits filled in. Nothing when it fails.
std::optional<Way_Out> decide(const Scene& scene) {
    Cell_Rec cell = scene.cell;
    std::optional<Way_Out> way;
    ignoringFailure([&] {
        const Typed_Entry entry = typedEntry(scene.definition, cell, scene.text);
        if (entry.kind == Entry_Kind::Number) {
            const Limits limits = filledLimits(scene.definition, cell);
            cell.Min_Value = limits.low;
            cell.Max_Value = limits.high;
        }
        way = wayOutOf(scene.definition, cell, entry);
    });
    return way;
}

void checkUntouched(const Scene& scene, const Cell_Rec& after) {
    require(after.Address == scene.cell.Address && after.Format == scene.cell.Format &&
                after.Address_End == scene.cell.Address_End &&
                after.Is_Ascii_Range == scene.cell.Is_Ascii_Range,
            "nothing but the cell's texts changes");
}

void checkWayOut(const Scene& scene, const Table& table, bool rejected, bool failed) {
    const std::optional<Way_Out> way = decide(scene);
    const std::string& value = table.cell().Value;
    if (!way || failed) {
        require(value == scene.cell.Value || scene.online, "a failure changes nothing");
        require(!way || std::holds_alternative<Number_Accepted>(*way) || scene.online,
                "no other way out fails");
        return;
    }
    if (std::holds_alternative<Time_Refused>(*way) || std::holds_alternative<Number_Too_Wide>(*way))
        require(value == scene.cell.Value, "a refused entry changes nothing");
    if (const auto* refused = std::get_if<Number_Refused>(&*way)) {
        require(rejected && value == refused->limits.high,
                "a number beyond its limits becomes the upper one");
    }
    if (const auto* time = std::get_if<Time_Accepted>(&*way))
        require(timeText(timeSeconds(time->time)) == time->time, "a time has the system's own form");
    const bool mayWrite = scene.online && (std::holds_alternative<Time_Accepted>(*way) ||
                                           std::holds_alternative<Number_Accepted>(*way) ||
                                           std::holds_alternative<Ascii_Text>(*way));
    require(mayWrite || table.link.writes().empty(), "what isn't accepted isn't sent");
}

/// A whole number in a cell of a whole register, as the controller gives it back.
void checkReadBack(const Scene& scene, const Table& table) {
    const std::optional<Way_Out> way = decide(scene);
    if (!way || !std::holds_alternative<Number_Accepted>(*way) || table.link.writes().empty()) return;
    const double number = Val(table.cell().Value);
    const bool plain =
        upperTrimmed(scene.cell.Format).empty() || upperTrimmed(scene.cell.Format) == "NUMERIC_UNSIGNED";
    if (!plain || scene.cell.Is_Ascii_Range || scene.cell.Has_Messages || number != std::nearbyint(number))
        return;
    // A column with a format of its own for negative numbers holds fewer of them.
    const std::string bits = scene.definition.Bits_Negative_Format;
    if (!bits.empty() && (!isNumeric(bits) || Val(bits) < 1 || Val(bits) > 16 ||
                          std::abs(number) >= signBit(toLong(Val(bits)))))
        return;
    const Register_Image image(table.link, 3);
    const auto reading = readCell(scene.definition, scene.cell, image);
    require(reading.has_value(), "the cell has a register");
    fuzz::requireSame(reading->value, numberText(number), "a number is read back as it was sent");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Scene scene = sceneFrom({reinterpret_cast<const char*>(data), size});
    Table typed(scene);
    bool rejected = false;
    const bool ended = ignoringFailure([&] { PRO_Escribe_Valor(typed.grids, 1, 0, scene.text, rejected); });
    checkUntouched(scene, typed.cell());
    checkWayOut(scene, typed, rejected, !ended);
    if (ended) checkReadBack(scene, typed);

    Table edited(scene); // through the grid's handler, a list's choice included
    if (scene.cell.Has_Messages) edited.lower.chooseEntry(scene.text);
    ignoringFailure([&] { FLX_Settings_AfterEdit(edited.grids, 1, 0); });
    checkUntouched(scene, edited.cell());
    return 0;
}
