// SPDX-License-Identifier: MIT
#include "ui/main/command_list.h"

#include "ui/base/text.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QVBoxLayout>

#include <algorithm>

namespace zorvane::ui {

namespace {

constexpr int widthInCharacters = 56;
constexpr int heightInLines = 16;
const QString step = QStringLiteral(" > ");

/// A caption without the mark of its mnemonic.
QString plainCaption(const QAction& action) {
    QString text = action.text().section(u'\t', 0, 0);
    text.replace(QStringLiteral("&&"), QStringLiteral("\x01"));
    text.remove(u'&');
    return text.replace(u'\x01', u'&').simplified();
}

void addCommands(std::vector<Named_Command>& commands, const QList<QAction*>& actions, const QString& way) {
    for (QAction* const action : actions) {
        if (action->isSeparator() || !action->isVisible()) continue;
        const QString name = way + plainCaption(*action);
        if (action->menu() != nullptr)
            addCommands(commands, action->menu()->actions(), name + step);
        else
            commands.push_back({name, action->shortcut().toString(QKeySequence::NativeText), action});
    }
}

bool ownCaptionBegins(const Named_Command& command, const QString& word) {
    return command.name.section(step, -1).startsWith(word, Qt::CaseInsensitive);
}

} // namespace

std::vector<Named_Command> commandsOf(const QMenuBar& bar) {
    std::vector<Named_Command> commands;
    addCommands(commands, bar.actions(), {});
    return commands;
}

std::vector<Named_Command> matchingCommands(const std::vector<Named_Command>& commands,
                                            const QString& words) {
    const QStringList wanted = words.split(u' ', Qt::SkipEmptyParts);
    std::vector<Named_Command> found;
    for (const Named_Command& command : commands)
        if (std::all_of(wanted.begin(), wanted.end(), [&](const QString& word) {
                return command.name.contains(word, Qt::CaseInsensitive);
            }))
            found.push_back(command);
    if (!wanted.isEmpty())
        std::stable_partition(found.begin(), found.end(), [&](const Named_Command& command) {
            return ownCaptionBegins(command, wanted.constFirst());
        });
    return found;
}

Command_List::Command_List(std::vector<Named_Command> commands, QWidget* parent)
    : QDialog(parent), commands_(std::move(commands)), words_(new QLineEdit(this)),
      list_(new QListWidget(this)) {
    giveName(*this, QStringLiteral("CommandList"));
    setWindowTitle(QStringLiteral("Commands by Name"));
    giveName(*words_, QStringLiteral("EDT_Command"));
    words_->setAccessibleName(QStringLiteral("A part of a command's name"));
    words_->setPlaceholderText(QStringLiteral("A part of a command's name"));
    words_->installEventFilter(this);
    giveName(*list_, QStringLiteral("LST_Commands"));
    list_->setAccessibleName(QStringLiteral("Commands"));
    auto* const column = new QVBoxLayout(this);
    column->addWidget(words_);
    column->addWidget(list_);
    connect(words_, &QLineEdit::textChanged, this, [this](const QString& text) { fill(text); });
    connect(words_, &QLineEdit::returnPressed, this, [this] { choose(); });
    connect(list_, &QListWidget::itemActivated, this, [this] { choose(); });
    fill({});
    resize(fontMetrics().averageCharWidth() * widthInCharacters, fontMetrics().lineSpacing() * heightInLines);
}

void Command_List::fill(const QString& words) {
    shown_ = matchingCommands(commands_, words);
    list_->clear();
    for (const Named_Command& command : shown_) {
        const bool usable = command.action != nullptr && command.action->isEnabled();
        QString text = command.name;
        if (!command.keys.isEmpty()) text += QStringLiteral("   (%1)").arg(command.keys);
        if (!usable) text += QStringLiteral("   not now");
        auto* const item = new QListWidgetItem(text, list_);
        if (!usable) item->setFlags(Qt::NoItemFlags);
    }
    for (int row = 0; row < list_->count(); ++row) {
        if (list_->item(row)->flags() == Qt::NoItemFlags) continue;
        list_->setCurrentRow(row);
        break;
    }
}

/// The keyboard stays in the line while the arrows move in the list.
bool Command_List::eventFilter(QObject* watched, QEvent* event) {
    if (watched != words_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(list_, event);
        return true;
    default:
        return QDialog::eventFilter(watched, event);
    }
}

void Command_List::choose() {
    const int row = list_->currentRow();
    if (row < 0 || list_->item(row)->flags() == Qt::NoItemFlags) return;
    chosen_ = shown_[static_cast<std::size_t>(row)].action;
    accept();
}

} // namespace zorvane::ui
