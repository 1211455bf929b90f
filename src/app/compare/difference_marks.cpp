// SPDX-License-Identifier: MIT
#include "app/compare/difference_marks.h"

#include "app/form/view_switches.h"
#include "compare/comparison_words.h"
#include "compare/row_list.h"
#include "grids/rules/value_findings.h"

#include <utility>

namespace zorvane::app {

namespace {

const std::string marksTopic = "marked differences";
const std::string marksSwitch = "Differences";

} // namespace

Difference_Marks::Difference_Marks(const App_Context& app)
    : app_(app), on_(viewSwitch(app.settings, marksSwitch)) {}

void Difference_Marks::MNU_MarkDifferences_Click() {
    on_ = !on_;
    storeViewSwitch(app_.settings, marksSwitch, on_);
    tell();
}

void Difference_Marks::holdAgainst(Compared_With with) {
    with_.emplace(std::move(with));
    tell();
}

bool Difference_Marks::holds() const {
    return with_ && with_->document.holds() && app_.form().Document_Open && !app_.state.modelEmptied;
}

std::string Difference_Marks::text() const {
    if (!holds())
        return "No cell is marked yet: Communication > Compare... chooses what the document differs from.";
    if (app_.form().Online) return "While online no cell is marked: the values are the controller's.";
    return "Cells that differ from " + with_->name + " are marked.";
}

void Difference_Marks::tell() const {
    Message_Bar& bar = app_.mainForm.messageBar();
    if (!on_) return bar.withdraw(marksTopic);
    bar.tell({marksTopic, Bar_Kind::Note, text(), {}});
}

void Difference_Marks::refresh() const {
    app_.mainForm.messageBar().amend({marksTopic, Bar_Kind::Note, text(), {}});
}

std::optional<std::string> Difference_Marks::at(std::int32_t row, std::int32_t col) const {
    if (!on_ || !holds() || app_.form().Online) return std::nullopt;
    const Declara_Zorvane& document = app_.document();
    const Cell_Place place{app_.grids.fieldNumber(), row, col + 1};
    if (!hasCell(document, place)) return std::nullopt;
    const compare::Document_Side now(document);
    const auto compared = compare::comparedCell({document, with_->section, now, with_->side}, place);
    if (!compared || !compare::isDifference(compared->sign)) return std::nullopt;
    return with_->name + ": " + (compared->right.value ? compare::sideText(compared->right) : "no value");
}

} // namespace zorvane::app
