// SPDX-License-Identifier: MIT
#include "comm/transfer/transfer_records.h"
#include "comm/transfer/transfer_texts.h"
#include "values/run_time_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct TransferRecords : ::testing::Test {
    void event(const std::string& line1, const std::string& line2) {
        modbus_control_Event10(
            form, [this](const std::string& line) { debug.push_back(line); }, line1, line2);
    }

    Main_Form_State form;
    std::vector<std::string> debug;
    Transfer_Status status{"Upload to PC", {"7", "9600,n,8,1", "3", "2", "500", "0"}, {}, {}};
};

const std::string port = "Target Slave Number: 7\r\nPort: Com 3\r\n"
                         "Baud: 9600 Parity: None Format: 8,1 stop\r\n"
                         "Control RTS/TX Delay(ms): 0\r\nTimeOut(ms): 500\r\nRetries: 2\r\n\r\n";

TEST_F(TransferRecords, ExchangesCountDuringATransferOnly) {
    event("Tx", "Rx");
    EXPECT_THAT(form.Transfer_Log, IsEmpty());
    EXPECT_THAT(debug, IsEmpty());
    form.Download_Active = true;
    event("Tx", "Rx");
    form.Download_Active = false;
    form.Upload_Active = true;
    event("Tx 2", "");
    EXPECT_THAT(debug, ElementsAre("Tx", "Rx", "Tx 2"));
    ASSERT_EQ(form.Transfer_Log.size(), 2U);
    EXPECT_EQ(form.Transfer_Log[0].Start_Address, "Rx");
    EXPECT_EQ(form.Transfer_Log[0].End_Address, "Tx");
    EXPECT_EQ(form.Transfer_Log[0].Function_Text, "");
    EXPECT_EQ(form.Transfer_Log[0].Register, "");
    EXPECT_EQ(form.Transfer_Log[0].Value, "");
    EXPECT_EQ(form.Transfer_Log[0].Response, "");
    EXPECT_EQ(form.Transfer_Log[0].Retry, 0);
}

TEST_F(TransferRecords, EmptyLinesStillMakeARecordWhichPrintsNothing) {
    form.Upload_Active = true;
    event("", "");
    EXPECT_THAT(debug, IsEmpty());
    ASSERT_EQ(form.Transfer_Log.size(), 1U);
    status.DataWriting = form.Transfer_Log;
    EXPECT_EQ(PRO_Arma_Monitor(status),
              "----------------------------------------------------------\r\nMODBUS MONITOR DATA\r\n");
}

TEST_F(TransferRecords, EventWithoutADebugWindowIsLoggedAllTheSame) {
    form.Upload_Active = true;
    modbus_control_Event10(form, {}, "Tx", "Rx");
    EXPECT_EQ(form.Transfer_Log.size(), 1U);
}

TEST_F(TransferRecords, ListsAreEmptiedTogether) {
    form.Transfer_Errors.resize(2);
    form.Transfer_Log.resize(3);
    PRO_Limpia_Errores(form);
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
    EXPECT_THAT(form.Transfer_Log, IsEmpty());
}

TEST_F(TransferRecords, MoreThan255TriesAreFailure6) {
    EXPECT_EQ(retryNumber(255), 255);
    EXPECT_THROW((void)retryNumber(256), Run_Time_Failure);
}

TEST_F(TransferRecords, SummaryOfAnUpload) {
    status.DataErrors = {uploadRecord(100, 109, "", 1), uploadRecord(200, 219, "BUSY", 0)};
    EXPECT_EQ(PRO_Arma_Resumen(status), "Transfer Method: Upload to PC\r\n" + port +
                                            "Retry: 1 (2)\r\n"
                                            "Read Holding Register:: FC 3\r\n"
                                            "Response: No response\r\n"
                                            "Start Address: 100 End Address: 109\r\n\r\n"
                                            "Read Holding Register:: FC 3\r\n"
                                            "Response: BUSY\r\n"
                                            "Start Address: 200 End Address: 219\r\n\r\n");
}

