// SPDX-License-Identifier: MIT
#include "reports/qt/qt_report_fonts.h"

#include "values/code_page.h"
#include "values/twips.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace zorvane {

namespace {} // namespace

QFont fontInTwips(const Report_Font& font) {
    QFont made;
    made.setFamilies({QString::fromStdString(toUtf8(font.Name)), "Liberation Sans", "Arimo", "Nimbus Sans"});
    made.setStyleHint(QFont::SansSerif);
    made.setHintingPreference(QFont::PreferNoHinting);
    made.setPixelSize(static_cast<int>(std::lround(font.Size * twipsPerPoint)));
    made.setBold(font.Bold);
    return made;
}

QString paintedText(const std::string& text) {
    QString painted = QString::fromStdString(toUtf8(text));
    std::replace_if(
        painted.begin(), painted.end(),
        [](QChar character) { return character.category() == QChar::Other_Control; }, QChar(u' '));
    return painted;
}

const Qt_Report_Fonts::Entry& Qt_Report_Fonts::of(const Report_Font& name) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.name == name; });
    if (found != entries_.end()) return *found;
    const QFont font = fontInTwips(name);
    return entries_.emplace_back(Entry{name, font, QFontMetricsF(font)});
}

double Qt_Text_Metrics::textWidth(const std::string& text, const Report_Font& font) const {
    return fonts_.of(font).metrics.horizontalAdvance(paintedText(text));
}

double Qt_Text_Metrics::lineHeight(const Report_Font& font) const { return fonts_.of(font).metrics.height(); }

} // namespace zorvane
