#pragma once

#include "reports/text_metrics.h"

#include <QFont>
#include <QString>

namespace zorvane {

/// The font of a report where a pixel is a twip. A font that isn't there gives way to one of the same widths,
/// if there is one.
[[nodiscard]] QFont fontInTwips(const Report_Font& font);

/// A text as it is painted: a control character is a blank.
[[nodiscard]] QString paintedText(const std::string& text);

/// Measures as the painter draws.
class Qt_Text_Metrics : public Text_Metrics {
  public:
    [[nodiscard]] double textWidth(const std::string& text, const Report_Font& font) const override;
    [[nodiscard]] double lineHeight(const Report_Font& font) const override;
};

} // namespace zorvane
