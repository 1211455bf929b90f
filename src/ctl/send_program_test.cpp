// SPDX-License-Identifier: MIT
// "plan --port", "send", "verify", "restore", "resume" and "runs" as the built program, against a simulated
// KVRT207D on a pseudo-terminal. Each exit has its test.

#include "ctl/testing/built_programs.h"
#include "ctl/testing/ctl_bench.h"
#include "ctl/testing/spawned_program_linux.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace zorvane::ctl {
namespace {

using doubles::ctl;
using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using doubles::model;
using doubles::sim;
using doubles::Spawned_Program;
using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;

/// The programs with a state folder of their own, and a controller with its factory values.
class SendProgram : public ::testing::Test {
  protected:
    SendProgram() { ::setenv("XDG_STATE_HOME", bench.path("state").c_str(), 1); }
    ~SendProgram() override { ::unsetenv("XDG_STATE_HOME"); }

    void start(const std::string& file = "KVRT207D.ZTP", std::vector<std::string> more = {}) {
        port = bench.path("line");
        std::vector<std::string> command = {sim,     "--template",           model(file), "--pty", port,
                                            "--log", bench.path("log.json"), "--seed",    "3"};
        command.insert(command.end(), more.begin(), more.end());
        controller = std::make_unique<Spawned_Program>(command);
        ASSERT_TRUE(controller->awaitOutput("ready"));
    }

    static Ctl_Run run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), ctl);
        Spawned_Program program(arguments);
        const int code = program.finish();
        return {code, program.out(), program.err()};
    }
    [[nodiscard]] Ctl_Run call(const std::string& name, std::vector<std::string> more = {}) const {
        std::vector<std::string> all = {
            name, model("KVRT207D.ZTP"), model("EXAMPLE.KVRT207D"), "--port", port, "--json"};
        all.insert(all.end(), more.begin(), more.end());
        return run(all);
    }
    [[nodiscard]] Ctl_Run onRun(const std::string& name) const {
        return run({name, "last", "--port", port, "--json"});
    }
    [[nodiscard]] int writes() const {
        std::ifstream file(bench.path("log.json"));
        int count = 0;
        for (std::string line; std::getline(file, line);) {
            const json frame = json::parse(line);
            const int function = frame.value("function", 0);
            if (frame.value("direction", "") == "in" && (function == 6 || function == 16)) ++count;
        }
        return count;
    }

    const Ctl_Bench bench;
    std::string port;
    std::unique_ptr<Spawned_Program> controller;
};

TEST_F(SendProgram, APlanOnlyReadsAndSaysThatThereIsSomethingToWrite) {
    start();
    const Ctl_Run plan = call("plan", {"--out", bench.path("p.json")});
    EXPECT_EQ(plan.code, 3) << plan.err;
    const json paper = json::parse(plan.out);
    EXPECT_EQ(paper["version"], 1);
    EXPECT_EQ(paper["run"], nullptr);
    EXPECT_EQ(paper["identity"]["verdict"], "is");
    EXPECT_GT(paper["writes"].size(), 0U);
    EXPECT_EQ(json::parse(bench.bytes("p.json")), paper);
    EXPECT_EQ(writes(), 0) << "nothing is sent by looking";
}

TEST_F(SendProgram, SendsAPlanOnceAndASecondTimeNothing) {
    start();
    EXPECT_EQ(call("plan", {"--out", bench.path("p.json")}).code, 3);
    const Ctl_Run sent = call("send", {"--plan", bench.path("p.json")});
    EXPECT_EQ(sent.code, 0) << sent.err << sent.out;
    const json result = json::parse(sent.out);
    EXPECT_EQ(result["counts"]["verified"], result["counts"]["rows"]);
    EXPECT_GT(result["counts"]["rows"], 0);
    EXPECT_EQ(writes(), result["requests"]["writes"].get<int>());
    const int before = writes();
    EXPECT_EQ(call("send", {"--plan", bench.path("p.json")}).code, 0);
    EXPECT_EQ(call("send", {"--yes"}).code, 0);
    EXPECT_EQ(writes(), before);
    EXPECT_EQ(onRun("verify").code, 0);
}

