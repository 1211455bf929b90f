// SPDX-License-Identifier: MIT
// What the built program writes to a controller that refuses, falls silent, or isn't there, and what it does
// when a signal asks for the end. The controller is a script on a pseudo-terminal.
#include "ctl/testing/built_programs.h"
#include "ctl/testing/ctl_bench.h"
#include "ctl/testing/scripted_slave.h"
#include "ctl/testing/spawned_program_linux.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <filesystem>
#include <memory>
#include <mutex>

namespace zorvane::ctl {
namespace {

using doubles::ctl;
using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using doubles::lines;
using doubles::Scripted_Slave;
using doubles::Spawned_Program;
using nlohmann::json;
using ::testing::EndsWith;
using ::testing::HasSubstr;

constexpr std::uint8_t busy = 6;

int registerOf(const Byte_Array& request) { return request.at(2) * 256 + request.at(3); }

/// A model of one field, whose only column has these registers in its rows.
std::string modelOf(const std::vector<std::string>& addresses, const std::vector<std::string>& blocks) {
    std::vector<std::string> text = {"[HARDWARE]", "CONTROLLER=abc", "[PORT_CONFIGURATION]"};
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        text.push_back("HOLDINGREGISTERSBLOCK_" + number + "=" + blocks[i]);
        text.push_back("HOLDINGREQUESTBLOCK_" + number + "=CONFIG");
    }
    const std::string rows = std::to_string(addresses.size());
    text.insert(text.end(), {"[CONFIGURATION_COLUMNS]", "CONFIGURATION_NC=2", "[CONFIGURATION_FIELDS]",
                             "FIELD_1_DESC=Levels", "FIELD_1_RC=" + rows + ",1", "[FIELD_1_COLUMNS]",
                             "COL_1_DESC=Level", "COL_1_MODIFIABLE=YES", "[FIELD_1_CONFIGURATION]"});
    for (std::size_t i = 0; i < addresses.size(); ++i)
        text.push_back((addresses[i].find('-') == std::string::npos ? "ROWADDRESS_" : "ROWASCIIRANGE_") +
                       std::to_string(i + 1) + "=" + addresses[i]);
    return lines(text);
}

std::string documentOf(const std::vector<std::string>& values) {
    std::vector<std::string> text = {"[Configuration_Default]", "FIELD_1=,Levels", "[Field_1_Default]"};
    for (std::size_t i = 0; i < values.size(); ++i)
        text.push_back("ROW_" + std::to_string(i + 1) + "=" + values[i]);
    return lines(text);
}

class Download_Line : public ::testing::Test {
  protected:
    Download_Line() { holding({"100", "101", "102", "103"}, {"100-103"}, {"1", "2", "3", "4"}); }

    void holding(const std::vector<std::string>& addresses, const std::vector<std::string>& blocks,
                 const std::vector<std::string>& values) {
        ztp = bench.file("ABC.ZTP", modelOf(addresses, blocks));
        config = bench.file("site.ABC", documentOf(values));
    }
    /// The shipped model of the board family.
    void holdingBoard() {
        const std::string models = std::filesystem::path(ctl).parent_path().string();
        ztp = models + "/R7702-16.ZTP";
        config = models + "/EXAMPLE.R7702-16";
    }
    void connect(Scripted_Slave::Answer answer) {
        slave = std::make_unique<Scripted_Slave>(std::move(answer));
    }
    std::vector<std::string> call(const std::string& name, const std::vector<std::string>& options) const {
        std::vector<std::string> command = {
            ctl, name, ztp, config, "--port", slave->port(), "--settings", "115200,n,8,1", "--json"};
        command.insert(command.end(), options.begin(), options.end());
        return command;
    }
    Ctl_Run download(const std::vector<std::string>& options = {}) const {
        Spawned_Program program(call("download", options));
        const int code = program.finish();
        return {code, program.out(), program.err()};
    }

    /// Starts the program; the slave's thread may signal it from its first request on.
    void start(const std::vector<std::string>& command) {
        const std::lock_guard lock(gate);
        running = std::make_unique<Spawned_Program>(command);
    }
    void signal(int number) {
        const std::lock_guard lock(gate);
        running->signal(number);
    }

