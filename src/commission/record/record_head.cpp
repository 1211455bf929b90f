// SPDX-License-Identifier: MIT
#include "commission/record/record_head.h"

#include "values/code_page.h"

#include <nlohmann/json.hpp>

#include <array>

namespace zorvane::commission {

namespace {

using Json = nlohmann::ordered_json;

struct Head_Member {
    const char* name;
    std::string Record_Head::*text;
};
constexpr std::array<Head_Member, 5> members{{{"site", &Record_Head::site},
                                              {"panel", &Record_Head::panel},
                                              {"order", &Record_Head::order},
                                              {"tested_by", &Record_Head::testedBy},
                                              {"witnessed_by", &Record_Head::witnessedBy}}};

Json jsonOf(const Record_Head& head) {
    Json json = Json::object();
    for (const Head_Member& member : members)
        json[member.name] = toUtf8(head.*member.text);
    return json;
}

std::optional<Record_Head> headOf(const Json& json) {
    if (!json.is_object()) return std::nullopt;
    Record_Head head;
    for (const Head_Member& member : members)
        if (const auto found = json.find(member.name); found != json.end() && found->is_string())
            head.*member.text = fromUtf8(found->get<std::string>());
    return head;
}

std::string textOf(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace

std::string headJson(const Record_Head& head) { return textOf(jsonOf(head)); }

std::optional<Record_Head> headOfJson(std::string_view json) {
    return headOf(Json::parse(json, nullptr, false));
}

Record_Head Kept_Heads::of(const std::string& site) const {
    const auto found = sites.find(site.empty() ? last : site);
    if (found != sites.end()) return found->second;
    Record_Head head;
    head.site = site;
    return head;
}

void Kept_Heads::keep(const Record_Head& head) {
    last = head.site;
    sites[head.site] = head;
}

std::string keptJson(const Kept_Heads& kept) {
    Json json{{"last", toUtf8(kept.last)}, {"sites", Json::array()}};
    for (const auto& [site, head] : kept.sites)
        json["sites"].push_back(jsonOf(head));
    return textOf(json);
}

Kept_Heads keptOfJson(std::string_view text) {
    Kept_Heads kept;
    const Json json = Json::parse(text, nullptr, false);
    if (!json.is_object() || !json.contains("sites")) return kept;
    for (const Json& site : json["sites"])
        if (const auto head = headOf(site)) kept.keep(*head);
    kept.last.clear();
    if (const Json last = json.value("last", Json()); last.is_string())
        kept.last = fromUtf8(last.get<std::string>());
    return kept;
}

} // namespace zorvane::commission