TEST_F(TransferRecords, SummaryOfADownload) {
    status.TransferMethod = transferMethod(false);
    status.DataErrors = {
        Info_Rec_Errors{"Tx: 07 06", "Rx: none", "FC-6", "100", "120", "No Response", 1},
        Info_Rec_Errors{"", "", "FC-6", "101", "121", "Exception 9", 0},
        Info_Rec_Errors{"Tx: 07 06", "", "FC-6", "102", "122", "BUSY", 2},
    };
    EXPECT_EQ(PRO_Arma_Resumen(status), "Transfer Method: Download to Device\r\n" + port +
                                            "Retry: 1 (2)\r\n"
                                            "Preset Single Register: FC-6\r\n"
                                            "Register: 100 Value: 120\r\n"
                                            "Response: No Response\r\n"
                                            "Tx: 07 06\r\n"
                                            "Rx: none\r\n\r\n"
                                            "Preset Single Register: FC-6\r\n"
                                            "Register: 101 Value: 121\r\n"
                                            "Response: Exception 9\r\n"
                                            "Retry: 2 (2)\r\n"
                                            "Preset Single Register: FC-6\r\n"
                                            "Register: 102 Value: 122\r\n"
                                            "Response: BUSY\r\n"
                                            "Tx: 07 06\r\n");
}

TEST_F(TransferRecords, ParityNames) {
    const auto line = [this](const std::string& settings) {
        status.PortParameters[1] = settings;
        const std::string text = PRO_Arma_Resumen(status);
        const std::size_t from = text.find("Parity: ");
        return from == std::string::npos ? "none" : text.substr(from, text.find("\r\n", from) - from);
    };
    EXPECT_EQ(line("19200,E,8,1"), "Parity: Event Format: 8,1 stop");
    EXPECT_EQ(line("19200,e,8,1"), "Parity: Event Format: 8,1 stop");
    EXPECT_EQ(line("19200,o,7,2"), "Parity: Odd Format: 7,2 stop");
    EXPECT_EQ(line("19200,N,8,1"), "Parity: None Format: 8,1 stop");
    EXPECT_EQ(line("19200,m,8,1"), "Parity:  Format: 8,1 stop");
}

TEST_F(TransferRecords, SettingsOfOtherThanFourPartsLeaveTheBaudLineOut) {
    for (const char* settings : {"", "9600,n,8", "9600,n,8,1,x"}) {
        status.PortParameters[1] = settings;
        EXPECT_EQ(PRO_Arma_Resumen(status).find("Baud: "), std::string::npos) << settings;
    }
}

TEST_F(TransferRecords, DelayAndTimeOutAreNumbers) {
    status.PortParameters[4] = "500 ms";
    status.PortParameters[5] = "";
    EXPECT_THAT(PRO_Arma_Resumen(status),
                ::testing::HasSubstr("Control RTS/TX Delay(ms): 0\r\nTimeOut(ms): 500\r\n"));
}

TEST_F(TransferRecords, MissingParametersLeaveTheTextSoFar) {
    status.PortParameters.clear();
    EXPECT_EQ(PRO_Arma_Resumen(status), "Transfer Method: Upload to PC\r\n");
}

TEST_F(TransferRecords, MethodIsComparedInAnyCaseWithoutBlanksAtTheEnds) {
    status.TransferMethod = " DOWNLOAD to device ";
    EXPECT_FALSE(status.isUpload());
    status.TransferMethod = "anything";
    EXPECT_TRUE(status.isUpload());
}

TEST_F(TransferRecords, MonitorOfADownloadHas56DashesAndBothLinesOfEachExchange) {
    status.TransferMethod = "Download to Device";
    status.DataWriting = {Info_Rec_Errors{"Rx: 1", "Tx: 1", "", "", "", "", 0},
                          Info_Rec_Errors{" ", "  ", "", "", "", "", 0}};
    EXPECT_EQ(PRO_Arma_Monitor(status),
              "--------------------------------------------------------\r\nMODBUS MONITOR DATA\r\n"
              "Tx: 1\r\nRx: 1\r\n \r\n");
}

} // namespace
} // namespace zorvane
