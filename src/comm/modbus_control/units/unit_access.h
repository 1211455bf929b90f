// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"
#include "comm/modbus_control/line/link_clock.h"
#include "comm/modbus_control/line/port_settings.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zorvane {

/// How a request to a unit ended.
enum class Unit_End {
    Answered,  ///< well
    Refused,   ///< by an exception
    Silent,    ///< no valid answer in all tries
    PortLost,  ///< the adapter is gone, or the port isn't open
    Cancelled, ///< somebody wanted the end
    NotSent,   ///< nothing could go out: `fault` says why
};

/// What came of a request to a unit, its tries included.
struct Unit_Answer {
    Unit_End end = Unit_End::NotSent;
    std::vector<std::uint16_t> values{}; ///< of a read that was answered well: all that was asked for
    std::map<std::int32_t, std::string> objects{}; ///< of a good answer about objects, by number
    std::uint8_t exception = 0;                    ///< of a refusal
    Micros at = 0;                                 ///< when it ended, by the clock of the exchanges
    Micros answerTime = 0;     ///< from the end of the request to that of its answer; 0 for none
    std::int32_t requests = 0; ///< frames that went out, further tries and parts included
    std::int32_t damaged = 0;  ///< tries to which bytes came that were no valid answer
    bool echoed = false;       ///< the adapter gave back what was sent
    std::string fault{};       ///< in words, unless it was answered well

    [[nodiscard]] bool good() const { return end == Unit_End::Answered; }
    /// Of a write that wasn't acknowledged: whether the controller may have taken it all the same.
    [[nodiscard]] bool mayHaveArrived() const { return requests > 0 && end != Unit_End::Refused; }
};

/// Reads registers of the units on a line, and can't write any. Each call waits for what comes of it.
class Unit_Reader {
  public:
    virtual ~Unit_Reader() = default;
    /// Registers by number, as the template has them. More than 125 go out as several requests; when one of
    /// these fails, so does all.
    [[nodiscard]] virtual Unit_Answer read(std::int32_t unit, std::int32_t first, std::int32_t count) = 0;

    /// The objects of function 43/14, from 0 up to the highest wanted as far as one answer has them. A unit
    /// may not know the function at all, and then be silent: one further try at most. A line without it sends
    /// nothing.
    [[nodiscard]] virtual Unit_Answer readObjects(std::int32_t unit, std::int32_t highest) {
        (void)unit, (void)highest;
        return {};
    }

    /// Serves events for that long, less when somebody wants the end.
    virtual void pause(Micros span) = 0;
    /// The clock that the answers' times are of.
    [[nodiscard]] virtual Micros now() const = 0;
    [[nodiscard]] virtual bool cancelled() const = 0;
};

/// Also writes them.
class Unit_Writer : public Unit_Reader {
  public:
    /// Functions 6 (one value) and 16 (up to 123). One try: who sends it again knows what became of this one.
    /// Once a request is out, the wish to end waits for its answer.
    [[nodiscard]] virtual Unit_Answer write(std::int32_t unit, Function_Code function, std::int32_t first,
                                            const std::vector<std::uint16_t>& values) = 0;
    /// The next requests go out with these line settings. False when the port can't be opened with them.
    [[nodiscard]] virtual bool setLine(const Line_Settings& line) = 0;
    /// Looks for a lost adapter once, and opens it; true when the port is open.
    [[nodiscard]] virtual bool openAgain() = 0;
};

} // namespace zorvane
