// SPDX-License-Identifier: MIT
// The scripted port behaves as a real one does, so that tests on it mean something.
#include "comm/modbus_control/testing/byte_port_suite.h"
#include "comm/modbus_control/testing/scripted_port.h"

namespace zorvane {
namespace {

using namespace testing;

class Scripted_Bench {
  public:
    Scripted_Bench() {
        port_.onOpen = [this](const std::string& name) {
            const bool there = present_ && name == this->name();
            return Port_Opening{
                there, there ? "" : "No such port: plug the adapter in, or choose another port.", {}};
        };
    }
    Byte_Port& port() { return port_; }
    [[nodiscard]] static std::string name() { return "scripted"; }
    void farSend(const Byte_Array& bytes) { port_.queue(bytes); }
    [[nodiscard]] Byte_Array farReceived(std::size_t) const { return port_.written.back(); }
    void hangUp() { present_ = false; }
    void comeBack() { present_ = true; }
    void idle() {
        port_.deliverQueued();
        if (!present_) port_.unplug();
    }
    template <class Condition> bool runUntil(Condition condition) {
        idle();
        return condition();
    }

  private:
    Scripted_Port port_;
    bool present_ = true;
};

} // namespace

namespace testing {
INSTANTIATE_TYPED_TEST_SUITE_P(Scripted, Byte_Port_Suite, Scripted_Bench);
}
} // namespace zorvane
