// SPDX-License-Identifier: MIT
#include "compare/identity.h"

#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace zorvane::compare {

namespace {

constexpr std::int32_t registersInNumber = 4;
const std::string objectWord = "object ";

std::string rangeText(const Register_Range& range) {
    const std::string first = numberText(range.first);
    return range.first == range.last ? first : first + "-" + numberText(range.last);
}

std::int64_t countOf(const Register_Range& range) { return std::int64_t{range.last} - range.first + 1; }

/// The bits of registers that follow each other, the first ones on top.
std::uint64_t bitsAt(const Register_Range& range, const Controller_Registers& registers) {
    std::uint64_t bits = 0;
    for (std::int32_t number = range.first; number <= range.last; ++number)
        bits = bits << 16 | registers.valueAt(number).value_or(0);
    return bits;
}

/// The same with the sign in the topmost bit.
std::int64_t signedAt(const Register_Range& range, const Controller_Registers& registers) {
    const auto unusedBits = static_cast<unsigned>(64 - 16 * countOf(range));
    return static_cast<std::int64_t>(bitsAt(range, registers) << unusedBits) >> unusedBits;
}

/// The characters of registers, the first of each in its high byte.
std::string bytesAt(const Register_Range& range, const Controller_Registers& registers) {
    std::string bytes;
    for (std::int32_t number = range.first; number <= range.last; ++number) {
        const std::uint16_t word = registers.valueAt(number).value_or(0);
        bytes += static_cast<char>(word >> 8);
        bytes += static_cast<char>(word & 0xFF);
    }
    return bytes;
}

bool isFiller(char c) { return c == ' ' || c == '\0'; }

/// A text without blanks and empty bytes at its ends.
std::string_view withoutFillers(std::string_view text) {
    while (!text.empty() && isFiller(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isFiller(text.back()))
        text.remove_suffix(1);
    return text;
}

bool isPrintable(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) {
        return static_cast<unsigned char>(c) >= 0x20 && c != 0x7F && !lacksCharacter(c);
    });
}

bool sameText(std::string_view a, std::string_view b) {
    return upperCase(withoutFillers(a)) == upperCase(withoutFillers(b));
}

/// Why a range wasn't read: the reason of its first register that has none.
std::optional<Unread> unreadIn(const Register_Range& range, const Controller_Registers& registers) {
    for (std::int32_t number = range.first; number <= range.last; ++number)
        if (const auto why = registers.unreadAt(number)) return why;
    return std::nullopt;
}

std::string expectedText(const Identity_Mark& mark) {
    const std::string masked = mark.mask ? " under the mask " + std::to_string(*mark.mask) : "";
    if (mark.value) return std::to_string(*mark.value) + masked;
    if (mark.low && mark.high)
        return std::to_string(*mark.low) + " to " + std::to_string(*mark.high) + masked;
    return (mark.low ? "at least " + std::to_string(*mark.low) : "at most " + std::to_string(*mark.high)) +
           masked;
}

/// The number that a mark speaks of. Registers count from 0 on, unless the mark names a negative number.
std::int64_t numberOf(const Identity_Mark& mark, const Controller_Registers& registers) {
    const bool negative = mark.value.value_or(0) < 0 || mark.low.value_or(0) < 0 || mark.high.value_or(0) < 0;
    const std::int64_t number = negative ? signedAt(*mark.registers, registers)
                                         : static_cast<std::int64_t>(bitsAt(*mark.registers, registers));
    return mark.mask ? number & *mark.mask : number;
}

bool fits(const Identity_Mark& mark, std::int64_t number) {
    if (mark.value) return number == *mark.value;
    return number >= mark.low.value_or(number) && number <= mark.high.value_or(number);
}

Evidence asked(const Register_Range& range, const Identity_Mark& mark, std::string expected) {
    Evidence evidence;
    evidence.registers = rangeText(range);
    evidence.what = mark.what;
    evidence.expected = std::move(expected);
    return evidence;
}

Evidence numberEvidence(const Identity_Mark& mark, const Controller_Registers& registers) {
    Evidence evidence = asked(*mark.registers, mark, expectedText(mark));
    if (!registers.holds(*mark.registers) || countOf(*mark.registers) > registersInNumber) {
        evidence.unread = unreadIn(*mark.registers, registers);
        return evidence;
    }
    const std::int64_t number = numberOf(mark, registers);
    evidence.found = std::to_string(number);
    evidence.result = fits(mark, number) ? Fit::Fits : Fit::Doesnt_Fit;
    return evidence;
}

