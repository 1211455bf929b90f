// SPDX-License-Identifier: MIT
#include "ctl/document/register_argument.h"

#include "ctl/document/notices.h"
#include "template/line_scanner.h"
#include "template/services/native_files.h"

namespace zorvane::ctl {

std::optional<Register_Values> readRegisterFile(const Call_Context& context, const std::string& path) {
    const std::string file = pathFromNative(path);
    try {
        return parseRegisters(context.files.read(file));
    } catch (const Run_Time_Failure& failure) {
        tellFailure(context.err, printablePath(file), {failure.number(), failure.description()});
    } catch (const Bad_Register_File& bad) {
        tell(context.err, printablePath(file) + ": " + bad.what() + ". Correct the register file.");
    }
    return std::nullopt;
}

bool writeRegisterFile(const Call_Context& context, const std::string& path,
                       const Register_Values& registers) {
    const std::string file = pathFromNative(path);
    const std::string text = registersText(registers);
    const auto failure = failureOf([&] {
        const auto writer = context.files.create(file);
        std::string_view rest = text;
        while (const auto line = takeLine(rest))
            writer->writeLine(*line);
        writer->close();
    });
    if (failure) tellFailure(context.err, printablePath(file), *failure);
    return !failure;
}

} // namespace zorvane::ctl
