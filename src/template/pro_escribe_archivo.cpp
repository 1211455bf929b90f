#include "template/pro_escribe_archivo.h"

#include "template/messages.h"
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

void writeUpperGrid(const Declara_Zorvane& document, Text_Writer& writer) {
    writer.writeLine("[Configuration_Default]");
    for (std::int32_t f = 1; f <= document.Field_Count; ++f) {
        const Field_Rec& field = document.Fields(f);
        writer.writeLine(listLine("FIELD_", f, document.Config_Column_Count,
                                  [&](std::int32_t c) { return field.Config_Values(c); }));
    }
    writer.writeLine("");
}

void writeRows(const Field_Rec& field, std::int32_t f, Text_Writer& writer) {
    writer.writeLine("[Field_" + numberText(f) + "_Default]");
    for (std::int32_t r = 1; r <= field.Rows; ++r)
        writer.writeLine(listLine("ROW_", r, field.Columns,
                                  [&](std::int32_t c) { return writtenValue(field.Cells(r, c)); }));
    writer.writeLine("");
}

void writeWidths(const Field_Rec& field, std::int32_t f, Text_Writer& writer) {
    writer.writeLine("[Default_" + numberText(f) + "_Columns]");
    for (std::int32_t c = 1; c <= field.Columns; ++c)
        writer.writeLine("COL_" + numberText(c) +
                         "_WIDTH=" + numberText(std::int32_t{field.Cells(0, c).Width}));
    writer.writeLine("");
}

} // namespace

void writeConfiguration(const Declara_Zorvane& document, Text_Writer& writer) {
    writeUpperGrid(document, writer);
    writeFieldValues(document, writer);
}

void writeFieldValues(const Declara_Zorvane& document, Text_Writer& writer) {
    for (std::int32_t f = 1; f <= document.Field_Count; ++f)
        writeRows(document.Fields(f), f, writer);
    for (std::int32_t f = 1; f <= document.Field_Count; ++f)
        writeWidths(document.Fields(f), f, writer);
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
