// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "comm/transfer/requests/download_request.h"

#include <cstdint>
#include <string>

namespace zorvane {

/// What a download does with one cell after the other. The word of a negative number outlives its cell: a
/// later cell that needs one and makes none takes it over.
class Download_Step {
  public:
    /// The mark is of the document that the download is for, and outlives the step.
    Download_Step(const Comm_Context& comm, const Document_Mark& document)
        : comm_(comm), document_(document) {}

    /// Writes a cell, waits for the end of the write and moves the bar. False when the user has cancelled,
    /// the link being closed then, or when the mark doesn't hold any more.
    [[nodiscard]] bool run(const Cell_Place& place);

  private:
    [[nodiscard]] bool transfer(const Cell_Place& place, const Cell_Rec& cell);
    void send(const Cell_Place& place);
    [[nodiscard]] bool awaitWrite(const Cell_Rec& cell);
    void count(const Cell_Rec& cell, std::uint32_t writesBefore);
    [[nodiscard]] Value_End valueEnd() const;
    void noteExchange(const Cell_Rec& cell, std::int32_t tries);
    void report(const Cell_Rec& cell);
    [[nodiscard]] Request_Sources sources() const;

    Comm_Context comm_;
    const Document_Mark& document_;
    std::int32_t Negative_Word_ = 0;
    std::string lastAnswer_; ///< of the present write's last exchange that was noted; empty for none
};

} // namespace zorvane
