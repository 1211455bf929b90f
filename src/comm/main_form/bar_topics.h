// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane {

/// The topics of the message bar that transfers and live values tell of.
namespace bar_topic {

inline const std::string unreadBeforeDownload = "unread before download";
inline const std::string downloadEnd = "download";
inline const std::string uploadGaps = "upload";
inline const std::string polledGaps = "polling";
inline const std::string liveWrite = "live write";
inline const std::string unmarkedChange = "unmarked change";

} // namespace bar_topic

} // namespace zorvane
