// SPDX-License-Identifier: MIT
#pragma once

#include <QLocalServer>
#include <QString>

#include <functional>

namespace zorvane::app {

/// Where a running window listens for files: a socket that only this user may use, in the user's own folder
/// of the session.
[[nodiscard]] QString handoverPlace();

/// The window's end. A file is handed over as its absolute path in UTF-8 with a zero byte at its end; the
/// answer is why it isn't opened, empty when it is, with a zero byte as well.
class Handed_Files {
  public:
    /// Takes a path, and says why not; an empty text when it will be opened.
    using Take = std::function<QString(const QString& path)>;

    explicit Handed_Files(Take take);
    Handed_Files(const Handed_Files&) = delete;
    Handed_Files& operator=(const Handed_Files&) = delete;

    /// False when another window of this user listens there already: files go to that one.
    bool listen(const QString& place);

  private:
    void serve();

    Take take_;
    QLocalServer server_;
};

/// What became of a file that was handed over.
struct Handover {
    enum class End { Taken, Refused, NobodyThere, NoAnswer };
    End end = End::NobodyThere;
    QString why; ///< of a refusal
};

/// The other end: hands a file to the window that listens at that place, and waits for its answer for at most
/// that long, in ms.
[[nodiscard]] Handover handOver(const QString& place, const QString& path, int limitMs);

} // namespace zorvane::app
