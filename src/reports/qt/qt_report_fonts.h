// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/text_metrics.h"

#include <QFont>
#include <QFontMetricsF>
#include <QString>

#include <deque>

namespace zorvane {

/// The font of a report where a pixel is a twip. A font that isn't there gives way to one of the same widths,
/// if there is one.
[[nodiscard]] QFont fontInTwips(const Report_Font& font);

/// A text as it is painted: a control character is a blank.
[[nodiscard]] QString paintedText(const std::string& text);

/// The fonts of a report, each looked up once: to find one costs more than to measure a line with it.
class Qt_Report_Fonts {
  public:
    struct Entry {
        Report_Font name;
        QFont font;
        QFontMetricsF metrics;
    };
    /// The entry stays where it is as long as the object lives.
    [[nodiscard]] const Entry& of(const Report_Font& name);

  private:
    std::deque<Entry> entries_;
};

/// Measures as the painter draws.
class Qt_Text_Metrics : public Text_Metrics {
  public:
    [[nodiscard]] double textWidth(const std::string& text, const Report_Font& font) const override;
    [[nodiscard]] double lineHeight(const Report_Font& font) const override;

  private:
    mutable Qt_Report_Fonts fonts_;
};

} // namespace zorvane
