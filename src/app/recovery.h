#pragma once

#include "template/model/declara_zorvane.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane {

/// Where recovery copies lie: a folder of small files. `write` replaces a file as a whole or not at all, also
/// across a crash or a power cut; a copy that can't be written leaves the older one and returns false.
class Recovery_Folder {
  public:
    virtual ~Recovery_Folder() = default;
    [[nodiscard]] virtual bool write(const std::string& name, const std::string& text) = 0;
    virtual void remove(const std::string& name) = 0;
    [[nodiscard]] virtual std::string read(const std::string& name) = 0; ///< empty when there is none
    [[nodiscard]] virtual std::vector<std::string> list() = 0;
    [[nodiscard]] virtual std::string path(const std::string& name) const = 0;
};

/// A kept copy, as "Recover..." lists it.
struct Recovery_Entry {
    std::string file;  ///< its name in the folder
    std::string time;  ///< "2026-11-21 03:20:05"
    std::string name;  ///< the document's, "SITE7.KVRT207D"
    std::string model; ///< the controller's
    std::string why;   ///< "changed", "before Open", ...
};

/// How many copies are kept; the oldest go first.
inline constexpr std::size_t recoveryLimit = 50;

/// The longest time from a change to its copy, in ms.
inline constexpr std::int32_t recoveryIntervalMs = 30'000;

/// Keeps the text of a document with unsaved changes, as the writer would write it, so that no order of
/// effects and no crash costs more than the last half minute. A copy is a configuration file with a few
/// comment lines in front.
class Recovery {
  public:
    /// `now` gives the time of day as "YYYY-MM-DD hh:mm:ss".
    Recovery(Recovery_Folder& folder, std::function<std::string()> now)
        : folder_(folder), now_(std::move(now)) {}

    /// Writes the document's copy anew, if its text differs from what is kept. False when it couldn't be
    /// written.
    bool keep(const Declara_Zorvane& document, std::string_view why);
    /// The document at hand was saved: its copy goes.
    void drop();
    /// The document at hand was closed or replaced: its copy stays, the next one starts a file of its own.
    void leave();
    /// The newest first.
    [[nodiscard]] std::vector<Recovery_Entry> list();

  private:
    void trim();
    [[nodiscard]] std::string newFile(const Declara_Zorvane& document, const std::string& time);

    Recovery_Folder& folder_;
    std::function<std::string()> now_;
    std::string current_; ///< file of the document at hand, empty while it has none
    std::string kept_;    ///< its text without the comment lines
};

/// The text of a document as the writer writes it. What can't be written is left out, the rest stays.
[[nodiscard]] std::string recoveryText(const Declara_Zorvane& document);

} // namespace zorvane
