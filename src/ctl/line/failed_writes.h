// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "ctl/document/held_form.h"
#include "ctl/line/block_results.h"

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

/// While it lives, collects the failed writes of a download from what it tells in panel 4 and records.
class Failed_Writes {
  public:
    Failed_Writes(const Comm_Context& comm, Held_Form& mainForm);
    ~Failed_Writes() { mainForm_.onMessage = nullptr; }
    Failed_Writes(const Failed_Writes&) = delete;
    Failed_Writes& operator=(const Failed_Writes&) = delete;

    [[nodiscard]] const std::vector<Failed_Write>& all() const noexcept { return all_; }

  private:
    void note(const std::string& text);
    [[nodiscard]] std::string responseSince(std::size_t records) const;

    const Comm_Context& comm_;
    Held_Form& mainForm_;
    std::vector<Failed_Write> all_;
    std::size_t records_ = 0; ///< of the cells before, and of this one up to its "Completed"
    std::string response_;    ///< of the present cell's last exchange
};

} // namespace zorvane::ctl
