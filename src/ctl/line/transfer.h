// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "comm/modbus_control/dry_run_link.h"
#include "compare/register_file.h"
#include "ctl/document/held_form.h"
#include "ctl/document/opened_document.h"
#include "ctl/line/block_results.h"
#include "ctl/line/guarded_link.h"
#include "ctl/line/stop_wish.h"

#include <optional>
#include <string>
#include <vector>

namespace zorvane::ctl {

enum class Transfer_Outcome { Finished, Failed, Cancelled };

/// A block that an upload couldn't read.
struct Failed_Read {
    std::string text; ///< for people
    Request_End end = Request_End::Refused;
};

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

/// The writes of a download: those that it has sent, and those that it would have sent after them.
struct Download_Writes {
    std::vector<Sent_Write> sent;
    std::vector<Planned_Write> notSent;

    [[nodiscard]] std::size_t count(Write_State state) const;
    [[nodiscard]] std::size_t planned() const { return sent.size() + notSent.size(); }
};

/// How a transfer ended. The session has ended, too: the port is closed.
struct Transfer_Report {
    Transfer_Outcome outcome = Transfer_Outcome::Failed;
    bool lost = false;       ///< it failed because nothing answered
    std::int32_t passes = 0; ///< whole passes of an upload over all blocks
    std::vector<Info_Rec_Errors> errors;
    std::vector<Info_Rec_Errors> log;
    std::string panel4;                      ///< the text that it ended with
    std::vector<std::string> panel4_lines{}; ///< every text that the panel was given, in order
    std::vector<Block_Result> blocks{};
    std::vector<Failed_Read> failedReads{}; ///< of an upload that went on to its end
    std::vector<Failed_Write> failedWrites{};
    std::optional<Failure_Note> failure; ///< what ended it, when it was a run-time failure
    /// What the controller refused of them: one text a block or register. Silence is no refusal.
    std::vector<std::string> refusals;
    /// Why a download stopped before its first write: one text a block or range of registers.
    std::vector<std::string> obstacles;
    std::optional<Download_Writes> writes; ///< of a download
    std::string signal;                    ///< which one asked for the end, such as "SIGINT"; else empty

    [[nodiscard]] bool finished() const { return outcome == Transfer_Outcome::Finished; }
    /// The controller and the document now hold the same values.
    [[nodiscard]] bool complete() const {
        return finished() && failedReads.empty() && failedWrites.empty() && signal.empty();
    }
};

/// Reads all blocks and, if the upload finishes, fills the document. Waits in the main form, whose timer
/// `TMR_Actualiza_valores` runs the upload.
[[nodiscard]] Transfer_Report runUpload(const Comm_Context& comm, Held_Form& mainForm,
                                        const Stop_Wish& stop = No_Stop_Wish());

/// Writes every modifiable cell to the controller, once it has answered a read and everything that the writes
/// are built from is known. Otherwise nothing is written.
[[nodiscard]] Transfer_Report runDownload(const Comm_Context& comm, Held_Form& mainForm,
                                          const Stop_Wish& stop = No_Stop_Wish());

/// Somebody has asked for the end, by a signal: nothing more is read, and the transfer is cancelled, after
/// the write that is under way. `atOnce` doesn't wait for that either. True when it waits.
bool stopTransfer(const Comm_Context& comm, bool atOnce);

/// Reads every block of that request word once, or goes on until the link is lost or the form's
/// `Cancel_Requested` is set. The port stays open, and the scan is off afterwards.
void readWholePass(const Comm_Context& comm, const std::string& request);

/// The registers of the document's blocks that were read, as the link last saw them.
[[nodiscard]] compare::Register_Values scannedRegisters(const Comm_Context& comm);

} // namespace zorvane::ctl
