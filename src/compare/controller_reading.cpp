// SPDX-License-Identifier: MIT
#include "compare/controller_reading.h"

#include <algorithm>
#include <utility>

namespace zorvane::compare {

namespace {

/// Whether anything came back, be it a refusal or damaged.
bool somebodyAnswers(const Unit_Answer& answer) {
    return answer.good() || answer.end == Unit_End::Refused || answer.damaged > 0;
}

/// Takes what one request came to; false when the port doesn't go on.
bool take(Reading_Result& result, const Register_Range& range, const Unit_Answer& answer) {
    result.answered = result.answered || somebodyAnswers(answer);
    switch (answer.end) {
    case Unit_End::Answered:
        result.registers.take(range.first, answer.values);
        return true;
    case Unit_End::Refused:
        result.registers.fail(range, {answer.exception});
        return true;
    case Unit_End::Silent:
    case Unit_End::NotSent:
        result.registers.fail(range, {});
        return true;
    case Unit_End::PortLost:
        result.end = Reading_End::Port_Lost;
        break;
    case Unit_End::Cancelled:
        result.end = Reading_End::Cancelled;
        break;
    }
    result.fault = answer.fault;
    return false;
}

/// Joins what two readings brought; of a register that both have the later one's value counts.
void addTo(Controller_Registers& registers, const Controller_Registers& more,
           const std::vector<Register_Range>& ranges) {
    for (const Register_Range& range : ranges)
        for (std::int32_t number = range.first; number <= range.last; ++number)
            if (const auto value = more.valueAt(number))
                registers.take(number, {*value});
            else if (const auto why = more.unreadAt(number); why && !registers.valueAt(number))
                registers.fail({number, number}, *why);
}

Identity_Result answerOf(Reading_Result reading, Identity identity) {
    return {std::move(identity), reading.end, std::move(reading.fault), reading.answered};
}

/// What the marks are judged by: their registers, and the objects.
struct Marks_Reading {
    Reading_Result reading;
    Objects_Reading objects;
};

Marks_Reading readMarks(const Identity_Question& question, const std::vector<Register_Range>& marks) {
    Marks_Reading read{readRanges(question.reader, question.unit, marks), {}};
    if (!read.reading.done()) return read;
    read.objects = readObjects(question.reader, question.unit, question.section);
    const Unit_Answer& answer = read.objects.answer;
    read.reading.answered = read.reading.answered || somebodyAnswers(answer);
    if (answer.end == Unit_End::PortLost) read.reading.end = Reading_End::Port_Lost;
    if (answer.end == Unit_End::Cancelled) read.reading.end = Reading_End::Cancelled;
    if (!read.reading.done()) read.reading.fault = answer.fault;
    return read;
}

Identity judgedMarks(const Identity_Question& question, const Marks_Reading& read) {
    return identityByMarks(question.section, question.document.Controller_Model, question.unit,
                           {read.reading.registers, read.objects.objects, read.objects.unread});
}

/// Tells of each request before it goes out.
class Counted_Reader final : public Unit_Reader {
  public:
    Counted_Reader(Unit_Reader& reader, std::size_t all, const On_Request& told)
        : reader_(reader), all_(all), told_(told) {}

    [[nodiscard]] Unit_Answer read(std::int32_t unit, std::int32_t first, std::int32_t count) override {
        tell();
        ++done_;
        return reader_.read(unit, first, count);
    }
    [[nodiscard]] Unit_Answer readObjects(std::int32_t unit, std::int32_t highest) override {
        tell();
        ++done_;
        return reader_.readObjects(unit, highest);
    }
    void pause(Micros span) override {
        tell();
        reader_.pause(span);
    }
    [[nodiscard]] Micros now() const override { return reader_.now(); }
    [[nodiscard]] bool cancelled() const override { return reader_.cancelled(); }
    void end() {
        done_ = all_;
        tell();
    }

  private:
    void tell() const {
        if (told_) told_(std::min(done_, all_), all_);
    }

