// SPDX-License-Identifier: MIT
#include "ui/line/traffic_feed.h"

#include <iterator>
#include <utility>

namespace zorvane::ui {

Traffic_Feed::Traffic_Feed(Show show, std::size_t limit) : show_(std::move(show)), limit_(limit) {
    timer_.setSingleShot(true);
    timer_.setInterval(leastPauseMs);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { hand(); });
}

void Traffic_Feed::setHeld(bool held) {
    held_ = held;
    hand();
}

void Traffic_Feed::setWatched(bool watched) {
    watched_ = watched;
    hand();
}

void Traffic_Feed::take(Traffic_Entry entry) {
    if (entrySeen) entrySeen(entry);
    if (pending_.size() == limit_) pending_.pop_front();
    pending_.push_back(std::move(entry));
    if (flows() && !timer_.isActive()) timer_.start();
}

void Traffic_Feed::hand() {
    if (!flows() || pending_.empty()) return;
    std::vector<Traffic_Entry> entries(std::make_move_iterator(pending_.begin()),
                                       std::make_move_iterator(pending_.end()));
    pending_.clear();
    show_(std::move(entries));
}

} // namespace zorvane::ui
