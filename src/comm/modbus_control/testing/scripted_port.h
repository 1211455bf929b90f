// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/byte_port.h"
#include "comm/modbus_control/line/port_finder.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace zorvane::testing {

/// A port without hardware: what is written goes to a script, and the test says what comes in.
class Scripted_Port final : public Byte_Port {
  public:
    void setListener(Byte_Port_Listener* listener) override { listener_ = listener; }

    Port_Opening open(const std::string& name, const Port_Settings& settings) override {
        attempts.push_back(name);
        settingsSeen = settings;
        Port_Opening opening = onOpen ? onOpen(name) : Port_Opening{true, {}, {}};
        open_ = opening.opened;
        rts = false;
        return opening;
    }
    void close() override { open_ = false; }
    [[nodiscard]] bool isOpen() const override { return open_; }

    bool write(Byte_View bytes) override {
        if (!open_ || refuses) return false;
        const Byte_Array frame(bytes.begin(), bytes.end());
        written.push_back(frame);
        rtsAtWrite.push_back(rts);
        if (onWrite) onWrite(frame);
        return true;
    }
    Byte_Array discardInput() override { return std::exchange(queued_, {}); }
    [[nodiscard]] bool hasInput() const override {
        if (onLook) onLook();
        return !queued_.empty();
    }
    void setRts(bool on) override {
        rts = on;
        rtsChanges.push_back(on);
    }
    void tellNotBefore(Micros when) override { notBefore = when; }

    void deliver(const Byte_Array& bytes) {
        if (open_ && listener_ != nullptr && !bytes.empty()) listener_->bytesArrived(bytes);
    }
    /// Comes in with the next `deliverQueued`, unless it is discarded before.
    void queue(const Byte_Array& bytes) { queued_.insert(queued_.end(), bytes.begin(), bytes.end()); }
    void deliverQueued() { deliver(std::exchange(queued_, {})); }
    void unplug(const std::string& reason = "Input/output error") {
        if (!open_) return;
        open_ = false;
        if (listener_ != nullptr) listener_->portLost(reason);
    }

    /// An opening that went on ends so.
    void endOpening(const Port_Opening& opening) {
        open_ = opening.opened;
        if (listener_ != nullptr) listener_->openingEnded(opening);
    }

    [[nodiscard]] bool hasListener() const { return listener_ != nullptr; }

    std::function<Port_Opening(const std::string&)> onOpen;
    std::function<void(const Byte_Array&)> onWrite;
    std::function<void()> onLook; ///< somebody asks whether bytes wait
    bool refuses = false;
    std::vector<std::string> attempts;
    Port_Settings settingsSeen;
    std::vector<Byte_Array> written;
    std::vector<bool> rtsAtWrite;
    std::vector<bool> rtsChanges;
    bool rts = false;
    Micros notBefore = 0; ///< the hint in force; a test that wants it followed does so itself

  private:
    Byte_Port_Listener* listener_ = nullptr;
    bool open_ = false;
    Byte_Array queued_;
};

/// The ports that a test says are there.
class Scripted_Finder final : public Port_Finder {
  public:
    std::vector<Port_Entry> ports() override { return list; }
    std::optional<Port_Entry> port(const std::string& name) override { return entryNamed(list, name); }
    std::vector<Port_Entry> list;
};

} // namespace zorvane::testing
