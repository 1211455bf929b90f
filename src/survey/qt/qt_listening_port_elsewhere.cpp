// SPDX-License-Identifier: MIT
#include "survey/qt/qt_listening_port.h"

namespace zorvane::survey {

struct Qt_Listening_Port::System_Line {};

Qt_Listening_Port::Qt_Listening_Port() = default;
Qt_Listening_Port::~Qt_Listening_Port() = default;

Port_Opening Qt_Listening_Port::open(const std::string& /*name*/, const Line_Settings& /*line*/) {
    return {false, "Listening without sending isn't possible on this system.", {}};
}

void Qt_Listening_Port::close() {}
Byte_Array Qt_Listening_Port::takeInput() { return {}; }

} // namespace zorvane::survey
