// SPDX-License-Identifier: MIT
#include "app/window/files/document_ways.h"

#include "app/document/document_commands.h"
#include "app/files/new_document.h"
#include "app/files/recent_files.h"
#include "app/window/form/opening.h"
#include "template/services/native_files.h"
#include "ui/base/text.h"
#include "values/code_page.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QTimer>

namespace zorvane::app {

namespace {

constexpr qsizetype mostShownCharacters = 60;
const std::string handedTopic = "handed over";

/// A submenu that fills itself when it opens.
std::unique_ptr<QMenu> submenu(const Menu_Context& menu, const QString& entry,
                               const std::function<void()>& fill) {
    auto made = std::make_unique<QMenu>();
    made->setObjectName(entry + QStringLiteral("_Menu"));
    menu.window().menu().action(entry).setMenu(made.get());
    QObject::connect(made.get(), &QMenu::aboutToShow, made.get(),
                     [&edge = menu.edge, fill] { edge.run(fill); });
    return made;
}

/// A digit in front chooses the entry.
QString caption(int number, QString text) {
    text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    return QStringLiteral("&%1 %2").arg(number).arg(text);
}

/// A path that is cut in the middle, where it says least.
QString shortened(const QString& path) {
    if (path.size() <= mostShownCharacters) return path;
    const qsizetype tail = mostShownCharacters * 2 / 3;
    return path.left(mostShownCharacters - tail - 1) + QChar(0x2026) + path.right(tail);
}

} // namespace

Document_Ways::Document_Ways(const Menu_Context& menu)
    : menu_(menu), watch_(menu.app), new_(submenu(menu, QStringLiteral("MNU_New"), [this] { fillNew(); })),
      recent_(submenu(menu, QStringLiteral("MNU_Recent"), [this] { fillRecent(); })),
      handed_([this](const QString& path) { return take(path); }) {
    menu_.mainForm.extras.documentOpened = [this] { opened(); };
    menu_.mainForm.extras.documentSaved = [this] { saved(); };
    const auto changed = [this] { menu_.edge.run([this] { look(); }); };
    QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &watcher_, changed);
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_, changed);
    // They are there when Open is.
    const QAction& given = menu_.window().menu().action(QStringLiteral("MNU_Open"));
    const auto follow = [this, &given] {
        for (const char* const entry : {"MNU_New", "MNU_Recent"})
            menu_.window().menu().action(QString::fromLatin1(entry)).setEnabled(given.isEnabled());
    };
    QObject::connect(&given, &QAction::changed, new_.get(), follow);
    // Assistive programs look into a menu that isn't open.
    fillNew();
    fillRecent();
}

Document_Ways::~Document_Ways() {
    menu_.mainForm.extras.documentOpened = {};
    menu_.mainForm.extras.documentSaved = {};
}

void Document_Ways::listen(const QString& place) { handed_.listen(place); }

void Document_Ways::fillNew() {
    new_->clear();
    int number = 0;
    for (const std::string& model : modelsOnOffer(menu_.app)) {
        QAction* const entry = new_->addAction(caption(++number, ui::fromCore(upperCase(model))));
        entry->setObjectName(QStringLiteral("MNU_New_") + ui::fromCore(model));
        menu_.onChosen(*entry,
                       [this, model] { openAnother(menu_, [&] { newFromModel(menu_.app, model); }); });
    }
    if (number == 0) new_->addAction(QStringLiteral("No model is installed"))->setEnabled(false);
}

void Document_Ways::fillRecent() {
    recent_->clear();
    int number = 0;
    for (const Recent_File& file : recentFiles(menu_.app)) {
        const QString path = shownText(file.path);
        QAction* const entry = recent_->addAction(caption(++number, shortened(path)));
        entry->setObjectName(QStringLiteral("MNU_Recent_%1").arg(number));
        entry->setToolTip(ui::literalTip(path));
        entry->setEnabled(file.there);
        menu_.onChosen(*entry, [this, place = file.path] { open(place); });
    }
    if (number == 0) recent_->addAction(QStringLiteral("None yet"))->setEnabled(false);
}

void Document_Ways::open(const std::string& path, bool readOnly) {
    openAnother(menu_, [&] { openFile(menu_.app, path, readOnly); });
}

void Document_Ways::opened() {
    noteRecentFile(menu_.app);
    fillRecent();
    watch_.settle();
    watchFile();
}

void Document_Ways::saved() {
    noteRecentFile(menu_.app);
    fillRecent();
    watch_.saved();
    watchFile();
}

/// The folder as well: a program that writes beside and renames makes another file of that name.
void Document_Ways::watchFile() {
    if (const QStringList all = watcher_.files() + watcher_.directories(); !all.isEmpty())
        watcher_.removePaths(all);
    if (!watch_.path()) return;
    const QString path = QFile::decodeName(pathToNative(*watch_.path()).c_str());
    watcher_.addPath(path);
    watcher_.addPath(QFileInfo(path).absolutePath());
}

void Document_Ways::look() {
    if (!watch_.path()) return;
    const std::string path = *watch_.path();
    const QString file = QFile::decodeName(pathToNative(path).c_str());
    if (!watcher_.files().contains(file) && QFileInfo::exists(file)) watcher_.addPath(file);
    watch_.look({[this, path] { open(path, menu_.app.document().Read_Only); },
                 [this, path] { menu_.mainForm.compareWith(path); }});
}

QString Document_Ways::whyNotNow() const {
    if (!menu_.window().formEnabled())
        return QStringLiteral("A transfer is running. Wait until it has ended.");
    if (QApplication::activeModalWidget() != nullptr)
        return QStringLiteral("A question is open in the window. Answer it first.");
    if (!menu_.window().menu().action(QStringLiteral("MNU_Open")).isEnabled())
        return QStringLiteral("No document can be opened now.");
    return {};
}

QString Document_Ways::take(const QString& path) {
    ui::Main_Window& window = menu_.window();
    if (window.isHidden() || window.isMinimized()) window.showNormal();
    window.raise();
    window.activateWindow();
    const QString why = whyNotNow();
    if (!why.isEmpty()) {
        refuse(path, why);
        return why;
    }
    menu_.mainForm.messageBar().withdraw(handedTopic);
    QTimer::singleShot(0, new_.get(), [this, path] {
        menu_.edge.run([&] { open(pathFromNative(QFile::encodeName(path).toStdString())); });
    });
    return {};
}

void Document_Ways::refuse(const QString& path, const QString& why) {
    const std::string text = pathFromNative((path + QStringLiteral(" wasn't opened. ") + why).toStdString());
    menu_.mainForm.messageBar().tell(
        {handedTopic, Bar_Kind::Note, text, {{"Open", [this, path] { (void)take(path); }}}, false});
}

} // namespace zorvane::app
