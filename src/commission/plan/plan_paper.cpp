// SPDX-License-Identifier: MIT
#include "commission/plan/plan_paper.h"

#include "commission/folder/json_fields.h"
#include "commission/plan/cell_registers.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <set>

namespace zorvane::commission {

namespace {

constexpr std::int32_t paperVersion = 1;

Json fileJson(const Named_File& file) { return {{"path", file.path}, {"sha256", file.sha256}}; }

Json writeJson(const Plan_Write& write) {
    Json cells = Json::array();
    for (const Cell_Place& place : write.cells)
        cells.push_back(Json::array({place.field, place.row, place.column}));
    return {{"function", static_cast<int>(write.function)},
            {"address", write.address},
            {"values", write.values},
            {"cells", cells}};
}

/// What makes a plan no plan; parsePaper catches it.
struct Unfit_Plan {};

template <typename Number> Number numberIn(const Json& value) {
    if (const auto number = numberOf<Number>(value)) return *number;
    throw Unfit_Plan{};
}

Function_Code functionIn(const Json& value) {
    const auto function = static_cast<Function_Code>(numberIn<std::uint8_t>(value));
    const bool writes =
        function == Function_Code::PresetSingleRegister || function == Function_Code::PresetMultipleRegisters;
    if (!writes) throw Unfit_Plan{};
    return function;
}

Plan_Write parseWrite(const Json& json) {
    Plan_Write write;
    write.function = functionIn(json.at("function"));
    write.address = numberIn<std::int32_t>(json.at("address"));
    for (const Json& value : json.at("values"))
        write.values.push_back(numberIn<std::uint16_t>(value));
    const std::size_t most = write.function == Function_Code::PresetSingleRegister ? 1 : largestWrite;
    if (write.values.empty() || write.values.size() > most) throw Unfit_Plan{};
    const auto length = static_cast<std::int32_t>(write.values.size());
    if (write.address > std::numeric_limits<std::int32_t>::max() - length) throw Unfit_Plan{};
    for (const Json& cell : json.at("cells"))
        write.cells.push_back({numberIn<std::int32_t>(cell.at(0)), numberIn<std::int32_t>(cell.at(1)),
                               numberIn<std::int32_t>(cell.at(2))});
    return write;
}

Named_File parseFile(const Json& json) {
    return {json.at("path").get<std::string>(), json.at("sha256").get<std::string>()};
}

Plan_Paper paperOf(const Json& json) {
    Plan_Paper paper;
    paper.templateFile = parseFile(json.at("template"));
    paper.document = parseFile(json.at("document"));
    paper.identity = json.at("identity");
    json.at("line").at("port").get_to(paper.port);
    paper.unit = numberIn<std::int32_t>(json.at("line").at("unit"));
    json.at("line").at("settings").get_to(paper.settings);
    paper.counts = json.at("counts");
    paper.rows = json.at("rows");
    for (const Json& write : json.at("writes"))
        paper.writes.push_back(parseWrite(write));
    auto before = parseRegistersJson(json.at("before"));
    if (!before) throw Unfit_Plan{};
    paper.before = std::move(*before);
    if (!json.at("run").is_null()) paper.run = json.at("run").get<std::string>();
    return paper;
}

bool hasCell(const Declara_Zorvane& document, const Cell_Place& place) {
    if (place.field < 1 || place.field > document.Field_Count || !document.Fields.dimensioned() ||
        place.field > document.Fields.upperBound())
        return false;
    const Cell_Table& cells = document.Fields(place.field).Cells;
    return cells.dimensioned() && place.row >= 1 && place.row <= cells.rows() && place.column >= 1 &&
           place.column <= cells.columns();
}

bool brings(const Plan_Write& write, const Declara_Zorvane& document, const Cell_Place& place) {
    if (!hasCell(document, place)) return false;
    const Register_Range registers = registersOf(document, place).range;
    return registers.first <= write.last() && write.address <= registers.last;
}

void setParts(Plan_Write& write, const Declara_Zorvane& document, const Identity_Section& section) {
    write.parts.assign(write.values.size(), Part::Kept);
    for (const Cell_Place& place : write.cells) {
        const Cell_Registers cell = registersOf(document, place);
        for (std::int32_t number = std::max(cell.range.first, write.address);
             number <= std::min(cell.range.last, write.last()); ++number) {
            Part& part = write.parts[static_cast<std::size_t>(number - write.address)];
            part = part == Part::Kept ? cell.part : joinedPart(part, cell.part);
        }
        write.stage = std::max(write.stage, stageOf(section, cell.range));
    }
    if (meetsAny(section.last, {write.address, write.last()}))
        write.stage = std::max(write.stage, Stage::Last);
}

} // namespace

Json registersJson(const std::map<std::int32_t, std::uint16_t>& registers) {
    Json json = Json::object();
    for (const auto& [number, value] : registers)
        json[std::to_string(number)] = value;
    return json;
}

std::optional<std::map<std::int32_t, std::uint16_t>> parseRegistersJson(const Json& json) {
    if (!json.is_object()) return std::nullopt;
    std::map<std::int32_t, std::uint16_t> registers;
    for (const auto& [key, value] : json.items()) {
        std::int32_t number = 0;
        const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), number);
        const bool whole = error == std::errc{} && end == key.data() + key.size();
        const auto word = numberOf<std::uint16_t>(value);
        if (!whole || !word) return std::nullopt;
        registers[number] = *word;
    }
    return registers;
}

Json paperJson(const Plan_Paper& paper) {
    Json writes = Json::array();
    for (const Plan_Write& write : paper.writes)
        writes.push_back(writeJson(write));
    return {{"version", paperVersion},
            {"template", fileJson(paper.templateFile)},
            {"document", fileJson(paper.document)},
            {"identity", paper.identity},
            {"line", {{"port", paper.port}, {"unit", paper.unit}, {"settings", paper.settings}}},
            {"counts", paper.counts},
            {"rows", paper.rows},
            {"writes", writes},
            {"before", registersJson(paper.before)},
            {"run", paper.run ? Json(*paper.run) : Json()}};
}

std::optional<Plan_Paper> parsePaper(std::string_view text) {
    try {
        const Json json = Json::parse(text);
        if (!json.is_object() || json.at("version") != paperVersion) return std::nullopt;
        return paperOf(json);
    } catch (const Json::exception&) {
        return std::nullopt;
    } catch (const Unfit_Plan&) {
        return std::nullopt;
    }
}

bool completeWrites(std::vector<Plan_Write>& writes, const Declara_Zorvane& document,
                    const Identity_Section& section) {
    for (Plan_Write& write : writes) {
        if (!std::all_of(write.cells.begin(), write.cells.end(),
                         [&](const Cell_Place& place) { return brings(write, document, place); }))
            return false;
        setParts(write, document, section);
    }
    return true;
}

std::vector<Planned_Cell> plannedCells(const std::vector<Plan_Write>& writes,
                                       const Declara_Zorvane& document) {
    std::vector<Planned_Cell> cells;
    std::set<Cell_Place> seen; // a long text goes out in several writes
    for (std::size_t number = 0; number < writes.size(); ++number)
        for (const Cell_Place& place : writes[number].cells) {
            if (!seen.insert(place).second) continue;
            const Cell_Registers found = registersOf(document, place);
            cells.push_back({place, found.address, found.range, found.part, number, {}});
        }
    return cells;
}

} // namespace zorvane::commission
