// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"
#include "comm/modbus_control/line/link_clock.h"
#include "comm/modbus_control/scan/scan_plan.h"

#include <optional>

namespace zorvane {

/// How long an index stays for a watcher that looks every 10 ms, when nobody looks at it. A watcher that was
/// kept busy, by a dialog that opens or a machine under load, still sees it.
inline constexpr Micros indexTime = 250 * microsPerMs;
/// The same for a failure, which can be seen until the next exchange ends.
inline constexpr Micros failureTime = 25 * microsPerMs;

/// The registers of one request of the scan.
struct Scan_Frame {
    std::int32_t slave = 0;
    std::int32_t first = 0;
    std::uint16_t count = 1; ///< 1 to 125; 0 for a block that ends before it begins

    bool operator==(const Scan_Frame&) const = default;
};

/// Walks the blocks of a plan, pass after pass. A block above 125 registers is read by several frames within
/// its one index.
///
/// A watcher looks at the index every 10 ms and must miss neither an index nor a failure. So once somebody
/// looks, the walk leaves an index only when it was seen, or has stood for 250 ms; and it starts a further
/// pass under the same rule, as the watcher may want to stop there. A pass in which nobody looked ends that,
/// and the walk goes at full speed. A failed frame is always followed by another under this rule. A pass over
/// one block shows index 0 before it starts again.
class Scan {
  public:
    [[nodiscard]] Scan_Plan& plan() { return plan_; }
    [[nodiscard]] const Scan_Plan& plan() const { return plan_; }

    /// Back to the first block of the mode.
    void restart(Micros now);

    /// Number of the block being read, as it is shown. 0 for a plan without blocks.
    [[nodiscard]] std::int32_t index() const { return index_; }
    void indexSeen();
    /// Whether somebody looks, so that the walk waits for them.
    [[nodiscard]] bool watched() const { return watched_; }
    /// Somebody looks who hasn't seen the present index yet.
    void watch() { watched_ = true; }
    /// Whether the watcher still takes the block before for the one being read. Ends at `shownUntil` at the
    /// latest.
    [[nodiscard]] bool indexUnseen(Micros now) const { return !mayMoveOn(now); }
    [[nodiscard]] Micros shownUntil() const { return shownAt_ + indexTime; }
    void failureSeen() { failedAt_.reset(); }

    /// Moves on where that is allowed.
    void advance(Micros now);
    /// What to read now; none while the walk waits to be seen.
    [[nodiscard]] std::optional<Scan_Frame> frame() const;
    /// Whether the walk waits for being seen, and until when it does at most.
    [[nodiscard]] std::optional<Micros> waitsUntil() const;

    /// The present frame was answered, by an exception too.
    void frameAnswered(bool well, Micros now);
    /// So many registers at the beginning of the present frame were read, and the rest is the next frame.
    /// True when that ended the block. After a failed try in this block, a watcher must see the end of each
    /// part.
    bool partRead(std::uint16_t count, Micros now);
    /// One try of the present frame failed; the frame stays.
    void tryFailed(Micros now) {
        failedAt_ = now;
        blockTried_ = true;
    }
    /// One try failed and the present block begins again.
    void blockAgain(Micros now);
    /// The present frame got no answer: its block is left.
    void blockGivenUp(Micros now);

  private:
    enum class Phase { Reading, Done, Between, PassStart };

    [[nodiscard]] bool mayMoveOn(Micros now) const;
    [[nodiscard]] std::int32_t numberAt(std::size_t place) const;
    void show(std::int32_t index, Micros now);
    void leaveIndex(Micros now);
    void beginPass();

    Scan_Plan plan_;
    std::size_t place_ = 0;   ///< within the plan's numbers
    std::int64_t offset_ = 0; ///< registers of the block already read
    Phase phase_ = Phase::Reading;
    std::int32_t index_ = 0;
    Micros shownAt_ = 0;
    bool seen_ = false;
    bool watched_ = false;           ///< somebody looked in this pass or in the one before
    bool seenInPass_ = false;        ///< somebody looked in this pass
    bool blockTried_ = false;        ///< a try in the present block failed
    std::optional<Micros> failedAt_; ///< a failure that nobody has seen yet
};

} // namespace zorvane
