// SPDX-License-Identifier: MIT
#include "ctl/document/register_argument.h"

#include "ctl/document/notices.h"
#include "ctl/document/text_file.h"
#include "template/services/native_files.h"

#include <utility>

namespace zorvane::ctl {

Register_File registerFile(const Call_Context& context, const std::string& path) {
    const std::string name = printablePath(pathFromNative(path));
    Register_File file;
    std::string bytes;
    if (const auto failure = failureOf([&] { bytes = context.files.read(pathFromNative(path)); })) {
        file.fault = failureNotice(name, *failure);
        return file;
    }
    try {
        file.values = compare::parseRegisters(bytes);
    } catch (const compare::Bad_Register_File& bad) {
        file.fault = name + ": " + bad.what() + ". Correct the register file.";
    }
    return file;
}

std::optional<compare::Register_Values> readRegisterFile(const Call_Context& context,
                                                         const std::string& path) {
    Register_File file = registerFile(context, path);
    if (file.fault.empty()) return std::move(file.values);
    tell(context.err, file.fault);
    return std::nullopt;
}

bool writeRegisterFile(const Call_Context& context, const std::string& path,
                       const compare::Register_Values& registers) {
    return writeTextFile(context, path, compare::registersText(registers));
}

} // namespace zorvane::ctl
