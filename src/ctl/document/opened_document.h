// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/text/json_text.h"
#include "template/model/declara_zorvane.h"
#include "template/services/asker.h"
#include "template/services/files.h"
#include "template/services/link_notice.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// A message that a user of the window would have seen.
struct Message_Note {
    int style = 0;
    std::string title;
    std::string text;
};

/// What the reading of one file came to.
struct Reading_Note {
    std::string path;
    bool ok = true;     ///< false: a line was rejected, or a configuration file was missing
    bool loaded = true; ///< false: there was no such file
    std::optional<Failure_Note> failure;
    std::int32_t line = 0; ///< the last line read, from 1; 0 when none was, or when the failure came after it

    [[nodiscard]] bool whole() const { return ok && loaded && !failure; }
    /// Every line was read, though the count of scan blocks after the last one of a template may have failed.
    [[nodiscard]] bool toTheEnd() const;
};

/// A document as the Open command leaves it, and what was said and went wrong on the way.
struct Opened_Document {
    Declara_Zorvane document;
    Reading_Note ztp;
    std::optional<Reading_Note> configuration; ///< nothing when only a template was read
    std::vector<Message_Note> messages;
    std::optional<double> Holding_Registers; ///< the size of the register image that the template asks for

    /// Both files were there and were read from end to end.
    [[nodiscard]] bool whole() const { return ztp.whole() && (!configuration || configuration->whole()); }
    /// No line of the files is missing from the document, so it may be written and may go to a controller.
    [[nodiscard]] bool readToTheEnd() const {
        return ztp.toTheEnd() && (!configuration || configuration->toTheEnd());
    }
    /// A file that was to be read isn't there.
    [[nodiscard]] bool fileMissing() const {
        return !ztp.loaded || (configuration && !configuration->loaded);
    }
};

/// Where a document comes from, and who is told.
struct Document_Source {
    Files& files;
    std::string applicationFolder; ///< as messages name it
    std::string templatePath;
    std::optional<std::string> configurationPath;
    Link_Notice* link = nullptr; ///< told what the template says about the link, if there is one
};

/// Reads the template and then the configuration over it. Run-time failures are kept, each with its file, and
/// what comes after the failing statement is done all the same. No file is rewritten.
[[nodiscard]] Opened_Document openDocument(const Document_Source& opening);

} // namespace zorvane::ctl
