#include "ctl/document/register_argument.h"

#include "ctl/document/notices.h"
#include "template/line_scanner.h"
#include "template/services/native_files.h"

namespace zorvane {

std::optional<Register_Values> readRegisterFile(const Surroundings& surroundings, const std::string& path) {
    const std::string file = pathFromNative(path);
    try {
        return parseRegisters(surroundings.files.read(file));
    } catch (const Run_Time_Failure& failure) {
        tellFailure(surroundings.err, printablePath(file), {failure.number(), failure.description()});
    } catch (const Bad_Register_File& bad) {
        tell(surroundings.err, printablePath(file) + ": " + bad.what() + ". Mend the register file.");
    }
    return std::nullopt;
}

bool writeRegisterFile(const Surroundings& surroundings, const std::string& path,
                       const Register_Values& registers) {
    const std::string file = pathFromNative(path);
    const std::string text = registersText(registers);
    const auto failure = failureOf([&] {
        const auto writer = surroundings.files.create(file);
        std::string_view rest = text;
        while (const auto line = takeLine(rest))
            writer->writeLine(*line);
        writer->close();
    });
    if (failure) tellFailure(surroundings.err, printablePath(file), *failure);
    return !failure;
}

} // namespace zorvane
