// SPDX-License-Identifier: MIT
#include "ctl/line/failed_writes.h"

#include "comm/main_form/presenter.h"

namespace zorvane::ctl {

std::vector<Failed_Write> failedWrites(const Download_Result& result) {
    std::vector<Failed_Write> writes;
    for (const Failed_Value& failed : result.failed)
        writes.push_back({statusLine({failed.value, failed.address, Write_Progress::Failed}), failed.address,
                          failed.value, endOf(failed.answer), failed.answer});
    return writes;
}

} // namespace zorvane::ctl
