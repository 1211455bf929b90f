// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zorvane::survey {

// A file of frames for Wireshark and tshark, as the IETF draft "PCAP Now Generic (pcapng) Capture File
// Format" lays it out. Each packet is one frame of Modbus RTU under Wireshark's own link type for protocol
// data units (LINKTYPE_WIRESHARK_UPPER_PDU, 252), which names the dissector, so that nobody has to choose it.
// Bytes, not text.

/// The file's beginning: its section, and the line as its one interface. `name` is UTF-8.
[[nodiscard]] std::string pcapngBeginning(std::string_view name);

/// One frame at a time in microseconds since 1970, UTC. An empty comment is left out.
[[nodiscard]] std::string pcapngPacket(std::int64_t microsSinceEpoch, Byte_View frame,
                                       std::string_view comment = {});

} // namespace zorvane::survey
