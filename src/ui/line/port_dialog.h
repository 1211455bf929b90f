// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_texts.h"
#include "ui/line/port_test_box.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QSpinBox;

namespace zorvane::ui {

/// What the port dialog works with.
struct Port_Dialog_Services {
    Port_Finder& finder;
    Byte_Port& testPort; ///< closed, and nobody else's
    Link_Clock& clock;
    Template_Timings timings;
    std::int32_t testRegister = 0;      ///< what the test reads, as the template numbers it
    std::int32_t addressBase = 0;       ///< taken off its number on the wire
    std::function<void()> lendPort;     ///< the link leaves its port to the test; may be empty
    std::function<void()> takePortBack; ///< the test is over; may be empty
};

/// The port settings. Its owner takes `settings()` after it was accepted; they are usable then.
class Port_Dialog final : public QDialog {
  public:
    Port_Dialog(Port_Dialog_Services parts, const Port_Settings& settings, QWidget* parent);
    ~Port_Dialog() override;

    [[nodiscard]] Port_Settings settings() const;
    /// Reads the list of ports again; what is chosen or typed stays.
    void refreshPorts();

    void done(int result) override;
    void accept() override;

  private:
    void addPort(QFormLayout& form);
    void addLine(QFormLayout& form);
    void addExchange(QFormLayout& form);
    void addDirection(QFormLayout& form);
    void addTest();
    void fill(const Port_Settings& settings);
    void showHint();
    void enableWhatCounts();
    void enterNetworkPort();
    void showTimings();
    [[nodiscard]] std::string chosenPort() const;
    [[nodiscard]] Trial_Request testRequest() const;
    /// What is wrong with what is entered; empty when it is usable.
    [[nodiscard]] std::string fault() const;

    Port_Dialog_Services parts_;
    std::vector<Port_Entry> ports_;
    QComboBox* port_ = nullptr;
    QLabel* hint_ = nullptr;
    QSpinBox* slave_ = nullptr;
    QComboBox* baud_ = nullptr;
    QComboBox* parity_ = nullptr;
    QComboBox* dataBits_ = nullptr;
    QComboBox* stopBits_ = nullptr;
    QSpinBox* retries_ = nullptr;
    QSpinBox* timeOut_ = nullptr;
    QComboBox* rts_ = nullptr;
    QSpinBox* delay_ = nullptr;
    QCheckBox* echo_ = nullptr;
    QLabel* timings_ = nullptr;
    Port_Test_Box* test_ = nullptr;
};

} // namespace zorvane::ui
