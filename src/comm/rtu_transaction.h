#pragma once

#include "comm/answer_search.h"
#include "comm/byte_port.h"
#include "comm/late_answers.h"
#include "comm/link_clock.h"

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
class Transaction_Owner {
  public:
    virtual ~Transaction_Owner() = default;
    virtual void requestSent() = 0;
    /// The transaction is free again: the next request may be submitted from within.
    virtual void tryFinished(const Try_Result& result) = 0;
    /// Bytes that belong to no exchange, and what they seem to be.
    virtual void strayReceived(Micros at, const Byte_Array& bytes, const std::string& what) = 0;
    /// After `tryFinished` when a request was under way.
    virtual void lineLost(const std::string& reason) = 0;
};

/// The master's side of one exchange at a time on a serial line, as a state machine over port and alarm. All
/// delays are absolute times of the clock. A request goes out once the line has been silent long enough, and
/// after a time-out a request of the same shape waits for one more time-out, since the answer to a read names
/// no address and a late one would pass for the next one's.
class Rtu_Transaction final : private Byte_Port_Listener {
  public:
    Rtu_Transaction(Byte_Port& port, Link_Clock& clock, Transaction_Owner& owner);
    Rtu_Transaction(const Rtu_Transaction&) = delete;
    Rtu_Transaction& operator=(const Rtu_Transaction&) = delete;
    ~Rtu_Transaction() override;

    /// Line, RTS mode, delay and echo switch of the next requests. Another port or line forgets a learnt
    /// echo.
    void setLine(const Port_Settings& settings);
    /// The pause between the end of an exchange and the next request, and the time-out of an answer.
    void setWaits(Micros pause, Micros timeOut);

    /// Starts one try. REQUIRES: `idle()` and an open port. It always ends in `tryFinished`, unless withdrawn
    /// or abandoned.
    void submit(Rtu_Request request);
    [[nodiscard]] bool idle() const { return state_ == State::Idle; }
    /// Takes back a request that hasn't gone out; false when it has.
    bool withdraw();
    /// Forgets the request whatever its state; nobody is told. An answer still to come is kept apart.
    void abandon();
    /// The port is about to be used, after `open`.
    void lineOpened();

  private:
    enum class State { Idle, Gap, Lead, Wait, Settle };

    void bytesArrived(Byte_View bytes) override;
    void portLost(const std::string& reason) override;

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
    bool skipLateAnswer();
    [[nodiscard]] std::optional<std::size_t> searchStart() const;
    void settle();
    void atDeadline();
    void succeed(const Finding& finding);
    void fail(std::string fault, bool mayAnswerLater);
    void learnEcho(std::size_t answerAt);
    void learnPace();
    void learnEchoOfWrite(Byte_View rest);
    void tellTrailing(std::size_t from);
    [[nodiscard]] Answer_Fault faultOfAnswer() const;
    [[nodiscard]] std::string faultNow() const;
    void finish();

    void takeStray(Byte_View bytes);
    void tellStray(const std::string& what);

    [[nodiscard]] bool expectsEcho() const { return settings_.adapterEchoes || learntEcho_; }
    [[nodiscard]] Micros settleTime() const;
    [[nodiscard]] Byte_View receivedBytes() const { return result_.received; }

    Byte_Port& port_;
    Link_Clock& clock_;
    Transaction_Owner& owner_;
    std::unique_ptr<Alarm> alarm_;

    Port_Settings settings_;
    Micros silence_ = 0;
    Micros pause_ = 0;
    Micros timeOut_ = 0;
    bool learntEcho_ = false;
    bool writeDoubled_ = false; ///< the last single write came back twice
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

    Late_Answers late_;
    Byte_Array stray_;
};

} // namespace zorvane
