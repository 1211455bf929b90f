// SPDX-License-Identifier: MIT
#include "commission/touched_reading.h"

#include "comm/modbus_control/frame/rtu_frame.h"

#include <algorithm>

namespace zorvane::commission {

namespace {

bool holds(const Register_Range& range, std::int32_t number) {
    return range.first <= number && number <= range.last;
}

class Reading {
  public:
    Reading(const std::vector<Register_Range>& never, const Read_Range& read) : never_(never), read_(read) {}

    /// A span that may hold registers nobody asked for.
    void readSpan(const Register_Range& span, const std::set<std::int32_t>& wanted) {
        const Unit_Answer answer = ask(span);
        if (answer.good()) return registers_.take(span.first, answer.values);
        const std::vector<Register_Range> rows = rangesOf(wanted);
        if (answer.end != Unit_End::Refused || rows.size() < 2) return fail(rows, answer);
        for (const Register_Range& row : rows)
            readRow(row);
    }
    void readRow(const Register_Range& row) {
        const Unit_Answer answer = ask(row);
        if (answer.good()) return registers_.take(row.first, answer.values);
        fail({row}, answer);
    }
    [[nodiscard]] bool mayRead(const Register_Range& range) const {
        return std::none_of(never_.begin(), never_.end(), [&](const Register_Range& each) {
            return each.first <= range.last && range.first <= each.last;
        });
    }
    [[nodiscard]] compare::Controller_Registers take() { return std::move(registers_); }

  private:
    Unit_Answer ask(const Register_Range& range) { return read_(range.first, range.last - range.first + 1); }

    void fail(const std::vector<Register_Range>& rows, const Unit_Answer& answer) {
        compare::Unread why;
        if (answer.end == Unit_End::Refused) why.exception = answer.exception;
        for (const Register_Range& row : rows)
            registers_.fail(row, why);
    }

    const std::vector<Register_Range>& never_;
    const Read_Range& read_;
    compare::Controller_Registers registers_;
};

} // namespace

compare::Controller_Registers readRegisters(const std::set<std::int32_t>& registers,
                                            const std::vector<Register_Range>& blocks,
                                            const std::vector<Register_Range>& never,
                                            const Read_Range& read) {
    Reading reading(never, read);
    std::set<std::int32_t> left;
    for (const std::int32_t number : registers)
        if (std::none_of(never.begin(), never.end(),
                         [number](const Register_Range& range) { return holds(range, number); }))
            left.insert(number);
    for (const Register_Range& block : blocks) {
        std::set<std::int32_t> wanted;
        for (auto at = left.lower_bound(block.first); at != left.end() && *at <= block.last;) {
            wanted.insert(*at);
            at = left.erase(at);
        }
        if (wanted.empty()) continue;
        const Register_Range span{*wanted.begin(), *wanted.rbegin()};
        if (reading.mayRead(span)) {
            reading.readSpan(span, wanted);
        } else {
            for (const Register_Range& row : rangesOf(wanted))
                reading.readRow(row);
        }
    }
    for (const Register_Range& row : rangesOf(left))
        reading.readRow(row);
    return reading.take();
}

} // namespace zorvane::commission
