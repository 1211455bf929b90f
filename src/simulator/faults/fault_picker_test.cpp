// SPDX-License-Identifier: MIT
#include "simulator/faults/fault_picker.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace zorvane::simulator {
namespace {

Fault_Picker pickerOf(std::initializer_list<const char*> texts, std::uint64_t seed = 1) {
    std::vector<Fault_Rule> rules;
    for (const char* text : texts)
        rules.push_back(parseFault(text));
    return {std::move(rules), seed};
}

std::string picked(Fault_Picker& picker, const Fault_Question& question) {
    const Fault_Rule* fault = picker.pick(question);
    return fault == nullptr ? "none" : fault->text;
}

constexpr Fault_Question reading{3, 100, 109, false};
constexpr Fault_Question writing{6, 100, 100, false};

TEST(FaultPicker, WithoutFaultsNothingStrikes) {
    Fault_Picker picker = pickerOf({});
    EXPECT_EQ(picked(picker, reading), "none");
}

TEST(FaultPicker, ACountEnds) {
    Fault_Picker picker = pickerOf({"silent:2"});
    EXPECT_EQ(picked(picker, reading), "silent:2");
    EXPECT_EQ(picked(picker, writing), "silent:2");
    EXPECT_EQ(picked(picker, reading), "none");
}

TEST(FaultPicker, TheFirstThatStrikesWins) {
    Fault_Picker picker = pickerOf({"crc:1", "silent:1"});
    EXPECT_EQ(picked(picker, reading), "crc:1");
    EXPECT_EQ(picked(picker, reading), "silent:1");
    EXPECT_EQ(picked(picker, reading), "none");
}

TEST(FaultPicker, ARangeIsMetWhenTheRequestTouchesIt) {
    Fault_Picker picker = pickerOf({"crc@109-200"});
    EXPECT_EQ(picked(picker, reading), "crc@109-200");
    EXPECT_EQ(picked(picker, {3, 100, 108, false}), "none");
    EXPECT_EQ(picked(picker, {3, 200, 210, false}), "crc@109-200");
    EXPECT_EQ(picked(picker, {3, 201, 210, false}), "none");
}

TEST(FaultPicker, ARequestWithoutRegistersMeetsNoRange) {
    Fault_Picker picker = pickerOf({"crc@0-100", "silent"});
    EXPECT_EQ(picked(picker, {17, {}, {}, true}), "silent");
}

TEST(FaultPicker, ARateIsKeptOverManyRequests) {
    Fault_Picker picker = pickerOf({"crc:25%"});
    int struck = 0;
    for (int i = 0; i < 4000; ++i)
        struck += picked(picker, reading) == "none" ? 0 : 1;
    EXPECT_GT(struck, 900);
    EXPECT_LT(struck, 1100);
}

TEST(FaultPicker, TheSameSeedChoosesTheSame) {
    Fault_Picker one = pickerOf({"crc:10%", "silent:10%"}, 7);
    Fault_Picker two = pickerOf({"crc:10%", "silent:10%"}, 7);
    Fault_Picker other = pickerOf({"crc:10%", "silent:10%"}, 8);
    int differences = 0;
    for (int i = 0; i < 200; ++i) {
        const std::string choice = picked(one, reading);
        EXPECT_EQ(choice, picked(two, reading)) << i;
        differences += choice == picked(other, reading) ? 0 : 1;
    }
    EXPECT_GT(differences, 0);
}

TEST(FaultPicker, BusyIsCountedForEachAddress) {
    Fault_Picker picker = pickerOf({"busy=2"});
    EXPECT_EQ(picked(picker, writing), "busy=2");
    EXPECT_EQ(picked(picker, {6, 101, 101, false}), "busy=2");
    EXPECT_EQ(picked(picker, writing), "busy=2");
    EXPECT_EQ(picked(picker, writing), "none");
    EXPECT_EQ(picked(picker, {6, 101, 101, false}), "busy=2");
    EXPECT_EQ(picked(picker, {6, 101, 101, false}), "none");
}

TEST(FaultPicker, AWrongEchoNeedsAWriteAndAShortAnswerARead) {
    Fault_Picker picker = pickerOf({"wrong-echo:1", "short:1"});
    EXPECT_EQ(picked(picker, reading), "short:1");
    EXPECT_EQ(picked(picker, reading), "none");
    EXPECT_EQ(picked(picker, writing), "wrong-echo:1");
}

TEST(FaultPicker, ARefusedRequestHasNeitherEchoNorRegisters) {
    Fault_Picker picker = pickerOf({"wrong-echo", "short"});
    EXPECT_EQ(picked(picker, {6, 100, 100, true}), "none");
    EXPECT_EQ(picked(picker, {3, 100, 100, true}), "none");
}

} // namespace
} // namespace zorvane::simulator
