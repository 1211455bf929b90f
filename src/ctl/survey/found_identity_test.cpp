// SPDX-License-Identifier: MIT
#include "ctl/survey/known_template.h"
#include "survey/desk/found_identity.h"
#include "template/testing/memory_files.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

namespace zorvane::ctl {
namespace {

using survey::Found_Identity;
using survey::identityOfFound;
using survey::Known_Template;

/// A controller by its registers; it has no others.
class Held_Registers final : public Unit_Reader {
  public:
    std::map<std::int32_t, std::uint16_t> registers;

    Unit_Answer read(std::int32_t /*unit*/, std::int32_t first, std::int32_t count) override {
        Unit_Answer answer{Unit_End::Answered};
        for (std::int32_t number = first; number < first + count; ++number) {
            const auto held = registers.find(number);
            if (held == registers.end()) return {Unit_End::Refused, {}, {}, 2};
            answer.values.push_back(held->second);
        }
        return answer;
    }
    void pause(Micros /*span*/) override {}
    [[nodiscard]] Micros now() const override { return 0; }
    [[nodiscard]] bool cancelled() const override { return false; }
};

std::string templateOf(const std::string& model, int number) {
    return "[HARDWARE]\r\nCONTROLLER=" + model +
           "\r\n[PORT_CONFIGURATION]\r\nHOLDINGREGISTERSBLOCK_1=100-101\r\n[IDENTITY]\r\nREGISTER_1="
           "320\r\nVALUE_1=" +
           std::to_string(number) + "\r\n";
}

struct Identity_Rig {
    Identity_Rig() {
        files.put("/app/ONE.ZTP", templateOf("ONE", 1));
        files.put("/app/TWO.ZTP", templateOf("TWO", 2));
    }
    [[nodiscard]] Found_Identity ask(const std::vector<std::string>& names) {
        const auto templates = readKnownTemplates(context, names).value();
        return identityOfFound(5, templates.known,
                               [this](const Known_Template&, const auto& question) { question(controller); });
    }

    doubles::Memory_Files files;
    std::ostringstream out;
    std::ostringstream err;
    Call_Context context{files, out, err, "/app", false, nullptr};
    Held_Registers controller;
};

TEST(FoundIdentity, IsTheFirstTemplateThatFits) {
    Identity_Rig rig;
    rig.controller.registers = {{320, 2}};
    const Found_Identity identity = rig.ask({"/app/ONE.ZTP", "/app/TWO.ZTP"});
    EXPECT_EQ(identity.verdict, "is");
    EXPECT_EQ(identity.model, "TWO");
}

TEST(FoundIdentity, IsNoneOfThemWhenNoneFits) {
    Identity_Rig rig;
    rig.controller.registers = {{320, 3}};
    const Found_Identity identity = rig.ask({"/app/ONE.ZTP", "/app/TWO.ZTP"});
    EXPECT_EQ(identity.verdict, "isn't");
    EXPECT_EQ(identity.model, std::nullopt);
}

TEST(FoundIdentity, CannotBeToldWithoutATemplateOrAnAnswer) {
    Identity_Rig rig;
    EXPECT_EQ(rig.ask({}).verdict, "can't tell");
    const auto templates = readKnownTemplates(rig.context, {"/app/ONE.ZTP"}).value();
    EXPECT_EQ(identityOfFound(5, templates.known, [](const Known_Template&, const auto&) {}).verdict,
              "can't tell");
}

} // namespace
} // namespace zorvane::ctl
