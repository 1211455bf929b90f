// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/info_rec_errors.h"

#include <string>
#include <vector>

namespace zorvane {

/// What the text of a transfer's outcome is made of.
struct Transfer_Status {
    std::string TransferMethod;              ///< "Upload to PC" or "Download to Device"
    std::vector<std::string> PortParameters; ///< as the link gives them
    std::vector<Info_Rec_Errors> DataErrors;
    std::vector<Info_Rec_Errors> DataWriting;

    [[nodiscard]] bool isUpload() const;
};

/// The text for `TransferMethod`.
[[nodiscard]] std::string transferMethod(bool isUpload);

/// The report: port, line and every failed exchange. Lines end in CR LF. A failure inside leaves the text so
/// far.
[[nodiscard]] std::string PRO_Arma_Resumen(const Transfer_Status& status);

/// The log of all exchanges under the header "MODBUS MONITOR DATA".
[[nodiscard]] std::string PRO_Arma_Monitor(const Transfer_Status& status);

} // namespace zorvane
