// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "comm/transfer/requests/download_request.h"

#include <string>
#include <vector>

namespace zorvane::ctl {

/// The values that a document has of its own before an upload. The upload fills every cell from the register
/// image, in which a register that was never read is 0.
class Own_Values {
  public:
    explicit Own_Values(const Declara_Zorvane& document);

    /// Gives its own value back to each cell whose registers were not all read.
    void putBackUnread(const Comm_Context& comm) const;

  private:
    struct Own_Value {
        Cell_Place place;
        std::string text;
    };
    std::vector<Own_Value> values_;
};

} // namespace zorvane::ctl
