// SPDX-License-Identifier: MIT
#pragma once

#include "commission/desk/desk_words.h"
#include "commission/desk/send_desk.h"
#include "commission/testing/session_bench.h"

#include <map>
#include <string>
#include <vector>

namespace zorvane::commission::doubles {

struct Memory_Serials final : Serial_Memory {
    [[nodiscard]] std::optional<std::string> known(const std::string& key) const override {
        const auto found = kept.find(key);
        return found == kept.end() ? std::nullopt : std::optional(found->second);
    }
    [[nodiscard]] std::string remember(const std::string& key, const std::string& serial) override {
        kept[key] = serial;
        return {};
    }
    std::map<std::string, std::string> kept;
};

/// The toy's line, which somebody else may have.
struct Toy_Line final : Desk_Line {
    explicit Toy_Line(Toy_Controller& toy) : toy(toy) {}
    [[nodiscard]] std::string open(std::int32_t unit, const Line_Settings&) override {
        if (!taken.empty()) return taken;
        units.push_back(unit);
        isOpen = true;
        toy.restart();
        return {};
    }
    void close() override { isOpen = false; }
    [[nodiscard]] Unit_Writer& exchanges() override { return toy; }

    Toy_Controller& toy;
    std::string taken; ///< why the port can't be had
    std::vector<std::int32_t> units;
    bool isOpen = false;
};

/// A desk with the pump and its controller.
struct Desk_Bench : Session_Bench {
    explicit Desk_Bench(const std::string& identity = pumpIdentity, Chosen_Cells chosen = {})
        : Session_Bench(identity), line(toy), chosen_(std::move(chosen)) {
        toy.isCancelled = [this] { return desk_ && desk_->endsAtOnce(); };
    }

    /// Made when it is asked for first, from the document as it is then.
    Send_Desk& desk() {
        if (!desk_) {
            Session_Document document{
                bench.document, section, {"/t", "aa"}, {"/d", "bb"}, "controller.PUMP", "line", 1, {}, 2,
                "test"};
            document.stray = stray;
            desk_.emplace(Desk_Services{line,
                                        runs,
                                        clock,
                                        serials,
                                        [this] {
                                            if (onChange) onChange();
                                        },
                                        [this](bool atWork) { busy.push_back(atWork); },
                                        {}},
                          std::move(document), chosen_);
        }
        return *desk_;
    }
    /// "Settings/Level/Value: -5 -> 50 +", with "+" for a tick, "-" for none and "x" for what can't be sent.
    [[nodiscard]] std::vector<std::string> rows() {
        std::vector<std::string> texts;
        for (const Desk_Row& row : desk().state().rows)
            texts.push_back(row.page + "/" + row.name + "/" + row.heading + ": " + row.present + " -> " +
                            row.wanted +
                            (!row.tickable ? " x"
                             : row.ticked  ? " +"
                                           : " -"));
        return texts;
    }
    /// "Level: verified"
    [[nodiscard]] std::vector<std::string> states() {
        std::vector<std::string> texts;
        for (const Desk_Row& row : desk().state().rows)
            texts.push_back(row.name + ": " + (row.state ? stateName(*row.state) : ""));
        return texts;
    }
    [[nodiscard]] Desk_Stage stage() { return desk().state().stage; }

    Toy_Line line;
    Memory_Serials serials;
    std::function<void()> onChange;
    std::vector<bool> busy;

  private:
    Chosen_Cells chosen_;
    std::optional<Send_Desk> desk_;
};

} // namespace zorvane::commission::doubles
