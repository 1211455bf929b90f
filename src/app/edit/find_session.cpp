// SPDX-License-Identifier: MIT
#include "app/edit/find_session.h"

#include "edit/named_cells.h"
#include "edit/wanted_value.h"
#include "grids/fill/show_cell.h"
#include "values/run_time_failure.h"

#include <algorithm>

namespace zorvane::app {

namespace {

const std::string findTopic = "find";

/// The template is read beside the document, so it has nothing to say to the link or to the user.
class Unheard_Link final : public Link_Notice {
  public:
    void SetTimings(std::int32_t /*requestMs*/, std::int32_t /*outMs*/) override {}
    void SetHoldingRegisters(std::int16_t /*first*/, double /*count*/, bool /*flag*/,
                             std::int16_t /*last*/) override {}
    void SetAddressBase(std::int32_t /*base*/) override {}
};

class Unheard_Asker final : public Asker {
  public:
    int Msgb_Show(const std::string& /*prompt*/, int /*style*/, const std::string& /*title*/) override {
        return Msgb_Code_Ok;
    }
};

} // namespace

const Declara_Zorvane& Find_Session::factory() {
    if (factory_ && factoryEdition_ == app_.document().Edition) return *factory_;
    factory_ = std::make_unique<Declara_Zorvane>();
    factoryEdition_ = app_.document().Edition;
    PRO_Limpia_Modelo(*factory_);
    PRO_Prepara_Lectura(*factory_);
    factory_->Holding_Blocks.redim(0);
    Unheard_Asker asker;
    Unheard_Link link;
    ignoringFailure([&] {
        PRO_Leer_INIFIle(*factory_, {app_.files, asker, link, app_.applicationFolder},
                         app_.applicationFolder + folderSeparator + app_.state.documentType + ".ZTP");
    });
    return *factory_;
}

std::vector<Cell_Place> Find_Session::places() {
    const Declara_Zorvane& document = app_.document();
    if (!app_.form().Document_Open || app_.state.modelEmptied) return {};
    edit::Cell_Marks marks;
    marks.isChanged = [&](const Cell_Place& place) { return app_.state.changed.isChanged(document, place); };
    if (query.differsFromFactoryOnly) marks.differsFromFactory = edit::differsFrom(document, factory());
    return edit::foundCells(document, query, marks);
}

std::vector<Found_Row> Find_Session::rows() {
    std::vector<Found_Row> rows;
    const Declara_Zorvane& document = app_.document();
    for (const Cell_Place& place : places()) {
        const Cell_Table& cells = document.Fields(place.field).Cells;
        const Cell_Rec& cell = cells(place.row, place.column);
        std::string address = cell.Address;
        if (cell.Is_Ascii_Range) address += "-" + std::string(cell.Address_End);
        rows.push_back({place, edit::cellPath(document, place), edit::valueText(cell), std::move(address)});
    }
    return rows;
}

Cell_Place Find_Session::current() const {
    const VSFlexGrid& grid = app_.grids.FLX_Settings;
    return {app_.grids.fieldNumber(), std::max(grid.Row(), 0), std::max(grid.Col(), 0) + 1};
}

void Find_Session::next() { go(edit::nextFound(places(), current())); }

void Find_Session::previous() { go(edit::previousFound(places(), current())); }

void Find_Session::go(const std::optional<Cell_Place>& place) const {
    Message_Bar& bar = app_.mainForm.messageBar();
    if (place) {
        bar.withdraw(findTopic);
        return show(*place);
    }
    const std::string what = query.text.empty() ? "No cell" : "\"" + query.text + "\": no cell";
    bar.tell({findTopic, Bar_Kind::Note, what + " was found on any page.", {}});
}

/// A transfer goes by the grids' rows, which nobody moves meanwhile.
void Find_Session::show(const Cell_Place& place) const {
    const Main_Form_State& form = app_.form();
    if (form.Upload_Active || form.Download_Active) return;
    showCell(app_.grids, place);
}

std::optional<std::size_t> Find_Session::rowOf(const std::vector<Found_Row>& found) const {
    const Cell_Place here = current();
    const auto at =
        std::find_if(found.begin(), found.end(), [&](const Found_Row& row) { return row.place == here; });
    if (at == found.end()) return std::nullopt;
    return static_cast<std::size_t>(at - found.begin());
}

std::string Find_Session::position(const std::vector<Found_Row>& found) const {
    if (found.empty()) return "nothing found";
    const auto row = rowOf(found);
    if (!row) return std::to_string(found.size()) + " found";
    return std::to_string(*row + 1) + " of " + std::to_string(found.size());
}

} // namespace zorvane::app
