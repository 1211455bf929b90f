// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/framing.h"
#include "comm/modbus_control/line/link_clock.h"

#include <optional>
#include <vector>

namespace zorvane {

/// How long an answer may still come after the time-out of its request, in time-outs.
inline constexpr Micros timeOutsUntilOver = 10;

/// Requests whose answers may still come though nobody waits for them any more. Two requests have the same
/// shape when they agree in unit, function and count: then the answer to the one can pass for the other's.
/// Block writes have one shape whatever their counts, because a refusal names none, and a write that was
/// refused must not be told as one without an answer.
class Late_Answers {
  public:
    /// Until `heldUntil` requests of its shape are held back, and until `until` its answer counts as late.
    /// `begun`: a part of an answer to it came, so what is to come is no refusal.
    void expect(const Rtu_Request& request, Micros heldUntil, Micros until, bool begun = false);
    /// Also holds back every request until the time, or until the answer came: the line isn't free.
    void expectOnLine(const Rtu_Request& request, Micros lineUntil, Micros heldUntil, Micros until);
    /// The request of another master: its answer is on its way, and is nobody's here.
    void expectForeign(const Rtu_Request& request, Micros lineUntil, Micros until);
    /// The line fell silent after something came in: whatever was on its way is over.
    void lineFree() { lineUntil_.reset(); }
    void forgetPast(Micros now);

    /// The request goes out: what was read or written of its registers before is out of date.
    void sent(const Rtu_Request& request);
    /// The request was answered. If it stood here already, that may have been the earlier one's answer, and
    /// its own be still to come until `until`.
    void answered(const Rtu_Request& request, Micros until);

    /// The time before which the request may not go out; 0 when nothing holds it.
    [[nodiscard]] Micros heldUntil(const Rtu_Request& request) const;
    /// Until when an answer that says something else could pass for one to this request; 0 for none. The
    /// answer to an earlier one of the same content says nothing else, unless its registers were written
    /// since.
    [[nodiscard]] Micros confusableUntil(const Rtu_Request& request) const;
    /// Whether an answer of the request's very form is still to come, whatever it says.
    [[nodiscard]] bool expects(const Rtu_Request& request) const;

    /// Whether an answer of its unit and function is still to come.
    [[nodiscard]] bool expectsFunction(const Rtu_Request& request) const;
    /// Whether a refusal of another request of its unit and function may be still to come.
    [[nodiscard]] bool expectsRefusal(const Rtu_Request& request) const;

    struct Late {
        Finding finding;
        Rtu_Request request; ///< that it answers
        Micros heldUntil = 0;
        Micros until = 0;
        bool foreign = false; ///< it belongs to another master
    };
    /// The first late answer in the bytes from `from` on. It is expected no longer, unless it is an exception
    /// that may belong to another request.
    [[nodiscard]] std::optional<Late> take(const Framing& framing, Byte_View received, std::size_t from);
    /// Whether an exception to the request may belong to an earlier one of the same unit and function.
    [[nodiscard]] bool exceptionAmbiguous(const Rtu_Request& request, Micros now) const;

  private:
    struct Expected {
        Rtu_Request request{};
        Micros heldUntil = 0;
        Micros until = 0;
        bool outOfDate = false; ///< its answer says what is no longer so
        bool foreign = false;   ///< another master's
        bool begun = false;     ///< a part of its answer came
    };

    std::vector<Expected> expected_;
    std::optional<Micros> lineUntil_;
};

} // namespace zorvane
