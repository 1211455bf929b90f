// SPDX-License-Identifier: MIT
#include "simulator/registers/register_map.h"
#include "simulator/registers/register_storage.h"

#include <gtest/gtest.h>

namespace zorvane::simulator {
namespace {

TEST(RegisterStorage, ItsTextIsARegisterFile) {
    const std::map<std::int32_t, std::uint16_t> values{{100, 7}, {40010, 65535}};
    const std::string text = registerJson(values);
    EXPECT_EQ(text, "{\"100\": 7,\n \"40010\": 65535}\n");
    Register_Map map;
    applyRegisterJson(text, map);
    EXPECT_EQ(map.values, values);
    EXPECT_EQ(registerJson({}), "{}\n");
}

TEST(RegisterStorage, AFolderThatIsNotThereIsNamed) {
    const Register_Storage storage("/nonexistent-folder/registers.json");
    EXPECT_FALSE(storage.exists());
    EXPECT_THROW(storage.keep({{1, 2}}), std::system_error);
}

} // namespace
} // namespace zorvane::simulator
