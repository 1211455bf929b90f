// SPDX-License-Identifier: MIT
#include "commission/desk/session_parts.h"

#include "cells/cell_reading.h"
#include "comm/modbus_control/dry_run_link.h"
#include "commission/folder/digests.h"
#include "grids/rules/value_findings.h"
#include "recovery/recovery.h"
#include "template/services/native_files.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace zorvane::commission {

namespace {

/// Visits every cell that a document has.
template <class Visit> void forEachPlace(const Declara_Zorvane& document, Visit&& visit) {
    for (std::int32_t field = 1; field <= document.Field_Count; ++field) {
        const Cell_Table& cells = document.Fields(field).Cells;
        for (std::int32_t row = 1; cells.dimensioned() && row <= cells.rows(); ++row)
            for (std::int32_t column = 1; column <= cells.lastWrittenColumn(row); ++column)
                visit(Cell_Place{field, row, column}, cells);
    }
}

/// Other values for some cells, until it goes.
class Held_Values {
  public:
    explicit Held_Values(Declara_Zorvane& document) : document_(document) {}
    ~Held_Values() {
        for (auto& [place, value] : own_)
            document_.Fields(place.field).Cells(place.row, place.column).Value.swap(value);
    }
    Held_Values(const Held_Values&) = delete;
    Held_Values& operator=(const Held_Values&) = delete;

    void put(const Cell_Place& place, std::string value) {
        document_.Fields(place.field).Cells(place.row, place.column).Value.swap(value);
        own_.emplace_back(place, std::move(value));
    }

  private:
    Declara_Zorvane& document_;
    std::vector<std::pair<Cell_Place, std::string>> own_;
};

bool sameName(const std::string& a, const std::string& b) {
    return !a.empty() && upperTrimmed(a) == upperTrimmed(b);
}

} // namespace

Named_File namedFile(Files& files, const std::string& path) {
    const auto bytes = files.bytes(path);
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(pathToNative(path), error);
    return {error ? pathToNative(path) : whole.lexically_normal().string(), bytes ? sha256(*bytes) : ""};
}

std::map<Cell_Place, std::string> strayReasons(const Declara_Zorvane& document) {
    std::map<Cell_Place, std::string> reasons;
    for (const Stray_Value& stray : strayValues(document))
        reasons.emplace(stray.place, stray.outside ? "its value " + stray.text + " is outside its limits"
                                                   : "its list has no \"" + stray.text + "\"");
    return reasons;
}

void keepTextsTogether(const Declara_Zorvane& document, Unit_Exchanges& line) {
    forEachPlace(document, [&line](const Cell_Place& place, const Cell_Table& cells) {
        const Cell_Rec& cell = cells(place.row, place.column);
        if (cell.Is_Ascii_Range && isNumeric(cell.Address) && isNumeric(cell.Address_End))
            line.keepTogether(longValue(cell.Address), longValue(cell.Address_End));
    });
}

std::string controllerFile(Declara_Zorvane& document, const compare::Controller_Registers& registers) {
    constexpr std::int32_t anyUnit = 1;
    const Dry_Run_Link link(registers.values());
    const Register_Image image(link, anyUnit);
    Held_Values held(document);
    forEachPlace(document, [&](const Cell_Place& place, const Cell_Table& cells) {
        const Cell_Rec& definition = cells(0, place.column);
        const Cell_Rec& cell = cells(place.row, place.column);
        (void)ignoringFailure([&] {
            const auto range = cellRegisters(definition, cell);
            if (!range || !registers.holds(*range)) return;
            if (const auto reading = readCell(definition, cell, image)) held.put(place, reading->value);
        });
    });
    return recoveryText(document);
}

bool isFoundModel(const compare::Identity& identity, const std::string& name) {
    for (const compare::Evidence& each : identity.evidence)
        if (sameName(each.found, name)) return true;
    return sameName(identity.model, name);
}

std::string anotherSerial(const std::string& known, const std::string& found) {
    if (known.empty() || known == found) return {};
    return "Another controller answers: its serial number is \"" + found + "\", and the last one's was \"" +
           known + "\".";
}

} // namespace zorvane::commission
