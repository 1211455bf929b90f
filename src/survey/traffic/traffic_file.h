// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/link_clock.h"
#include "survey/traffic/traffic_lines.h"

#include <memory>
#include <string>
#include <string_view>

namespace zorvane::survey {

/// Where lines of traffic are written to.
class Traffic_Sink {
  public:
    virtual ~Traffic_Sink() = default;
    /// Whether there is a file of that name already, UTF-8.
    [[nodiscard]] virtual bool exists(const std::string& name) const = 0;
    /// Begins a file of that name, empty; the one before is ended.
    [[nodiscard]] virtual bool begin(const std::string& name) = 0;
    /// Hands a text to the system, which has it when the program crashes.
    [[nodiscard]] virtual bool write(std::string_view text) = 0;
    /// Begins to bring what was written to the disk, which has it when the power fails. It never waits for
    /// it.
    virtual void sync() = 0;
};

/// Writes all traffic of a link to a file as it comes. A file that has grown to the limit is followed by the
/// next: "line.jsonl", "line-2.jsonl", and so on; names that are taken are passed over. What was written goes
/// to the disk a second later at most, and no oftener. Once something can't be written it writes no more.
class Traffic_File {
  public:
    static constexpr std::size_t usualLimit = 10'000'000; ///< bytes
    static constexpr Micros syncedAfter = microsPerSecond;

    /// Sink and clock must outlive it. A file of that name is lost. `sinceEpoch` is what the link's times
    /// lack to microseconds since 1970.
    Traffic_File(Traffic_Sink& sink, Link_Clock& clock, std::string name, std::int64_t sinceEpoch,
                 std::size_t limit = usualLimit);

    /// False once something couldn't be written; nothing is written any more.
    [[nodiscard]] bool good() const { return good_; }

    /// The file that is written to now.
    [[nodiscard]] const std::string& present() const { return present_; }
    void write(const Traffic_Entry& entry);

  private:
    [[nodiscard]] std::string nextName();
    void sync();

    Traffic_Sink& sink_;
    Link_Clock& clock_;
    std::unique_ptr<Alarm> alarm_; ///< rings when the disk is to have what was written
    bool unsynced_ = false;        ///< while the alarm is armed
    std::string name_;
    std::string present_;
    std::int64_t sinceEpoch_;
    std::size_t limit_;
    std::size_t written_ = 0; ///< to the present file
    int number_ = 1;          ///< of the present file
    bool good_ = true;
};

} // namespace zorvane::survey
