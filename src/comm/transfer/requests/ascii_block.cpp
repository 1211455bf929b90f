// SPDX-License-Identifier: MIT
#include "comm/transfer/requests/ascii_block.h"

#include "values/numbers.h"
#include "values/registers.h"

namespace zorvane {

namespace {

constexpr std::int32_t settlingMs = 500;

/// Keeps the lower grid out of the tab order, also when a failure ends the write.
class Tab_Stop_Pause {
  public:
    explicit Tab_Stop_Pause(Grid_View& grids) : grids_(grids) { grids_.setSettingsTabStop(false); }
    ~Tab_Stop_Pause() { grids_.setSettingsTabStop(true); }
    Tab_Stop_Pause(const Tab_Stop_Pause&) = delete;
    Tab_Stop_Pause& operator=(const Tab_Stop_Pause&) = delete;

  private:
    Grid_View& grids_;
};

char characterAt(std::string_view text, std::size_t position) {
    return position < text.size() ? text[position] : ' ';
}

/// False when the document is gone.
bool waitWhileWriting(const Comm_Context& comm, const Document_Mark& document) {
    comm.mainForm.wait_until([&] { return !document.holds() || !comm.link.WriteBusy(); });
    return document.holds();
}

} // namespace

Register_Range asciiRegisters(const Declara_Zorvane& document, const Cell_Rec& cell) {
    const std::int32_t address = longValue(cell.Address);
    if (isBoardFamily(document.Controller_Model))
        if (const auto block = findBlock(document.Download_Blocks, Block_Kind::Ascii, address)) return *block;
    return Register_Range{address, longValue(cell.Address_End)};
}

std::string filledTo16(std::string text) {
    if (text.size() < 16) text.resize(16, ' ');
    return text;
}

void PRO_Rellena_16(std::string& text, std::string& result) {
    text = filledTo16(std::move(text));
    result = text;
}

std::vector<std::int32_t> packAscii(std::string_view text, std::int32_t count) {
    std::vector<std::int32_t> words;
    for (std::int32_t i = 0; i < count; ++i) {
        const std::size_t position = static_cast<std::size_t>(i) * 2;
        words.push_back(asciiWord(characterAt(text, position), characterAt(text, position + 1)));
    }
    return words;
}

void PRO_Escribe_Bloque_Ascii(const Comm_Context& comm, const std::string& text, std::int32_t field,
                              std::int32_t column, std::int32_t row, const std::string& /*extra*/,
                              bool& failed) {
    const Tab_Stop_Pause pause(comm.mainForm.grids());
    const Cell_Table& cells = comm.document.Fields(field).Cells;
    const Register_Range registers = asciiRegisters(comm.document, cells(row, column));
    const std::int32_t count = registerCount(registers.first, registers.last);
    if (count == 0) throw Run_Time_Failure(Failure::Subscript);
    const std::vector<std::int32_t> words = packAscii(text, count);
    const Document_Mark document(comm.document);
    failed = true;
    if (!waitWhileWriting(comm, document)) return;
    comm.link.PresetMultipleRegisters(longValue(comm.link.SlaveNumber()), registers.first, words);
    if (!waitWhileWriting(comm, document)) return;
    comm.mainForm.wait_ms(settlingMs);
    if (!document.holds()) return;
    failed = comm.link.WriteFailed();
    comm.tell(event::Text_Written{registers.first, registers.last, text, failed});
}

} // namespace zorvane
