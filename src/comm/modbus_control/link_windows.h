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

/// The link's own windows: the port dialog and the monitor.
class Link_Windows {
  public:
    virtual ~Link_Windows() = default;
    virtual void showPortSettings(bool modal) = 0;
    [[nodiscard]] virtual bool monitorLoaded() const = 0;
    [[nodiscard]] virtual bool monitorVisible() const = 0;
    virtual void showMonitor(const Window_Place& place) = 0;
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
    void showPortSettings(bool) override {}
    [[nodiscard]] bool monitorLoaded() const override { return false; }
    [[nodiscard]] bool monitorVisible() const override { return false; }
    void showMonitor(const Window_Place&) override {}
    void activateMonitor() override {}
    [[nodiscard]] Window_Place monitorPlace() const override { return {}; }
    void unloadMonitor() override {}
    void hideMonitor() override {}
    void restoreMonitor() override {}
    void minimizeMonitor() override {}
};

} // namespace zorvane
