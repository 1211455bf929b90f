// SPDX-License-Identifier: MIT
#include "app/window/testing/program_fixture.h"

#include <QCheckBox>
#include <QFileDialog>

namespace zorvane::doubles {

/// A program that has ended leaves its event loops closed; a run of the application opens them for the next
/// one.
Program_Fixture::~Program_Fixture() {
    program.reset();
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    QApplication::exec();
}

bool Program_Fixture::whenAsked(QFileDialog& dialog) {
    if (chosenFile.empty()) return false;
    if (auto* box = dialog.findChild<QCheckBox*>(QStringLiteral("CHK_ReadOnly")))
        box->setChecked(readOnlyTicked);
    for (const QString& filter : dialog.nameFilters())
        if (!chosenType.empty() && filter.endsWith(QString::fromStdString("(*." + chosenType + ")")))
            dialog.selectNameFilter(filter);
    dialog.selectFile(QString::fromStdString(chosenFile));
    return true;
}

} // namespace zorvane::doubles
