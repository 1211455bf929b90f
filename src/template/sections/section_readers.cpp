// SPDX-License-Identifier: MIT
#include "template/sections/section_readers.h"

namespace zorvane {

Field_Rec& Interpreter::field(std::int32_t number) const {
    Field_Rec& found = document.Fields(number);
    found.Touched = true;
    return found;
}

} // namespace zorvane
