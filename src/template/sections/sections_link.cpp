// SPDX-License-Identifier: MIT
// The sections about the controller's registers as a whole: what isn't downloaded, timings and scan blocks.

#include "template/sections/section_readers.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <array>
#include <cmath>

namespace zorvane {

namespace {

constexpr std::uint8_t readHoldingRegisters = 3;

using Port_Action = void (*)(const Interpreter&, const Key_Line&);

/// The link's own port settings win over these keys of the template.
void leaveToLink(const Interpreter&, const Key_Line&) {}

void tellTimings(const Interpreter& interpreter) {
    interpreter.link.SetTimings(interpreter.document.Comm_Request_Ms, interpreter.document.Comm_Out_Ms);
}

void readRequestPause(const Interpreter& interpreter, const Key_Line& line) {
    Declara_Zorvane& document = interpreter.document;
    document.Comm_Request_Ms = longValue(line.value);
    tellTimings(interpreter);
    document.Forza_Analogas_Ms = toLong(document.Comm_Request_Ms * 4.0);
}

void readTimeOut(const Interpreter& interpreter, const Key_Line& line) {
    interpreter.document.Comm_Out_Ms = longValue(line.value);
    tellTimings(interpreter);
}

void readSize(const Interpreter& interpreter, const Key_Line& line) {
    interpreter.document.Comm_Size = longValue(line.value);
}

void readImageSize(const Interpreter& interpreter, const Key_Line& line) {
    const double size = Val(line.value);
    if (std::isinf(size)) throw Run_Time_Failure(Failure::Overflow);
    interpreter.link.SetHoldingRegisters(1, size, true, 1);
}

void readAddressBase(const Interpreter& interpreter, const Key_Line& line) {
    interpreter.link.SetAddressBase(longValue(line.value));
}

/// Counts the block and makes room for it even when its range then proves malformed.
void readScanBlock(const Interpreter& interpreter, const Key_Line& line) {
    Declara_Zorvane& document = interpreter.document;
    document.Holding_Block_Count = toInteger(document.Holding_Block_Count + 1.0);
    document.Holding_Blocks.redimPreserve(document.Holding_Block_Count);
    const std::size_t dash = line.value.find('-');
    if (dash == std::string_view::npos) return;
    Holding_Block_Rec& block = document.Holding_Blocks(document.Holding_Block_Count);
    block.First_Address = longValue(line.value.substr(0, dash));
    block.Last_Address = longValue(line.value.substr(dash + 1));
    block.Function_Code = readHoldingRegisters;
    block.Request = "NONE";
}

void readScanRequest(const Interpreter& interpreter, const Key_Line& line) {
    Declara_Zorvane& document = interpreter.document;
    if (line.number > document.Holding_Block_Count) throw Run_Time_Failure(Failure::Subscript);
    document.Holding_Blocks(line.number).Request = upperTrimmed(line.value);
}

constexpr std::array<std::pair<std::string_view, Port_Action>, 11> portKeys = {{
    {"PORT", leaveToLink},
    {"SETTINGS", leaveToLink},
    {"RTU", leaveToLink},
    {"RETRIES", leaveToLink},
    {"COMMUNICATIONS_#_REQUEST", readRequestPause},
    {"COMMUNICATIONS_#_OUT", readTimeOut},
    {"COMMUNICATIONS_#_SIZE", readSize},
    {"HOLDINGREGISTERS", readImageSize},
    {"ADDRESSBASE", readAddressBase},
    {"HOLDINGREGISTERSBLOCK_#", readScanBlock},
    {"HOLDINGREQUESTBLOCK_#", readScanRequest},
}};

/// [ADDRESS_NOTDOWNLOADABLE] has but this.
constexpr std::string_view keptBackAddressKey = "ADDRESS_#";

} // namespace

bool readPortConfiguration(const Interpreter& interpreter, const Key_Line& line) {
    if (const auto action = findAction(portKeys, line.key)) action(interpreter, line);
    return true;
}

bool readNotDownloadable(const Interpreter& interpreter, const Key_Line& line) {
    if (line.key != keptBackAddressKey) return true;
    Declara_Zorvane& document = interpreter.document;
    document.Not_Downloadable_Count = toInteger(document.Not_Downloadable_Count + 1.0);
    document.Not_Downloadable.redimPreserve(document.Not_Downloadable_Count);
    document.Not_Downloadable(document.Not_Downloadable_Count) = line.value;
    return true;
}

Key_Names portConfigurationNames() { return namesIn(portKeys); }

Key_Names notDownloadableNames() { return {keptBackAddressKey}; }

} // namespace zorvane
