// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_place.h"
#include "template/model/cell_table.h"
#include "template/model/passing_values.h"
#include "values/checked_array.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane {

/// One page of settings: a row of the upper grid, and the table that the lower grid shows for it.
struct Field_Rec {
    std::int32_t Field_Tag = 0; ///< not set by the reader
    std::string Description;
    std::int16_t Rows = 0;
    std::int16_t Columns = 0;
    Checked_Array<std::string, 1> Config_Values; ///< texts of the upper grid, from column 1
    Cell_Table Cells;
    bool Touched = false; ///< some line of a file wrote to this field
};

/// A column of the upper grid.
struct Config_Column_Rec {
    std::string Description;
    std::int16_t Width = 0; ///< twips
    std::string Alignment;
    std::string Column_Type;
    std::string Config_Column_Spare; ///< never set
};

/// A block of registers that goes to the controller in one multiple-register write.
struct Download_Block_Rec {
    std::string Model; ///< the controller model when the line was read
    std::string First_Address;
    std::string Last_Address;
    std::int16_t Block_Kind = 0; ///< 0 numeric, 1 message list, 2 ASCII
};

/// A block of registers that the link scans with one request word.
struct Holding_Block_Rec {
    std::int32_t First_Address = 0;
    std::int32_t Last_Address = 0;
    std::uint8_t Function_Code = 0; ///< 3 once the line was read well
    std::string Request;            ///< "NONE" until a request line names another word
};

/// The ten colour words of the grids, with the defaults that hold before any file is read.
struct Colour_Words {
    std::string Color_Txt_Modifiable = "BLACK";
    std::string Color_Txt_Exception = "RED";
    std::string Color_Txt_Writing = "BLUE";
    std::string Color_Txt_Error = "RED";
    std::string Color_Txt_Normal = "BLACK";
    std::string Color_Back_Modifiable = "YELLOW";
    std::string Color_Back_Exception = "YELLOW";
    std::string Color_Back_Writing = "YELLOW";
    std::string Color_Back_Normal = "WHITE";
    std::string Color_Back_Error = "YELLOW";
};

/// The document: what a template and a configuration file say. There is one, handed round by reference.
/// Fields, rows and columns count from 1; entry 0 of the arrays stays empty and row 0 of a table defines
/// columns.
struct Declara_Zorvane {
    std::string Controller_Model;
    std::int16_t Field_Count = 0;
    std::int16_t Config_Column_Count = 0;
    bool Numeric_Rows = false; ///< the upper grid numbers its rows
    Checked_Array<Field_Rec> Fields;
    Checked_Array<Config_Column_Rec> Config_Columns;
    Checked_Array<Download_Block_Rec> Download_Blocks; ///< from entry 0; the last entry is always empty
    std::int16_t Not_Downloadable_Count = 0;
    Checked_Array<std::string> Not_Downloadable; ///< address texts, from entry 1
    std::int32_t Comm_Request_Ms = 0;            ///< pause between requests
    std::int32_t Comm_Out_Ms = 0;                ///< reply time-out
    std::int32_t Comm_Size = 0;                  ///< stored, sent nowhere
    std::int16_t Holding_Block_Count = 0;
    Checked_Array<Holding_Block_Rec>
        Holding_Blocks; ///< from entry 1; not dimensioned until the first block line
    Colour_Words Colors;

    bool Load_Failed = false;            ///< the last file to be read wasn't there
    std::int32_t Last_Line = 0;          ///< the line (from 1) of the file that was read last
    std::vector<Unlisted_Text> Unlisted; ///< of the file that was read last; such a cell has the code 0
    bool Save_Failed = false;            ///< the last save didn't happen
    std::int32_t Always_Block_Count = 0; ///< blocks with the request word "ALWAYS"
    std::int32_t Forza_Analogas_Ms = 0;  ///< interval of TMR_Forza_analogas: four times Comm_Request_Ms

    std::int32_t Selected_Field = 0; ///< the field shown in the lower grid
    bool Read_Only = false;
    std::string File_Stem;      ///< the file's name before its first dot, upper case
    std::string File_Extension; ///< the rest, upper case, without that dot
    std::string File_Folder;    ///< ends in the folder separator
    bool No_Place = false; ///< it has no file of its own: a recovery copy, or the default template's values

    Passing_Values Passing; ///< of its cells, what polling and the filling of a page put there

    std::uint64_t Edition = 0; ///< goes up whenever the fields are emptied; `Document_Mark` compares it
};

/// Remembers which document is there. Whoever serves events while waiting makes one before, and asks it after
/// each wait before touching anything: events can open another document or close this one.
class Document_Mark {
  public:
    explicit Document_Mark(const Declara_Zorvane& document)
        : document_(document), edition_(document.Edition) {}
    /// Whether the fields are still those that were there when the mark was made.
    [[nodiscard]] bool holds() const noexcept { return document_.Edition == edition_; }

  private:
    const Declara_Zorvane& document_;
    std::uint64_t edition_;
};

/// The highest field number: the callers of the reader give the document room for fields 0 to 100.
inline constexpr std::int32_t highestField = 100;

/// Empties the parts that describe a controller and its values, as closing a document does. Download blocks,
/// scan blocks, timings and colours stay.
void PRO_Limpia_Modelo(Declara_Zorvane& document);

/// Makes room for a template about to be read, as opening a file does: no download blocks, fields 0 to 100,
/// the count of scan blocks 0. The scan blocks' array itself stays as it was.
void PRO_Prepara_Lectura(Declara_Zorvane& document);

} // namespace zorvane
