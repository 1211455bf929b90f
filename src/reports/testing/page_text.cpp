// SPDX-License-Identifier: MIT
#include "reports/testing/page_text.h"

#include "values/numbers.h"

#include <array>
#include <cstdio>

namespace zorvane::doubles {

namespace {

std::string pair(double one, const char* between, double other) {
    return numberText(one) + between + numberText(other);
}

std::string hex(Packed_Colour colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%06x", colour);
    return text.data();
}

struct Item_Text {
    const Style_Table& styles;

    std::string operator()(const Text_Item& item) const {
        const Text_Style& style = styles[item.style];
        std::string text = "text " + pair(item.left, ",", item.top) + " " +
                           pair(item.width, "x", item.height) + " \"" + item.text + "\" " +
                           numberText(style.Font.Size);
        if (style.Alignment == Align_Right) text += " right";
        if (style.Alignment == Align_Center) text += " center";
        if (style.Font.Bold) text += " bold";
        if (style.ForeColor != 0) text += " " + hex(style.ForeColor);
        return text;
    }
    std::string operator()(const Box_Item& item) const {
        return "box " + pair(item.left, ",", item.top) + " " + pair(item.width, "x", item.height) + " " +
               hex(item.colour);
    }
    std::string operator()(const Line_Item& item) const {
        std::string text = "line " + pair(item.x1, ",", item.y1) + " " + pair(item.x2, ",", item.y2);
        if (item.colour != 0) text += " " + hex(item.colour);
        if (item.style == Border_Dot) text += " dotted";
        return text;
    }
};

} // namespace

std::vector<std::string> pageText(const Page_Document& document, std::size_t page) {
    std::vector<std::string> lines;
    for (const Page_Item& item : document.pages.at(page).items)
        lines.push_back(std::visit(Item_Text{document.styles}, item));
    return lines;
}

std::vector<std::string> textsOf(const Page_Document& document, std::size_t page) {
    std::vector<std::string> texts;
    for (const Page_Item& item : document.pages.at(page).items)
        if (const auto* text = std::get_if<Text_Item>(&item)) texts.push_back(text->text);
    return texts;
}

} // namespace zorvane::doubles
