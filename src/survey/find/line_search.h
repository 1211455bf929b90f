// SPDX-License-Identifier: MIT
#pragma once

#include "survey/find/read_probe.h"
#include "survey/find/search_plan.h"
#include "survey/find/unit_trial.h"
#include "survey/listen/frame_finder.h"

#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::survey {

/// A controller that a search found.
struct Found_Unit {
    std::uint8_t unit = 0;
    Line_Settings line;
    Answer_Times times;
    std::int32_t damaged = 0; ///< answers that were damaged or came twice
};

/// Something answers there, but never well enough to be sure of it.
struct Doubtful_Unit {
    std::uint8_t unit = 0;
    Line_Settings line;
    std::int32_t damaged = 0;
    bool unlike = false; ///< its answers were whole, but never one like another
};

enum class Search_End {
    Searched,      ///< everything was tried
    ForeignMaster, ///< another master is on the line
    PortFailed,    ///< the port couldn't be opened, or went away
    Stopped,       ///< by `stop`
};

/// What came of a search.
struct Search_Report {
    Search_End end = Search_End::Searched;
    std::string reason;        ///< of a port that failed
    std::string foreignMaster; ///< in words; empty when none was heard
    std::vector<Found_Unit> found;
    std::vector<Doubtful_Unit> doubtful;
    bool gateway = false; ///< one said that it can't reach a unit (exceptions 10 and 11)
    bool noisy = false;   ///< bytes came in before anything was asked, and no frame was among them
    /// False for a port that takes no settings of a line: those told with the units mean nothing.
    bool linesCount = true;
    std::uint64_t requests = 0;
    Micros duration = 0;
};

/// Where a search stands.
struct Search_Progress {
    Line_Settings line;
    bool linesCount = true; ///< as in the report
    std::uint8_t unit = 0;  ///< 0: it listens
    std::size_t tried = 0;
    std::size_t left = 0;
    std::size_t found = 0;
};

/// Searches a line for controllers by reads alone. It listens first and all the time: once another master is
/// heard, nothing is sent any more. It never blocks: it is driven by port and clock. On a network a port that
/// can't be reached ends it; one that only refuses a line's settings goes on with the next.
class Line_Search final : private Probe_Listener {
  public:
    using Told = std::function<void(const Search_Progress&)>;
    using Done = std::function<void(const Search_Report&)>;

    /// Port and clock must outlive it. `told` is called at each new setting or unit. REQUIRES: a plan with at
    /// least one line, unit and address.
    Line_Search(Byte_Port& port, Link_Clock& clock, Search_Plan plan, Told told = {});
    Line_Search(const Line_Search&) = delete;
    Line_Search& operator=(const Line_Search&) = delete;

    /// Opens the port; `done` is called once, from the event loop, after the port was closed again.
    void start(Done done);
    /// Ends the search; `done` is called with what was found so far.
    void stop() { end(Search_End::Stopped); }
    /// What was found so far.
    [[nodiscard]] const std::vector<Found_Unit>& foundSoFar() const { return report_.found; }

  private:
    enum class Phase { Idle, Listening, Searching, Ended };

    void readEnded(const Try_Result& result) override;
    void bytesHeard(Micros at, Byte_View bytes) override;
    void otherMasterHeard(const Foreign_Request& foreign) override;
    void portLost(const std::string& reason) override;

    void ring();
    void openFrom(std::size_t line);
    void listen();
    void listenFrom(std::size_t line);
    void endOfListening();
    void search();
    void nextPoint();
    void begin(const Probe_Point& point, bool late);
    void beginTrial(const Probe_Point& point, bool late);
    void ask();
    void goOn();
    [[nodiscard]] std::optional<Line_Settings> otherStopBits();
    void found();
    void giveUp();
    void addDoubt();
    void endFrames();
    void frameHeard(const Heard_Frame& frame);
    void numberedHeard(Byte_View bytes);
    void lateByNumber(std::uint8_t unit);
    [[nodiscard]] bool waitsForAnswers();
    void ownAnswerHeard(std::uint8_t unit);
    void lateAnswer(std::uint8_t unit);
    [[nodiscard]] bool isEcho(const Foreign_Request& foreign) const;
    void useLine(std::size_t line, const Line_Settings& settings, std::function<void(bool opened)> then);
    [[nodiscard]] Line_Settings lineTold() const;
    [[nodiscard]] int patience() const;
    void tell(std::uint8_t unit) const;
    void foreignMaster(std::string text);
    void end(Search_End how);

    /// What is remembered of a unit.
    struct Memory {
        bool known = false; ///< found, or tried with the long time-out
        std::optional<Probe_Point> tried;
        Micros askedAt = 0;
    };
    /// With how many stop bits the present line is used.
    enum class Stop_Bits { Probing, AsNamed, Two };

    Link_Clock& clock_;
    Search_Plan plan_;
    Search_Order order_;
    Told told_;
    Done done_;
    std::unique_ptr<Alarm> alarm_;
    Frame_Finder ear_;
    Read_Probe probe_;

    Phase phase_ = Phase::Idle;
    Micros startedAt_ = 0;
    Search_Report report_;
    std::size_t line_ = 0; ///< index of the plan's lines: the one in use
    Line_Settings settings_;
    Stop_Bits stopBits_ = Stop_Bits::Probing;
    bool lineKept_ = false;          ///< a controller was found with it
    std::uint64_t heard_ = 0;        ///< bytes that belong to no read
    std::uint64_t heardBefore_ = 0;  ///< when the present listening began
    Micros heardAt_ = 0;             ///< the last bytes
    std::uint64_t answersHeard_ = 0; ///< of the trial's unit, those that weren't taken too
    Probe_Point point_;
    std::optional<Unit_Trial> trial_;
    Unit_Trial::Next next_ = Unit_Trial::Next::Ask;
    bool patient_ = false; ///< the trial waits with the long time-out
    bool anyLate_ = false; ///< some answer came after its time-out
    bool lingered_ = false;
    std::deque<Probe_Point> late_; ///< points whose answers came too late
    std::array<Memory, 256> units_;
    int damagedUnits_ = 0; ///< that brought nothing but damaged answers
    /// Requests with a number of their own that have no answer yet.
    std::uint64_t unanswered_ = 0;
    bool slow_ = false; ///< some of them were answered late, so that they wait in a row somewhere
};

} // namespace zorvane::survey
