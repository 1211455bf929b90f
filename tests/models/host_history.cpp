// SPDX-License-Identifier: MIT
// Steps that are done, undone and done again, with values from polling between them.

#include "edit/block_paste.h"
#include "edit/history/history.h"
#include "tests/models/host.h"

#include <algorithm>

namespace zorvane::models {

namespace {

Cell_Place placeOf(const Json& asked) {
    return {asked[0].get<std::int32_t>(), asked[1].get<std::int32_t>(), asked[2].get<std::int32_t>()};
}

Json placesOf(std::vector<Cell_Place> places) {
    std::sort(places.begin(), places.end());
    Json list = Json::array();
    for (const Cell_Place& place : places)
        list.push_back({place.field, place.row, place.column});
    return list;
}

Json nameOr(const std::optional<std::string>& name) { return name ? charactersOf(*name) : Json(); }

struct Edited_Document {
    explicit Edited_Document(const Json& asked)
        : history({asked["limit"].get<std::size_t>(), std::size_t{1} << 20}) {
        document.Fields.redim(highestField);
        for (const Json& table : asked["fields"]) {
            Field_Rec& field = document.Fields(++document.Field_Count);
            field.Rows = table["rows"].get<std::int16_t>();
            field.Columns = static_cast<std::int16_t>(table["columns"].size());
            field.Cells.redim(field.Rows, field.Columns);
            fillField(field, table);
        }
        history.noteWritten();
    }

    std::string& value(const Cell_Place& place) {
        return document.Fields(place.field).Cells(place.row, place.column).Value;
    }

    void put(const Json& deed) {
        std::vector<Value_Change> changes;
        for (const Json& each : deed["values"]) {
            const Cell_Place place = placeOf(each[0]);
            changes.push_back({place, value(place), bytesOf(each[1])});
            value(place) = changes.back().after;
        }
        history.changed(bytesOf(deed["name"]), std::move(changes));
    }

    Json paste(const Json& deed) {
        const Json& at = deed["selection"];
        edit::Text_Rows block;
        for (const Json& row : deed["block"]) {
            block.emplace_back();
            for (const Json& text : row)
                block.back().push_back(bytesOf(text));
        }
        const edit::Cell_Range selection{at[0].get<std::int32_t>(), at[1].get<std::int32_t>(),
                                         at[2].get<std::int32_t>(), at[3].get<std::int32_t>(),
                                         at[4].get<std::int32_t>()};
        const edit::Block_Check check = checkBlock(document, selection, block);
        history.changed(nameOf(check), applyNoting(document, check.taken));
        std::vector<Cell_Place> refused;
        for (const edit::Block_Refusal& each : check.refused)
            refused.push_back(each.place);
        return placesOf(std::move(refused));
    }

    static Json told(const std::optional<edit::Step_Result>& result) {
        if (!result) return {};
        return {{"name", charactersOf(result->name)},
                {"changed", placesOf(result->changed)},
                {"left out", placesOf(result->leftOut)},
                {"as written", result->asWritten}};
    }

    Json doDeed(const Json& deed) {
        const std::string kind = deed["deed"];
        if (kind == "undo") return told(history.undo(document));
        if (kind == "redo") return told(history.redo(document));
        if (kind == "paste") return paste(deed);
        if (kind == "put") put(deed);
        if (kind == "poll") value(placeOf(deed["place"])) = bytesOf(deed["text"]);
        if (kind == "look") history.dropStale(document);
        if (kind == "save") history.noteWritten();
        if (kind == "for good") history.changedForGood();
        if (kind == "cut save") history.noteUnwritten();
        return {};
    }

    Declara_Zorvane document;
    edit::History history;
};

} // namespace

Json stepsDone(const Json& asked) {
    Edited_Document edited(asked);
    Json outcome = Json::array();
    for (const Json& deed : asked["deeds"]) {
        Json came = edited.doDeed(deed);
        Json values = Json::array();
        for (std::int32_t f = 1; f <= edited.document.Field_Count; ++f)
            values.push_back(valuesOf(edited.document.Fields(f)));
        outcome.push_back({{"came", std::move(came)},
                           {"undo", nameOr(edited.history.undoName())},
                           {"redo", nameOr(edited.history.redoName())},
                           {"steps", edited.history.steps()},
                           {"values", std::move(values)}});
    }
    return outcome;
}

} // namespace zorvane::models