TEST_F(SendProgram, RestoresWhatWasThereAndListsItsRuns) {
    start();
    EXPECT_EQ(call("send", {"--yes"}).code, 0);
    const Ctl_Run restored = onRun("restore");
    EXPECT_EQ(restored.code, 0) << restored.err;
    EXPECT_EQ(call("plan").code, 3) << "all is to be written again";
    const json runs = json::parse(run({"runs", "--json"}).out)["runs"];
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_EQ(runs[0]["state"], "finished");
    EXPECT_EQ(runs[1]["state"], "restored");
    EXPECT_EQ(runs[1]["model"], "KVRT207D");
}

TEST_F(SendProgram, NobodyToAnswerTheQuestionIsAnErrorOfTheCommandLine) {
    start();
    EXPECT_EQ(call("send").code, 2);
    EXPECT_EQ(writes(), 0);
}

TEST_F(SendProgram, AWrongModelStopsBeforeTheFirstWrite) {
    start("KVRT100.ZTP");
    const Ctl_Run sent = call("send", {"--yes"});
    EXPECT_EQ(sent.code, 5);
    EXPECT_EQ(json::parse(sent.out)["identity"]["verdict"], "isn't");
    EXPECT_EQ(json::parse(sent.out)["counts"]["rows"], 0);
    EXPECT_EQ(writes(), 0);
}

TEST_F(SendProgram, ASilentLineFailsWithOneObject) {
    start();
    const Ctl_Run sent = call("send", {"--yes", "--slave", "9", "--timeout", "100", "--retries", "0"});
    EXPECT_EQ(sent.code, 1);
    EXPECT_EQ(json::parse(sent.out)["run"], nullptr);
    EXPECT_THAT(sent.err, HasSubstr("doesn't answer"));
}

TEST_F(SendProgram, APlanWithoutAPortIsOneObjectWithNothingToWrite) {
    start();
    const Ctl_Run plan =
        run({"plan", model("KVRT207D.ZTP"), model("EXAMPLE.KVRT207D"), "--port", "/nowhere/line", "--json"});
    EXPECT_EQ(plan.code, 1);
    const json paper = json::parse(plan.out);
    EXPECT_EQ(paper["line"]["port"], "/nowhere/line");
    EXPECT_EQ(paper["counts"]["rows"], 0);
    EXPECT_EQ(paper["writes"], json::array());
    EXPECT_EQ(paper["identity"], nullptr);
}

TEST_F(SendProgram, AValueThatTheControllerForgetsIsShownWithWhatWasSentAndWhatIsThere) {
    start("KVRT207D.ZTP", {"--quirk", "forgets@250"});
    const Ctl_Run sent = run(
        {"send", model("KVRT207D.ZTP"), model("EXAMPLE.KVRT207D"), "--port", port, "--yes", "--only", "3,1"});
    EXPECT_EQ(sent.code, 4);
    EXPECT_THAT(sent.out, HasSubstr("Sent  Read back"));
    EXPECT_THAT(sent.out, HasSubstr("stored otherwise"));
    EXPECT_THAT(sent.out, HasSubstr("0 of 1 values verified, 1 stored otherwise.\n"));
}

TEST_F(SendProgram, AChangedTemplateMakesAPlanStale) {
    start();
    EXPECT_EQ(call("plan", {"--out", bench.path("p.json")}).code, 3);
    json paper = json::parse(bench.bytes("p.json"));
    paper["template"]["sha256"] = "0";
    std::ofstream(bench.path("q.json")) << paper;
    EXPECT_EQ(call("send", {"--plan", bench.path("q.json")}).code, 6);
    EXPECT_EQ(writes(), 0);
}

