// SPDX-License-Identifier: MIT
// The link's own windows, as the contract names their members.
#include "comm/modbus_control/modbus_link.h"

namespace zorvane {

void Modbus_Link::ShowPortSettings(bool modal) { windows_.showPortSettings(*this, modal); }
bool Modbus_Link::MonitorLoaded() const { return windows_.monitorLoaded(); }
bool Modbus_Link::MonitorVisible() const { return windows_.monitorVisible(); }

void Modbus_Link::ShowMonitor(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    windows_.showMonitor(*this, {left, top, width, height});
}

void Modbus_Link::ActivateMonitor() { windows_.activateMonitor(); }
std::int32_t Modbus_Link::MonitorLeft() const { return windows_.monitorPlace().left; }
std::int32_t Modbus_Link::MonitorTop() const { return windows_.monitorPlace().top; }
std::int32_t Modbus_Link::MonitorWidth() const { return windows_.monitorPlace().width; }
std::int32_t Modbus_Link::MonitorHeight() const { return windows_.monitorPlace().height; }
void Modbus_Link::UnloadMonitor() { windows_.unloadMonitor(); }
void Modbus_Link::HideMonitor() { windows_.hideMonitor(); }
void Modbus_Link::RestoreMonitor() { windows_.restoreMonitor(); }
void Modbus_Link::MonitorMinimized() { windows_.minimizeMonitor(); }

} // namespace zorvane
