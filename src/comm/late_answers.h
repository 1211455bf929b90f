#pragma once

#include "comm/answer_search.h"
#include "comm/link_clock.h"

#include <optional>
#include <vector>

namespace zorvane {

/// Requests whose answers may still come though nobody waits for them any more. Two requests have the same
/// shape when they agree in unit, function and count: then the answer to the one can pass for the other's.
/// Block writes have one shape whatever their counts, because a refusal names none, and a write that was
/// refused must not be told as one without an answer.
class Late_Answers {
  public:
    /// From now until `until`, the answer to the request counts as late. REQUIRES: it was held while an
    /// earlier one of its shape was expected.
    void expect(const Rtu_Request& request, Micros until);
    /// Also holds back every request until the time, or until the answer came: the line isn't free.
    void expectOnLine(const Rtu_Request& request, Micros lineUntil, Micros until);
    /// The line fell silent after something came in: whatever was on its way is over.
    void lineFree() { lineUntil_.reset(); }
    void forgetPast(Micros now);

    /// The time before which the request may not go out; 0 when nothing holds it.
    [[nodiscard]] Micros heldUntil(const Rtu_Request& request) const;

    /// The first late answer in the bytes from `from` on. It is expected no longer.
    [[nodiscard]] std::optional<Finding> take(Byte_View received, std::size_t from);
    /// Whether an exception to the request may belong to an earlier one of the same unit and function.
    [[nodiscard]] bool exceptionAmbiguous(const Rtu_Request& request, Micros now) const;

  private:
    struct Expected {
        Rtu_Request request;
        Micros until = 0;
    };

    std::vector<Expected> expected_;
    std::optional<Micros> lineUntil_;
};

} // namespace zorvane
