// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

namespace zorvane::commission {

/// A port that nobody else of ours may use. It is free again when this goes, however the program ends.
class Held_Port {
  public:
    virtual ~Held_Port() = default;
};

/// A held port, or who has it.
struct Port_Hold {
    std::unique_ptr<Held_Port> held;
    std::string why; ///< for people
};

/// Keeps two runs from one line. A serial port is locked by its real path; a network line ("tcp:HOST:PORT"
/// and the like) by its name and the unit.
class Port_Locks {
  public:
    virtual ~Port_Locks() = default;
    [[nodiscard]] virtual Port_Hold take(const std::string& port, std::int32_t unit) = 0;
};

/// Locks by files in a folder, which is made when it isn't there.
class Native_Port_Locks final : public Port_Locks {
  public:
    explicit Native_Port_Locks(std::string folder) : folder_(std::move(folder)) {}
    [[nodiscard]] Port_Hold take(const std::string& port, std::int32_t unit) override;

  private:
    std::string folder_;
};

} // namespace zorvane::commission