    Ctl_Bench bench;
    std::string ztp;
    std::string config;
    testing::Toy_Slave controller;
    std::mutex gate;
    std::unique_ptr<Spawned_Program> running;
    std::unique_ptr<Scripted_Slave> slave; ///< ends before what its answers use
};

// What a write is built from.

TEST_F(Download_Line, HalfARegisterKeepsTheOtherHalf) {
    holding({"4660/HI"}, {"4660-4661"}, {"5"});
    controller.registers[4660] = 0x1234;
    connect([&](const Byte_Array& request) { return controller.answer(request); });
    const Ctl_Run run = download();
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(controller.registers[4660], 0x0534);
    EXPECT_EQ(json::parse(run.out)["writes"].dump(),
              R"({"failed":0,"not_sent":0,"planned":1,"unknown":0,"written":1})");
}

TEST_F(Download_Line, ABlockThatAWriteNeedsAndThatIsRefusedStopsItBeforeTheFirstWrite) {
    const std::vector<std::pair<std::uint8_t, std::string>> answers = {
        {busy, "BUSY"},
        {2, "Illegal data address (exception 2)"},
        {4, "Server device failure (exception 4)"}};
    holding({"100", "4660/HI"}, {"100-103", "4660-4661"}, {"1", "5"});
    for (const auto& [code, text] : answers) {
        connect([&, exception = code](const Byte_Array& request) {
            const bool refused = request[1] == 3 && registerOf(request) == 4660;
            return refused ? controller.exception(request, exception) : controller.answer(request);
        });
        const Ctl_Run run = download();
        EXPECT_EQ(run.code, 1);
        EXPECT_EQ(slave->writes(), 0U);
        EXPECT_THAT(run.err, HasSubstr("zorvanectl: Registers 4660-4661 were not read: " + text +
                                       "\nzorvanectl: Nothing was written"));
        const json told = json::parse(run.out);
        EXPECT_EQ(told["outcome"], "failed");
        EXPECT_EQ(told["errors"][0]["Start_Address"], "4660");
        EXPECT_EQ(told["errors"][0]["Response"], text);
        EXPECT_EQ(told["writes"]["not_sent"], 2);
    }
}

TEST_F(Download_Line, ASilentBlockIsNamed) {
    holding({"4660/LO"}, {"100-103", "4660-4661"}, {"5"});
    connect([&](const Byte_Array& request) {
        return registerOf(request) == 4660 ? Byte_Array() : controller.answer(request);
    });
    const Ctl_Run run = download({"--timeout", "50", "--retries", "1"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(slave->writes(), 0U);
    EXPECT_EQ(slave->reads(), 2U);
    EXPECT_THAT(run.err, HasSubstr("zorvanectl: Registers 4660-4661 were not read: no answer\n"
                                   "zorvanectl: Nothing was written"));
    EXPECT_EQ(json::parse(run.out)["panel4"], "Error. The controller does not respond.");
}

TEST_F(Download_Line, TheRestOfABoardsBlockIsNeverMadeUp) {
    holdingBoard();
    connect([&](const Byte_Array& request) {
        const bool refused = request[1] == 3 && registerOf(request) == 106;
        return refused ? controller.exception(request, busy) : controller.answer(request);
    });
    const Ctl_Run run = download();
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(slave->writes(), 0U);
    EXPECT_THAT(run.err, HasSubstr("zorvanectl: Registers 106-161 were not read: BUSY\n"));
}

TEST_F(Download_Line, ARegisterOfNoBlockIsNotMadeUpEither) {
    holding({"100", "200/HI"}, {"100-103"}, {"1", "5"});
    connect([&](const Byte_Array& request) { return controller.answer(request); });
    const Ctl_Run run = download();
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(slave->reads() + slave->writes(), 0U);
    EXPECT_THAT(run.err, HasSubstr("zorvanectl: Register 200 lies in no block that the template reads\n"));
}

TEST_F(Download_Line, ARefusedBlockThatNoWriteNeedsStopsNothing) {
    holding({"100", "4660/HI"}, {"100-103", "4660-4661"}, {"1", "5"});
    connect([&](const Byte_Array& request) {
        const bool refused = request[1] == 3 && registerOf(request) == 100;
        return refused ? controller.exception(request, busy) : controller.answer(request);
    });
    const Ctl_Run run = download();
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(slave->writes(), 2U);
}

// An echo is no controller.

TEST_F(Download_Line, AnAdapterThatEchoesWithNobodyBehindItIsNoController) {
    for (const std::vector<std::string>& options : {std::vector<std::string>{}, {"--echo"}}) {
        connect([](const Byte_Array& request) { return request; });
        std::vector<std::string> fast = {"--timeout", "50", "--retries", "1"};
        fast.insert(fast.end(), options.begin(), options.end());
        const Ctl_Run run = download(fast);
        EXPECT_EQ(run.code, 1);
        EXPECT_EQ(slave->writes(), 0U);
        EXPECT_EQ(json::parse(run.out)["outcome"], "failed");
        EXPECT_THAT(run.err, HasSubstr("zorvanectl: Registers 100-103 were not read: no answer, only the "
                                       "adapter's echo\nzorvanectl: Nothing was written"));
    }
}

TEST_F(Download_Line, ATemplateWithoutBlocksAsksForTheFirstValuesRegister) {
    holding({"107", "108"}, {"100-103"}, {"1", "2"});
    connect([](const Byte_Array& request) { return request; });
    bench.file("ABC.ZTP", modelOf({"107", "108"}, {}));
    const Ctl_Run run = download({"--timeout", "50", "--retries", "0"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(slave->writes(), 0U);
}

TEST_F(Download_Line, AnEchoWithAControllerBehindItIsAController) {
    for (const std::vector<std::string>& options : {std::vector<std::string>{}, {"--echo"}}) {
        connect([&](const Byte_Array& request) {
            Byte_Array both = request;
            const Byte_Array answer = controller.answer(request);
            both.insert(both.end(), answer.begin(), answer.end());
            return both;
        });
        const Ctl_Run run = download(options);
        EXPECT_EQ(run.code, 0) << run.err;
        EXPECT_EQ(slave->reads(), 1U);
        EXPECT_EQ(slave->writes(), 4U);
    }
}

TEST_F(Download_Line, AControllerThatRefusesTheFirstBlockIsThere) {
    connect([&](const Byte_Array& request) {
        return request[1] == 3 ? controller.exception(request, busy) : controller.answer(request);
    });
    const Ctl_Run run = download();
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(slave->writes(), 4U);
}

// Signals.

struct Signal {
    int number;
    const char* name;
};
constexpr Signal signals[] = {{SIGINT, "SIGINT"}, {SIGTERM, "SIGTERM"}, {SIGHUP, "SIGHUP"}};

TEST_F(Download_Line, ASignalInTheFirstReadingIsHeeded) {
    holding({"4660/HI", "100", "101"}, {"4660-4661", "100-101"}, {"5", "1", "2"});
    for (const auto& [number, name] : signals) {
        connect([](const Byte_Array&) { return Byte_Array(); });
        Spawned_Program program(call("download", {"--timeout", "20000"}));
        ASSERT_TRUE(slave->awaitRequests(1));
        program.signal(number);
        EXPECT_EQ(program.finish(), 1);
        EXPECT_EQ(slave->reads(), 1U);
        EXPECT_EQ(slave->writes(), 0U);
        EXPECT_THAT(
            program.err(),
            EndsWith("zorvanectl: Download stopped by " + std::string(name) +
                     " before the first write: nothing was written, 3 writes were not sent (registers "
                     "100-101, 4660).\nzorvanectl: Download cancelled...\n"));
        EXPECT_EQ(json::parse(program.out())["outcome"], "cancelled");
        EXPECT_EQ(json::parse(program.out())["writes"].dump(),
                  R"({"failed":0,"not_sent":3,"planned":3,"unknown":0,"written":0})");
    }
}

TEST_F(Download_Line, ASignalJustBeforeTheFirstReadingEndsIsHeeded) {
    holding({"4660/HI", "100", "101"}, {"4660-4661", "100-101"}, {"5", "1", "2"});
    for (const auto& [number, name] : signals) {
        connect([&, wanted = number](const Byte_Array& request) {
            signal(wanted);
            return controller.answer(request);
        });
        start(call("download", {}));
        EXPECT_EQ(running->finish(), 1);
        EXPECT_EQ(slave->writes(), 0U);
        EXPECT_THAT(running->err(), HasSubstr("Download stopped by " + std::string(name)));
    }
}

TEST_F(Download_Line, ASignalBetweenWritesIsHeededAfterTheWriteThatIsUnderWay) {
    for (const auto& [number, name] : signals) {
        connect([&, wanted = number](const Byte_Array& request) {
            if (request[1] == 6 && registerOf(request) == 101) signal(wanted);
            return controller.answer(request);
        });
        start(call("download", {}));
        EXPECT_EQ(running->finish(), 1);
        EXPECT_EQ(slave->writes(), 2U);
        EXPECT_THAT(running->err(), EndsWith("zorvanectl: Download stopped by " + std::string(name) +
                                             ". Of 4 writes 2 were made (registers 100-101), 2 were not sent "
                                             "(registers 102-103).\nzorvanectl: Download cancelled...\n"));
        EXPECT_EQ(json::parse(running->out())["outcome"], "cancelled");
        EXPECT_EQ(json::parse(running->out())["writes"].dump(),
                  R"({"failed":0,"not_sent":2,"planned":4,"unknown":0,"written":2})");
    }
}

TEST_F(Download_Line, ASignalAfterTheLastWriteSaysThatAllWereMade) {
    connect([&](const Byte_Array& request) { return controller.answer(request); });
    Spawned_Program program(call("download", {}));
    ASSERT_TRUE(program.awaitNotice("100 % (4 of 4)\n"));
    program.signal(SIGTERM);
    EXPECT_EQ(program.finish(), 1);
    EXPECT_EQ(slave->writes(), 4U);
    EXPECT_EQ(slave->reads(), 1U);
    EXPECT_THAT(program.err(), EndsWith("zorvanectl: Download stopped by SIGTERM. Of 4 writes 4 were made "
                                        "(registers 100-103), 0 were not sent.\n"));
    EXPECT_EQ(json::parse(program.out())["outcome"], "finished");
}

TEST_F(Download_Line, AWriteThatStaysUnansweredHasItsTriesAndIsUncertain) {
    connect([&](const Byte_Array& request) {
        if (request[1] == 3) return controller.answer(request);
        signal(SIGTERM);
        return Byte_Array();
    });
    start(call("download", {"--timeout", "50", "--retries", "1"}));
    EXPECT_EQ(running->finish(), 1);
    EXPECT_EQ(slave->writes(), 2U);
    EXPECT_THAT(running->err(), HasSubstr("Of 4 writes 0 were made, 1 may have been made, for no answer came "
                                          "(registers 100), 3 were not sent (registers 101-103)."));
}

TEST_F(Download_Line, ASecondCtrlCDoesntWaitForTheTries) {
    connect([&](const Byte_Array& request) {
        if (request[1] == 3) return controller.answer(request);
        signal(SIGINT);
        return Byte_Array();
    });
    start(call("download", {"--timeout", "20000"}));
    EXPECT_TRUE(running->awaitNotice("Stopping after the write that is under way. Ctrl+C ends at once.\n"));
    signal(SIGINT);
    EXPECT_EQ(running->finish(), 1);
    EXPECT_EQ(slave->writes(), 1U);
    EXPECT_THAT(running->err(), HasSubstr("1 may have been made"));
}

TEST_F(Download_Line, ATextBlockIsFinishedFirst) {
    holding({"100", "117-120", "101"}, {"100-120"}, {"1", "BRUNN-T2", "2"});
    for (const auto& [number, name] : signals) {
        connect([&, wanted = number](const Byte_Array& request) {
            if (request[1] == 16) signal(wanted);
            return controller.answer(request);
        });
        start(call("download", {}));
        EXPECT_EQ(running->finish(), 1);
        EXPECT_EQ(slave->writes(), 2U);
        EXPECT_THAT(running->err(), HasSubstr("Of 3 writes 2 were made (registers 100, 117-120), 1 were not "
                                              "sent (registers 101)."));
    }
}

TEST_F(Download_Line, ASignalStopsAnUploadAtOnce) {
    for (const auto& [number, name] : signals) {
        connect([](const Byte_Array&) { return Byte_Array(); });
        Spawned_Program program(call("upload", {"--timeout", "20000"}));
        ASSERT_TRUE(slave->awaitRequests(1));
        program.signal(number);
        EXPECT_EQ(program.finish(), 1);
        EXPECT_EQ(slave->reads(), 1U);
        EXPECT_THAT(program.err(), EndsWith("zorvanectl: Upload stopped by " + std::string(name) +
                                            ". Nothing was written, and the document stays as it was.\n"
                                            "zorvanectl: Upload cancelled...\n"));
        EXPECT_EQ(json::parse(program.out())["outcome"], "cancelled");
    }
}

TEST_F(Download_Line, AHangUpThatIsIgnoredStaysSo) {
    connect([&](const Byte_Array& request) {
        signal(SIGHUP);
        return controller.answer(request);
    });
    std::vector<std::string> command = {"/bin/sh", "-c", "trap '' HUP; exec \"$@\"", "sh"};
    for (const std::string& word : call("download", {}))
        command.push_back(word);
    start(command);
    EXPECT_EQ(running->finish(), 0) << running->err();
    EXPECT_EQ(slave->writes(), 4U);
}

} // namespace
} // namespace zorvane::ctl
