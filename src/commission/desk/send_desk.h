// SPDX-License-Identifier: MIT
#pragma once

#include "commission/desk/desk_rows.h"
#include "commission/folder/serial_memory.h"
#include "commission/session.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::commission {

/// How far a desk has come with its task.
enum class Desk_Stage {
    Looking,      ///< the controller is read
    Stopped,      ///< there is nothing to do, or nothing can be done: `why`
    Model_Asked,  ///< another controller answers; who goes on names its model
    Serial_Asked, ///< one with another serial number answers
    Ready,        ///< the rows stand there, and nothing goes out before somebody says so
    Sending,
    Ended,
};

/// What a desk does.
enum class Desk_Task { Send, Resume, Restore };

/// All that there is to see of a desk. Texts are in the code page.
struct Desk_State {
    Desk_Stage stage = Desk_Stage::Looking;
    Desk_Task task = Desk_Task::Send;
    std::optional<compare::Identity> identity;
    std::string why;        ///< of Stopped, of the questions and of an end that isn't all well; UTF-8
    Step step = Step::Good; ///< how it ended, once stopped or ended
    std::vector<Desk_Row> rows;
    std::size_t writes = 0;  ///< requests that the rows with a tick take
    std::size_t done = 0;    ///< of them, while sending
    bool stopping = false;   ///< it ends after the present value
    std::string waiting;     ///< while sending: why the controller is waited for; UTF-8
    bool silent = false;     ///< while a question stands open: the latest reading of the line had no answer
    Value_Counts counts;     ///< once ended
    std::string run;         ///< the run that ended, or that a task goes on with
    std::string interrupted; ///< the newest run of this document, when it was interrupted
    std::vector<std::string> restorable; ///< runs of this desk that can be put back, the newest last
};

/// The line of a desk.
class Desk_Line {
  public:
    virtual ~Desk_Line() = default;
    /// Locks the port and opens it. Why it can't, for people; empty when it is open.
    [[nodiscard]] virtual std::string open(std::int32_t unit, const Line_Settings& line) = 0;
    virtual void close() = 0;
    /// Its `cancelled` is `Send_Desk::endsAtOnce`.
    [[nodiscard]] virtual Unit_Writer& exchanges() = 0;
};

/// What a desk works with. All must outlive it.
struct Desk_Services {
    Desk_Line& line;
    Run_Store& runs;
    const Wall_Clock& clock;
    Serial_Memory& serials;
    std::function<void()> changed{}; ///< the state is another one; may be empty
    /// The line is at work from now on, or isn't any more; may be empty.
    std::function<void(bool atWork)> busy{};
    /// The controller's values as a configuration file; may be empty.
    std::function<std::string(const compare::Controller_Registers&)> controllerFile{};
};

/// One window's worth of sending: looks at the controller, shows the rows, asks what is to be asked, sends,
/// goes on with an interrupted run, tries again what failed, puts back. What it does with a controller is
/// what `Session` does; what is typed, ticked and pressed comes in by its members. These return when what
/// they began has ended; whatever is pressed meanwhile is done after it, but for `stop`.
class Send_Desk {
  public:
    /// `chosen` are the cells that get a tick; all that differ when none is named.
    Send_Desk(Desk_Services services, Session_Document document, Chosen_Cells chosen);

    [[nodiscard]] const Desk_State& state() const { return state_; }
    [[nodiscard]] bool atWork() const { return atWork_; }
    /// For the line: no further request is to go out.
    [[nodiscard]] bool endsAtOnce() const;

    /// Looks at the controller.
    void begin();
    /// The answer to the question of the model: false when that isn't its name.
    bool agreeToModel(const std::string& name);
    void agreeToSerial();
    void tick(std::size_t row, bool ticked);
    void tickAll(bool ticked);
    /// Ready: sends.
    void act();
    /// Ends what is under way: a reading at once, a send after the present value.
    void stop();
    /// Ends whatever is under way after the present request: the program ends.
    void abandon();

    // Further tasks. Each looks at the controller and shows its rows first.

    void retryFailed();
    void resumeInterrupted();
    void restoreLast();
    [[nodiscard]] bool canRetry() const;

    /// Once a second: while a question stands open a register is read, so that no watchdog runs out.
    void watch();

    /// Closes the line, and lets others have its port.
    void close();

  private:
    class Work;
    void run(const std::function<void()>& work);
    void start(Desk_Task task, const std::string& run);
    void look();
    void afterLook();
    void prepare();
    void prepareSend();
    void prepareFurther();
    void replan();
    bool stillFits();
    void conclude(Session_End end);
    void stopWith(Step step, const std::string& why);
    void enter(Desk_Stage stage);
    void findInterrupted();
    void findWay();
    [[nodiscard]] Chosen_Cells ticked() const;

    Desk_Services services_;
    Session_Document document_;
    Chosen_Cells chosen_;
    Desk_State state_;
    std::optional<Session> session_;
    Controller_Look look_;
    Plan plan_;
    std::optional<Kept_Run> kept_;        ///< of a further task
    std::optional<std::string> although_; ///< somebody goes on with another controller, by this name
    std::string agreedSerial_;            ///< the serial number that somebody agreed to
    bool atWork_ = false;
    bool open_ = false;
    bool stopAsked_ = false;
    bool abandoned_ = false;
    std::function<void()> pending_;
    Micros lookedAt_ = 0;
};

} // namespace zorvane::commission
