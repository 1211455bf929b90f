// SPDX-License-Identifier: MIT
#include "template/model/declara_zorvane.h"

namespace zorvane {

void PRO_Limpia_Modelo(Declara_Zorvane& document) {
    ++document.Edition;
    document.Passing.settle();
    document.Fields.redim(0);
    document.Config_Columns.redim(0);
    document.Not_Downloadable.redim(0);
    document.Not_Downloadable_Count = 0;
    document.Field_Count = 0;
    document.Config_Column_Count = 0;
    document.Numeric_Rows = false;
    document.Controller_Model.clear();
    document.File_Stem.clear();
    document.File_Extension.clear();
    document.File_Folder.clear();
    document.No_Place = false;
}

void PRO_Prepara_Lectura(Declara_Zorvane& document) {
    ++document.Edition;
    document.Download_Blocks.redim(0);
    document.Fields.redim(highestField);
    document.Holding_Block_Count = 0;
}

} // namespace zorvane
