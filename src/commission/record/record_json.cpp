// SPDX-License-Identifier: MIT
#include "commission/record/record_json.h"

#include "commission/folder/digests.h"
#include "commission/folder/json_fields.h"
#include "values/code_page.h"

#include <nlohmann/json.hpp>

#include <charconv>

namespace zorvane::commission {

namespace {

constexpr int version = 1;
constexpr std::size_t digitsOfShortHash = 12;

/// The members of a record's structs, told once for both ways: an archive takes or gives each by its name.
class Writer {
  public:
    void text(const char* name, const std::string& value) { json_[name] = toUtf8(value); }
    void number(const char* name, std::int32_t value) { json_[name] = value; }
    template <class Number> void maybe(const char* name, const std::optional<Number>& value) {
        json_[name] = value ? Json(*value) : Json();
    }
    void texts(const char* name, const std::vector<std::string>& values) {
        Json& list = json_[name] = Json::array();
        for (const std::string& value : values)
            list.push_back(toUtf8(value));
    }
    void registers(const char* name, const std::map<std::int32_t, std::uint16_t>& values) {
        Json& object = json_[name] = Json::object();
        for (const auto& [number, value] : values)
            object[std::to_string(number)] = value;
    }
    template <class Part, class Members> void part(const char* name, Part& value, Members members) {
        json_[name] = writtenBy(value, members);
    }
    template <class Part, class Members>
    void parts(const char* name, std::vector<Part>& values, Members members) {
        Json& list = json_[name] = Json::array();
        for (Part& value : values)
            list.push_back(writtenBy(value, members));
    }
    template <class Part, class Members>
    void maybeParts(const char* name, std::optional<std::vector<Part>>& values, Members members) {
        if (values)
            parts(name, *values, members);
        else
            json_[name] = nullptr;
    }
    void files(const char* name, const std::map<std::string, std::string>& files) {
        Json& object = json_[name] = Json::object();
        for (const auto& [file, bytes] : files)
            object[file] = bytes;
    }
    [[nodiscard]] Json take() { return std::move(json_); }

  private:
    template <class Part, class Members> static Json writtenBy(Part& value, Members members) {
        Writer writer;
        members(writer, value);
        return writer.take();
    }

    Json json_ = Json::object();
};

class Reader {
  public:
    explicit Reader(const Json& json) : json_(json) {}

    void text(const char* name, std::string& value) const {
        if (const Json* const found = member(name); found && found->is_string())
            value = fromUtf8(found->get<std::string>());
    }
    void number(const char* name, std::int32_t& value) const {
        if (const Json* const found = member(name)) value = numberOf<std::int32_t>(*found).value_or(value);
    }
    void maybe(const char* name, std::optional<std::int32_t>& value) const {
        if (const Json* const found = member(name)) value = numberOf<std::int32_t>(*found);
    }
    void maybe(const char* name, std::optional<double>& value) const {
        if (const Json* const found = member(name); found && found->is_number()) value = found->get<double>();
    }
    void texts(const char* name, std::vector<std::string>& values) const {
        forEach(name, [&](const Json& item) {
            if (item.is_string()) values.push_back(fromUtf8(item.get<std::string>()));
        });
    }
    void registers(const char* name, std::map<std::int32_t, std::uint16_t>& values) const {
        const Json* const found = member(name);
        if (!found || !found->is_object()) return;
        for (const auto& [key, value] : found->items()) {
            std::int32_t number = 0;
            const auto read = std::from_chars(key.data(), key.data() + key.size(), number);
            if (read.ec == std::errc{} && value.is_number_unsigned() && value.get<std::uint64_t>() <= 0xFFFF)
                values[number] = value.get<std::uint16_t>();
        }
    }
    template <class Part, class Members> void part(const char* name, Part& value, Members members) const {
        if (const Json* const found = member(name)) members(Reader(*found), value);
    }
    template <class Part, class Members>
    void parts(const char* name, std::vector<Part>& values, Members members) const {
        forEach(name, [&](const Json& item) { members(Reader(item), values.emplace_back()); });
    }

    template <class Part, class Members>
    void maybeParts(const char* name, std::optional<std::vector<Part>>& values, Members members) const {
        if (const Json* const found = member(name); found && found->is_array())
            parts(name, values.emplace(), members);
    }
    void files(const char* name, std::map<std::string, std::string>& files) const {
        const Json* const found = member(name);
        if (!found || !found->is_object()) return;
        for (const auto& [file, bytes] : found->items())
            if (bytes.is_string()) files[file] = bytes.template get<std::string>();
    }

