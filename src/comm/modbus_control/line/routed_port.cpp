// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/routed_port.h"

namespace zorvane {

void Routed_Port::setListener(Byte_Port_Listener* listener) {
    listener_ = listener;
    chosen_->setListener(listener);
}

Byte_Port& Routed_Port::portFor(const std::string& name) {
    if (!onNetwork(name)) return serial_;
    const auto address = networkPort(name);
    if (address && address->protocol == Network_Protocol::Rfc2217) return rfc2217_;
    return socket_;
}

Port_Opening Routed_Port::open(const std::string& name, const Port_Settings& settings) {
    chosen_->setListener(nullptr);
    chosen_ = &portFor(name);
    chosen_->setListener(listener_);
    return chosen_->open(name, settings);
}

} // namespace zorvane
