// SPDX-License-Identifier: MIT
#include "checker/testing/rule_samples.h"

#include <gtest/gtest.h>

#include <ostream>

namespace zorvane::checker::doubles {

const std::string& goodTemplate() {
    static const std::string good = "[HARDWARE]\n"
                                    "CONTROLLER=ABC\n"
                                    "[PORT_CONFIGURATION]\n"
                                    "HOLDINGREGISTERS=200\n"
                                    "HOLDINGREGISTERSBLOCK_1=100-119\n"
                                    "HOLDINGREQUESTBLOCK_1=ALWAYS\n"
                                    "[CONFIGURATION_COLUMNS]\n"
                                    "NUMERIC_ROWS=YES\n"
                                    "CONFIGURATION_NC=2\n"
                                    "COL_1_WIDTH=450\n"
                                    "COL_2_WIDTH=1600\n"
                                    "[CONFIGURATION_FIELDS]\n"
                                    "FIELD_1_DESC=Outputs\n"
                                    "FIELD_1_RC=5,2\n"
                                    "[FIELD_1_COLUMNS]\n"
                                    "COL_1_WIDTH=1000\n"
                                    "COL_2_WIDTH=800\n"
                                    "COL_2_TYPE=NUMERIC\n"
                                    "COL_2_MODIFIABLE=YES\n"
                                    "COL_2_MDBUSREQUEST=ALWAYS\n"
                                    "[FIELD_1_CONFIGURATION]\n"
                                    "ROWADDRESS_1=,100\n"
                                    "ROWADDRESS_2=,101\n"
                                    "ROWADDRESSFORMAT_2=,TIME\n"
                                    "ROWASCIIRANGE_3=,110-113\n"
                                    "ROWADDRESS_4=,102\n"
                                    "ROWADDRESSNUMERICMINVALUE_4=,10\n"
                                    "ROWADDRESSNUMERICMAXVALUE_4=,90\n"
                                    "ROWADDRESS_5=,103\n"
                                    "ROWADDRESSFORMAT_5=,NUMERIC_UNSIGNED\n"
                                    "[FIELD_1_MESSAGES]\n"
                                    "ADDRESS_100=(0)Off,(1)On\n"
                                    "[CONFIGURATION_DEFAULT]\n"
                                    "FIELD_1=,Outputs\n"
                                    "[FIELD_1_DEFAULT]\n"
                                    "ROW_1=Mode,Off\n"
                                    "ROW_2=Delay,1:30\n"
                                    "ROW_3=Name,Pump\n"
                                    "ROW_4=Level,50\n"
                                    "ROW_5=Starts,40000\n";
    return good;
}

void PrintTo(const Sample& sample, std::ostream* out) { *out << sample.code; }

std::string fileNameFor(const std::string& code) {
    if (code == "default-download") return "kvrt.ztp";
    return code == "file-name" ? "A.B.ZTP" : "ABC.ZTP";
}

std::string edited(const std::vector<Edit>& edits) {
    std::string text = goodTemplate();
    for (const auto& [before, after] : edits) {
        const std::size_t at = before.empty() ? text.size() : text.find(before);
        if (at == std::string::npos)
            ADD_FAILURE() << before << " isn't there";
        else
            text.replace(at, before.size(), after);
    }
    return text;
}

std::vector<Sample> allSamples() {
    std::vector<Sample> all;
    for (const auto& some : {lineSamples(), tableSamples(), addressSamples(), valueSamples(), blockSamples()})
        all.insert(all.end(), some.begin(), some.end());
    return all;
}

} // namespace zorvane::checker::doubles
