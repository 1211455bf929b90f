// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace zorvane {

/// How far a write has come, as its status line says.
enum class Write_Progress { Pending, Failed, Completed };

/// What happens in transfers, live writes and polling. The machines hand these out in the order in which they
/// happen; the presenter shows each one at once, and a watcher may note it.
namespace event {

// Upload and download.

/// An upload begins: so many passes over so many blocks.
struct Upload_Began {
    std::int32_t passes = 1;
    std::int32_t blocks = 0;
};
/// A download was asked for; how much there is to send isn't known yet.
struct Download_Asked {};
/// A download begins, with that many cells to walk.
struct Download_Began {
    std::int32_t cells = 0;
};
/// One step of the present transfer is done: a block or a cell.
struct Step_Done {};
/// A cell of the download that the template keeps back.
struct Value_Kept_Back {
    std::string address;
};
/// The write of a number: of a cell of the download, or live.
struct Value_Written {
    std::string value; ///< as its cell has it, or as typed; empty for a time
    std::string address;
    Write_Progress progress = Write_Progress::Completed;
};
/// The write of a text to a range of registers has ended.
struct Text_Written {
    std::int32_t first = 0;
    std::int32_t last = 0;
    std::string text;
    bool failed = false;
};
/// A transfer came to its end, whatever became of each value.
struct Transfer_Finished {
    bool isUpload = false;
};
/// Nothing answers, so nothing is written.
struct Controller_Silent {};
/// No answer came any more: the transfer is given up.
struct Transfer_Lost {};
/// The user has given the transfer up, and the session is closed.
struct Transfer_Cancelled {
    bool isUpload = false;
};
/// The download has left its walk after it was cancelled: the form is free.
struct Download_Left {};
/// The document of the transfer was closed or replaced.
struct Transfer_Dropped {};
/// Uploads and downloads may be asked for again, or not.
struct Transfers_Offered {
    bool offered = true;
};

// The session and polling.

/// Polling begins.
struct Polling_Began {};
/// The session is about to end.
struct Session_Ending {};
/// The port of a session that ends is closed. `documentClosed`: as its document goes, which leaves no word.
struct Port_Closed {
    bool documentClosed = false;
};
/// A refresh found the link lost; `newly` as long as the user wasn't told yet.
struct Polling_Lost {
    bool newly = false;
};
/// A refresh found the controller answering; `again` after the user was told of a lost link.
struct Polling_Answered {
    bool again = false;
    bool transferRuns = false;
};
/// The link is trying again.
struct Link_Retrying {};
/// Nothing answers; the session is about to be given up.
struct Link_Silent {};
/// The session was given up after a lost link.
struct Link_Given_Up {};
/// What went over the line since the lights were last shown.
struct Traffic_Seen {
    bool sent = false;
    bool received = false;
};
/// The slave number of the port settings, as they have it; and whether the monitor is on the screen.
struct Unit_Known {
    std::string number;
};
struct Monitor_Looked_At {
    bool onScreen = false;
};

/// A live write whose document was closed or replaced meanwhile: nobody will say how it ended.
struct Live_Write_Dropped {};

} // namespace event

using Transfer_Event =
    std::variant<event::Upload_Began, event::Download_Asked, event::Download_Began, event::Step_Done,
                 event::Value_Kept_Back, event::Value_Written, event::Text_Written, event::Transfer_Finished,
                 event::Controller_Silent, event::Transfer_Lost, event::Transfer_Cancelled,
                 event::Download_Left, event::Transfer_Dropped, event::Transfers_Offered,
                 event::Polling_Began, event::Session_Ending, event::Port_Closed, event::Polling_Lost,
                 event::Polling_Answered, event::Link_Retrying, event::Link_Silent, event::Link_Given_Up,
                 event::Traffic_Seen, event::Unit_Known, event::Monitor_Looked_At, event::Live_Write_Dropped>;

/// Is told of each event after it was shown, at the moment at which it happens.
class Transfer_Watcher {
  public:
    virtual ~Transfer_Watcher() = default;
    virtual void note(const Transfer_Event& event) = 0;
};

} // namespace zorvane
