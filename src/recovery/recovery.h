// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

#include <cstddef>
#include <functional>
#include <optional>
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
    std::string file;        ///< its name in the folder
    std::string time;        ///< "2026-11-21 03:20:05"
    std::string name;        ///< the document's, "SITE7.KVRT207D"
    std::string model;       ///< the controller's
    std::string why;         ///< "changed", "before Open", ...
    bool beforeSave = false; ///< it holds the bytes of a file that a save wrote over, not unsaved changes
};

/// A file that is about to be written over.
struct File_Before_Save {
    std::string name;  ///< "site7.kvrt207d"
    std::string type;  ///< name of its template, without ".ZTP"
    std::string model; ///< the controller's, if it is known
    std::string bytes;
};

/// How many copies of unsaved changes are kept, and how many files from before a save; the oldest go first.
inline constexpr std::size_t recoveryLimit = 50;

/// Keeps the text of a document with unsaved changes, as the writer would write it, so that no order of
/// effects and no crash costs more than the last half minute. A copy is a configuration file with a few
/// comment lines in front, and its extension names its template. What a change is, is found by comparing the
/// writer's text with that of the last moment when the document was as its file says.
///
/// It also keeps the bytes of files that a save writes over, in a folder of their own, so that many saves
/// push out no unsaved changes.
class Recovery {
  public:
    /// `now` gives the time of day as "YYYY-MM-DD hh:mm:ss". `session` stands in the names of the copies and
    /// tells apart those of programs that run at the same time. Without a folder for `files` none is kept.
    Recovery(Recovery_Folder& folder, std::function<std::string()> now, std::string session = "1",
             Recovery_Folder* files = nullptr)
        : folder_(folder), files_(files), now_(std::move(now)), session_(std::move(session)) {}

    /// The document is as its file says: what it holds now is no change.
    void settle(Declara_Zorvane& document);
    /// No file says what the document holds: all of it is a change.
    void watchAll();
    /// Whether the document differs from what its file says; false while nobody said what that is.
    [[nodiscard]] bool changed(const Declara_Zorvane& document) const;
    /// Whether the document has changes that its copy lacks.
    [[nodiscard]] bool due(const Declara_Zorvane& document) const;

    /// Brings the copy of the document at hand up to date. `type` is the name of the document's template,
    /// without ".ZTP". A document without fields has nothing to keep. False when the copy couldn't be
    /// written; an older one then stays.
    bool keep(const Declara_Zorvane& document, const std::string& type, std::string_view why);
    /// A save of the document at hand failed: its copy is on offer from now on.
    void offer() { offered_ = true; }
    /// The document at hand was saved: its copy goes.
    void drop();
    /// The document at hand was closed or replaced: its copy stays, the next one starts a file of its own.
    void leave();
    /// The document at hand was opened from that copy, and holds all of it: the copy is now its own.
    void adopt(const std::string& file, const Declara_Zorvane& document);
    /// That copy isn't to be thrown away as the oldest one; "" ends it.
    void spare(const std::string& file) { spared_ = file; }

    /// Keeps the bytes of a file. False when they couldn't be kept.
    bool keepFile(const File_Before_Save& file);

    /// The copies and the files, the newest first. That of the document at hand is left out unless a save of
    /// it failed.
    [[nodiscard]] std::vector<Recovery_Entry> list();
    [[nodiscard]] std::string path(const Recovery_Entry& entry) const {
        return folderOf(entry).path(entry.file);
    }
    /// The folder of the copies, for people.
    [[nodiscard]] std::string place() const;
    /// The user doesn't want that copy any more.
    void remove(const Recovery_Entry& entry);

  private:
    [[nodiscard]] Recovery_Folder& folderOf(const Recovery_Entry& entry) const {
        return entry.beforeSave ? *files_ : folder_;
    }
    void forgetCopy();
    void trim(Recovery_Folder& folder);
    [[nodiscard]] std::string newFile(Recovery_Folder& folder, const std::string& type,
                                      const std::string& time) const;

    Recovery_Folder& folder_;
    Recovery_Folder* files_;
    std::function<std::string()> now_;
    std::string session_;
    std::string current_; ///< file of the document at hand, empty while it has none
    std::string kept_;    ///< what it says, as `ownText`
    std::string why_;
    std::string spared_;
    bool offered_ = false;            ///< the copy of the document at hand is listed
    bool watched_ = false;            ///< it is known what a change of it is
    std::optional<std::string> base_; ///< the document as its file says, as `ownText`; no file: nothing
};

/// The text of a document as the writer writes it. A line that can't be made is left out, the rest stays.
[[nodiscard]] std::string recoveryText(const Declara_Zorvane& document);

/// What the writer would write of the document's own values, for comparing: passing values are left out, and
/// so is whatever no line of a file and nobody ever wrote to. A table of the largest size costs its rows
/// only.
[[nodiscard]] std::string ownText(const Declara_Zorvane& document);

/// The name under which copies of the document are listed. `type` as in `Recovery::keep`.
[[nodiscard]] std::string copyName(const Declara_Zorvane& document, const std::string& type);

/// A copy's text without the comment lines in front.
[[nodiscard]] std::string_view withoutHeader(std::string_view copy);

/// What a copy holds, byte for byte: only the lines that `Recovery` put in front of it are left out.
[[nodiscard]] std::string_view keptBytes(std::string_view copy);

} // namespace zorvane
