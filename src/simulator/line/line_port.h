// SPDX-License-Identifier: MIT
#pragma once

namespace zorvane::simulator {

/// The line's end on which the controller sits. Descriptors don't block.
class Line_Port {
  public:
    virtual ~Line_Port() = default;

    /// For reading and writing bytes; -1 while unplugged.
    [[nodiscard]] virtual int fd() const = 0;

    /// Readable when a client may have come or gone; -1 when that can't be known.
    [[nodiscard]] virtual int watchFd() const { return -1; }

    /// Serves `watchFd`. True when the first client came or the last one went: nothing that is under way is
    /// meant for whoever opens the line next.
    [[nodiscard]] virtual bool clientsChanged() { return false; }

    /// The client's bytes have ended. True when another may come, so that the line goes on.
    [[nodiscard]] virtual bool clientLeft() { return false; }

    /// The adapter is pulled; nothing for a port that has none. Options see to it that such a port isn't
    /// asked.
    virtual void unplug() {}
    virtual void plugIn() {}
};

} // namespace zorvane::simulator
