#pragma once

#include "template/model/declara_zorvane.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane {

/// Where recovery copies lie: a folder of files. `write` replaces a file as a whole or not at all, also
/// across a crash or a power cut; a copy that can't be written leaves the older one and returns false.
class Recovery_Folder {
  public:
    virtual ~Recovery_Folder() = default;
    [[nodiscard]] virtual bool write(const std::string& name, const std::string& text) = 0;
    virtual void remove(const std::string& name) = 0;
    /// The first few thousand bytes of a file; empty when there is none.
    [[nodiscard]] virtual std::string beginning(const std::string& name) = 0;
    [[nodiscard]] virtual std::vector<std::string> list() = 0;
    /// Under which the system's files find it.
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

/// Keeps the text of a document with unsaved changes, as the writer would write it, so that no order of
/// effects and no crash costs more than the last half minute. A copy is a configuration file with a few
/// comment lines in front, and its extension names its template.
class Recovery {
  public:
    /// `now` gives the time of day as "YYYY-MM-DD hh:mm:ss". `session` stands in the names of the copies and
    /// tells apart those of programs that run at the same time.
    Recovery(Recovery_Folder& folder, std::function<std::string()> now, std::string session = "1")
        : folder_(folder), now_(std::move(now)), session_(std::move(session)) {}

    /// Brings the copy of the document at hand up to date. `type` is the name of the document's template,
    /// without ".ZTP". A document without fields has nothing to keep. False when the copy couldn't be
    /// written; an older one then stays.
    bool keep(const Declara_Zorvane& document, const std::string& type, std::string_view why);
    /// The document at hand was saved: its copy goes.
    void drop();
    /// The document at hand was closed or replaced: its copy stays, the next one starts a file of its own.
    void leave();
    /// The document at hand was opened from that copy, and holds all of it: the copy is now its own.
    void adopt(const std::string& file, const Declara_Zorvane& document);
    /// That copy isn't to be thrown away as the oldest one; "" ends it.
    void spare(const std::string& file) { spared_ = file; }

    /// The copies but for that of the document at hand, the newest first.
    [[nodiscard]] std::vector<Recovery_Entry> list();
    [[nodiscard]] std::string path(const Recovery_Entry& entry) const { return folder_.path(entry.file); }
    /// The user doesn't want that copy any more.
    void remove(const Recovery_Entry& entry) { folder_.remove(entry.file); }

  private:
    [[nodiscard]] std::vector<Recovery_Entry> all();
    void trim();
    [[nodiscard]] std::string newFile(const std::string& type, const std::string& time);

    Recovery_Folder& folder_;
    std::function<std::string()> now_;
    std::string session_;
    std::string current_; ///< file of the document at hand, empty while it has none
    std::string kept_;    ///< its text without the comment lines
    std::string why_;
    std::string spared_;
};

/// The text of a document as the writer writes it. A line that can't be made is left out, the rest stays.
[[nodiscard]] std::string recoveryText(const Declara_Zorvane& document);

/// A copy's text without the comment lines in front.
[[nodiscard]] std::string_view withoutHeader(std::string_view copy);

} // namespace zorvane
