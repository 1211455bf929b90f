// SPDX-License-Identifier: MIT
#include "ui/survey/port_choice.h"

#include "comm/modbus_control/line/port_texts.h"
#include "ui/base/text.h"

#include <QLineEdit>

namespace zorvane::ui {

/// It completes nothing: Enter would take the first entry for a text that was set.
Port_Choice::Port_Choice(Port_Finder& finder, const std::string& chosen) {
    giveName(*this, QStringLiteral("CMB_Port"));
    setAccessibleName(QStringLiteral("Port"));
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(28);
    lineEdit()->setAccessibleName(accessibleName());
    for (const Port_Entry& entry : finder.ports()) {
        addItem(QString::fromStdString(entry.name));
        setItemData(count() - 1, QString::fromStdString(portListText(entry)), Qt::ToolTipRole);
    }
    setEditText(QString::fromStdString(chosen));
}

} // namespace zorvane::ui
