// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zorvane {

/// A window's place and size in twips.
struct Window_Place {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

class Modbus_Link;

/// The link's own windows: the port dialog and the monitor. They are there before the link, which outlives
/// what it shows.
class Link_Windows {
  public:
    virtual ~Link_Windows() = default;
    virtual void showPortSettings(Modbus_Link& link, bool modal) = 0;
    [[nodiscard]] virtual bool monitorLoaded() const = 0;
    [[nodiscard]] virtual bool monitorVisible() const = 0;
    virtual void showMonitor(Modbus_Link& link, const Window_Place& place) = 0;
    virtual void activateMonitor() = 0;
    [[nodiscard]] virtual Window_Place monitorPlace() const = 0;
    virtual void unloadMonitor() = 0;
    virtual void hideMonitor() = 0;
    virtual void restoreMonitor() = 0;
    virtual void minimizeMonitor() = 0;
};

/// For a program without windows.
class No_Link_Windows final : public Link_Windows {
  public:
    void showPortSettings(Modbus_Link&, bool) override {}
    [[nodiscard]] bool monitorLoaded() const override { return false; }
    [[nodiscard]] bool monitorVisible() const override { return false; }
    void showMonitor(Modbus_Link&, const Window_Place&) override {}
    void activateMonitor() override {}
    [[nodiscard]] Window_Place monitorPlace() const override { return {}; }
    void unloadMonitor() override {}
    void hideMonitor() override {}
    void restoreMonitor() override {}
    void minimizeMonitor() override {}
};

} // namespace zorvane
