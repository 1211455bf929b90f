// SPDX-License-Identifier: MIT
// "identify" and "compare" as the built program, against simulated controllers of all models.

#include "ctl/testing/built_programs.h"
#include "ctl/testing/ctl_bench.h"
#include "ctl/testing/spawned_program_linux.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <csignal>
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

/// A simulated controller on a pseudo-terminal, which logs what it is asked.
class Simulated {
  public:
    explicit Simulated(const Ctl_Bench& bench, const std::string& file, std::vector<std::string> more = {}) {
        port = bench.path("line");
        log_ = bench.path("log.json");
        std::vector<std::string> command = {sim,     "--template", model(file), "--pty", port,
                                            "--log", log_,         "--seed",    "3"};
        command.insert(command.end(), more.begin(), more.end());
        program_ = std::make_unique<Spawned_Program>(command);
        started = program_->awaitOutput("ready");
    }

    /// Ends the controller, and counts the requests that it had.
    void end() {
        program_->signal(SIGTERM);
        (void)program_->finish();
        std::ifstream file(log_);
        for (std::string line; std::getline(file, line);) {
            const json frame = json::parse(line);
            if (frame.value("direction", "") != "in") continue;
            ++(frame.value("function", 0) == 3 ? reads : others);
        }
    }

    int reads = 0;  ///< of function 3
    int others = 0; ///< of any other function
    std::string port;
    bool started = false;

  private:
    std::string log_;
    std::unique_ptr<Spawned_Program> program_;
};

Ctl_Run run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), ctl);
    Spawned_Program program(arguments);
    const int code = program.finish();
    return {code, program.out(), program.err()};
}

const std::vector<std::string> templates = {"kvrt.ztp", "KVRT100.ZTP", "KVRT207D.ZTP", "R7702-16.ZTP"};

TEST(CompareProgram, EachModelIsToldFromEachOther) {
    for (const std::string& real : templates) {
        SCOPED_TRACE(real);
        const Ctl_Bench bench;
        Simulated controller(bench, real);
        ASSERT_TRUE(controller.started);
        for (const std::string& asked : templates) {
            const Ctl_Run result =
                run({"identify", model(asked), "--port", controller.port, "--timeout", "300", "--json"});
            EXPECT_EQ(result.code, asked == real ? 0 : 5) << asked << ": " << result.out << result.err;
            EXPECT_EQ(json::parse(result.out)["verdict"], asked == real ? "is" : "isn't");
        }
        controller.end();
        EXPECT_GT(controller.reads, 0);
        EXPECT_EQ(controller.others, 0) << "nothing is sent by looking";
    }
}

TEST(CompareProgram, TheRightControllerIsAskedAtMostThreeTimes) {
    for (const std::string& real : templates) {
        SCOPED_TRACE(real);
        const Ctl_Bench bench;
        Simulated controller(bench, real);
        ASSERT_TRUE(controller.started);
        EXPECT_EQ(run({"identify", model(real), "--port", controller.port}).code, 0);
        controller.end();
        EXPECT_GE(controller.reads, 1);
        EXPECT_LE(controller.reads, 3);
    }
}

/// Two registers, and objects that tell who it is.
std::string objectsTemplate(const std::string& marks) {
    return "[HARDWARE]\nCONTROLLER=PUMP\n[PORT_CONFIGURATION]\nHOLDINGREGISTERSBLOCK_1=10-11\n"
           "HOLDINGREQUESTBLOCK_1=ALWAYS\n[IDENTITY]\nOBJECTS=YES\n" +
           marks;
}

TEST(CompareProgram, ObjectsOfFunction43TellWhoItIs) {
    Ctl_Bench bench;
    const std::string told = bench.file("PUMP.ZTP", objectsTemplate("OBJECT_0=ACME\nOBJECT_1=PUMP\n"));
    Simulated controller(bench, told, {"--object", "0=Acme", "--object", "1=FAN"});
    ASSERT_TRUE(controller.started);
    const Ctl_Run result = run({"identify", told, "--port", controller.port, "--json"});
    EXPECT_EQ(result.code, 5);
    EXPECT_EQ(json::parse(result.out), json::parse(R"({"verdict": "isn't", "model": "PUMP", "unit": 1,
        "serial": null, "firmware": null, "evidence": [
        {"register": "object 0", "what": "", "expected": "ACME", "found": "Acme", "result": "fits"},
        {"register": "object 1", "what": "", "expected": "PUMP", "found": "FAN", "result": "doesn't fit"}]})"));
    const std::string other = bench.file("FAN.ZTP", objectsTemplate("OBJECT_1=Fan\n"));
    EXPECT_EQ(run({"identify", other, "--port", controller.port}).code, 0);
    controller.end();
    EXPECT_EQ(controller.others, 2) << "one request for objects each";
}

