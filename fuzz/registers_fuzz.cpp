// SPDX-License-Identifier: MIT
// Any bytes as a file of registers: the terminal program and the simulator take the same files, what is taken
// is written and read again, and the registers become a document's values.

#include "comm/main_form/testing/recording_form.h"
#include "comm/modbus_control/dry_run_link.h"
#include "comm/transfer/registers_to_cells.h"
#include "compare/register_file.h"
#include "fuzz/fuzz_document.h"
#include "fuzz/require.h"
#include "fuzz/rich_template.h"
#include "simulator/registers/register_map.h"
#include "values/run_time_failure.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace {

using namespace zorvane;
using fuzz::require;

std::optional<compare::Register_Values> readByTerminal(const std::string& json) {
    try {
        return compare::parseRegisters(json);
    } catch (const compare::Bad_Register_File& reason) {
        require(*reason.what() != '\0', "a refusal has a reason");
        return std::nullopt;
    }
}

std::optional<compare::Register_Values> readBySimulator(const std::string& json) {
    simulator::Register_Map map;
    map.values = {{7, 77}};
    try {
        simulator::applyRegisterJson(json, map);
    } catch (const std::runtime_error& reason) {
        require(*reason.what() != '\0', "a refusal has a reason");
        require(map.values == compare::Register_Values{{7, 77}}, "a refused file changes nothing");
        return std::nullopt;
    }
    return map.values;
}

bool onWire(const compare::Register_Values& registers) {
    return registers.empty() || (registers.begin()->first >= 0 && registers.rbegin()->first <= 0xFFFF);
}

bool hasSeparators(const Declara_Zorvane& document) {
    for (std::int32_t f = 1; f <= document.Field_Count; ++f) {
        const Field_Rec& field = document.Fields(f);
        for (std::int32_t r = 1; r <= field.Rows; ++r)
            for (std::int32_t c = 1; c <= field.Columns; ++c)
                if (field.Cells(r, c).Value.find_first_of(",\n") != std::string::npos) return true;
    }
    return false;
}

/// What an upload does at its end.
void applyToDocument(const compare::Register_Values& registers) {
    fuzz::Fuzz_Document reader;
    reader.readTemplate(fuzz::richTemplate);
    Main_Form_State form;
    doubles::Journal journal;
    doubles::Recording_Form frame(journal);
    Dry_Run_Link link(registers);
    for (std::int32_t field = 1; field <= reader.document().Field_Count; ++field)
        ignoringFailure([&] { PRO_Aplica_Registros({reader.document(), form, link, frame}, field); });
    // A text with a comma or a line end is written as it stands, which the file's form can't express.
    if (hasSeparators(reader.document()))
        static_cast<void>(reader.written());
    else
        reader.writeAndReadBack();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string json(data, data + size);
    const auto taken = readByTerminal(json);
    const auto simulated = readBySimulator(json);
    require(simulated.has_value() == (taken.has_value() && onWire(*taken)),
            "both programs take the same files");
    if (!taken) return 0;
    require(compare::parseRegisters(compare::registersText(*taken)) == *taken,
            "registers are read as they were written");
    if (simulated)
        for (const auto& [number, value] : *taken)
            require(simulated->at(number) == value, "both programs read the same values");
    applyToDocument(*taken);
    return 0;
}
