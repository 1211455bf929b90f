// SPDX-License-Identifier: MIT
#include "app/comparing/compare_command.h"

#include "app/comparing/looking_line.h"
#include "app/window/form/window_form.h"
#include "comm/modbus_control/line/port_texts.h"
#include "compare/comparison_words.h"
#include "template/services/native_files.h"
#include "ui/base/file_dialog.h"
#include "ui/base/text.h"
#include "ui/compare/compare_window.h"
#include "values/code_page.h"

#include <array>
#include <utility>
#include <vector>

namespace zorvane::app {

namespace {

const std::string compareSection = "Compare";
const std::string rightKey = "Right";

/// The kinds of a side in the order of the list, and how they are stored. Runs come after them.
struct Listed_Kind {
    Side_Kind kind;
    const char* caption;
    const char* word;
};
constexpr std::array listedKinds = {
    Listed_Kind{Side_Kind::Document, "This document", "document"},
    Listed_Kind{Side_Kind::Controller, "Controller", "controller"},
    Listed_Kind{Side_Kind::Factory, "Factory values", "factory"},
    Listed_Kind{Side_Kind::File, "Another file", "file"},
    Listed_Kind{Side_Kind::Registers, "Register file", "registers"},
};

int entryOf(const Side_Choice& choice, const std::vector<commission::Run_Entry>& runs) {
    for (std::size_t i = 0; i < listedKinds.size(); ++i)
        if (listedKinds[i].kind == choice.kind) return static_cast<int>(i);
    for (std::size_t i = 0; i < runs.size(); ++i)
        if (runs[i].name == choice.path) return static_cast<int>(listedKinds.size() + i);
    return 0;
}

bool needsFile(Side_Kind kind) { return kind == Side_Kind::File || kind == Side_Kind::Registers; }

constexpr std::array placesOfSides = {Place_Of_Side::Left, Place_Of_Side::Right};

/// A comparison in its window with all that it works on.
class Comparing {
  public:
    Comparing(const Comparing_Services& services, const std::optional<Side_Choice>& right)
        : services_(services), desk_(services.app, services.runs),
          line_(
              services.link, services.simulator,
              [this](const std::function<bool()>& condition) { app().mainForm.wait_until(condition); },
              [this] { return cancelled_; }),
          window_(services.dialogParent()) {
        if (right && right->kind == Side_Kind::File) files_[1][0] = right->path;
        desk_.choose(Place_Of_Side::Right, right.value_or(Side_Choice{storedKind()}));
        connect();
        showSides();
        compare();
    }

    void run() {
        services_.run(window_);
        services_.edge.throwIfEnded();
        if (auto with = desk_.comparedWith()) services_.marks.holdAgainst(std::move(*with));
        if (toSend_) services_.sendChanges(*toSend_);
    }

  private:
    [[nodiscard]] const App_Context& app() const { return services_.app; }

    [[nodiscard]] Side_Kind storedKind() const {
        const std::string word =
            app().settings.GetSetting(applicationTitle, compareSection, rightKey, "controller");
        for (const Listed_Kind& listed : listedKinds)
            if (word == listed.word) return listed.kind;
        return Side_Kind::Controller;
    }

    void connect() {
        const auto atEdge = [this](void (Comparing::*step)()) {
            return [this, step] { services_.edge.run([this, step] { (this->*step)(); }); };
        };
        window_.events.sideChosen = [this](int side, int entry) {
            services_.edge.run([&] { chooseEntry(side, entry); });
        };
        window_.events.fileWanted = [this](int side) { services_.edge.run([&] { chooseFile(side); }); };
        window_.events.readController = atEdge(&Comparing::readController);
        window_.events.cancelReading = [this] { cancelled_ = true; };
        window_.events.middleChosen = [this](bool on) { services_.edge.run([&] { chooseMiddle(on); }); };
        window_.events.takeLeft = atEdge(&Comparing::takeLeft);
        window_.events.take = atEdge(&Comparing::take);
        window_.events.send = atEdge(&Comparing::send);
        window_.events.print = atEdge(&Comparing::print);
        window_.events.exportTo = atEdge(&Comparing::exportTo);
    }

    void showSides() {
        QStringList entries;
        for (const Listed_Kind& listed : listedKinds)
            entries << QString::fromLatin1(listed.caption);
        for (const commission::Run_Entry& run : desk_.runs())
            entries
                << QStringLiteral("Before the send of %1").arg(QString::fromStdString(run.head.startedLocal));
        for (int side = 0; side < 2; ++side)
            window_.setSideEntries(side, entries,
                                   entryOf(desk_.choice(placesOfSides[at(side)]), desk_.runs()));
    }

    static std::size_t at(int side) { return static_cast<std::size_t>(side); }

    void chooseEntry(int side, int entry) {
        const auto kinds = static_cast<int>(listedKinds.size());
        Side_Choice choice;
        if (entry < kinds)
            choice.kind = listedKinds[at(entry)].kind;
        else
            choice = {Side_Kind::Run, desk_.runs()[at(entry - kinds)].name};
        if (needsFile(choice.kind)) choice.path = files_[at(side)][choice.kind == Side_Kind::File ? 0 : 1];
        desk_.choose(placesOfSides[at(side)], choice);
        if (side == 1 && entry < kinds)
            app().settings.SaveSetting(applicationTitle, compareSection, rightKey,
                                       listedKinds[at(entry)].word);
        compare();
    }