TEST(CompareProgram, AControllerWithoutObjectsCantBeTold) {
    Ctl_Bench bench;
    const std::string bare = bench.file("BARE.ZTP", "[HARDWARE]\nCONTROLLER=PUMP\n[PORT_CONFIGURATION]\n"
                                                    "HOLDINGREGISTERSBLOCK_1=10-11\n"
                                                    "HOLDINGREQUESTBLOCK_1=ALWAYS\n");
    const std::string told = bench.file("PUMP.ZTP", objectsTemplate("OBJECT_1=PUMP\n"));
    Simulated controller(bench, bare);
    ASSERT_TRUE(controller.started);
    const Ctl_Run result = run({"identify", told, "--port", controller.port, "--json"});
    EXPECT_EQ(result.code, 7);
    EXPECT_EQ(json::parse(result.out)["evidence"],
              json::parse(R"([{"register": "object 1", "what": "", "expected": "PUMP", "found": null,
                               "result": "not read"}])"));
    EXPECT_THAT(run({"identify", told, "--port", controller.port}).out,
                HasSubstr("Illegal function (exception 1)"));
}

TEST(CompareProgram, AControllerWithItsOwnFactoryValuesHasNoDifferenceThatCouldBeSent) {
    for (const std::string& name :
         {std::string("KVRT"), std::string("KVRT100"), std::string("KVRT207D"), std::string("R7702-16")}) {
        SCOPED_TRACE(name);
        const std::string file = name == "KVRT" ? "kvrt.ztp" : name + ".ZTP";
        const Ctl_Bench bench;
        Simulated controller(bench, file);
        ASSERT_TRUE(controller.started);
        const Ctl_Run result =
            run({"compare", model(file), model("DEFAULT." + name), "--port", controller.port, "--json"});
        EXPECT_EQ(result.code, 0) << result.out;
        EXPECT_THAT(result.err, HasSubstr(" is a " + name + "."));
        const json counts = json::parse(result.out)["counts"];
        EXPECT_EQ(counts["differs"], 0);
        EXPECT_EQ(counts["one_side"], 0);
        EXPECT_EQ(counts["not_read"], 0);
        EXPECT_EQ(counts["rows"].get<int>(), counts["equal"].get<int>() + counts["changing"].get<int>() +
                                                 counts["read_only"].get<int>());
        EXPECT_GT(counts["equal"].get<int>(), 20);
        controller.end();
        EXPECT_GT(controller.reads, 0);
        EXPECT_EQ(controller.others, 0) << "nothing is sent by looking";
    }
}

TEST(CompareProgram, AnExampleDiffersFromTheFactoryAndFromAControllerThatHasIt) {
    const Ctl_Run files = run({"compare", model("KVRT207D.ZTP"), model("EXAMPLE.KVRT207D"), "--factory"});
    EXPECT_EQ(files.code, 3);
    EXPECT_THAT(files.out, HasSubstr("Set point"));
    const Ctl_Bench bench;
    Simulated controller(bench, "KVRT207D.ZTP");
    ASSERT_TRUE(controller.started);
    const Ctl_Run line = run({"compare", model("KVRT207D.ZTP"), model("EXAMPLE.KVRT207D"), "--port",
                              controller.port, "--filter", "is:differs", "--json"});
    EXPECT_EQ(line.code, 3);
    const json result = json::parse(line.out);
    EXPECT_EQ(result["rows"].size(), result["counts"]["differs"].get<std::size_t>());
}

TEST(CompareProgram, ABlockThatIsRefusedWasNotRead) {
    const Ctl_Bench bench;
    Simulated controller(bench, "KVRT207D.ZTP", {"--fault", "exception=2@250-261"});
    ASSERT_TRUE(controller.started);
    const Ctl_Run result = run(
        {"compare", model("KVRT207D.ZTP"), model("DEFAULT.KVRT207D"), "--port", controller.port, "--json"});
    EXPECT_EQ(result.code, 7) << result.err;
    EXPECT_EQ(json::parse(result.out)["counts"]["not_read"], 12);
}

TEST(CompareProgram, CtrlCEndsAReadingWith1) {
    const Ctl_Bench bench;
    const std::string port = bench.path("line");
    Spawned_Program controller(
        {sim, "--template", model("KVRT207D.ZTP"), "--pty", port, "--fault", "silent", "--log", "-"});
    ASSERT_TRUE(controller.awaitOutput("ready"));
    Spawned_Program program(
        {ctl, "identify", model("KVRT207D.ZTP"), "--port", port, "--timeout", "20000", "--json"});
    ASSERT_TRUE(controller.awaitOutput("\"function\":3"));
    program.signal(SIGINT);
    EXPECT_EQ(program.finish(), 1);
    EXPECT_THAT(json::parse(program.out())["failure"].get<std::string>(), HasSubstr("Nothing was written."));
}

} // namespace
} // namespace zorvane::ctl
