// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/text_style.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace zorvane {

class ActiveReport;

enum class Control_Kind { Label, Field, Line, Subreport, RichText };

/// The class names by which controls are added to a band.
inline const std::string labelClass = "DDActiveReports2.Label";
inline const std::string fieldClass = "DDActiveReports2.Field";
inline const std::string lineClass = "DDActiveReports2.Line";
inline const std::string subreportClass = "DDActiveReports2.Subreport";
inline const std::string richTextClass = "DDActiveReports2.RichText";

/// A whole text in one look, its lines ended by CR LF.
struct Rich_Text {
    std::string text;
    Report_Font font;
    Packed_Colour ForeColor = 0;
};

/// A control of a band. Places are in twips from the band's left upper corner.
struct Report_Control : Text_Style {
    Control_Kind kind = Control_Kind::Label;
    std::string Name;
    std::string Tag;
    double Left = 0;
    double Top = 0;
    double Width = 1440;
    double Height = 288;
    double X1 = 0; ///< a line's ends; the four other measures are none of its business
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
    bool Visible = true;
    bool CanGrow = true;
    bool CanShrink = false;
    bool MultiLine = false;
    bool totalPages = false;              ///< a field that shows the number of all pages
    std::string Caption;                  ///< what a label shows, and a field without a data field
    std::string DataField;                ///< the bound field that a field shows
    Rich_Text RichText;                   ///< what a rich-text control shows
    std::shared_ptr<ActiveReport> object; ///< the report of a sub-report control
};

/// The controls of a band, in the order in which they were added. References stay good until `Clear`.
class Report_Controls {
  public:
    /// A new control of a class. A class that there isn't is failure 5.
    Report_Control& Add(const std::string& className);
    void Clear() { controls_.clear(); }
    [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(controls_.size()); }
    /// By its place, from 0, or by its name. One that isn't there is failure 9.
    [[nodiscard]] Report_Control& operator()(std::int32_t index);
    [[nodiscard]] Report_Control& operator()(const std::string& name);

    [[nodiscard]] auto begin() { return controls_.begin(); }
    [[nodiscard]] auto end() { return controls_.end(); }
    [[nodiscard]] auto begin() const { return controls_.begin(); }
    [[nodiscard]] auto end() const { return controls_.end(); }

  private:
    std::deque<Report_Control> controls_;
};

struct Report_Band {
    double Height = 0; ///< twips; the band grows with what its controls show
    Report_Controls Controls;
    /// Controls at this height and below come again on top of each page on which the group goes on.
    std::optional<double> repeatFrom;
};

} // namespace zorvane
