// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/link_roles.h"
#include "template/services/link_notice.h"

namespace zorvane {

/// A Modbus RTU master on one serial line: register image, background scan of
/// registered blocks, single and block writes, retries. On the wire these are
/// functions 3, 6 and 16 of the Modbus application protocol, V1.1b3
/// (https://modbus.org/docs/Modbus_Application_Protocol_V1_1b3.pdf).
///
/// All calls are made in the one user-interface thread and return at once.
/// Slave number 0 means the slave number of the port settings; nothing is ever
/// broadcast. An address is the register's number as the template writes it.
class modbus_control : public Link_Notice,
                       public Link_Port,
                       public Reading_Link,
                       public Link_Writes,
                       public Link_Monitor {};

} // namespace zorvane