TEST_F(SendProgram, OnlyWhatIsNamedIsSent) {
    start();
    const Ctl_Run sent = call("send", {"--yes", "--only", "3,1,2"});
    EXPECT_EQ(sent.code, 0) << sent.err;
    const json result = json::parse(sent.out);
    ASSERT_EQ(result["rows"].size(), 1U);
    EXPECT_EQ(result["rows"][0]["register"], "250");
    EXPECT_EQ(result["rows"][0]["state"], "verified");
    EXPECT_EQ(writes(), 1);
}

TEST_F(SendProgram, AnotherControllerComesBeforeAStalePlan) {
    start();
    EXPECT_EQ(call("plan", {"--out", bench.path("p.json")}).code, 3);
    json paper = json::parse(bench.bytes("p.json"));
    paper["document"]["sha256"] = "0";
    std::ofstream(bench.path("q.json")) << paper;
    const Ctl_Run stale = call("send", {"--plan", bench.path("q.json")});
    EXPECT_EQ(stale.code, 6);
    EXPECT_EQ(json::parse(stale.out)["identity"]["verdict"], "is");
    start("KVRT100.ZTP");
    EXPECT_EQ(call("send", {"--plan", bench.path("q.json")}).code, 5);
    EXPECT_EQ(writes(), 0);
}

TEST_F(SendProgram, WhatNamesNoCellIsToldAndSendsNothing) {
    start();
    for (const std::string& call : {std::string("plan"), std::string("send")})
        for (const char* only : {"99", "3,99", "3,1,99"}) {
            std::vector<std::string> more = {"--only", "3,1,2", "--only", only};
            if (call == "send") more.emplace_back("--yes");
            const Ctl_Run wrong = this->call(call, more);
            EXPECT_EQ(wrong.code, 1) << call << only;
            EXPECT_EQ(wrong.err, "zorvanectl: --only " + std::string(only) +
                                     " names no cell: the template has no such field, row or column. Nothing "
                                     "was sent.\n");
            EXPECT_EQ(json::parse(wrong.out)["counts"]["rows"], 0);
        }
    EXPECT_EQ(writes(), 0);
}

TEST_F(SendProgram, APlanThatCantBeKeptIsOneObjectAllTheSame) {
    start();
    const Ctl_Run plan = call("plan", {"--out", bench.path("nowhere/p.json")});
    EXPECT_EQ(plan.code, 1);
    EXPECT_GT(json::parse(plan.out)["writes"].size(), 0U);
    EXPECT_THAT(plan.err, HasSubstr("nowhere/p.json could not be written"));
}

TEST_F(SendProgram, APlanTakesTheDocumentsPlaceNever) {
    start();
    const std::string config = bench.path("site.KVRT207D");
    std::filesystem::copy_file(model("EXAMPLE.KVRT207D"), config);
    const std::string before = bench.bytes("site.KVRT207D");
    const Ctl_Run plan = run({"plan", model("KVRT207D.ZTP"), config, "--port", port, "--out", config});
    EXPECT_EQ(plan.code, 1);
    EXPECT_THAT(plan.err, HasSubstr("site.KVRT207D is the document itself. Choose another file"));
    EXPECT_EQ(bench.bytes("site.KVRT207D"), before);
}

TEST_F(SendProgram, AnEmptyValueIsAnErrorOfTheCommandLine) {
    start();
    for (const char* option : {"--plan", "--although", "--slave", "--timeout", "--retries", "--tx-delay"}) {
        const Ctl_Run sent = call("send", {"--yes", option, ""});
        EXPECT_EQ(sent.code, 2) << option;
        EXPECT_THAT(sent.err, HasSubstr(std::string(option) + ": the value is empty"));
    }
    EXPECT_EQ(call("plan", {"--out", ""}).code, 2);
    for (const char* name : {"plan", "send", "download", "compare"})
        EXPECT_EQ(run({name, model("KVRT207D.ZTP"), "", "--port", port, "--json"}).code, 2) << name;
    for (const char* option : {"--save", "--registers"})
        EXPECT_EQ(call("upload", {option, ""}).code, 2) << option << ": nothing would be written";
    EXPECT_EQ(writes(), 0);
}

