// Any bytes as a configuration file over a template. An input with a line "====" brings its own template,
// which ends there; the others are read over a template that has some of everything.

#include "fuzz/fuzz_document.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr std::string_view richTemplate = R"([HARDWARE]
CONTROLLER=ABC
DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=100-119
[CONFIGURATION_COLUMNS]
NUMERIC_ROWS=YES
CONFIGURATION_NC=3
COL_1_DESC=Name
[CONFIGURATION_FIELDS]
FIELD_1_DESC=Inputs
FIELD_1_RC=4,3
FIELD_2_DESC=Outputs
FIELD_2_RC=2,2
[FIELD_1_COLUMNS]
COL_1_DESC=Set point
COL_1_TYPE=NUMERIC
COL_1_MODIFIABLE=YES
COL_2_BITSNEGATIVEFORMAT=8
[FIELD_1_CONFIGURATION]
ROWADDRESS_1=100,101/HI,101/LO
ROWADDRESS_2=102,103,104
ROWASCIIRANGE_3=200-207
ROWADDRESSFORMAT_1=TIME,,NUMERIC_UNSIGNED
ROWADDRESSFORMAT_2=TIMEMM,TIMESS,
[FIELD_1_MESSAGES]
ADDRESS_101=(0)Off,(1)On,(2)on ,(3)1,(-1)Broken
ADDRESS_104=(0)Closed,(1)Open
[FIELD_1_DEFAULT]
ROW_1=1:30,Off,On
[CONFIGURATION_DEFAULT]
FIELD_1=,Channel Setup,Yes
FIELD_2=,Output Setup,Yes
[PORT_CONFIGURATION]
COMMUNICATIONS_1_REQUEST=50
HOLDINGREGISTERSBLOCK_1=100-207
HOLDINGREQUESTBLOCK_1=ALWAYS
)";

constexpr std::string_view border = "\n====\n";

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(data, data + size);
    const std::size_t end = input.find(border);
    const bool whole = end == std::string::npos;
    zorvane::fuzz::Fuzz_Document document;
    document.readTemplate(whole ? richTemplate : std::string_view(input).substr(0, end));
    (void)document.readConfiguration(whole ? std::string_view(input)
                                           : std::string_view(input).substr(end + border.size()));
    document.writeAndReadBack();
    return 0;
}
