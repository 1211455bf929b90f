// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/trial_verdict.h"

#include "comm/modbus_control/exchange/exchange_text.h"
#include "comm/modbus_control/exchange/network_advice.h"
#include "comm/modbus_control/line/network_texts.h"
#include "comm/modbus_control/line/simulated_port.h"

namespace zorvane {

namespace {

using Advice = std::vector<std::string>;

std::string unitText(const Trial_Request& request) {
    return "Unit " + std::to_string(request.settings.slave);
}

std::string parityWord(char parity) {
    if (parity == 'E') return "even parity";
    return parity == 'O' ? "odd parity" : "no parity";
}

/// "9600 baud, no parity, 8 data bits, 1 stop bit"
std::string lineWords(const Line_Settings& line) {
    return std::to_string(line.baud) + " baud, " + parityWord(line.parity) + ", " +
           std::to_string(line.dataBits) + " data bits, " + std::to_string(line.stopBits) +
           (line.stopBits == 1 ? " stop bit" : " stop bits");
}

std::string bytesText(std::size_t count) { return std::to_string(count) + (count == 1 ? " byte" : " bytes"); }

std::string registerText(const Trial_Request& request) {
    std::string text = "Register " + std::to_string(request.firstRegister);
    if (request.firstRegister != request.wireAddress)
        text += " (" + std::to_string(request.wireAddress) + " on the wire)";
    return text;
}

std::string directionAdvice(const Port_Settings& settings) {
    switch (settings.rts) {
    case Rts_Mode::HighOnSend:
        return "RS-485: RTS is raised while sending. Try \"None\" for an adapter that switches by itself, or "
               "another delay.";
    case Rts_Mode::KernelRs485:
        return "RS-485: the system's driver switches the adapter. Try \"RTS high while sending\", or "
               "\"None\".";
    case Rts_Mode::None:
        break;
    }
    return "RS-485 adapter that doesn't switch to sending by itself: choose another RTS mode.";
}

Advice silenceAdvice(const Trial_Request& request) {
    if (request.settings.port == simulatedPortName) return {"Choose the port again: that starts it."};
    const auto network = networkPort(request.settings.port);
    if (network && !takesLineSettings(request.settings.port))
        return silenceAdvice(*network, request.settings);
    return {"Is the controller switched on, and its cable in this port?",
            "Slave number: has the controller the number " + std::to_string(request.settings.slave) + "?",
            "Is the controller set to " + lineWords(request.settings.line) +
                "? One wrong setting is silence.",
            "RS-485: exchange the wires A and B.",
            directionAdvice(request.settings),
            "A slow controller, a radio or a gateway: try a longer time-out."};
}

Trial_Verdict goodVerdict(const Trial_Request& request, const Try_Result& result) {
    const Micros took = (result.endedAt - result.startedAt + microsPerMs / 2) / microsPerMs;
    Trial_Verdict verdict{Verdict_Kind::Good,
                          "Good: " + unitText(request) + " answered after " + std::to_string(took) + " ms.",
                          {}};
    if (result.echoed && !request.settings.adapterEchoes)
        verdict.advice.push_back("The adapter repeats what is sent: tick \"Adapter echoes\".");
    if (result.noise > 0)
        verdict.advice.push_back(bytesText(result.noise) +
                                 " of noise came before the answer: check termination, bias and ground.");
    return verdict;
}

constexpr std::uint8_t noPath = 10;
constexpr std::uint8_t noTarget = 11;

/// On a network the gateway is known by its address, and it is the one that speaks.
Trial_Verdict gatewayVerdict(const Trial_Request& request, const Network_Port& port, std::uint8_t code) {
    return {Verdict_Kind::Exception,
            "The gateway " + hostAndPort(port) + " answered, but not unit " +
                std::to_string(request.settings.slave) + ": " + exceptionText(code) + ".",
            gatewayAdvice(code, request.settings)};
}

Trial_Verdict exceptionVerdict(const Trial_Request& request, std::uint8_t code) {
    constexpr std::uint8_t busy = 6;
    const auto network = networkPort(request.settings.port);
    if (network && (code == noPath || code == noTarget)) return gatewayVerdict(request, *network, code);
    Trial_Verdict verdict{Verdict_Kind::Exception,
                          unitText(request) + " is there, but it refused: " + exceptionText(code) + ".",
                          {}};
    if (code == busy)
        verdict.advice = {"Port, line and slave number are right. It is busy: test again in a moment."};
    else if (code == noPath || code == noTarget)
        verdict.advice = {
            "Port and line are right as far as the gateway. Check the slave number, and the line "
            "behind the gateway."};
    else
        verdict.advice = {"Port, line and slave number are right.",
                          registerText(request) +
                              " isn't known to it: does the template fit this controller?"};
    return verdict;
}

Trial_Verdict silenceVerdict(const Trial_Request& request) {
    return {Verdict_Kind::Silence,
            "Silence: nothing came back within " + std::to_string(request.timeOutMs) + " ms.",
            silenceAdvice(request)};
}

Trial_Verdict echoVerdict(const Trial_Request& request) {
    Trial_Verdict verdict{
        Verdict_Kind::Echo,
        "Only the adapter's own echo came back: the port works, and no controller answered.",
        silenceAdvice(request)};
    return verdict;
}

Advice damageAdvice(const Trial_Request& request) {
    const auto network = networkPort(request.settings.port);
    if (network && !takesLineSettings(request.settings.port)) return damageAdvice(*network);
    Advice advice;
    advice.push_back("Baud: has the controller " + std::to_string(request.settings.line.baud) + "?");
    advice.push_back("Parity and stop bits: has it " + lineWords(request.settings.line) + "?");
    advice.push_back("Noise: terminate both ends of the line, bias it in one place, join the grounds.");
    advice.push_back("Two units with the same number, or a second master on the line.");
    return advice;
}

Trial_Verdict damagedVerdict(const Trial_Request& request, const Try_Result& result, Answer_Fault fault) {
    Advice advice = damageAdvice(request);
    if (fault == Answer_Fault::Truncated)
        advice.insert(advice.begin(), "The answer stops half-way: try a longer time-out.");
    return {Verdict_Kind::Damaged,
            "Something came back that is no whole answer: " + std::string(faultText(fault)) + ", " +
                bytesText(result.received.size()) + ".",
            std::move(advice)};
}

Trial_Verdict noEchoVerdict(const Trial_Request& request) {
    return {Verdict_Kind::NoEcho,
            unitText(request) + " is there, but the adapter doesn't echo.",
            {"Clear \"Adapter echoes\"."}};
}

Advice strangerAdvice(const Trial_Request& request) {
    const auto network = networkPort(request.settings.port);
    if (network && network->protocol == Network_Protocol::ModbusTcp)
        return strangerAdvice(*network, request.settings);
    return {"Slave number: has the controller the number " + std::to_string(request.settings.slave) + "?",
            "A second master on the line: disconnect it and test again.",
            "A gateway that mixes up its answers: try a longer time-out."};
}

Trial_Verdict strangerVerdict(const Trial_Request& request, Answer_Fault fault) {
    return {Verdict_Kind::Stranger,
            "A whole answer came back, but not the one asked for: " + std::string(faultText(fault)) + ".",
            strangerAdvice(request)};
}

bool isStranger(Answer_Fault fault) {
    return fault == Answer_Fault::OtherUnit || fault == Answer_Fault::OtherFunction ||
           fault == Answer_Fault::ByteCount || fault == Answer_Fault::OtherNumber;
}

Trial_Verdict failedVerdict(const Trial_Request& request, const Try_Result& result) {
    if (result.received.empty()) return silenceVerdict(request);
    const Framing& framing = framingOf(request.settings.port);
    const bool found = framing.find(result.request, result.received, 0).verdict == Finding::Verdict::Found;
    if (found) return noEchoVerdict(request);
    const Answer_Fault fault = framing.whyNoAnswer(result.request, result.received, 0);
    const bool echo = endOfEcho(result.sent, result.received) == result.received.size();
    if (echo && !framing.numbersRequests()) return echoVerdict(request);
    if (isStranger(fault)) return strangerVerdict(request, fault);
    return damagedVerdict(request, result, fault);
}

Trial_Verdict lostVerdict(const Trial_Request& request) {
    if (const auto network = networkPort(request.settings.port))
        return {Verdict_Kind::Lost,
                "The connection to " + hostAndPort(*network) + " was closed during the test.",
                closedAdvice()};
    return {Verdict_Kind::Lost,
            "The port " + request.settings.port + " went away during the test.",
            {"Plug the adapter in again, or choose another port.",
             "If it happens again: another cable or another USB socket."}};
}

Trial_Verdict notOpenedVerdict(const Trial_Request& request, const std::string& reason) {
    const std::string& name = request.settings.port;
    const auto network = networkPort(name);
    return {Verdict_Kind::NotOpened,
            network ? noConnectionText(*network) : "The port " + name + " can't be opened.",
            {reason}};
}

} // namespace

Trial_Verdict trialVerdict(const Trial_Request& request, const Trial_Report& report) {
    if (!report.opening.opened) return notOpenedVerdict(request, report.opening.reason);
    if (!report.exchange || report.exchange->portLost) return lostVerdict(request);
    const Try_Result& result = *report.exchange;
    if (!result.answer) return failedVerdict(request, result);
    const bool mayEcho = !framingOf(request.settings.port).numbersRequests();
    if (mayEcho && request.settings.adapterEchoes && !result.echoed) return noEchoVerdict(request);
    if (result.answer->exception) return exceptionVerdict(request, *result.answer->exception);
    return goodVerdict(request, result);
}

std::string verdictText(const Trial_Verdict& verdict) {
    std::string text = verdict.headline;
    const bool numbered = verdict.advice.size() > 1;
    for (std::size_t i = 0; i < verdict.advice.size(); ++i)
        text += "\n" + (numbered ? std::to_string(i + 1) + ". " : std::string()) + verdict.advice[i];
    return text;
}

} // namespace zorvane
