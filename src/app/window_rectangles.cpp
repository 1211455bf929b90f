#include "app/window_rectangles.h"

#include "template/asker.h"
#include "values/numbers.h"

#include <algorithm>
#include <array>

namespace zorvane {

namespace {

struct Rectangle_Key {
    const char* key;
    double Window_Rectangle::* member;
};

constexpr std::array<Rectangle_Key, 4> rectangleKeys = {{{"Top", &Window_Rectangle::top},
                                                         {"Left", &Window_Rectangle::left},
                                                         {"Width", &Window_Rectangle::width},
                                                         {"Height", &Window_Rectangle::height}}};

bool usable(const Window_Rectangle& place, const Window_Rectangle& screen) {
    return place.width >= 0 && place.height >= 0 && place.top <= screen.height && place.left <= screen.width;
}

} // namespace

Window_Rectangle storedRectangle(Settings_Store& store, const std::string& section, const Window_Rectangle& current,
                                 const Window_Rectangle& screen) {
    Window_Rectangle place;
    for (const auto& [key, member] : rectangleKeys) {
        const std::string text = store.GetSetting(applicationTitle, section, key, numberText(current.*member));
        if (!isNumeric(text)) return fallbackRectangle;
        place.*member = static_cast<float>(Val(text));
    }
    return usable(place, screen) ? place : fallbackRectangle;
}

void storeRectangle(Settings_Store& store, const std::string& section, const Window_Rectangle& place) {
    for (const auto& [key, member] : rectangleKeys)
        store.SaveSetting(applicationTitle, section, key, numberText(place.*member));
}

} // namespace zorvane
