// SPDX-License-Identifier: MIT
#include "reports/bands/report_band.h"

#include "values/run_time_failure.h"

#include <algorithm>
#include <array>

namespace zorvane {

namespace {

Control_Kind kindOfClass(const std::string& className) {
    const std::array<std::pair<const std::string&, Control_Kind>, 5> classes = {
        {{labelClass, Control_Kind::Label},
         {fieldClass, Control_Kind::Field},
         {lineClass, Control_Kind::Line},
         {subreportClass, Control_Kind::Subreport},
         {richTextClass, Control_Kind::RichText}}};
    for (const auto& [name, kind] : classes)
        if (name == className) return kind;
    throw Run_Time_Failure(Failure::InvalidCall);
}

} // namespace

Report_Control& Report_Controls::Add(const std::string& className) {
    const Control_Kind kind = kindOfClass(className);
    Report_Control& added = controls_.emplace_back();
    added.kind = kind;
    return added;
}

Report_Control& Report_Controls::operator()(std::int32_t index) {
    if (index < 0 || index >= Count()) throw Run_Time_Failure(Failure::Subscript);
    return controls_[static_cast<std::size_t>(index)];
}

Report_Control& Report_Controls::operator()(const std::string& name) {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const Report_Control& control) { return control.Name == name; });
    if (found == controls_.end()) throw Run_Time_Failure(Failure::Subscript);
    return *found;
}

} // namespace zorvane
