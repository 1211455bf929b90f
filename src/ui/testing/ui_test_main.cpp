// SPDX-License-Identifier: MIT
#include <QApplication>

#include <gtest/gtest.h>

// The tests need no display: widgets are drawn into memory, in one style on every desktop.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    return RUN_ALL_TESTS();
}
