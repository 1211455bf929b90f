// SPDX-License-Identifier: MIT
#include "app/desktop/end_signals.h"

#include <QTest>

#include <gtest/gtest.h>

#include <csignal>

namespace zorvane::app {
namespace {

TEST(End_Signals_Test, EachOfTheThreeIsToldFromTheEventLoop) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::signal(signal, SIG_DFL);
        int told = 0;
        const End_Signals listening([&] { ++told; });
        ASSERT_EQ(std::raise(signal), 0);
        EXPECT_EQ(told, 0) << "inside the handler";
        EXPECT_TRUE(QTest::qWaitFor([&] { return told == 1; })) << signal;
    }
}

TEST(End_Signals_Test, ASignalThatIsIgnoredStaysIgnored) {
    const auto before = std::signal(SIGHUP, SIG_IGN);
    int told = 0;
    {
        const End_Signals listening([&] { ++told; });
        ASSERT_EQ(std::raise(SIGHUP), 0);
        ASSERT_EQ(std::raise(SIGTERM), 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return told > 0; }));
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(told, 1) << "SIGTERM alone";
    std::signal(SIGHUP, before);
}

TEST(End_Signals_Test, AfterItsEndTheSignalsAreAsBefore) {
    {
        const End_Signals listening([] {});
    }
    struct sigaction now {};
    ::sigaction(SIGTERM, nullptr, &now);
    EXPECT_EQ(now.sa_handler, SIG_DFL);
}

} // namespace
} // namespace zorvane::app
