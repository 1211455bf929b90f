// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zorvane {

/// One record of a transfer's failures or of its log.
struct Info_Rec_Errors {
    /// Upload: first address of the block. Download: the request's line. Log: line 2.
    std::string Start_Address;
    /// Upload: last address of the block. Download: the answer's line. Log: line 1.
    std::string End_Address;
    std::string Function_Text; ///< "FC 3" or "FC-6"; empty in the log
    std::string Register;      ///< download: the cell's address
    std::string Value;         ///< download: the cell's value
    std::string Response;      ///< the controller's answer in words
    std::uint8_t Retry = 0;    ///< which try of the exchange this was; 0 for a final failure
};

} // namespace zorvane
