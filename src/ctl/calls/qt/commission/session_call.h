// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/native_runs.h"
#include "commission/session.h"
#include "ctl/calls/qt/commission/writing_line.h"
#include "ctl/document/document_arguments.h"
#include "ctl/line/port_arguments.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zorvane::ctl {

[[nodiscard]] int exitOf(commission::Step step) noexcept;

/// A document that was read, and the session with its controller, whose port is open.
struct Session_Work {
    const Call_Context& context;
    Opened_Document& opened;
    Identity_Section section;
    Writing_Line& line;
    commission::Native_Runs& runs;
    commission::Session& session;
};

/// Opens a document and its controller's line, and hands both to `work`. Before that what goes wrong is told,
/// and the exit code is `Exit_Failed`; `refused` prints the result then.
class Session_Opener {
  public:
    Session_Opener(const Call_Context& context, const Document_Arguments& files, Port_Settings settings,
                   bool ownTimeOut)
        : context_(context), files_(files), settings_(std::move(settings)), ownTimeOut_(ownTimeOut) {}

    [[nodiscard]] int run(const std::function<int(Session_Work&)>& work,
                          const std::function<void()>& refused) const;

  private:
    [[nodiscard]] commission::Session_Document documentOf(const Opened_Document& opened,
                                                          const Identity_Section& section) const;

    const Call_Context& context_;
    const Document_Arguments& files_;
    Port_Settings settings_;
    bool ownTimeOut_;
};

/// Tells of each value that isn't sent though it would differ, and of those that were named and never are.
void tellNotSent(const Session_Work& work, const commission::Plan& plan,
                 const commission::Chosen_Cells& chosen);

/// Prints what came of a run: one object, or a few lines for people.
void printEnd(const Call_Context& context, const commission::Session_End& end);

} // namespace zorvane::ctl