  private:
    [[nodiscard]] const Json* member(const char* name) const {
        if (!json_.is_object()) return nullptr;
        const auto found = json_.find(name);
        return found == json_.end() ? nullptr : &*found;
    }
    template <class Visit> void forEach(const char* name, Visit visit) const {
        const Json* const found = member(name);
        if (!found || !found->is_array()) return;
        for (const Json& item : *found)
            visit(item);
    }

    const Json& json_;
};

constexpr auto headMembers = [](auto&& in, Record_Head& head) {
    in.text("site", head.site);
    in.text("panel", head.panel);
    in.text("order", head.order);
    in.text("tested_by", head.testedBy);
    in.text("witnessed_by", head.witnessedBy);
};

constexpr auto evidenceMembers = [](auto&& in, Record_Evidence& evidence) {
    in.text("register", evidence.registers);
    in.text("what", evidence.what);
    in.text("expected", evidence.expected);
    in.text("found", evidence.found);
    in.text("result", evidence.result);
};

constexpr auto controllerMembers = [](auto&& in, Record_Controller& controller) {
    in.text("model", controller.model);
    in.number("unit", controller.unit);
    in.text("serial", controller.serial);
    in.text("firmware", controller.firmware);
    in.text("verdict", controller.verdict);
    in.text("although", controller.although);
    in.parts("evidence", controller.evidence, evidenceMembers);
};

constexpr auto momentMembers = [](auto&& in, Record_Moment& moment) {
    in.text("utc", moment.utc);
    in.text("local", moment.local);
};

constexpr auto fileMembers = [](auto&& in, Record_File& file) {
    in.text("what", file.what);
    in.text("path", file.path);
    in.text("sha256", file.sha256);
};

constexpr auto rowMembers = [](auto&& in, Record_Row& row) {
    in.number("field", row.field);
    in.number("row", row.row);
    in.number("column", row.column);
    in.text("page", row.page);
    in.text("name", row.name);
    in.text("heading", row.heading);
    in.text("register", row.registers);
    in.text("before", row.before);
    in.text("sent", row.sent);
    in.text("read_back", row.readBack);
    in.text("state", row.state);
    in.text("answer", row.answer);
};

constexpr auto deviationMembers = [](auto&& in, Record_Deviation& deviation) {
    in.text("page", deviation.page);
    in.text("name", deviation.name);
    in.text("heading", deviation.heading);
    in.text("register", deviation.registers);
    in.text("factory", deviation.factory);
    in.text("value", deviation.value);
};

constexpr auto linkMembers = [](auto&& in, Record_Link& link) {
    in.number("reads", link.reads);
    in.number("writes", link.writes);
    in.maybe("retries", link.retries);
    in.maybe("unanswered", link.unanswered);
    in.maybe("median_ms", link.medianMs);
    in.maybe("p99_ms", link.p99Ms);
};

constexpr auto recordMembers = [](auto&& in, Record& record) {
    in.text("run", record.run);
    in.text("kind", record.kind);
    in.text("state", record.state);
    in.part("head", record.head, headMembers);
    in.part("controller", record.controller, controllerMembers);
    in.text("port", record.port);
    in.text("settings", record.settings);
    in.text("adapter", record.adapter);
    in.part("started", record.started, momentMembers);
    in.part("ended", record.ended, momentMembers);
    in.parts("files", record.files, fileMembers);
    in.parts("rows", record.rows, rowMembers);
    in.texts("notes", record.notes);
    in.maybeParts("deviations", record.deviations, deviationMembers);
    in.part("link", record.link, linkMembers);
    in.texts("checks", record.checks);
    in.text("document_name", record.documentName);
    in.text("document", record.document);
    in.registers("before", record.before);
    in.registers("left", record.left);
    in.files("folder", record.folder);
};

Json countsOf(const Record& record) {
    Json counts = Json::object();
    for (const char* const state : recordStates)
        counts[state] = countOf(record, state);
    counts["rows"] = record.rows.size();
    return counts;
}

} // namespace

std::string recordJson(const Record& record) {
    Writer writer;
    Record copy = record; // the members are told once for reading and writing
    recordMembers(writer, copy);
    Json json = Json::object();
    json["version"] = version;
    Json members = writer.take();
    for (auto& [name, value] : members.items()) {
        if (name == "rows") json["counts"] = countsOf(record);
        json[name] = std::move(value);
    }
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<Record> recordOfJson(std::string_view text) {
    const Json json = Json::parse(text, nullptr, false);
    if (!json.is_object() || json.value("version", Json()) != version || !json.contains("run"))
        return std::nullopt;
    Record record;
    recordMembers(Reader(json), record);
    return record;
}

std::string shortHash(std::string_view json) { return sha256(json).substr(0, digitsOfShortHash); }

} // namespace zorvane::commission
