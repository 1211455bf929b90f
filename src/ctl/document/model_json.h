// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/opened_document.h"
#include "ctl/text/json_stream.h"

namespace zorvane::ctl {

/// [{"style","title","text"}]. The texts may name paths.
[[nodiscard]] Json messagesJson(const std::vector<Message_Note>& messages);

/// Writes the members of the model object: how the files were read, and all that the document holds, under
/// the names of its records. REQUIRES: an object is open in the stream.
void writeModel(Json_Stream& json, const Opened_Document& opened);

} // namespace zorvane::ctl