TEST_F(SendProgram, AVerificationSaysNotReadWhenNobodyAnswers) {
    start();
    EXPECT_EQ(call("send", {"--yes", "--only", "3,1,2"}).code, 0);
    const Ctl_Run verified = run(
        {"verify", "last", "--port", port, "--slave", "9", "--timeout", "100", "--retries", "0", "--json"});
    EXPECT_EQ(verified.code, 7);
    const json result = json::parse(verified.out);
    EXPECT_EQ(result["counts"], (json{{"as_left", 0}, {"changed", 0}, {"not_read", 1}, {"rows", 1}}));
    EXPECT_EQ(result["rows"][0]["now"], nullptr);
    EXPECT_THAT(verified.err, HasSubstr("doesn't answer"));
}

TEST_F(SendProgram, AVerificationByAChangedTemplateFails) {
    start();
    const std::string ztp = bench.path("KVRT207D.ZTP");
    std::filesystem::copy_file(model("KVRT207D.ZTP"), ztp);
    EXPECT_EQ(run({"send", ztp, model("EXAMPLE.KVRT207D"), "--port", port, "--yes", "--only", "3,1,2"}).code,
              0);
    std::ofstream(ztp, std::ios::app) << "; a note\r\n";
    EXPECT_EQ(onRun("verify").code, 1);
    EXPECT_EQ(onRun("resume").code, 6);
    EXPECT_EQ(onRun("restore").code, 6);
}

TEST_F(SendProgram, ARecordNamesItsRunAndOneWithoutAUnitIsNone) {
    start();
    const json sent = json::parse(call("send", {"--yes", "--only", "3,1,2"}).out);
    const Ctl_Run record = run({"record", "last", "--out", bench.path("r.json"), "--json"});
    EXPECT_EQ(record.code, 0) << record.err;
    EXPECT_EQ(json::parse(record.out)["run"], sent["run"]);
    json paper = json::parse(bench.bytes("r.json"));
    paper["controller"]["unit"] = 0;
    std::ofstream(bench.path("q.json")) << paper;
    const Ctl_Run verified = run({"verify-record", bench.path("q.json"), "--port", port, "--json"});
    EXPECT_EQ(verified.code, 1);
    EXPECT_EQ(json::parse(verified.out)["counts"]["rows"], 0);
    EXPECT_THAT(verified.err, HasSubstr("is not the JSON of a record"));
}

TEST_F(SendProgram, ARecordsHeadIsntChangedToHoldIt) {
    start();
    EXPECT_EQ(call("send", {"--yes", "--only", "3,1,2"}).code, 0);
    const Ctl_Run record = run({"record", "last", "--out", bench.path("r.json"), "--panel",
                                "\xC5\x81\xC3\xB3"
                                "w",
                                "--json"});
    EXPECT_EQ(record.code, 1);
    EXPECT_EQ(record.err,
              "zorvanectl: --panel: A character of the text is none that a record holds (Windows-1252).\n");
    EXPECT_EQ(json::parse(record.out)["output"], nullptr);
    EXPECT_FALSE(bench.exists("r.json"));
    EXPECT_EQ(run({"record", "last", "--out", bench.path("r.json"), "--panel", "Sch\xC3\xBCtz"}).code, 0);
    EXPECT_EQ(json::parse(bench.bytes("r.json"))["head"]["panel"], "Sch\xC3\xBCtz");
}

TEST_F(SendProgram, ARecordIsVerifiedByTheRegistersThatItsRunSet) {
    start();
    EXPECT_EQ(call("send", {"--yes", "--only", "3,1,2", "--only", "3,3,2"}).code, 0);
    EXPECT_EQ(run({"record", "last", "--out", bench.path("r.json")}).code, 0);
    const Ctl_Run byRun = onRun("verify");
    const Ctl_Run byRecord = run({"verify-record", bench.path("r.json"), "--port", port, "--json"});
    EXPECT_EQ(byRun.code, 0) << byRun.err;
    EXPECT_EQ(byRecord.code, 0) << byRecord.err;
    EXPECT_EQ(json::parse(byRun.out)["counts"]["rows"], 2);
    EXPECT_EQ(byRecord.out, byRun.out);
    EXPECT_TRUE(json::parse(bench.bytes("r.json"))["link"]["median_ms"].is_number());
}

