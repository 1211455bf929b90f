// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <cstdint>
#include <string>

namespace zorvane::app {

/// How the reading of a configuration file ended.
struct Reading_End {
    std::string path;
    bool whole = false;
    std::int32_t line = 0; ///< where it stopped, from 1; 0 for a file that wasn't there
    std::string failure;   ///< the run-time failure that stopped it; empty for a rejected line
    bool updated = false;  ///< the file is what an update made of another one
};

/// Reads a configuration file with failures ignored. `ok` is as the reader leaves it.
[[nodiscard]] Reading_End readConfiguration(const App_Context& app, const std::string& path, bool& ok);

/// What the message bar says of a file that was read in part; empty for one that was read as a whole.
[[nodiscard]] std::string partlyReadText(const Reading_End& reading);

/// Tells the message bar what is to be known of the document that was opened: that its file was read in part,
/// and which values its cells don't take.
void tellOpened(const App_Context& app, const Reading_End& reading);

/// Tells of the values that the cells don't take, once the document has them from the controller.
void tellUploaded(const App_Context& app);

} // namespace zorvane::app