    void chooseMiddle(bool on) {
        desk_.setMiddle(on);
        showSides();
        compare();
    }

    void chooseFile(int side) {
        Side_Choice choice = desk_.choice(placesOfSides[at(side)]);
        const bool registers = choice.kind == Side_Kind::Registers;
        dialog_.DialogTitle =
            registers ? QStringLiteral("Registers to compare with") : QStringLiteral("File to compare with");
        dialog_.Filter = registers ? QStringLiteral("Registers (*.json)|*.json|All files (*)|*|")
                                   : QStringLiteral("All files (*)|*|");
        dialog_.Flags = ui::File_Dialog::HideReadOnly;
        if (!dialog_.ShowOpen(&window_)) return;
        choice.path = pathFromNative(dialog_.FileName.toStdString());
        files_[at(side)][registers ? 1 : 0] = choice.path;
        desk_.choose(placesOfSides[at(side)], choice);
        compare();
    }

    void compare() {
        Desk_Comparison result = desk_.compare();
        window_.setMiddle(desk_.middle());
        if (result.comparison && result.left)
            window_.setRows(compare::Row_List(std::move(*result.left), std::move(*result.comparison)));
        else if (result.comparison)
            window_.setRows(compare::Row_List(std::move(*result.comparison)));
        else
            window_.setNothing(shownText(result.why));
        for (int side = 0; side < 2; ++side) {
            const Place_Of_Side place = placesOfSides[at(side)];
            window_.tellSide(side, needsFile(desk_.choice(place).kind), shownText(desk_.nameOf(place)));
        }
        window_.setControllerWanted(desk_.wantsController());
        window_.setTake(shownText(desk_.whyNotTake()));
        window_.setSend(shownText(desk_.whyNotSend()));
        window_.setNote(shownText(desk_.identityText()));
    }

    /// The window stays alive meanwhile, and its Cancel ends the reading after the request that is out.
    void readController() {
        cancelled_ = false;
        window_.setNote({});
        window_.setReading(std::pair(0, 1));
        std::string fault = line_.open();
        if (fault.empty()) fault = look();
        line_.close();
        window_.setReading(std::nullopt);
        if (fault.empty()) return compare();
        window_.setNote(shownText(fault));
    }

    /// Why there is no reading; empty when there is one.
    [[nodiscard]] std::string look() {
        const std::int32_t unit = line_.settings().slave;
        compare::Looked_At seen =
            compare::lookAt(desk_.question(line_.reader(), unit), [this](std::size_t done, std::size_t all) {
                window_.setReading(std::pair(static_cast<int>(done), static_cast<int>(all)));
            });
        const compare::Reading_Result& read = seen.read.latest;
        if (read.end == compare::Reading_End::Cancelled)
            return "Stopped before all was read. Nothing was written.";
        if (!read.done()) return portLostText(line_.settings().port, fromUtf8(read.fault));
        desk_.takeLook({std::move(seen), compare::controllerText(fromUtf8(line_.settings().port), unit),
                        app().mainForm.timeOfDay()});
        return {};
    }

    void take() {
        if (const auto from = desk_.takenSide()) takeFrom(*from, window_.rows().tickedRightRows());
    }

    void takeLeft() { takeFrom(compare::Taken_Side::Left, window_.rows().tickedLeftRows()); }

    /// A cell that isn't there on a side of three has no value to take.
    void takeFrom(compare::Taken_Side from, const std::vector<const compare::Row*>& rows) {
        if (!desk_.whyNotTake().empty()) return;
        const compare::Taking taking = compare::judgedTaking(app().document(), rows, from);
        std::string told = compare::takingText(taking);
        if (const std::size_t none = window_.rows().tickedRows().size() - rows.size(); none > 0)
            told +=
                "\r\n" + std::to_string(none) +
                (none == 1 ? " ticked setting isn't on that side." : " ticked settings aren't on that side.");
        takeIntoDocument(app(), taking);
        compare();
        window_.setNote(shownText(told));
    }

    void send() {
        std::vector<commission::Cell_Pattern> cells;
        for (const compare::Row* row : window_.rows().tickedRows())
            cells.push_back({row->place.field, row->place.row, row->place.column});
        if (cells.empty()) return;
        toSend_.emplace(std::move(cells));
        window_.accept();
    }

    [[nodiscard]] compare::Comparison_Report report() const {
        return {services_.metrics, window_.rows(), desk_.head(ui::toCore(window_.filter()))};
    }

    void print() {
        compare::Comparison_Report made = report();
        services_.print(made, made.Caption);
    }

    void exportTo() {
        compare::Comparison_Report made = report();
        const std::string told = services_.exportTo(made);
        if (!told.empty()) window_.setNote(shownText(told));
    }

    const Comparing_Services& services_;
    Comparison_Desk desk_;
    bool cancelled_ = false;
    Looking_Line line_;
    ui::Compare_Window window_;
    ui::File_Dialog dialog_;
    std::array<std::array<std::string, 2>, 2> files_; ///< of a side: a file, a file of registers
    std::optional<commission::Chosen_Cells> toSend_;
};

} // namespace

void compareDocument(const Comparing_Services& services, const std::optional<Side_Choice>& right) {
    if (services.finishEdit) services.finishEdit();
    Comparing(services, right).run();
}

} // namespace zorvane::app
