// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_exchanges.h"
#include "commission/plan/plan_paper.h"
#include "compare/controller_registers.h"
#include "compare/identity.h"
#include "template/model/declara_zorvane.h"
#include "template/services/files.h"

#include <map>
#include <string>

namespace zorvane::commission {

// What every session needs of its document, whoever holds it.

/// Path and hash of a file; an empty hash where there is none.
[[nodiscard]] Named_File namedFile(Files& files, const std::string& path);

/// Why values aren't sent unless they are named: they are outside their limits, or in no list.
[[nodiscard]] std::map<Cell_Place, std::string> strayReasons(const Declara_Zorvane& document);

/// No reading of the line ends between the registers of a text.
void keepTextsTogether(const Declara_Zorvane& document, Unit_Exchanges& line);

/// The document with what the controller has, where it was read, as a configuration file. The document is
/// the same afterwards.
[[nodiscard]] std::string controllerFile(Declara_Zorvane& document,
                                         const compare::Controller_Registers& registers);

/// Whether a name is that of the template's model, or of one that stands in the evidence: who goes on with
/// another controller names it. Letter case doesn't matter; "" is no name.
[[nodiscard]] bool isFoundModel(const compare::Identity& identity, const std::string& name);

/// Why another controller is likely; empty when its serial number isn't known, or is the one that is there.
[[nodiscard]] std::string anotherSerial(const std::string& known, const std::string& found);

} // namespace zorvane::commission
