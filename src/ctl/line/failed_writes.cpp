// SPDX-License-Identifier: MIT
#include "ctl/line/failed_writes.h"

namespace zorvane::ctl {

namespace {

const std::string before = "Write: ";
const std::string completed = " ...Completed";
const std::string failed = " ...Failed";

Failed_Write failedWrite(const std::string& text, std::string response) {
    Failed_Write write;
    write.text = text;
    const std::string middle = text.substr(before.size(), text.size() - before.size() - failed.size());
    const std::size_t at = middle.rfind(" @");
    if (at != std::string::npos) {
        write.value = middle.substr(0, at);
        write.address = middle.substr(at + 2);
    }
    write.end = endOf(response);
    write.answer = std::move(response);
    return write;
}

} // namespace

Failed_Writes::Failed_Writes(const Comm_Context& comm, Held_Form& mainForm)
    : comm_(comm), mainForm_(mainForm) {
    mainForm_.onMessage = [this](const std::string& text) { note(text); };
}

/// A cell's write ends with "Completed" and, when it failed, with "Failed" after it; a record may come
/// between.
void Failed_Writes::note(const std::string& text) {
    if (!text.starts_with(before)) return;
    if (text.ends_with(completed)) {
        response_ = responseSince(records_);
        records_ = comm_.form.Transfer_Errors.size();
    } else if (text.ends_with(failed)) {
        std::string response = comm_.link.LastResponse();
        if (response.empty()) response = responseSince(records_);
        all_.push_back(failedWrite(text, response.empty() ? response_ : response));
        records_ = comm_.form.Transfer_Errors.size();
    }
}

/// The response of the last exchange that was recorded since then; empty for none.
std::string Failed_Writes::responseSince(std::size_t records) const {
    const std::vector<Info_Rec_Errors>& errors = comm_.form.Transfer_Errors;
    if (errors.size() <= records) return {};
    const std::string& response = errors.back().Response;
    return response.starts_with("No Response") ? std::string() : response;
}

} // namespace zorvane::ctl
