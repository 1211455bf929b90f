// SPDX-License-Identifier: MIT
#include "reports/qt/qt_report_clock.h"

#include "values/code_page.h"

#include <QDateTime>
#include <QLocale>

namespace zorvane {

Report_Time presentTime() {
    const QDateTime now = QDateTime::currentDateTime();
    return {fromUtf8(QLocale().toString(now.date(), QLocale::ShortFormat).toStdString()), now.time().hour(),
            now.time().minute()};
}

} // namespace zorvane
