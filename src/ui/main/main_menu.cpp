// SPDX-License-Identifier: MIT
#include "ui/main/main_menu.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <array>
#include <stdexcept>
#include <string_view>

namespace zorvane::ui {

/// An entry as designed.
struct Menu_Line {
    std::string_view name{}; ///< "" for a separator
    std::string_view caption{};
    std::string_view keys{}; ///< with blanks between them
    bool checkable = false;
    std::string_view inside{}; ///< the name of the entry whose submenu it stands in, "" for the menu itself
};

namespace {

constexpr Menu_Line separator{};

constexpr std::array fileLines = {
    Menu_Line{"MNU_Open", "&Open...", "Ctrl+O"},
    Menu_Line{"MNU_Close", "&Close", ""},
    Menu_Line{"MNU_Save", "Sa&ve", "Ctrl+S"},
    Menu_Line{"MNU_Saveas", "Save &As...", "Ctrl+Shift+S"},
    Menu_Line{"MNU_Recover", "&Recover...", ""},
    separator,
    Menu_Line{"MNU_PageSetup", "Pa&ge Setup...", ""},
    Menu_Line{"MNU_Print", "&Print...", ""},
    Menu_Line{"MNU_PrintPage", "Print Pag&e", "Ctrl+P", false, "MNU_Print"},
    Menu_Line{"MNU_PrintAll", "P&rint All...", "", false, "MNU_Print"},
    Menu_Line{"MNU_Grid", "&Show grid  in report", "", true},
    separator,
    Menu_Line{"MNU_Exit", "E&xit", "Ctrl+Q"},
    separator,
    Menu_Line{"MNU_New", "&New from Model", ""},
    Menu_Line{"MNU_Recent", "Recent Fi&les", ""},
    Menu_Line{"MNU_ExportValues", "&Export values...", ""},
    Menu_Line{"MNU_ImportValues", "&Import values...", ""},
};

constexpr std::array editLines = {
    Menu_Line{"MNU_Undo", "&Undo", "Ctrl+Z"},
    Menu_Line{"MNU_Redo", "&Redo", "Ctrl+Shift+Z Ctrl+Y"},
    separator,
    Menu_Line{"MNU_Copy", "&Copy", ""},
    Menu_Line{"MNU_PasteBlock", "Paste &block", "Ctrl+Shift+V"},
    separator,
    Menu_Line{"MNU_Find", "&Find...", "Ctrl+F"},
    Menu_Line{"MNU_FindNext", "Find &next", "F3"},
    Menu_Line{"MNU_FindPrevious", "Find &previous", "Shift+F3"},
};

constexpr std::array communicationLines = {
    Menu_Line{"MNU_Upload", "&Upload to PC", ""},
    Menu_Line{"MNU_Download", "&Download to Device", ""},
    Menu_Line{"MNU_Disconnect", "D&isconnect", ""},
    separator,
    Menu_Line{"MNU_Port_Settings", "&Port Settings...", ""},
    Menu_Line{"separador4", "&Modbus Monitor", ""},
    separator,
    Menu_Line{"MNU_Compare", "&Compare...", ""},
    Menu_Line{"MNU_SendChanges", "&Send Changes...", ""},
    Menu_Line{"MNU_Find_Controllers", "&Find Controllers...", ""},
    Menu_Line{"MNU_Listen", "&Listen...", ""},
};

constexpr std::array viewLines = {
    Menu_Line{"MNU_FontSize", "&Font size...", ""},
    separator,
    Menu_Line{"MNU_Commands", "Commands by &Name...", "Ctrl+K"},
    Menu_Line{"MNU_FillsRoom", "&Last column takes the room", "", true},
    Menu_Line{"MNU_DarkGrounds", "&Dark grounds in the dark", "", true},
    Menu_Line{"MNU_MarkChanged", "Mark &changed cells", "", true},
    Menu_Line{"MNU_MarkDifferences", "&Mark differences", "", true},
};

constexpr std::array windowLines = {
    Menu_Line{"MNU_Minimize", "&Minimize", ""},
    Menu_Line{"MNU_Maximize", "Ma&ximize", ""},
    Menu_Line{"MNU_Minimizetotray", "Minimize to &tray", "", true},
};

constexpr std::array helpLines = {
    Menu_Line{"MNU_HelpIndex", "&Index", "F1"},
    Menu_Line{"MNU_OnLine", "&Brevik Online", ""},
    Menu_Line{"MNU_ContactUs", "Contact &Us ", ""},
    Menu_Line{"MNU_About", "&About", ""},
    separator,
    Menu_Line{"MNU_Support", "Copy &Report for Support", ""},
};

constexpr std::array trayLines = {
    Menu_Line{"MNU_Tray_All", "All", ""},
    Menu_Line{"MNU_Tray_Application_Window", "Application Window", ""},
    Menu_Line{"MNU_Tray_Monitor_Window", "Monitor Window", ""},
};

QString text(std::string_view latin) {
    return QString::fromLatin1(latin.data(), static_cast<qsizetype>(latin.size()));
}

} // namespace

Main_Menu::Main_Menu(QMenuBar& bar) : tray_(std::make_unique<QMenu>(QStringLiteral("Tray"))) {
    const auto addMenu = [&](const char* caption, const char* name, const auto& lines) {
        QMenu& menu = *bar.addMenu(QString::fromLatin1(caption));
        menu.setObjectName(QString::fromLatin1(name));
        fill(menu, lines.data(), lines.data() + lines.size());
    };
    addMenu("&File", "MNU_File", fileLines);
    addMenu("&Edit", "MNU_Edit", editLines);
    addMenu("&Communication", "MNU_Communication", communicationLines);
    addMenu("&View", "MNU_View", viewLines);
    addMenu("&Windows", "MNU_Windows", windowLines);
    addMenu("&Help", "MNU_Help", helpLines);
    tray_->setObjectName(QStringLiteral("MNU_Tray"));
    fill(*tray_, trayLines.data(), trayLines.data() + trayLines.size());
}

Main_Menu::~Main_Menu() = default;

void Main_Menu::fill(QMenu& menu, const Menu_Line* first, const Menu_Line* last) {
    for (const Menu_Line* line = first; line != last; ++line) {
        const bool holdsOthers = line + 1 != last && (line + 1)->inside == line->name && !line->name.empty();
        if (line->name.empty()) {
            menu.addSeparator();
        } else if (holdsOthers) {
            QAction& entry = *menu.addMenu(text(line->caption))->menuAction();
            entry.setObjectName(text(line->name));
            entry.menu()->setObjectName(text(line->name) + QStringLiteral("_Menu"));
            actions_[entry.objectName()] = &entry;
        } else {
            add(line->inside.empty() ? menu : *action(text(line->inside)).menu(), *line);
        }
    }
}

void Main_Menu::add(QMenu& menu, const Menu_Line& line) {
    QAction& entry = *menu.addAction(text(line.caption));
    entry.setObjectName(text(line.name));
    QList<QKeySequence> keys;
    for (const QString& each : text(line.keys).split(u' ', Qt::SkipEmptyParts))
        keys << QKeySequence(each);
    entry.setShortcuts(keys);
    entry.setCheckable(line.checkable);
    // Choosing an entry leaves its mark alone: its owner sets it.
    if (line.checkable)
        QObject::connect(&entry, &QAction::triggered, &entry, [&entry](bool on) { entry.setChecked(!on); });
    actions_[entry.objectName()] = &entry;
}

QAction& Main_Menu::action(const QString& name) const {
    const auto found = actions_.find(name);
    if (found == actions_.end()) throw std::out_of_range("no menu entry " + name.toStdString());
    return *found->second;
}

void Main_Menu::onChosen(const QString& name, std::function<void()> handler) {
    onChosen(action(name), std::move(handler));
}

void Main_Menu::onChosen(QAction& entry, std::function<void()> handler) {
    QObject::connect(&entry, &QAction::triggered, &entry, [this, handler = std::move(handler)] {
        if (before_) before_();
        handler();
    });
}

} // namespace zorvane::ui
