#include "comm/port_settings_store.h"

#include "template/native_files.h"

#include <charconv>
#include <optional>

namespace zorvane {

namespace {

std::optional<std::int32_t> number(const std::string& text) {
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

/// Takes over one member, unless the settings could no longer be used with it.
template <class Member, class Value>
void take(Port_Settings& settings, Member Port_Settings::*member, const std::optional<Value>& value) {
    if (!value) return;
    Port_Settings changed = settings;
    changed.*member = *value;
    if (settingsFault(changed).empty()) settings = changed;
}

} // namespace

Port_Settings portSettingsFrom(const Stored_Text& stored) {
    Port_Settings settings;
    settings.port = pathToNative(stored("Port"));
    take(settings, &Port_Settings::slave, number(stored("Slave")));
    take(settings, &Port_Settings::line, parseLineSettings(stored("Settings")));
    take(settings, &Port_Settings::retries, number(stored("Retries")));
    take(settings, &Port_Settings::timeOutMs, number(stored("TimeOut")));
    take(settings, &Port_Settings::rts, parseRtsMode(stored("Rts")));
    take(settings, &Port_Settings::txDelayMs, number(stored("TxDelay")));
    settings.adapterEchoes = stored("AdapterEchoes") == "True";
    return settings;
}

std::vector<std::pair<std::string, std::string>> portSettingTexts(const Port_Settings& settings) {
    return {{"Port", pathFromNative(settings.port)},
            {"Slave", std::to_string(settings.slave)},
            {"Settings", formatLineSettings(settings.line)},
            {"Retries", std::to_string(settings.retries)},
            {"TimeOut", std::to_string(settings.timeOutMs)},
            {"Rts", std::string(rtsModeText(settings.rts))},
            {"TxDelay", std::to_string(settings.txDelayMs)},
            {"AdapterEchoes", settings.adapterEchoes ? "True" : "False"}};
}

} // namespace zorvane
