// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/info_rec_errors.h"
#include "comm/main_form/transfer_result.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane {

/// The document as the form has it.
struct Form_State {
    bool Document_Open = false;
    bool Dirty = false; ///< the document differs from its file
    /// Left, top, width and height of the monitor window, in twips, when the settings had them at start-up.
    std::optional<std::array<std::int32_t, 4>> Monitor_Place;
    bool In_Tray = false; ///< the icon is in the desktop's tray
};

/// The session with the controller, which transfers, live writes and polling share.
struct Session_State {
    std::int32_t Unit_Id = 0; ///< slave number of every register call; 0 stands for that of the port settings
    bool Comm_Active = false; ///< from the start of an upload until it ends in any way
    bool Cancel_Requested = false;
    std::string Current_Request; ///< the link's scan mode, right after it was set
    bool Write_Busy = false;     ///< the link had a write under way when it was last asked
};

/// The upload's own.
struct Upload_State {
    bool Upload_Active = false;
    std::int16_t Saved_Transaction = 0; ///< the link's transaction count at the last tick
    std::int16_t Retry_Count = 0;       ///< exchanges of the present block so far
    std::int32_t Scan_Index = 0;        ///< the block being read, from 1
    std::int16_t First_Scan_Index = 0;  ///< the block with which each pass begins
    std::uint8_t Pass_Count = 0;        ///< whole passes so far
    std::int32_t Scan_Passes = 1;       ///< passes that an upload takes
    std::uint64_t Upload_Edition = 0;   ///< `Edition` of the document that the upload is for
    Upload_Result Last_Upload;          ///< of the upload that runs or ran last
};

/// The download's own.
struct Download_State {
    bool Download_Active = false;
    bool Nothing_Sent = false;     ///< the download's present cell names no register
    Download_Result Last_Download; ///< of the download that runs or ran last
};

/// Polling's own.
struct Polling_State {
    bool Online = false;        ///< the link is polling
    std::string Poll_Request;   ///< `Current_Request` at the start of the last refresh or online fill
    bool Comm_Lost_Now = false; ///< the link was lost at the last refresh
    bool Lost_Shown = false;    ///< the user has been told of the lost link
    std::vector<Polled_Gap> Polled_Gaps; ///< as the message bar tells them
    std::int32_t Saved_Tx_Count = 0;     ///< what the two lights last saw of the link's counts
    std::int32_t Saved_Rx_Count = 0;
    Polling_Result Last_Polling; ///< of the polling that goes on or went on last
};

/// The report of the last transfer.
struct Transfer_Records {
    bool Transfer_Was_Upload = false; ///< the last transfer, which the records are of
    std::vector<Info_Rec_Errors> Transfer_Errors;
    std::vector<Info_Rec_Errors> Transfer_Log;
};

/// Members of the main form that several parts of the system share: the sum of what its machines own. Who
/// needs one of them takes that.
struct Main_Form_State : Form_State,
                         Session_State,
                         Upload_State,
                         Download_State,
                         Polling_State,
                         Transfer_Records {};

} // namespace zorvane
