// SPDX-License-Identifier: MIT
#include "template/pro_actualiza_archivo.h"

#include "template/line_scanner.h"
#include "values/code_page.h"

#include <array>
#include <optional>

namespace zorvane {

namespace {

struct Swap {
    std::string_view found; ///< anywhere in the upper case of a line
    std::string_view written;
};

constexpr std::array<Swap, 6> swaps = {{
    {"[FIELD_1_DEFAULT]", "[FIELD_2_DEFAULT]"},
    {"[FIELD_2_DEFAULT]", "[FIELD_1_DEFAULT]"},
    {"[FIELD_1_COLUMNS]", "[FIELD_2_COLUMNS]"},
    {"[FIELD_2_COLUMNS]", "[FIELD_1_COLUMNS]"},
    {"FIELD_1=,CHANNEL SETUP,YES,DESCRIPTIONS ARE STORED OFFLINE ONLY",
     "FIELD_2=,Channel Setup,Yes,Descriptions are stored offline only"},
    {"FIELD_2=,OUTPUT SETUP,YES,DESCRIPTIONS ARE STORED OFFLINE ONLY",
     "FIELD_1=,Output Setup,Yes,Descriptions are stored offline only"},
}};

constexpr std::string_view separator = "\r";

constexpr std::array<std::string_view, 23> widths = {
    "[Default_1_Columns]", "COL_1_WIDTH=1100", "COL_2_WIDTH=800",  "COL_3_WIDTH=4415", separator,
    "[Default_2_Columns]", "COL_1_WIDTH=345",  "COL_2_WIDTH=555",  "COL_3_WIDTH=495",  "COL_4_WIDTH=495",
    "COL_5_WIDTH=495",     "COL_6_WIDTH=555",  "COL_7_WIDTH=1115", "COL_8_WIDTH=2625", separator,
    "[Default_3_Columns]", "COL_1_WIDTH=1100", "COL_2_WIDTH=800",  "COL_3_WIDTH=4415", separator,
    "[Default_4_Columns]", "COL_1_WIDTH=1100", "COL_2_WIDTH=800"};

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// What a line of the old file becomes; nothing for a line that is dropped.
std::optional<std::string_view> translated(std::string_view line) {
    if (trimBlanks(line).empty()) return line;
    const std::string upper = upperCase(line);
    for (const Swap& swap : swaps)
        if (contains(upper, swap.found)) return swap.written;
    if (contains(upper, "_WIDTH") || contains(upper, "DEFAULT_")) return std::nullopt;
    return line;
}

/// Model KVRT207D has one column fewer in its field 4.
void writeLastWidths(Text_Writer& writer, std::string_view extension) {
    if (upperTrimmed(extension) == "KVRT207D") {
        writer.writeLine("COL_3_WIDTH=4415");
        return;
    }
    writer.writeLine("COL_3_WIDTH=675");
    writer.writeLine("COL_4_WIDTH=1695");
}

} // namespace

std::string updatedPath(const std::string& stem_path, const std::string& extension) {
    return stem_path + "_Updated." + extension;
}

void PRO_Actualiza_Archivo(Files& files, const std::string& stem_path, const std::string& extension) {
    const auto writer = files.create(updatedPath(stem_path, extension));
    const std::string old = files.read(stem_path + "." + extension);
    std::string_view rest = old;
    while (const auto line = takeLine(rest))
        if (const auto text = translated(*line)) writer->writeLine(*text);
    for (const std::string_view line : widths)
        writer->writeLine(line);
    writeLastWidths(*writer, extension);
    writer->close();
}

} // namespace zorvane
