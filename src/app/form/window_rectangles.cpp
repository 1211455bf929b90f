#include "app/form/window_rectangles.h"

#include "template/services/asker.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace zorvane {

namespace {

struct Rectangle_Key {
    const char* key;
    double Window_Rectangle::*member;
};

constexpr std::array<Rectangle_Key, 4> rectangleKeys = {{{"Top", &Window_Rectangle::top},
                                                         {"Left", &Window_Rectangle::left},
                                                         {"Width", &Window_Rectangle::width},
                                                         {"Height", &Window_Rectangle::height}}};

bool usable(const Window_Rectangle& place, const Window_Rectangle& screen) {
    return place.width >= 0 && place.height >= 0 && place.top <= screen.height && place.left <= screen.width;
}

bool fitsSingle(double value) { return std::abs(value) <= std::numeric_limits<float>::max(); }

/// Values are of single precision, in what is read as in what is written.
double single(double value) {
    return fitsSingle(value) ? static_cast<double>(static_cast<float>(value)) : value;
}

void requireSingles(const Window_Rectangle& place) {
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

Window_Rectangle storedRectangle(Settings_Store& store, const std::string& section,
                                 const Window_Rectangle& current, const Window_Rectangle& screen) {
    Window_Rectangle place;
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

void storeRectangle(Settings_Store& store, const std::string& section, const Window_Rectangle& place) {
    for (const auto& [key, member] : rectangleKeys)
        store.SaveSetting(applicationTitle, section, key, singleText(place.*member));
}

void storeWholeRectangle(Settings_Store& store, const std::string& section, const Window_Rectangle& place) {
    for (const auto& [key, member] : rectangleKeys)
        store.SaveSetting(applicationTitle, section, key, numberText(toLong(place.*member)));
}

} // namespace zorvane
