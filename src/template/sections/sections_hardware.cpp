// SPDX-License-Identifier: MIT
#include "template/model/block_kind.h"
#include "template/sections/section_readers.h"
#include "values/code_page.h"

#include <array>

namespace zorvane {

namespace {

void readController(const Interpreter& interpreter, std::string_view value) {
    interpreter.document.Controller_Model = upperTrimmed(value);
}

/// Appends a download block. It goes into what was the last entry, so the array always ends in an empty one.
template <Block_Kind kind> void readDownloadBlock(const Interpreter& interpreter, std::string_view value) {
    const std::size_t dash = value.find('-');
    if (dash == std::string_view::npos) return;
    auto& blocks = interpreter.document.Download_Blocks;
    const std::int32_t place = blocks.upperBound();
    blocks.redimPreserve(place + 1);
    blocks(place) = {interpreter.document.Controller_Model, std::string(value.substr(0, dash)),
                     std::string(value.substr(dash + 1)), static_cast<std::int16_t>(kind)};
}

using Action = void (*)(const Interpreter&, std::string_view);
constexpr std::array<std::pair<std::string_view, Action>, 4> keys = {{
    {"CONTROLLER", readController},
    {"DOWNLOAD_#_MULTIPLEREGISTERBLOCKNUMERIC", readDownloadBlock<Block_Kind::Numeric>},
    {"DOWNLOAD_#_MULTIPLEREGISTERBLOCKMESSAGELIST", readDownloadBlock<Block_Kind::Message_List>},
    {"DOWNLOAD_#_MULTIPLEREGISTERBLOCKASCII", readDownloadBlock<Block_Kind::Ascii>},
}};

} // namespace

bool readHardware(const Interpreter& interpreter, const Key_Line& line) {
    if (const Action action = findAction(keys, line.key)) action(interpreter, line.value);
    return true;
}

Key_Names hardwareNames() { return namesIn(keys); }

} // namespace zorvane
