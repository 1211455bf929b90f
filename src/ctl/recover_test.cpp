// SPDX-License-Identifier: MIT
// zorvanectl recover: the copies that the window and the saves of this program leave.

#include "ctl/testing/ctl_bench.h"
#include "ctl/testing/small_model.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>

namespace zorvane::ctl {
namespace {

namespace fs = std::filesystem;
using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using nlohmann::json;

const std::string before = doubles::smallConfiguration() + ";as delivered\n; no line end";

struct Recover : testing::Test {
    Ctl_Bench bench;
    std::string ztp = bench.file("ABC.ZTP", doubles::smallTemplate());
    std::string site = bench.file("site.ABC", before);

    /// A copy as the window leaves it when it is killed.
    void leaveCopy(const std::string& name, const std::string& text) const {
        fs::create_directories(bench.recovery());
        std::ofstream(bench.recovery() + "/" + name, std::ios::binary) << text;
    }
};

TEST_F(Recover, AFileIsKeptBeforeASaveWritesOverItAndComesBackByteForByte) {
    EXPECT_EQ(bench.run({"save", ztp, site, site}).code, 0);
    EXPECT_NE(bench.bytes("site.ABC"), before);
    const Ctl_Run list = bench.run({"recover"});
    EXPECT_EQ(list.code, 0);
    EXPECT_EQ(list.err, "");
    EXPECT_EQ(list.out, "Copy                    Time                 Document  Model  Kept because\n"
                        "20261121032005-7-1.ABC  2026-11-21 03:20:05  site.ABC  ABC    before Save\n");
    const Ctl_Run fetch =
        bench.run({"recover", "20261121032005-7-1.ABC", "--out", bench.path("as-it-was.ABC")});
    EXPECT_EQ(fetch.code, 0);
    EXPECT_EQ(fetch.out, "Written: " + bench.path("as-it-was.ABC") + "\n");
    EXPECT_EQ(bench.bytes("as-it-was.ABC"), before);
}

TEST_F(Recover, EachCallThatWritesADocumentKeepsTheFileThatWasThere) {
    bench.file("registers.json", "{}");
    EXPECT_EQ(bench.run({"set", ztp, site, "1", "1", "1", "12", "--save", site}).code, 0);
    bench.time = "2026-11-21 03:20:06";
    EXPECT_EQ(bench.run({"apply", ztp, site, bench.path("registers.json"), "--save", site}).code, 0);
    bench.time = "2026-11-21 03:20:07";
    bench.file("OLD.ABC", "\r\n");
    bench.file("OLD_Updated.ABC", "mine");
    EXPECT_EQ(bench.run({"update", bench.path("OLD.ABC")}).code, 0);
    const json copies = json::parse(bench.run({"recover", "--json"}).out)["copies"];
    ASSERT_EQ(copies.size(), 3U);
    EXPECT_EQ(copies[0]["document"], "OLD_Updated.ABC");
    EXPECT_EQ(copies[1]["time"], "2026-11-21 03:20:06");
    EXPECT_EQ(copies[2], json::parse(R"({"copy":"20261121032005-7-1.ABC","time":"2026-11-21 03:20:05",
                                         "document":"site.ABC","model":"ABC","why":"before Save"})"));
}

TEST_F(Recover, ASaveThatLosesNothingKeepsNothing) {
    EXPECT_EQ(bench.run({"save", ztp, site, bench.path("new.ABC")}).code, 0);
    EXPECT_EQ(bench.run({"save", ztp, bench.path("new.ABC"), bench.path("new.ABC")}).code, 0);
    const Ctl_Run list = bench.run({"recover"});
    EXPECT_EQ(list.code, 0);
    EXPECT_EQ(list.out, "No copies are kept.\n");
    EXPECT_EQ(bench.run({"recover", "--json"}).out, "{\n  \"copies\": []\n}\n");
}

TEST_F(Recover, ACopyOfTheWindowsUnsavedChangesIsListedAndFetched) {
    leaveCopy("20261120010203-99-1.ABC",
              ";time=2026-11-20 01:02:03\r\n;name=SITE7.ABC\r\n;model=ABC 100\r\n;kept=changed\r\n" +
                  doubles::smallConfiguration());
    EXPECT_EQ(bench.run({"recover"}).out,
              "Copy                     Time                 Document   Model    Kept because\n"
              "20261120010203-99-1.ABC  2026-11-20 01:02:03  SITE7.ABC  ABC 100  changed\n");
    const Ctl_Run fetch = bench.run({"recover", "last", "--out", bench.path("back.ABC"), "--json"});
    EXPECT_EQ(fetch.code, 0);
    EXPECT_EQ(json::parse(fetch.out), (json{{"output", bench.path("back.ABC")}}));
    EXPECT_EQ(bench.bytes("back.ABC"), doubles::smallConfiguration());
}

TEST_F(Recover, AFileThatIsThereIsntWrittenOver) {
    EXPECT_EQ(bench.run({"save", ztp, site, site}).code, 0);
    const std::string other = bench.file("other.ABC", "mine");
    const Ctl_Run fetch = bench.run({"recover", "last", "--out", other});
    EXPECT_EQ(fetch.code, 1);
    EXPECT_EQ(fetch.err, "zorvanectl: " + other + ": there is such a file already. Choose another name.\n");
    EXPECT_EQ(bench.bytes("other.ABC"), "mine");
}

TEST_F(Recover, ACopyThatIsntThereIsTold) {
    const Ctl_Run fetch =
        bench.run({"recover", "20260101000000-1-1.ABC", "--out", bench.path("x.ABC"), "--json"});
    EXPECT_EQ(fetch.code, 1);
    EXPECT_EQ(fetch.out, "{\n  \"output\": null\n}\n");
    EXPECT_EQ(
        fetch.err,
        "zorvanectl: 20260101000000-1-1.ABC: there is no such copy. \"zorvanectl recover\" lists them.\n");
    EXPECT_FALSE(bench.exists("x.ABC"));
}

TEST_F(Recover, ACopyNeedsAFileToGoTo) {
    EXPECT_EQ(bench.run({"recover", "last"}).code, 2);
    EXPECT_EQ(bench.run({"recover", "--out", "x"}).code, 2);
}

TEST_F(Recover, ACopyThatCantBeKeptIsToldAndTheSaveGoesOn) {
    std::ofstream(bench.recovery()) << "a file in the folder's place";
    const Ctl_Run run = bench.run({"save", ztp, site, site});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err,
              "zorvanectl: " + site + ": the file as it was before could not be kept for \"recover\".\n");
    EXPECT_NE(bench.bytes("site.ABC"), before);
}

} // namespace
} // namespace zorvane::ctl
