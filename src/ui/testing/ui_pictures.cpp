// Writes pictures of the window and its dialogs, for people to look at: ui_pictures FOLDER [dark]
#include "ui/acercade.h"
#include "ui/column_tip.h"
#include "ui/common_dialog.h"
#include "ui/font_dialog.h"
#include "ui/lost_com.h"
#include "ui/mensaje.h"
#include "ui/msgb.h"
#include "ui/porcentaje.h"
#include "ui/testing/sample_window.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QStyle>
#include <QTest>

namespace {

using namespace zorvane;

QPalette darkPalette() {
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

class Pictures {
  public:
    explicit Pictures(const QString& folder) : folder_(folder) { QDir().mkpath(folder); }

    void take(QWidget& widget, const QString& name) {
        widget.show();
        QTest::qWait(150);
        widget.grab().save(folder_.filePath(name + QStringLiteral(".png")));
    }

  private:
    QDir folder_;
};

/// A border that is being dragged.
void takeColumnTip(Pictures& pictures, Main_Window& window) {
    Flex_Grid_Events& events = window.FLX_Settings().events();
    events.MouseMove = [&window](std::int16_t, std::int16_t, float, float) { window.picTip().start(); };
    events.UserResizing = [&window](std::int32_t, std::int32_t twips) { window.picTip().drag(twips); };
    QHeaderView& header = *window.FLX_Settings().view().horizontalHeader();
    const QPoint border(header.sectionSize(0) - 1, 5);
    QTest::mouseMove(header.viewport(), border);
    QTest::mousePress(header.viewport(), Qt::LeftButton, {}, border);
    QTest::mouseMove(header.viewport(), border + QPoint(30, 0));
    pictures.take(window, QStringLiteral("window_column_tip"));
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, border + QPoint(30, 0));
}

void takeWindow(Pictures& pictures) {
    Main_Window window;
    samples::fillWindow(window);
    pictures.take(window, QStringLiteral("window_design"));
    window.resize(window.width() * 3 / 2, window.height() * 6 / 5);
    window.FLX_Settings().SetFocus();
    pictures.take(window, QStringLiteral("window_wide"));
    QTest::keyClick(&window.FLX_Settings().view(), Qt::Key_F2);
    pictures.take(window, QStringLiteral("window_editing"));
    takeColumnTip(pictures, window);
    for (const double points : {7.5, 12.0}) {
        window.FLX_Configuration().setFontSize(points);
        window.FLX_Settings().setFontSize(points);
        pictures.take(window, QStringLiteral("window_font_%1").arg(points));
    }
    window.PicLineHoriz().setFocus();
    pictures.take(window, QStringLiteral("window_splitter"));
    QMenu& menu = *window.menuBar()->actions().constFirst()->menu();
    pictures.take(menu, QStringLiteral("menu_file"));
    menu.hide();
}

void takeDialogs(Pictures& pictures) {
    const Ask_User ask = [](const QString&, int, const QString&) { return 7; };
    Msgb question(QStringLiteral("Do you want to save this file?"), 35, QStringLiteral("Zorvane"), nullptr);
    pictures.take(question, QStringLiteral("msgb_question"));
    Msgb longText(
        QStringLiteral("Can't Save file : path/file error or directory is read only.\r\nExtra info: ") +
            QString(400, u'x'),
        16, QStringLiteral("Zorvane"), nullptr);
    pictures.take(longText, QStringLiteral("msgb_long"));
    Msgb note(QStringLiteral("Default file can't be overwritted!"), 64, QStringLiteral("Zorvane"), nullptr);
    pictures.take(note, QStringLiteral("msgb_note"));
    Msgb warning(QStringLiteral("The value is out of range."), 48, QStringLiteral("Zorvane"), nullptr);
    pictures.take(warning, QStringLiteral("msgb_warning"));
    Acercade about(ask, nullptr);
    pictures.take(about, QStringLiteral("acercade"));
    Porcentaje progress({{}, ask, {}, {}, {}}, nullptr);
    progress.setLabel(QStringLiteral("Uploading data from the controller..."));
    progress.Progress_Bar().setValue(40);
    pictures.take(progress, QStringLiteral("porcentaje"));
    Font_Dialog sizes(1, nullptr);
    pictures.take(sizes, QStringLiteral("font_dialog"));
    Font_Dialog largest(6, nullptr);
    pictures.take(largest, QStringLiteral("font_dialog_largest"));
    Lost_Com lost(nullptr);
    pictures.take(lost, QStringLiteral("lostcom"));
    Mensaje busy(false, nullptr);
    pictures.take(busy, QStringLiteral("mensaje"));
    Mensaje animated(true, nullptr);
    pictures.take(animated, QStringLiteral("mensaje_animated"));
    Common_Dialog open;
    open.DialogTitle = QStringLiteral("Open");
    open.Filter = QStringLiteral("ABC Configuration (*.ABC)|*.ABC|");
    open.run = [&](QFileDialog& dialog) {
        pictures.take(dialog, QStringLiteral("open"));
        return false;
    };
    open.ShowOpen(nullptr);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) return 2;
    QApplication::setStyle(QStringLiteral("Fusion"));
    if (argc > 2) QApplication::setPalette(darkPalette());
    Pictures pictures(QString::fromLocal8Bit(argv[1]));
    takeWindow(pictures);
    takeDialogs(pictures);
    return 0;
}
