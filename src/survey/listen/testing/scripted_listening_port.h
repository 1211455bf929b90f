// SPDX-License-Identifier: MIT
#pragma once

#include "survey/listen/listening_port.h"

#include <string>
#include <utility>

namespace zorvane::survey::testing {

/// A line to listen to, in memory: the test says what comes in.
class Scripted_Listening_Port final : public Listening_Port {
  public:
    void setListener(Byte_Port_Listener* listener) override { listener_ = listener; }
    Port_Opening open(const std::string& name, const Line_Settings& line) override {
        openedAs = name + " " + formatLineSettings(line);
        isOpen = opens;
        return opens ? Port_Opening{true, {}, {}} : Port_Opening{false, "No such port: " + name, {}};
    }
    void close() override { isOpen = false; }
    Byte_Array takeInput() override { return std::exchange(waiting, {}); }

    void deliver(const Byte_Array& bytes) {
        if (isOpen && listener_ != nullptr) listener_->bytesArrived(bytes);
    }
    void unplug() {
        isOpen = false;
        if (listener_ != nullptr) listener_->portLost("Input/output error");
    }

    bool opens = true;
    bool isOpen = false;
    std::string openedAs;
    Byte_Array waiting; ///< has come in, and the listener wasn't told yet

  private:
    Byte_Port_Listener* listener_ = nullptr;
};

} // namespace zorvane::survey::testing
