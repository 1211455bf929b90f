// SPDX-License-Identifier: MIT
#include "ctl/document/text_file.h"

#include "ctl/document/notices.h"
#include "template/line_scanner.h"
#include "template/services/native_files.h"

namespace zorvane::ctl {

std::optional<std::string> readFile(const Call_Context& context, const std::string& path) {
    const std::string file = pathFromNative(path);
    std::string bytes;
    const auto failure = failureOf([&] { bytes = context.files.read(file); });
    if (!failure) return bytes;
    tellFailure(context.err, printablePath(file), *failure);
    return std::nullopt;
}

bool writeTextFile(const Call_Context& context, const std::string& path, const std::string& text) {
    const std::string file = pathFromNative(path);
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
