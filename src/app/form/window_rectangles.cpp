// SPDX-License-Identifier: MIT
#include "app/form/window_rectangles.h"

#include "template/services/asker.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace zorvane::app {

namespace {

struct Rectangle_Key {
    const char* key;
    double Twips_Rect::*member;
};

constexpr std::array<Rectangle_Key, 4> rectangleKeys = {{{"Top", &Twips_Rect::top},
                                                         {"Left", &Twips_Rect::left},
                                                         {"Width", &Twips_Rect::width},
                                                         {"Height", &Twips_Rect::height}}};

bool usable(const Twips_Rect& place, const Twips_Rect& screen) {
    return place.width >= 0 && place.height >= 0 && place.top <= screen.height && place.left <= screen.width;
}

bool fitsSingle(double value) { return std::abs(value) <= std::numeric_limits<float>::max(); }

/// Values are of single precision, in what is read as in what is written.
double single(double value) {
    return fitsSingle(value) ? static_cast<double>(static_cast<float>(value)) : value;
}

void requireSingles(const Twips_Rect& place) {
    for (const auto& [key, member] : rectangleKeys)
        if (!fitsSingle(place.*member)) throw Run_Time_Failure(Failure::Overflow);
}

} // namespace

std::string singleText(double value) {
    // A number of single precision has seven digits worth writing.
    constexpr int digits = 7;
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, digits).ptr;
    return numberText(Val({text.data(), static_cast<std::size_t>(end - text.data())}));
}

bool hasStoredRectangle(Settings_Store& store, const std::string& section) {
    return std::any_of(rectangleKeys.begin(), rectangleKeys.end(), [&](const Rectangle_Key& entry) {
        return !store.GetSetting(applicationTitle, section, entry.key, "").empty();
    });
}

Twips_Rect storedRectangle(Settings_Store& store, const std::string& section, const Twips_Rect& current,
                           const Twips_Rect& screen) {
    Twips_Rect place;
    for (const auto& [key, member] : rectangleKeys) {
        const std::string text =
            store.GetSetting(applicationTitle, section, key, singleText(current.*member));
        if (!isNumeric(text)) return fallbackRectangle;
        place.*member = single(Val(text));
    }
    if (!usable(place, screen)) return fallbackRectangle;
    requireSingles(place);
    return place;
}

void storeRectangle(Settings_Store& store, const std::string& section, const Twips_Rect& place) {
    for (const auto& [key, member] : rectangleKeys)
        store.SaveSetting(applicationTitle, section, key, singleText(place.*member));
}

void storeWholeRectangle(Settings_Store& store, const std::string& section, const Twips_Rect& place) {
    for (const auto& [key, member] : rectangleKeys)
        store.SaveSetting(applicationTitle, section, key, numberText(toLong(place.*member)));
}

} // namespace zorvane::app
