// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane {

/// A serial port that the system lists.
struct Port_Entry {
    std::string name; ///< short: ttyUSB0, COM3
    std::string path; ///< how it is opened: /dev/ttyUSB0
    std::string description;
    std::string serialNumber;            ///< of a USB adapter; often empty
    std::optional<std::uint16_t> vendor; ///< of a USB adapter
    std::optional<std::uint16_t> product;
};

/// Lists the serial ports that are there now.
class Port_Finder {
  public:
    virtual ~Port_Finder() = default;
    [[nodiscard]] virtual std::vector<Port_Entry> ports() = 0;
    /// Those of USB adapters, without their descriptions; quick enough to be asked twice a second, where
    /// `ports` may take tens of ms.
    [[nodiscard]] virtual std::vector<Port_Entry> adapters() { return ports(); }
    /// The port of that name or path; none for one that the system doesn't list. Unlike `ports`, which may
    /// take tens of ms, this is quick enough for every opening.
    [[nodiscard]] virtual std::optional<Port_Entry> port(const std::string& name) = 0;
};

/// What a USB adapter is known by when it comes back under another name.
struct Port_Identity {
    std::string serialNumber;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;

    bool operator==(const Port_Identity&) const = default;
};

/// None for a port that isn't listed or isn't a USB adapter.
[[nodiscard]] std::optional<Port_Identity> identityOf(const std::optional<Port_Entry>& port);

/// What the system calls an adapter: "FT232R USB UART, serial number A17"; empty for a port that isn't
/// listed.
[[nodiscard]] std::string adapterName(const std::optional<Port_Entry>& port);

/// The entry of that name or path.
[[nodiscard]] std::optional<Port_Entry> entryNamed(const std::vector<Port_Entry>& ports,
                                                   const std::string& name);

/// The path under which the adapter is there now: under its old name first, else under another if only one
/// port can be meant. Two adapters alike without serial numbers can't be told apart, and none is taken for
/// the other.
[[nodiscard]] std::optional<std::string> pathOf(const std::vector<Port_Entry>& ports,
                                                const Port_Identity& identity, const std::string& oldName);

} // namespace zorvane
