// SPDX-License-Identifier: MIT
#pragma once

#include "survey/listen/listening_port.h"

#include <QSocketNotifier>

#include <memory>

namespace zorvane::survey {

/// A serial port opened for reading only, by nobody else meanwhile; pseudo-terminals too. The line settings
/// that it had are put back when it is closed. RTS and DTR stay as the system's driver has them. REQUIRES: a
/// QCoreApplication.
class Qt_Listening_Port final : public Listening_Port {
  public:
    Qt_Listening_Port();
    Qt_Listening_Port(const Qt_Listening_Port&) = delete;
    Qt_Listening_Port& operator=(const Qt_Listening_Port&) = delete;
    ~Qt_Listening_Port() override;

    void setListener(Byte_Port_Listener* listener) override { listener_ = listener; }
    [[nodiscard]] Port_Opening open(const std::string& name, const Line_Settings& line) override;
    void close() override;
    [[nodiscard]] Byte_Array takeInput() override;

  private:
    /// The descriptor and the settings that it had.
    struct System_Line;

    void readSome();
    void lose();

    std::unique_ptr<System_Line> line_; ///< null: closed
    std::unique_ptr<QSocketNotifier> notifier_;
    Byte_Port_Listener* listener_ = nullptr;
};

} // namespace zorvane::survey
