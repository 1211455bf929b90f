// SPDX-License-Identifier: MIT
#include "app/window/form/window_form.h"

#include "template/services/native_files.h"
#include "ui/base/text.h"
#include "ui/forms/frm_debug.h"
#include "ui/forms/lost_com.h"
#include "ui/forms/msgb.h"
#include "ui/main/message_bar_view.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QScreen>
#include <QTime>

#include <algorithm>

namespace zorvane::app {

namespace {

constexpr double reachableTwips = 1440; // of a window that stands half outside, or is tiny

QString nameOf(Menu_Entry entry) {
    switch (entry) {
    case Menu_Entry::MNU_Open:
        return QStringLiteral("MNU_Open");
    case Menu_Entry::MNU_Close:
        return QStringLiteral("MNU_Close");
    case Menu_Entry::MNU_Save:
        return QStringLiteral("MNU_Save");
    case Menu_Entry::MNU_Saveas:
        return QStringLiteral("MNU_Saveas");
    case Menu_Entry::MNU_Print:
        return QStringLiteral("MNU_Print");
    case Menu_Entry::MNU_PrintPage:
        return QStringLiteral("MNU_PrintPage");
    case Menu_Entry::MNU_PrintAll:
        return QStringLiteral("MNU_PrintAll");
    case Menu_Entry::MNU_Grid:
        return QStringLiteral("MNU_Grid");
    case Menu_Entry::MNU_Upload:
        return QStringLiteral("MNU_Upload");
    case Menu_Entry::MNU_Download:
        return QStringLiteral("MNU_Download");
    case Menu_Entry::MNU_Disconnect:
        return QStringLiteral("MNU_Disconnect");
    case Menu_Entry::separador4:
        break;
    }
    return QStringLiteral("separador4");
}

void callIfAny(const std::function<void()>& extra) {
    if (extra) extra();
}

} // namespace

QString shownText(const std::string& text) {
    QString shown = QString::fromStdString(pathToNative(text));
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return shown;
}

Twips_Rect reachable(Twips_Rect place, const Twips_Rect& screen) {
    place.width = std::min(std::max(place.width, reachableTwips), screen.width);
    place.height = std::min(std::max(place.height, reachableTwips), screen.height);
    const double rightmost = std::max(0.0, screen.width - reachableTwips);
    const double lowest = std::max(0.0, screen.height - reachableTwips);
    place.left = std::clamp(place.left, std::min(0.0, reachableTwips - place.width), rightmost);
    place.top = std::clamp(place.top, 0.0, lowest);
    return place;
}

Window_Form::Window_Form(ui::Main_Window& window, Event_Edge& edge)
    : window_(window), edge_(edge), progress_(&window),
      grids_(window.FLX_Configuration(), window.FLX_Settings()), dialog_([this] { return dialogParent(); }) {
    ask = [this](const QString& prompt, int style, const QString& title) {
        return ui::Msgb_Show(dialogParent(), prompt, style, title);
    };
}

QWidget* Window_Form::dialogParent() const {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* form = progress_.shownForm()) return form;
    return window_.isVisible() ? &window_ : nullptr;
}

int Window_Form::Msgb_Show(const std::string& prompt, int style, const std::string& title) {
    return asksNobody_ ? int{Msgb_Code_Cancel} : ask(shownText(prompt), style, shownText(title));
}

void Window_Form::endQuestions() {
    asksNobody_ = true;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* dialog = qobject_cast<QDialog*>(window); dialog != nullptr && dialog->isModal())
            dialog->reject();
}

void Window_Form::setPanel(Panel panel, const std::string& text) {
    window_.StatusBar1().setText(static_cast<int>(panel), shownText(text));
    if (panel == Panel::ReadOnly || panel == Panel::LinkState) callIfAny(extras.stateChanged);
}

std::string Window_Form::panel(Panel panel) const {
    return pathFromNative(window_.StatusBar1().text(static_cast<int>(panel)).toStdString());
}

/// "Print Page" has keys of its own, which the state of the menu around it doesn't reach.
void Window_Form::setMenuEnabled(Menu_Entry entry, bool enabled) {
    ui::Main_Menu& menu = window_.menu();
    if (entry == Menu_Entry::MNU_PrintPage)
        printPageEnabled_ = enabled;
    else
        menu.action(nameOf(entry)).setEnabled(enabled);
    if (entry == Menu_Entry::MNU_Download)
        for (const QString& other : {QStringLiteral("MNU_Compare"), QStringLiteral("MNU_SendChanges")})
            menu.action(other).setEnabled(enabled);
    menu.action(nameOf(Menu_Entry::MNU_PrintPage))
        .setEnabled(printPageEnabled_ && menu.action(nameOf(Menu_Entry::MNU_Print)).isEnabled());
    callIfAny(extras.stateChanged);
}