TEST_F(SendProgram, ARunOfAnotherControllerIsntTouched) {
    const auto startWithSerial = [this](int characters) {
        controller.reset();
        std::ofstream(bench.path("plate.json")) << json{{"328", characters}};
        start("KVRT207D.ZTP", {"--registers", bench.path("plate.json")});
    };
    startWithSerial('A' * 256 + '1');
    EXPECT_EQ(call("send", {"--yes", "--only", "3,1,2"}).code, 0);
    EXPECT_EQ(run({"record", "last", "--out", bench.path("r.json")}).code, 0);
    std::filesystem::remove(bench.path("log.json"));
    startWithSerial('A' * 256 + '2');
    for (const char* const name : {"resume", "restore", "verify"}) {
        const Ctl_Run refused = onRun(name);
        EXPECT_EQ(refused.code, 5) << name;
        EXPECT_THAT(refused.err, HasSubstr("Another controller answers: its serial number is \"A2"));
    }
    const Ctl_Run refused = run({"verify-record", bench.path("r.json"), "--port", port, "--json"});
    EXPECT_EQ(refused.code, 5);
    EXPECT_EQ(json::parse(refused.out)["counts"]["rows"], 0);
    EXPECT_EQ(writes(), 0);
}

TEST_F(SendProgram, WhatIsNamedAndIsNeverSentIsTold) {
    const std::string ztp = bench.path("KVRT207D.ZTP");
    std::filesystem::copy_file(model("KVRT207D.ZTP"), ztp);
    std::ofstream(ztp, std::ios::app) << "[IDENTITY]\r\nLEAVEOUT=250-261\r\n";
    start();
    const Ctl_Run sent =
        run({"send", ztp, model("EXAMPLE.KVRT207D"), "--port", port, "--yes", "--only", "3,1,2"});
    EXPECT_EQ(sent.code, 0) << "nothing to write";
    EXPECT_THAT(sent.err,
                HasSubstr("Not sent: field 3, row 1, column 2: the template leaves its register out."));
    EXPECT_EQ(writes(), 0);
}

TEST_F(SendProgram, ADocumentWithoutValuesIsSaidToBeTheTemplates) {
    start();
    std::ofstream(bench.path("cut.KVRT207D")).flush();
    const Ctl_Run plan = run({"plan", model("KVRT207D.ZTP"), bench.path("cut.KVRT207D"), "--port", port});
    EXPECT_EQ(plan.code, 0) << plan.err;
    EXPECT_THAT(plan.err, HasSubstr("cut.KVRT207D holds no values: all values are the template's own."));
    EXPECT_THAT(call("plan").err, Not(HasSubstr("holds no values")));
}

TEST_F(SendProgram, ARegisterFileAndAPortExcludeEachOther) {
    start();
    EXPECT_EQ(run({"plan", model("KVRT207D.ZTP"), model("EXAMPLE.KVRT207D")}).code, 2);
    EXPECT_EQ(run({"plan", model("KVRT207D.ZTP"), model("EXAMPLE.KVRT207D"), "r.json", "--port", port}).code,
              2);
    EXPECT_EQ(call("plan", {"--selection", "1,1,1"}).code, 2);
}

TEST_F(SendProgram, AnUnreadBlockIsAnExitOfItsOwn) {
    start("KVRT207D.ZTP", {"--fault", "exception=2@250-261"});
    const Ctl_Run sent = call("send", {"--yes"});
    EXPECT_EQ(sent.code, 7) << sent.err;
    EXPECT_THAT(sent.err, HasSubstr("250-261"));
    EXPECT_EQ(writes(), 0);
}

} // namespace
} // namespace zorvane::ctl
