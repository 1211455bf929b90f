// SPDX-License-Identifier: MIT
#include "grids/commit/unholdable_text.h"

#include "comm/main_form/title.h"
#include "grids/fill/show_cell.h"
#include "grids/rules/value_findings.h"
#include "values/numbers.h"

#include <algorithm>
#include <utility>

namespace zorvane {

namespace {

const std::string loss =
    "A file can't hold a comma or \";\": when it is read again, what stands after it in its "
    "row is lost or in the wrong column.";

bool canReplace(const Grid_Context& grids) {
    return !grids.comm.document.Read_Only && !grids.comm.form.Online;
}

/// The buttons keep the places; a document that was replaced meanwhile has taken its line along.
void tell(const Grid_Context& grids, std::string text, const std::vector<Cell_Place>& places,
          std::function<std::string()> textNow = {}) {
    Bar_Line line{unholdableTopic, Bar_Kind::Warning, std::move(text), {}, true, std::move(textNow)};
    if (canReplace(grids))
        line.buttons.push_back({"Replace by a blank", [grids, places] { replaceByBlanks(grids, places); }});
    line.buttons.push_back({"Show", [grids, first = places.front()] { showCell(grids, first); }});
    grids.comm.mainForm.messageBar().tell(std::move(line));
}

std::string quoted(const Grid_Context& grids, const Cell_Place& place) {
    const Declara_Zorvane& document = grids.comm.document;
    return "\"" + document.Fields(place.field).Cells(place.row, place.column).Value + "\" (" +
           placeText(document, place) + ")";
}

std::string withBlanks(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == ',' || c == ';'; }, ' ');
    return text;
}

} // namespace

void tellCommittedText(const Grid_Context& grids, const Cell_Place& place) {
    if (!hasCell(grids.comm.document, place)) return;
    const Cell_Rec& cell = grids.comm.document.Fields(place.field).Cells(place.row, place.column);
    if (cell.Has_Messages || !noFileHolds(cell.Value)) return;
    const std::string text = "The text " + quoted(grids, place) + " has a comma or \";\" in it. " + loss;
    const auto textNow = [grids, place, text] {
        const Declara_Zorvane& document = grids.comm.document;
        const bool stands = hasCell(document, place) &&
                            noFileHolds(document.Fields(place.field).Cells(place.row, place.column).Value);
        return stands ? text : "";
    };
    tell(grids, text, {place}, textNow);
}

void tellSavedTexts(const Grid_Context& grids) {
    const std::vector<Cell_Place> places = cellsThatNoFileHolds(grids.comm.document);
    if (places.empty()) return grids.comm.mainForm.messageBar().withdraw(unholdableTopic);
    const std::string first = quoted(grids, places.front());
    if (places.size() == 1)
        return tell(grids, "The text " + first + " was saved with a comma or \";\" in it. " + loss, places);
    const auto count = static_cast<std::int32_t>(places.size());
    tell(grids,
         numberText(count) + " texts were saved with a comma or \";\" in them, the first is " + first + ". " +
             loss,
         places);
}

void replaceByBlanks(const Grid_Context& grids, const std::vector<Cell_Place>& places) {
    if (!canReplace(grids)) return;
    const Comm_Context& comm = grids.comm;
    std::vector<Value_Change> changes;
    for (const Cell_Place& place : places) {
        if (!hasCell(comm.document, place)) continue;
        Cell_Rec& cell = comm.document.Fields(place.field).Cells(place.row, place.column);
        if (cell.Has_Messages) continue;
        changes.push_back({place, cell.Value, withBlanks(cell.Value)});
        cell.Value = changes.back().after;
        VSFlexGrid& grid = grids.FLX_Settings;
        const bool shown =
            grids.fieldNumber() == place.field && place.row < grid.Rows() && place.column <= grid.Cols();
        if (shown) grid.setTextMatrix(place.row, place.column - 1, cell.Value);
    }
    if (grids.watcher != nullptr) grids.watcher->changed("replacing by blanks", std::move(changes));
    PRO_Titulo_Modificado(comm.document, comm.form, comm.mainForm);
    applySaveRule(comm.document, comm.mainForm);
    comm.mainForm.messageBar().withdraw(unholdableTopic);
}

} // namespace zorvane