bool Window_Form::menuEnabled(Menu_Entry entry) const {
    return entry == Menu_Entry::MNU_PrintPage ? printPageEnabled_
                                              : window_.menu().action(nameOf(entry)).isEnabled();
}

void Window_Form::setMenuChecked(Menu_Entry entry, bool checked) {
    window_.menu().action(nameOf(entry)).setChecked(checked);
}

bool Window_Form::menuChecked(Menu_Entry entry) const {
    return window_.menu().action(nameOf(entry)).isChecked();
}

void Window_Form::setCaption(const std::string& text) {
    window_.setWindowTitle(shownText(text));
    callIfAny(extras.stateChanged);
}

void Window_Form::setFormEnabled(bool enabled) {
    window_.setFormEnabled(enabled);
    callIfAny(extras.formEnabledSet);
    callIfAny(extras.stateChanged);
}

void Window_Form::setLostComShown(bool shown) {
    if (shown && lostCom_ == nullptr) lostCom_ = new ui::Lost_Com(&window_);
    if (lostCom_ != nullptr) lostCom_->setVisible(shown);
}

void Window_Form::showFrmStatus(bool isUpload) {
    if (extras.showFrmStatus) extras.showFrmStatus(isUpload);
}

void Window_Form::compareWith(const std::string& path) {
    if (extras.compare && window_.menu().action(QStringLiteral("MNU_Compare")).isEnabled())
        extras.compare(path);
}

void Window_Form::openAsText(const std::string& path) {
    if (extras.openAsText) extras.openAsText(path);
}

void Window_Form::unloadFrmStatus() { callIfAny(extras.unloadFrmStatus); }

std::string Window_Form::timeOfDay() const {
    return QTime::currentTime().toString(QStringLiteral("HH:mm:ss")).toStdString();
}

void Window_Form::wait_until(const std::function<bool()>& condition) {
    QEventLoop loop;
    for (;;) {
        edge_.throwIfEnded();
        if (condition()) return;
        loop.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

void Window_Form::wait_ms(std::int32_t milliseconds) {
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    timer.start(milliseconds);
    wait_until([&timer] { return !timer.isActive(); });
}

QWidget& Window_Form::part(Form_Part part) const {
    switch (part) {
    case Form_Part::Frame2:
        return window_.Frame2();
    case Form_Part::Frame3:
        return window_.Frame3();
    case Form_Part::PicLineHoriz:
        break;
    }
    return window_.PicLineHoriz();
}

void Window_Form::setPartVisible(Form_Part part, bool visible) {
    this->part(part).setVisible(visible);
    if (part != Form_Part::PicLineHoriz)
        window_.PicLineHoriz().setVisible(!window_.Frame2().isHidden() && !window_.Frame3().isHidden());
    giveFocusBack();
}

void Window_Form::setPartEnabled(Form_Part part, bool enabled) {
    this->part(part).setEnabled(enabled);
    giveFocusBack();
}

/// Hidden grids lose the keyboard. When they are back it mustn't go nowhere, nor stay in the message bar.
void Window_Form::giveFocusBack() {
    if (window_.Frame2().isHidden() || !window_.Frame2().isEnabled()) return;
    QWidget* const last = window_.focusWidget();
    const bool usable = last != nullptr && last->isVisibleTo(&window_) && last->isEnabled() &&
                        !window_.messageBar().isAncestorOf(last);
    if (!usable)
        window_.FLX_Configuration().view().setFocus();
    else if (window_.isActiveWindow() && QApplication::focusWidget() == nullptr)
        last->setFocus();
}

Twips_Rect Window_Form::formRectangle() const { return window_.formRect(); }

void Window_Form::moveForm(const Twips_Rect& place) { window_.setFormRect(reachable(place, screen())); }

/// All screens together are one.
Twips_Rect Window_Form::screen() const {
    const QSize size = window_.screen()->virtualSize();
    return {0, 0, window_.scale().twipsX(size.width()), window_.scale().twipsY(size.height())};
}

void Window_Form::showForm() { window_.show(); }

ui::Frm_Debug& Window_Form::FrmDebug() {
    if (frmDebug_ == nullptr) frmDebug_ = new ui::Frm_Debug(&window_);
    return *frmDebug_;
}

void Window_Form::loadFrmDebug() { (void)FrmDebug(); }

void Window_Form::removeTrayIcon() { callIfAny(extras.removeTrayIcon); }

void Window_Form::removeColumnTip() { callIfAny(extras.removeColumnTip); }

void Window_Form::closePreviews() { callIfAny(extras.closePreviews); }

void Window_Form::restartPreviews(double fontSize) {
    if (extras.restartPreviews) extras.restartPreviews(fontSize);
}

void Window_Form::choose(const std::string& entry) { window_.menu().action(ui::fromCore(entry)).trigger(); }

void Window_Form::endProgram(int exitCode) {
    if (edge_.ended()) return;
    exitCode_ = exitCode;
    edge_.end();
    QApplication::exit(exitCode);
}

} // namespace zorvane::app