Evidence textEvidence(const Identity_Mark& mark, const Controller_Registers& registers) {
    Evidence evidence = asked(*mark.text, mark, *mark.is);
    if (!registers.holds(*mark.text)) {
        evidence.unread = unreadIn(*mark.text, registers);
        return evidence;
    }
    const std::string bytes = bytesAt(*mark.text, registers);
    evidence.found = withoutFillers(bytes);
    evidence.result = sameText(bytes, *mark.is) ? Fit::Fits : Fit::Doesnt_Fit;
    return evidence;
}

Evidence objectEvidence(std::int32_t number, const std::string& expected, const Identity_Readings& readings) {
    const std::map<std::int32_t, std::string>& objects = *readings.objects;
    Evidence evidence;
    evidence.registers = objectWord + numberText(number);
    evidence.expected = expected;
    const auto found = objects.find(number);
    if (found == objects.end()) {
        evidence.unread = readings.objectsUnread;
        return evidence;
    }
    evidence.found = withoutFillers(found->second);
    evidence.result = sameText(found->second, expected) ? Fit::Fits : Fit::Doesnt_Fit;
    return evidence;
}

bool someAre(const std::vector<Evidence>& evidence, Fit result) {
    return std::any_of(evidence.begin(), evidence.end(),
                       [result](const Evidence& each) { return each.result == result; });
}

Verdict verdictOf(const std::vector<Evidence>& evidence) {
    if (someAre(evidence, Fit::Doesnt_Fit)) return Verdict::Isnt;
    return evidence.empty() || someAre(evidence, Fit::Not_Read) ? Verdict::Cant_Tell : Verdict::Is;
}

} // namespace

std::string verdictWord(Verdict verdict) {
    switch (verdict) {
    case Verdict::Is:
        return "is";
    case Verdict::Isnt:
        return "isn't";
    case Verdict::Cant_Tell:
        break;
    }
    return "can't tell";
}

bool isObject(const Evidence& evidence) { return evidence.registers.rfind(objectWord, 0) == 0; }

std::string placeText(const Evidence& evidence) {
    return isObject(evidence) ? evidence.registers : "register " + evidence.registers;
}

std::string fitWord(Fit fit) {
    switch (fit) {
    case Fit::Fits:
        return "fits";
    case Fit::Doesnt_Fit:
        return "doesn't fit";
    case Fit::Not_Read:
        break;
    }
    return "not read";
}

std::optional<std::string> plateText(const Register_Range& range, const Controller_Registers& registers) {
    if (!registers.holds(range)) return std::nullopt;
    if (range.first == range.last) return std::to_string(bitsAt(range, registers));
    const std::string bytes = bytesAt(range, registers);
    const std::string_view text = withoutFillers(bytes);
    if (text.empty()) return std::nullopt;
    if (isPrintable(text) && bytes.front() != '\0') return std::string(text);
    if (countOf(range) <= registersInNumber) return std::to_string(bitsAt(range, registers));
    std::string shown(text);
    std::replace_if(
        shown.begin(), shown.end(),
        [](char c) {
            return !isPrintable({&c, 1});
        },
        '-');
    return shown;
}

Identity identityByMarks(const Identity_Section& section, const std::string& model, std::int32_t unit,
                         const Identity_Readings& readings) {
    Identity identity;
    identity.model = model;
    identity.unit = unit;
    if (section.serial) identity.serial = plateText(*section.serial, readings.registers);
    if (section.firmware) identity.firmware = plateText(*section.firmware, readings.registers);
    for (const Identity_Mark& mark : section.marks) {
        if (mark.tellsByNumber()) identity.evidence.push_back(numberEvidence(mark, readings.registers));
        if (mark.tellsByText()) identity.evidence.push_back(textEvidence(mark, readings.registers));
    }
    if (section.objects && readings.objects)
        for (const auto& [number, text] : section.objectTexts)
            identity.evidence.push_back(objectEvidence(number, text, readings));
    identity.verdict = verdictOf(identity.evidence);
    return identity;
}

Identity identityAgain(const Identity& first, Identity now) {
    for (Evidence& each : now.evidence) {
        const bool fitted =
            std::any_of(first.evidence.begin(), first.evidence.end(), [&](const Evidence& was) {
                return was.registers == each.registers && was.expected == each.expected &&
                       was.result == Fit::Fits;
            });
        const std::uint8_t hasNone = isObject(each) ? illegalFunction : illegalAddress;
        if (!fitted || !each.unread || each.unread->exception != hasNone) continue;
        each.found = each.unread->text();
        each.result = Fit::Doesnt_Fit;
    }
    now.verdict = verdictOf(now.evidence);
    return now;
}

} // namespace zorvane::compare
