// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_link_clock.h"
#include "survey/traffic/native_traffic_files.h"
#include "ui/line/traffic_file_window.h"
#include "ui/testing/control_walk.h"

#include <QDateTime>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

/// A file of so many notes, ten to the second from 13:05:07 today.
QString fileOf(const QTemporaryDir& folder, int rows) {
    const QString path = folder.filePath("line.jsonl");
    const QDateTime begin(QDate::currentDate(), QTime(13, 5, 7));
    survey::Native_Traffic_Files files;
    Qt_Link_Clock clock;
    survey::Traffic_File file(files, clock, path.toStdString(), begin.toMSecsSinceEpoch() * microsPerMs,
                              1'000'000'000);
    for (int i = 0; i < rows; ++i)
        file.write(Stray_Record{i * 100 * microsPerMs, {0xFF, 0x01}, "noise " + std::to_string(i)});
    return path;
}

QString countOf(const Traffic_File_Window& window) { return window.findChild<QLabel*>("LBL_Count")->text(); }

TEST(TrafficFileWindow, ShowsTheRowsOfAFile) {
    const QTemporaryDir folder;
    Traffic_File_Window window(fileOf(folder, 3), nullptr);
    window.show();
    EXPECT_EQ(doubles::controlFaults(window), std::vector<std::string>{});
    EXPECT_EQ(doubles::keyClashes(window), std::vector<std::string>{});
    EXPECT_EQ(window.windowTitle(), "Modbus Monitor - line.jsonl");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.reading(); }));
    EXPECT_EQ(countOf(window), "3 rows");
    EXPECT_EQ(window.model().index(1, 0).data().toString(), "13:05:07.100");
    EXPECT_EQ(window.model().index(1, 7).data().toString(), "2 bytes outside an exchange: noise 1");
    window.findChild<QTableView*>("TBL_Exchanges")->selectRow(1);
    EXPECT_EQ(window.findChild<QPlainTextEdit*>("TXT_Bytes")->toPlainText(), "Rx: FF 01");
}

TEST(TrafficFileWindow, ReadsALargeFileInPieces) {
    const QTemporaryDir folder;
    Traffic_File_Window window(fileOf(folder, 20'000), nullptr);
    window.show();
    QStringList told;
    while (window.reading()) {
        QCoreApplication::processEvents();
        told += countOf(window);
    }
    told.removeDuplicates();
    EXPECT_GE(told.size(), 3);
    EXPECT_TRUE(told.front().startsWith("Reading: "));
    EXPECT_EQ(countOf(window), "20000 rows");
}

TEST(TrafficFileWindow, TellsOfLinesThatAreNoTraffic) {
    const QTemporaryDir folder;
    const QString path = fileOf(folder, 2);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("{\"kind\":\"exch");
    file.close();
    Traffic_File_Window window(path, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.reading(); }));
    EXPECT_EQ(countOf(window), "2 rows; lines that are no traffic: 1");
}

TEST(TrafficFileWindow, OfAFileThatIsNotThereIsNotOpened) {
    EXPECT_FALSE(Traffic_File_Window("/nowhere/line.jsonl", nullptr).opened());
}

} // namespace
} // namespace zorvane::ui
