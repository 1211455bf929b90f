// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/window_layout.h"
#include "ui/grid/flex_grid.h"
#include "ui/main/main_menu.h"
#include "ui/main/status_bar.h"

#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <memory>

namespace zorvane::ui {

class Caption_Box;
class Column_Tip;
class Message_Bar_View;
class Split_Bar;

/// What the main form tells its owner. No handler lets an exception out.
struct Main_Window_Events {
    /// The window is about to close, by its frame or the desktop; false keeps it open.
    std::function<bool()> queryClose;
    std::function<void(const QString& path)> fileDropped; ///< a file was dropped on the window
    std::function<void(bool busy)> resizing;              ///< the form begins and ends laying itself out
    std::function<void()> minimized;
    std::function<void(bool enabled)> formEnabledSet; ///< the form takes input from now on, or doesn't
};

/// `KVRT_Principal`, the main form: menu, two boxes with a grid each, the splitter between them, the status
/// bar. It lays itself out and knows nothing of documents.
class Main_Window final : public QMainWindow {
  public:
    Main_Window();
    ~Main_Window() override;

    Main_Window_Events events;

    [[nodiscard]] Main_Menu& menu() { return *menu_; }
    [[nodiscard]] Flex_Grid& FLX_Configuration() { return *configuration_; }
    [[nodiscard]] Flex_Grid& FLX_Settings() { return *settings_; }
    [[nodiscard]] Status_Bar& StatusBar1() { return *statusBar_; }
    [[nodiscard]] QWidget& Frame2();
    [[nodiscard]] QWidget& Frame3();
    [[nodiscard]] QWidget& PicLineHoriz();
    [[nodiscard]] Column_Tip& picTip() { return *tip_; }
    [[nodiscard]] Message_Bar_View& messageBar() { return *messageBar_; }

    [[nodiscard]] const Window_Layout& formLayout() const { return layout_; }
    [[nodiscard]] Twips_Scale scale() const { return layout_.scale; }

    /// The form's place on the screen, in twips: the corner of its frame, and its size without the frame. Of
    /// a maximized form it is the place that it goes back to.
    [[nodiscard]] Twips_Rect formRect() const;
    void setFormRect(const Twips_Rect& place);

    /// A form that isn't enabled takes no input and can't be closed; the windows that it owns go on working.
    void setFormEnabled(bool enabled);
    [[nodiscard]] bool formEnabled() const { return formEnabled_; }

    /// Takes the text of an edit in progress in either grid.
    void finishEdit();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    Flex_Grid_View& addGrid(QWidget& box, const QString& name, const QString& words);
    void setDesignSize();
    void addMessageBar();
    void applyLayout();
    void placeMessageBar();
    void focusGrids();
    void giveFocusBack(QWidget& widget);
    void tellMinimized();
    void dragSplitter(int mouseY);
    void dropSplitter();
    void enterSplitter();
    void leaveSplitter();

    QWidget* client_ = nullptr;
    Caption_Box* frame2_ = nullptr;
    Caption_Box* frame3_ = nullptr;
    Split_Bar* splitter_ = nullptr;
    QWidget* line1_ = nullptr;
    Status_Bar* statusBar_ = nullptr;
    Column_Tip* tip_ = nullptr;
    Message_Bar_View* messageBar_ = nullptr;
    std::unique_ptr<Main_Menu> menu_;
    std::unique_ptr<Flex_Grid> configuration_;
    std::unique_ptr<Flex_Grid> settings_;
    Window_Layout layout_;
    QPointer<QWidget> focusBeforeDisabling_;
    QPointer<QWidget> focusBeforeSplitter_;
    bool formEnabled_ = true;
    bool placingBar_ = false;
};

} // namespace zorvane::ui
