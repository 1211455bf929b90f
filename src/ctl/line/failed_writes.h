// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/transfer_result.h"

#include <string>
#include <vector>

namespace zorvane::ctl {

/// A write of a download that the controller didn't take, or not for certain.
struct Failed_Write {
    std::string text;    ///< as panel 4 tells it: "Write: 10 @100 ...Failed"
    std::string address; ///< as the cell has it
    std::string value;
    Request_End end = Request_End::Unanswered;
    std::string answer{}; ///< the exception, or why it couldn't be sent
};

/// Those that the download shows as failed.
[[nodiscard]] std::vector<Failed_Write> failedWrites(const Download_Result& result);

} // namespace zorvane::ctl
