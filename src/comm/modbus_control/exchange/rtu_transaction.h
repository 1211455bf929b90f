// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/answered_requests.h"
#include "comm/modbus_control/exchange/foreign_requests.h"
#include "comm/modbus_control/exchange/late_answers.h"
#include "comm/modbus_control/frame/answer_search.h"
#include "comm/modbus_control/line/byte_port.h"
#include "comm/modbus_control/line/link_clock.h"
#include "comm/modbus_control/line/network_port.h"

#include <optional>
#include <string>

namespace zorvane {

/// One try of one request, from its first byte to its end.
struct Try_Result {
    Rtu_Request request;
    Byte_Array sent;          ///< the frame; empty when the port was lost before it went out
    Byte_Array received;      ///< everything that came in meanwhile
    std::size_t answerAt = 0; ///< where in `received` the valid answer stands
    std::size_t answerLength = 0;
    bool echoed = false;          ///< the adapter's echo came before the answer
    std::size_t noise = 0;        ///< further bytes before the answer
    std::optional<Answer> answer; ///< none: a failed try
    std::string fault;            ///< of a failed try, in words
    bool portLost = false;
    Micros startedAt = 0;
    Micros endedAt = 0;
};

/// Who asked for the exchanges.
class Transaction_Listener {
  public:
    virtual ~Transaction_Listener() = default;
    virtual void requestSent() = 0;
    /// The transaction is free again: the next request may be submitted from within.
    virtual void tryFinished(const Try_Result& result) = 0;
    /// Bytes that belong to no exchange, and what they seem to be.
    virtual void strayReceived(Micros at, const Byte_Array& bytes, const std::string& what) = 0;
    /// Another master's request came in, within an exchange or outside.
    virtual void otherMasterHeard(Micros /*at*/, const Foreign_Request& /*foreign*/) {}
    /// After `tryFinished` when a request was under way.
    virtual void lineLost(const std::string& reason) = 0;
    /// An opening of the port that went on has ended.
    virtual void openingEnded(const Port_Opening& /*opening*/) {}
};

/// What a request waits for beside the silence that every one needs.
enum class Line_Care {
    Usual, ///< after a time-out requests of its shape wait for one more
    Quiet, ///< also until no answer can come any more that would pass for its own and says something else
};

/// The master's side of one exchange at a time on a serial line, as a state machine over port and alarm. All
/// delays are absolute times of the clock. A request goes out once the line has been silent long enough, and
/// after a time-out a request of the same shape waits for one more time-out, since the answer to a read names
/// no address and a late one would pass for the next one's.
///
/// Answers may come later than that, or twice, or for another master. Each such request stays outstanding for
/// ten time-outs or until its answer came. Whoever submits requests asks `mayBeConfused` and `expects`, and
/// chooses a request of another form or one that waits. An answer after another master's request is never
/// taken.
///
/// Where the framing numbers the requests, a late answer, a copy and the right answer are told apart by their
/// numbers: then nothing waits for an outstanding answer, and there is neither silence nor echo.
class Rtu_Transaction final : private Byte_Port_Listener {
  public:
    Rtu_Transaction(Byte_Port& port, Link_Clock& clock, Transaction_Listener& listener);
    Rtu_Transaction(const Rtu_Transaction&) = delete;
    Rtu_Transaction& operator=(const Rtu_Transaction&) = delete;
    ~Rtu_Transaction() override;

    /// Line, RTS mode, delay and echo switch of the next requests, in frames as the port's name tells.
    /// Another port or line forgets a learnt echo.
    void setLine(const Port_Settings& settings) { setLine(settings, framingOf(settings.port)); }
    /// The same with frames of any kind. The framing must outlive the transaction.
    void setLine(const Port_Settings& settings, const Framing& framing);
    /// The pause between the end of an exchange and the next request, and the time-out of an answer.
    void setWaits(Micros pause, Micros timeOut);

    /// Starts one try. REQUIRES: `idle()` and an open port. It always ends in `tryFinished`, unless withdrawn
    /// or abandoned.
    /// Under `Line_Care::Quiet` a try that can't go out for twenty time-outs ends as failed, unsent.
    void submit(Rtu_Request request, Line_Care care = Line_Care::Usual);
    /// Whether an answer may still come that would pass for one to the request and says something else.
    [[nodiscard]] bool mayBeConfused(const Rtu_Request& request);
    /// Whether an answer of the form of the request's is still to come, whatever it says.
    [[nodiscard]] bool expects(const Rtu_Request& request);
    [[nodiscard]] bool idle() const { return state_ == State::Idle; }
    /// Takes back a request that hasn't gone out; false when it has.
    bool withdraw();
    /// Forgets the request whatever its state; nobody is told. An answer still to come is kept apart.
    void abandon();
    /// The port is about to be used, after `open`.
    void lineOpened();

  private:
    static constexpr const char* strayText = "stray bytes";

    enum class State { Idle, Gap, Lead, Wait, Settle };

