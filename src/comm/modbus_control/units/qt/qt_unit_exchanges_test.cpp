// SPDX-License-Identifier: MIT
// Single requests on a real pseudo-terminal, with the toy slave at its far end.
#include "comm/modbus_control/testing/pty_line_linux.h"
#include "comm/modbus_control/testing/toy_slave.h"
#include "comm/modbus_control/units/qt/qt_unit_exchanges.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::Pty_Line;
using testing::Toy_Slave;

/// Answers whole requests of functions 3 and 6, which have eight bytes, from the event loop.
class Pty_Slave {
  public:
    explicit Pty_Slave(const Pty_Line& line) : line_(line), notifier_(line.farEnd(), QSocketNotifier::Read) {
        QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_,
                         [this] { line_.send(slave.answer(line_.receive(8))); });
    }

    Toy_Slave slave;

  private:
    const Pty_Line& line_;
    QSocketNotifier notifier_;
};

class QtUnitExchanges : public ::testing::Test {
  protected:
    static Port_Settings settingsFor(const Pty_Line& line) {
        Port_Settings settings;
        settings.port = line.path();
        settings.line.baud = 115200;
        settings.timeOutMs = 2000;
        return settings;
    }

    int count_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    QCoreApplication application_{count_, arguments_};
    Pty_Line pty;
};

TEST_F(QtUnitExchanges, ReadsAndWritesOnAPseudoTerminal) {
    Pty_Slave far(pty);
    far.slave.registers = {{10, 7}, {11, 8}};
    Qt_Unit_Exchanges exchanges(settingsFor(pty));
    ASSERT_TRUE(exchanges.line().open().opened);
    EXPECT_EQ(exchanges.line().read(1, 10, 2).values, (std::vector<std::uint16_t>{7, 8}));
    EXPECT_TRUE(exchanges.line().write(1, Function_Code::PresetSingleRegister, 10, {9}).good());
    EXPECT_EQ(far.slave.registers.at(10), 9);
}

TEST_F(QtUnitExchanges, AnUnpluggedLineEndsTheRequest) {
    Qt_Unit_Exchanges exchanges(settingsFor(pty));
    ASSERT_TRUE(exchanges.line().open().opened);
    pty.unplug();
    EXPECT_EQ(exchanges.line().read(1, 10, 2).end, Unit_End::PortLost);
    EXPECT_FALSE(exchanges.line().openAgain());
    pty.plug();
    EXPECT_TRUE(exchanges.line().openAgain());
}

TEST_F(QtUnitExchanges, AMissingPortSaysWhy) {
    Qt_Unit_Exchanges exchanges(settingsFor(pty));
    pty.unplug();
    const Port_Opening opening = exchanges.line().open();
    EXPECT_FALSE(opening.opened);
    EXPECT_NE(opening.reason, "");
}

} // namespace
} // namespace zorvane