    Unit_Reader& reader_;
    std::size_t all_;
    const On_Request& told_;
    std::size_t done_ = 0;
};

/// The ranges without the registers that can't be read.
std::vector<Register_Range> without(const std::vector<Register_Range>& ranges,
                                    const std::vector<Register_Range>& never) {
    std::vector<Register_Range> left = ranges;
    for (const Register_Range& gap : never) {
        std::vector<Register_Range> cut;
        for (const Register_Range& range : left) {
            if (range.last < gap.first || gap.last < range.first) {
                cut.push_back(range);
                continue;
            }
            if (range.first < gap.first) cut.push_back({range.first, gap.first - 1});
            if (gap.last < range.last) cut.push_back({gap.last + 1, range.last});
        }
        left = std::move(cut);
    }
    return left;
}

} // namespace

std::vector<Register_Range> readableBlocks(const Declara_Zorvane& document, const Identity_Section& section) {
    return without(blocksOf(document), section.writeOnly);
}

std::vector<Register_Range> blocksOf(const Declara_Zorvane& document) {
    std::vector<Register_Range> ranges;
    for (std::int32_t i = 1; i <= document.Holding_Block_Count; ++i) {
        const Holding_Block_Rec& block = document.Holding_Blocks(i);
        if (block.Function_Code != 0 && block.First_Address <= block.Last_Address)
            ranges.push_back({block.First_Address, block.Last_Address});
    }
    return ranges;
}

Reading_Result readRanges(Unit_Reader& reader, std::int32_t unit, const std::vector<Register_Range>& ranges) {
    Reading_Result result;
    for (const Register_Range& range : ranges)
        if (!take(result, range, reader.read(unit, range.first, range.last - range.first + 1))) break;
    return result;
}

Twice_Read readTwice(Unit_Reader& reader, std::int32_t unit, const std::vector<Register_Range>& ranges) {
    const Micros start = reader.now();
    Twice_Read twice{readRanges(reader, unit, ranges), {}};
    if (!twice.latest.done()) return twice;
    twice.earlier = twice.latest.registers;
    std::vector<Register_Range> again;
    for (const Register_Range& range : ranges)
        if (twice.earlier.holds(range)) again.push_back(range);
    if (again.empty()) return twice;
    if (const Micros left = start + secondReadingAfter - reader.now(); left > 0) reader.pause(left);
    if (reader.cancelled()) {
        twice.latest.end = Reading_End::Cancelled;
        return twice;
    }
    Reading_Result second = readRanges(reader, unit, again);
    twice.latest.end = second.end;
    twice.latest.fault = std::move(second.fault);
    addTo(twice.latest.registers, second.registers, again);
    return twice;
}

Objects_Reading readObjects(Unit_Reader& reader, std::int32_t unit, const Identity_Section& section) {
    Objects_Reading reading;
    if (!section.objects || section.objectTexts.empty()) return reading;
    reading.answer = reader.readObjects(unit, section.objectTexts.rbegin()->first);
    reading.objects = reading.answer.objects;
    if (reading.answer.end == Unit_End::Refused)
        reading.unread = Unread{reading.answer.exception};
    else if (!reading.answer.good())
        reading.unread = Unread{};
    return reading;
}

Identity_Result askForMarks(const Identity_Question& question) {
    Marks_Reading read = readMarks(question, identityReads(question.document, question.section));
    Identity identity = judgedMarks(question, read);
    return answerOf(std::move(read.reading), std::move(identity));
}

Identity_Result askWhoIsThere(const Identity_Question& question) {
    const std::vector<Register_Range> marks = identityReads(question.document, question.section);
    Marks_Reading read = readMarks(question, marks);
    Identity identity = judgedMarks(question, read);
    if (!read.reading.done() || identity.verdict != Verdict::Cant_Tell)
        return answerOf(std::move(read.reading), std::move(identity));
    Reading_Result blocks =
        readRanges(question.reader, question.unit, readableBlocks(question.document, question.section));
    addTo(blocks.registers, read.reading.registers, marks);
    blocks.answered = blocks.answered || read.reading.answered;
    identity = identityOf(question.document, question.section, question.unit,
                          {blocks.registers, read.objects.objects, read.objects.unread});
    return answerOf(std::move(blocks), std::move(identity));
}

Looked_At lookAt(const Identity_Question& question, const On_Request& told) {
    const std::vector<Register_Range> blocks = readableBlocks(question.document, question.section);
    const std::size_t marks = identityReads(question.document, question.section).size();
    const std::size_t objects = question.section.objects && !question.section.objectTexts.empty() ? 1 : 0;
    Counted_Reader reader(question.reader, marks + objects + 2 * blocks.size(), told);
    Identity_Result asked = askForMarks({question.document, question.section, reader, question.unit});
    Looked_At seen;
    seen.identity = std::move(asked.identity);
    seen.read.latest.end = asked.end;
    seen.read.latest.fault = std::move(asked.fault);
    if (!seen.read.latest.done()) return seen;
    seen.read = readTwice(reader, question.unit, blocks);
    seen.read.latest.answered = seen.read.latest.answered || asked.answered;
    if (!seen.read.latest.done()) return seen;
    if (seen.identity.verdict == Verdict::Cant_Tell)
        seen.identity.verdict =
            identityByCells(question.document, question.unit, seen.read.latest.registers).verdict;
    reader.end();
    return seen;
}

} // namespace zorvane::compare
