// SPDX-License-Identifier: MIT
#include "ui/testing/control_walk.h"

#include "ui/main/split_bar.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QStatusBar>
#include <QTextEdit>

#include <map>

namespace zorvane::doubles {

namespace {

template <class... Kinds> bool isOneOf(const QWidget& widget) {
    return (... || (qobject_cast<const Kinds*>(&widget) != nullptr));
}

bool isPartOfAControl(const QWidget& widget, const QWidget& window) {
    for (const QWidget* above = widget.parentWidget(); above != nullptr && above != &window;
         above = above->parentWidget())
        if (isOneOf<QAbstractItemView, QAbstractSpinBox, QComboBox, QLineEdit, QMenuBar, QPlainTextEdit,
                    QTextEdit>(*above))
            return true;
    return false;
}

bool isControl(const QWidget& widget, const QWidget& window) {
    const bool kind =
        isOneOf<QAbstractButton, QAbstractItemView, QAbstractSpinBox, QComboBox, QGroupBox, QLabel, QLineEdit,
                QPlainTextEdit, QProgressBar, QStatusBar, QTextEdit>(widget) ||
        dynamic_cast<const ui::Split_Bar*>(&widget) != nullptr;
    return kind && !isOneOf<QHeaderView>(widget) && !isPartOfAControl(widget, window);
}

bool takesKeys(const QWidget& widget) { return (widget.focusPolicy() & Qt::TabFocus) != 0; }

QString wordsOf(QAccessibleInterface& accessible) { return accessible.text(QAccessible::Name).trimmed(); }

/// Something is done with it, so Tab has to reach it.
bool isWorked(const QWidget& widget) {
    return isOneOf<QAbstractButton, QAbstractItemView, QAbstractSpinBox, QComboBox, QLineEdit, QPlainTextEdit,
                   QTextEdit>(widget);
}

void addFaults(std::vector<std::string>& faults, QWidget& widget) {
    const std::string name = widget.objectName().toStdString();
    const std::string who = name.empty() ? widget.metaObject()->className() : name;
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&widget);
    if (name.empty()) faults.push_back(who + ": no given name");
    if (accessible == nullptr || accessible->role() == QAccessible::NoRole) {
        faults.push_back(who + ": no role");
        return;
    }
    if (accessible->text(QAccessible::Description) != widget.objectName())
        faults.push_back(who + ": its description isn't its given name");
    if (isWorked(widget) && !takesKeys(widget)) faults.push_back(who + ": Tab never reaches it");
    if (takesKeys(widget) && !widget.isHidden() && wordsOf(*accessible).isEmpty())
        faults.push_back(who + ": no name in words");
}

using Key_Owners = std::map<QString, std::vector<std::string>>;

void addKey(Key_Owners& owners, const QString& caption, const QString& name) {
    const QKeySequence key = QKeySequence::mnemonic(caption);
    if (!key.isEmpty()) owners[key.toString()].push_back(name.toStdString());
}

std::vector<std::string> clashesOf(const Key_Owners& owners) {
    std::vector<std::string> clashes;
    for (const auto& [key, names] : owners) {
        if (names.size() < 2) continue;
        std::string line = key.toStdString() + ":";
        for (const std::string& name : names)
            line += " " + name;
        clashes.push_back(line);
    }
    return clashes;
}

std::vector<std::string> clashesOf(const QList<QAction*>& actions) {
    Key_Owners owners;
    for (const QAction* action : actions)
        addKey(owners, action->text(), action->objectName());
    std::vector<std::string> clashes = clashesOf(owners);
    for (const QAction* action : actions)
        if (action->menu() != nullptr)
            for (const std::string& inside : keyClashes(*action->menu()))
                clashes.push_back(inside);
    return clashes;
}

} // namespace

std::vector<std::string> controlFaults(QWidget& window) {
    std::vector<std::string> faults;
    if (window.accessibleDescription() != window.objectName() || window.objectName().isEmpty())
        faults.push_back("the window: no given name");
    if (!window.accessibleName().isEmpty()) faults.push_back("the window: a name that hides its title");
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (!widget->isWindow() && isControl(*widget, window)) addFaults(faults, *widget);
    return faults;
}

std::vector<std::string> captions(const QWidget& window) {
    std::vector<std::string> said;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (isPartOfAControl(*widget, window)) continue;
        QString words;
        if (const auto* label = qobject_cast<const QLabel*>(widget)) words = label->text();
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) words = button->text();
        if (const auto* group = qobject_cast<const QGroupBox*>(widget)) words = group->title();
        if (words.isEmpty()) continue;
        const QString tip = widget->toolTip();
        said.push_back((tip.isEmpty() ? words : words + u'|' + tip).toStdString());
    }
    return said;
}

std::vector<std::string> tabOrder(QWidget& window) {
    std::vector<std::string> names;
    for (QWidget* widget = window.nextInFocusChain(); widget != &window; widget = widget->nextInFocusChain())
        if (widget->window() == &window && takesKeys(*widget) && widget->isEnabled() && widget->isVisible() &&
            !isPartOfAControl(*widget, window))
            names.push_back(widget->objectName().toStdString());
    return names;
}

std::vector<std::string> keyClashes(const QWidget& window) {
    Key_Owners owners;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isHidden()) continue;
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            addKey(owners, button->text(), button->objectName());
        if (const auto* label = qobject_cast<const QLabel*>(widget); label != nullptr && label->buddy())
            addKey(owners, label->text(), label->buddy()->objectName());
    }
    return clashesOf(owners);
}

std::vector<std::string> keyClashes(const QMenuBar& bar) { return clashesOf(bar.actions()); }

std::vector<std::string> keyClashes(const QMenu& menu) { return clashesOf(menu.actions()); }

} // namespace zorvane::doubles
