// SPDX-License-Identifier: MIT
#include "app/form/port_store.h"

#include "template/services/asker.h"
#include "template/services/native_files.h"
#include "values/numbers.h"

#include <charconv>

namespace zorvane::app {

namespace {

const std::string section = "ModbusPort";

std::string read(Settings_Store& store, const char* key) {
    return store.GetSetting(applicationTitle, section, key, "");
}

void write(Settings_Store& store, const char* key, const std::string& text) {
    store.SaveSetting(applicationTitle, section, key, text);
}

/// Takes a stored number, unless it makes the settings unusable.
void takeNumber(Settings_Store& store, const char* key, Port_Settings& settings,
                std::int32_t Port_Settings::*member) {
    const std::string text = read(store, key);
    Port_Settings changed = settings;
    std::int32_t& number = changed.*member;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc{} && end == text.data() + text.size() && settingsFault(changed).empty())
        settings = changed;
}

} // namespace

Port_Settings storedPortSettings(Settings_Store& store) {
    Port_Settings settings;
    settings.port = pathToNative(read(store, "Port"));
    takeNumber(store, "Slave", settings, &Port_Settings::slave);
    if (const auto line = parseLineSettings(read(store, "Settings"))) {
        Port_Settings changed = settings;
        changed.line = *line;
        if (settingsFault(changed).empty()) settings = changed;
    }
    takeNumber(store, "Retries", settings, &Port_Settings::retries);
    takeNumber(store, "TimeOut", settings, &Port_Settings::timeOutMs);
    settings.rts = parseRtsMode(read(store, "Rts")).value_or(settings.rts);
    takeNumber(store, "TxDelay", settings, &Port_Settings::txDelayMs);
    settings.adapterEchoes = read(store, "AdapterEchoes") == "True";
    return settings;
}

void storePortSettings(Settings_Store& store, const Port_Settings& settings) {
    write(store, "Port", pathFromNative(settings.port));
    write(store, "Slave", numberText(settings.slave));
    write(store, "Settings", formatLineSettings(settings.line));
    write(store, "Retries", numberText(settings.retries));
    write(store, "TimeOut", numberText(settings.timeOutMs));
    write(store, "Rts", std::string(rtsModeText(settings.rts)));
    write(store, "TxDelay", numberText(settings.txDelayMs));
    write(store, "AdapterEchoes", settings.adapterEchoes ? "True" : "False");
}

} // namespace zorvane::app
