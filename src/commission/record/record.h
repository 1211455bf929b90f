// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::commission {

/// What people say of a run; nothing else in a record is typed in. Texts of all structs here are
/// Windows-1252.
struct Record_Head {
    std::string site;
    std::string panel;
    std::string order;
    std::string testedBy;
    std::string witnessedBy;

    bool operator==(const Record_Head&) const = default;
};

/// One thing that spoke for or against the controller's being the template's.
struct Record_Evidence {
    std::string registers;
    std::string what;
    std::string expected;
    std::string found;
    std::string result; ///< "fits", "doesn't fit" or "not read"

    bool operator==(const Record_Evidence&) const = default;
};

/// The controller, as it answered before the first write.
struct Record_Controller {
    std::string model;
    std::int32_t unit = 0;
    std::string serial;   ///< empty: not known
    std::string firmware; ///< empty: not known
    std::string verdict;  ///< "is", "isn't" or "can't tell"
    std::string although; ///< the model by whose name somebody went on although it isn't; else empty
    std::vector<Record_Evidence> evidence;

    bool operator==(const Record_Controller&) const = default;
};

/// A moment, in UTC and as the clock on the wall had it. Empty: not known.
struct Record_Moment {
    std::string utc;
    std::string local;

    bool operator==(const Record_Moment&) const = default;
};

/// A file and what its bytes were.
struct Record_File {
    std::string what; ///< "template", "document", "plan", "journal"
    std::string path; ///< empty for one of the run's own
    std::string sha256;

    bool operator==(const Record_File&) const = default;
};

/// A value that the run was for.
struct Record_Row {
    std::int32_t field = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;
    std::string page;
    std::string name;
    std::string heading;
    std::string registers; ///< as the template writes it
    std::string before;
    std::string sent;
    std::string readBack;
    std::string state;  ///< "verified", "refused", "stored_otherwise", "unknown" or "not_sent"
    std::string answer; ///< what the controller said, or why nothing was sent

    bool operator==(const Record_Row&) const = default;
};

/// A value that isn't the factory's.
struct Record_Deviation {
    std::string page;
    std::string name;
    std::string heading;
    std::string registers;
    std::string factory;
    std::string value;

    bool operator==(const Record_Deviation&) const = default;
};

/// How well the line worked.
struct Record_Link {
    std::int32_t reads = 0;
    std::int32_t writes = 0;
    std::optional<std::int32_t> retries;
    std::optional<std::int32_t> unanswered;
    std::optional<double> medianMs; ///< of the answer times
    std::optional<double> p99Ms;

    bool operator==(const Record_Link&) const = default;
};

/// All that a record says of one run.
struct Record {
    std::string run;   ///< the folder's name
    std::string kind;  ///< "send", "resume" or "restore"
    std::string state; ///< "finished", "interrupted" or "restored"
    Record_Head head;
    Record_Controller controller;
    std::string port;
    std::string settings; ///< of the line
    std::string adapter;  ///< what the system calls it; empty: not known
    Record_Moment started;
    Record_Moment ended;
    std::vector<Record_File> files;
    std::vector<Record_Row> rows;
    std::vector<std::string> notes; ///< what else has to be told, such as a value that changed since
    /// Nothing where they can't be told.
    std::optional<std::vector<Record_Deviation>> deviations;
    Record_Link link;
    std::vector<std::string> checks; ///< to be ticked by hand
    std::string documentName;        ///< of the configuration file with the values that were there before
    std::string document;            ///< its bytes
    std::map<std::int32_t, std::uint16_t> before; ///< registers
    std::map<std::int32_t, std::uint16_t> left;   ///< the registers that the run touched, as it left them

    /// The other files of the run's folder, by name and byte for byte: UTF-8, as they are.
    std::map<std::string, std::string> folder;

    bool operator==(const Record&) const = default;
};

/// The states of values, in the order in which a record counts them.
inline constexpr const char* recordStates[] = {"verified", "refused", "stored_otherwise", "unknown",
                                               "not_sent"};

/// A state for people: "stored otherwise".
[[nodiscard]] std::string stateText(const std::string& state);

/// How many values have that state.
[[nodiscard]] std::size_t countOf(const Record& record, const std::string& state);

/// The lines of a tick list: blank ones don't count. The bytes are UTF-8, with or without its mark in front;
/// what isn't is Windows-1252.
[[nodiscard]] std::vector<std::string> checksOf(const std::string& bytes);

} // namespace zorvane::commission
