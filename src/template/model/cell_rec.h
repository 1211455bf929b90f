// SPDX-License-Identifier: MIT
#pragma once

#include "values/checked_array.h"
#include "values/seldom_text.h"

#include <cstdint>
#include <string>

namespace zorvane {

/// One entry of a cell's list: the controller's code and the text that stands for it.
struct Message_Rec {
    std::int32_t Code = 0;
    std::string Text;
};

/// A cell of a field's table. All values, limits and addresses are text and are converted at each use.
/// Members marked "row 0" are used by the definition row only and hold for the whole column.
struct Cell_Rec {
    std::int16_t Row = 0;        ///< row 0: always 0
    std::int16_t Column = 0;     ///< row 0: the column's number
    std::int16_t Width = 0;      ///< row 0: grid column width in twips
    bool Modifiable = false;     ///< row 0: the user may edit this column
    bool Is_Ascii_Range = false; ///< the cell spans Address to Address_End as text
    bool Has_Messages = false;   ///< Messages() is set: the value is a code with a text
    std::string Min_Value;       ///< lowest accepted value, decimal; a time as total seconds
    std::string Max_Value;       ///< highest accepted value, same form
    std::string Address;        ///< `40123`, `40123/HI`, `40123/LO`, first of an ASCII range; "": no register
    Seldom_Text Address_End;    ///< last address of an ASCII range
    std::string Value;          ///< row 0: the heading; else the document's value as text
    Seldom_Text Alignment;      ///< row 0: LEFT, RIGHT, RIGTH (a valid spelling of right) or CENTER
    Seldom_Text Column_Type;    ///< row 0: kind of typed entry
    Seldom_Text Modbus_Request; ///< row 0: request word of the column, upper case
    Seldom_Text Bits_Negative_Format;    ///< row 0: how a negative number is held in the register
    Seldom_Text Format;                  ///< TIME, TIMEMM, TIMESS, NUMERIC_UNSIGNED, or empty: signed 16 bits
    Checked_Array<Message_Rec> Messages; ///< entries from 1; entry 0 stays empty
};

} // namespace zorvane
