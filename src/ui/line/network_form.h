// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/network_port.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace zorvane::ui {

/// A small form for a port on a network: what is spoken, the host, the port there.
class Network_Form final : public QDialog {
  public:
    /// `present` is the port as it stands; a serial one's name leaves the form empty.
    Network_Form(const std::string& present, QWidget* parent);

    /// "tcp:plc7:502". REQUIRES: accepted.
    [[nodiscard]] std::string port() const;

    void accept() override;

  private:
    void addFields();

    QComboBox* protocol_ = nullptr;
    QLineEdit* host_ = nullptr;
    QSpinBox* port_ = nullptr;
    QLabel* fault_ = nullptr;
};

} // namespace zorvane::ui
