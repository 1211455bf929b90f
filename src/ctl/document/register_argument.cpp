// SPDX-License-Identifier: MIT
#include "ctl/document/register_argument.h"

#include "ctl/document/notices.h"
#include "ctl/document/text_file.h"
#include "template/services/native_files.h"

namespace zorvane::ctl {

std::optional<Register_Values> readRegisterFile(const Call_Context& context, const std::string& path) {
    const auto json = readFile(context, path);
    if (!json) return std::nullopt;
    try {
        return parseRegisters(*json);
    } catch (const Bad_Register_File& bad) {
        tell(context.err,
             printablePath(pathFromNative(path)) + ": " + bad.what() + ". Correct the register file.");
    }
    return std::nullopt;
}

bool writeRegisterFile(const Call_Context& context, const std::string& path,
                       const Register_Values& registers) {
    return writeTextFile(context, path, registersText(registers));
}

} // namespace zorvane::ctl