    void bytesArrived(Byte_View bytes) override;
    void portLost(const std::string& reason) override;
    void openingEnded(const Port_Opening& opening) override { listener_.openingEnded(opening); }

    void ring();
    void ringInGap(Micros now);
    void ringInWait(Micros now);
    void ringInSettle(Micros now);
    void armForState();
    [[nodiscard]] bool inputComesFirst(Micros now);

    [[nodiscard]] Micros sendTime() const;
    [[nodiscard]] Micros earliestAnswer() const;
    void hintPort();
    void lead();
    void send();
    void lowerRts();

    void evaluate();
    void listenOrSucceed(const Finding& finding);
    bool skipLateAnswer();
    [[nodiscard]] std::optional<std::size_t> searchStart() const;
    void settle();
    void atDeadline();
    void succeed(const Finding& finding);
    void fail(std::string fault, bool mayAnswerLater);
    void giveUpWaiting();
    void learnSpeed(const Finding& finding, Byte_View frame);
    void remember(const Finding& finding);
    void learnEcho(std::size_t answerAt);
    void learnPace();
    void learnEchoOfWrite(Byte_View rest);
    void tellTrailing(std::size_t from);
    [[nodiscard]] Answer_Fault faultOfAnswer() const;
    [[nodiscard]] std::string faultNow() const;
    void finish();

    [[nodiscard]] std::optional<Late_Answers::Late> takeLate(Byte_View bytes, std::size_t from);
    void expectCopies(Byte_View bytes);
    std::size_t hearOtherMaster(Byte_View bytes, std::size_t& from);
    void noteOtherMaster(const Foreign_Request& foreign);
    void hearOtherMasterInTry();
    [[nodiscard]] bool afterOtherMaster(const Finding& finding) const;
    [[nodiscard]] Micros whenOver() const;

    void takeStray(Byte_View bytes);
    void tellUnexplained();
    void tellStray(const std::string& what);

    /// What stands on a serial line only: echoes, other masters, and bytes that take time.
    [[nodiscard]] bool onLine() const { return !framing_->numbersRequests(); }
    [[nodiscard]] Micros timeOnLine(std::size_t bytes) const;
    [[nodiscard]] std::optional<std::size_t> endOfEchoIn(Byte_View bytes, std::size_t from = 0) const;
    [[nodiscard]] bool expectsEcho() const { return onLine() && (settings_.adapterEchoes || learntEcho_); }
    void giveNumber();
    [[nodiscard]] Micros settleTime() const;
    [[nodiscard]] Byte_View receivedBytes() const { return result_.received; }

    Byte_Port& port_;
    Link_Clock& clock_;
    Transaction_Listener& listener_;
    std::unique_ptr<Alarm> alarm_;

    Port_Settings settings_;
    const Framing* framing_ = nullptr;
    std::uint16_t lastNumber_ = 0;
    Micros silence_ = 0;
    Micros pause_ = 0;
    Micros timeOut_ = 0;
    bool learntEcho_ = false;
    bool writeDoubled_ = false; ///< the last single write came back twice
    bool learntFast_ = false;   ///< the line brings answers before their requests are out by its baud rate
    bool learntPace_ = false;   ///< the line hands over bytes one by one, as slowly as the baud rate says

    State state_ = State::Idle;
    Try_Result result_;
    std::size_t searchFrom_ = 0; ///< bytes before were told apart as late answers
    std::size_t pieces_ = 0;     ///< in which the bytes received came in
    Micros firstByteAt_ = 0;

    Micros lastActivity_ = 0; ///< last byte in either direction
    Micros quiet_ = 0;        ///< silence that the next request needs after it
    Micros latestSend_ = 0;   ///< a line that never falls silent can't hold a request longer
    Micros leadEnd_ = 0;      ///< when RTS has stood long enough
    Micros txEnd_ = 0;        ///< when the last byte has left
    Micros deadline_ = 0;     ///< of the answer
    Micros settleLimit_ = 0;  ///< a line that never falls silent can't hold a try longer
    bool rtsRaised_ = false;
    bool letInputCome_ = false; ///< the alarm has stood back for bytes already
    Line_Care care_ = Line_Care::Usual;
    Micros quietLimit_ = 0;  ///< a line that never gets quiet can't hold a request longer
    Micros listenUntil_ = 0; ///< for a further answer, since the one found may be an earlier one's; 0: not

    bool early_ = false; ///< that one came too early

    Late_Answers late_;
    Answered_Requests answered_;
    Micros copiesUntil_ = 0;               ///< until then any answer may come once more
    Byte_Array ahead_;                     ///< what came in just before the request went out
    std::optional<std::size_t> foreignAt_; ///< where in the bytes received another master's request began
    std::size_t foreignEnd_ = 0;           ///< and where the last one ended
    std::size_t earFrom_ = 0;              ///< in `ahead_` and the bytes received: heard for other masters
    Byte_Array stray_;
    std::size_t strayFrom_ = 0; ///< in `stray_`: heard for other masters
    Byte_Array lastSent_;
};

} // namespace zorvane
