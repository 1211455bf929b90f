// SPDX-License-Identifier: MIT
#include "template/pro_escribe_archivo.h"

#include "template/sections/messages.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

std::string writtenValue(const Cell_Rec& cell) {
    return cell.Has_Messages ? messageText(cell, longValue(cell.Value)) : cell.Value;
}

/// "name_k=" and the items 1 to `count`, commas between them.
template <class Item>
std::string listLine(const char* name, std::int32_t k, std::int32_t count, Item&& item) {
    std::string line = name + numberText(k) + "=";
    for (std::int32_t c = 1; c <= count; ++c) {
        if (c > 1) line += ',';
        line += item(c);
    }
    return line;
}

/// Writes the lines of a configuration file. `Guard` runs each step of it, and decides what a failure of the
/// step means for the rest.
template <class Guard> class Line_Writer {
  public:
    Line_Writer(const Declara_Zorvane& document, Text_Writer& writer, Guard guard)
        : document_(document), writer_(writer), guard_(guard) {}

    void writeAll() const {
        writeUpperGrid();
        for (std::int32_t f = 1; f <= document_.Field_Count; ++f)
            guard_([&] { writeRows(document_.Fields(f), f); });
        for (std::int32_t f = 1; f <= document_.Field_Count; ++f)
            guard_([&] { writeWidths(document_.Fields(f), f); });
    }

  private:
    void writeUpperGrid() const {
        writer_.writeLine("[Configuration_Default]");
        for (std::int32_t f = 1; f <= document_.Field_Count; ++f)
            guard_([&] {
                const Field_Rec& field = document_.Fields(f);
                writer_.writeLine(listLine("FIELD_", f, document_.Config_Column_Count,
                                           [&](std::int32_t c) { return field.Config_Values(c); }));
            });
        writer_.writeLine("");
    }

    void writeRows(const Field_Rec& field, std::int32_t f) const {
        writer_.writeLine("[Field_" + numberText(f) + "_Default]");
        for (std::int32_t r = 1; r <= field.Rows; ++r)
            guard_([&] {
                writer_.writeLine(listLine("ROW_", r, field.Columns,
                                           [&](std::int32_t c) { return writtenValue(field.Cells(r, c)); }));
            });
        writer_.writeLine("");
    }

    void writeWidths(const Field_Rec& field, std::int32_t f) const {
        writer_.writeLine("[Default_" + numberText(f) + "_Columns]");
        for (std::int32_t c = 1; c <= field.Columns; ++c)
            writer_.writeLine("COL_" + numberText(c) +
                              "_WIDTH=" + numberText(std::int32_t{field.Cells(0, c).Width}));
        writer_.writeLine("");
    }

    const Declara_Zorvane& document_;
    Text_Writer& writer_;
    Guard guard_;
};

} // namespace

void writeConfiguration(const Declara_Zorvane& document, Text_Writer& writer) {
    Line_Writer(document, writer, [](const auto& step) { step(); }).writeAll();
}

void writeWhatHolds(const Declara_Zorvane& document, Text_Writer& writer) {
    Line_Writer(document, writer, [](const auto& step) { ignoringFailure(step); }).writeAll();
}

void PRO_Escribe_Archivo(Declara_Zorvane& document, Files& files, const std::string& path,
                         std::string& result) {
    result.clear();
    try {
        const auto writer = files.create(path);
        writeConfiguration(document, *writer);
        writer->close();
    } catch (const Run_Time_Failure& failure) {
        document.Save_Failed = true;
        result = failure.description();
    }
}

} // namespace zorvane
