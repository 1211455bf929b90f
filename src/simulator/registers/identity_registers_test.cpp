// SPDX-License-Identifier: MIT
#include "simulator/registers/identity_registers.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane::simulator {
namespace {

using Values = std::map<std::int32_t, std::uint16_t>;

Register_Map with(const std::string& lines, Register_Map map = {}) {
    addIdentity(readIdentity("[IDENTITY]\n" + lines), map);
    return map;
}

TEST(IdentityRegisters, AMarkHasItsValue) {
    EXPECT_EQ(with("REGISTER_1=5\nVALUE_1=207\n").values, (Values{{5, 207}}));
    EXPECT_EQ(with("REGISTER_1=5\nLOW_1=3\nHIGH_1=9\n").values, (Values{{5, 3}}));
    EXPECT_EQ(with("REGISTER_1=5\nHIGH_1=9\n").values, (Values{{5, 9}}));
    EXPECT_EQ(with("REGISTER_1=5-6\nVALUE_1=70000\n").values, (Values{{5, 1}, {6, 4464}}));
    EXPECT_EQ(with("REGISTER_1=5\nVALUE_1=-2\n").values, (Values{{5, 65534}}));
    EXPECT_EQ(with("TEXTAT_1=5-7\nIS_1=PUMP1\n").values, (Values{{5, 0x5055}, {6, 0x4D50}, {7, 0x3120}}));
}

TEST(IdentityRegisters, WhatTheDocumentGaveARegisterStays) {
    Register_Map map;
    map.values = {{5, 100}, {6, 0}};
    map.live[5] = {};
    const Register_Map filled = with("REGISTER_1=5\nVALUE_1=207\nTEXTAT_2=5-6\nIS_2=ABCD\nREGISTER_3=6\n"
                                     "VALUE_3=1\n",
                                     map);
    EXPECT_EQ(filled.values, (Values{{5, 100}, {6, 1}}));
    EXPECT_TRUE(filled.live.empty()) << "it keeps still";
}

TEST(IdentityRegisters, TheSerialNumberCanBeRead) {
    EXPECT_EQ(with("SERIAL=5-6\nFIRMWARE=9\n").values, (Values{{5, 0}, {6, 0}, {9, 0}}));
}

TEST(IdentityRegisters, RegistersThatCannotBeReadBackRefuseReading) {
    Register_Map map;
    map.values = {{5, 1}, {6, 1}, {8, 1}};
    EXPECT_EQ(with("WRITEONLY=5,7-9\n", map).writeOnly, (std::set<std::int32_t>{5, 8}));
}

TEST(IdentityRegisters, TheObjectsAreTheTemplatesWhenTheyMayBeAsked) {
    EXPECT_EQ(with("OBJECTS=YES\nOBJECT_0=Maker\nOBJECT_1=K207\n").objects,
              (Device_Objects{{0, "Maker"}, {1, "K207"}}));
    EXPECT_TRUE(with("OBJECT_0=Maker\n").objects.empty());
}

TEST(IdentityRegisters, WhatNoWireHasIsLeftOut) {
    EXPECT_EQ(with("REGISTER_1=65536\nVALUE_1=1\nTEXTAT_2=9-5\nIS_2=A\nSERIAL=0-2147483647\n").values,
              Values{});
}

} // namespace
} // namespace zorvane::simulator
