// SPDX-License-Identifier: MIT
#include "app/document/document_rows.h"

#include "grids/fill/show_cell.h"
#include "grids/rules/value_findings.h"
#include "template/services/file_names.h"
#include "values/numbers.h"

#include <algorithm>

namespace zorvane::app {

namespace {

const std::string partTopic = "a file was read in part";
const std::string strayTopic = "values that their cells don't take";

std::string counted(std::int32_t count, const char* one, const char* many) {
    return count == 1 ? std::string("One value ") + one : numberText(count) + " values " + many;
}

/// "2 values are outside their limits, one value is in no list": what there is of the two.
std::string strayCounts(const std::vector<Stray_Value>& strays) {
    const auto outside = static_cast<std::int32_t>(
        std::count_if(strays.begin(), strays.end(), [](const Stray_Value& stray) { return stray.outside; }));
    const auto unlisted = static_cast<std::int32_t>(strays.size()) - outside;
    std::string text;
    if (outside > 0) text = counted(outside, "is outside its limits", "are outside their limits");
    if (unlisted == 0) return text;
    if (outside > 0) text += ". ";
    return text + counted(unlisted, "isn't in the list of its cell", "aren't in the lists of their cells");
}

void tellStrayValues(const App_Context& app) {
    const std::vector<Stray_Value> strays = strayValues(app.document());
    Message_Bar& bar = app.mainForm.messageBar();
    if (strays.empty()) return bar.withdraw(strayTopic);
    const Stray_Value& first = strays.front();
    const std::string where = placeText(app.document(), first.place) + " (" + first.text + ")";
    bar.tell({strayTopic,
              Bar_Kind::Warning,
              strayCounts(strays) + (strays.size() == 1 ? ": " : ". The first: ") + where + ".",
              {{"Show", [grids = app.grids, place = first.place] { showCell(grids, place); }}}});
}

/// The file may be another one by the time somebody asks.
void showPlaceOfLine(const App_Context& app, const Reading_End& reading) {
    if (!app.files.exists(reading.path)) return;
    if (const auto place = rowFromLine(app.document(), app.files.read(reading.path), reading.line))
        showCell(app.grids, *place);
}

} // namespace

Reading_End readConfiguration(const App_Context& app, const std::string& path, bool& ok) {
    Reading_End end{path, false, 0, {}, false};
    try {
        PRO_Leer_DefaultFIle(app.document(), app.reading(), path, ok);
        end.whole = ok;
    } catch (const Run_Time_Failure& failure) {
        end.failure = failure.description();
    }
    end.line = app.document().Last_Line;
    return end;
}

std::string partlyReadText(const Reading_End& reading) {
    if (reading.whole) return {};
    const std::string name(splitPath(reading.path).name);
    const std::string rest =
        reading.updated ? "keeps the values of the file before the update" : "has the template's values";
    if (reading.line == 0) return name + " couldn't be read; the document " + rest + ".";
    const std::string why = reading.failure.empty() ? "it has more values than its page has columns"
                                                    : "it can't be used (" + reading.failure + ")";
    return name + " was read in part: line " + numberText(reading.line) + " stopped it, since " + why +
           ". What the file says from there on isn't in the document, which " + rest + ".";
}

void tellOpened(const App_Context& app, const Reading_End& reading) {
    tellStrayValues(app);
    const std::string text = partlyReadText(reading);
    if (text.empty()) return;
    Bar_Line line{partTopic, Bar_Kind::Warning, text, {}};
    if (reading.line > 0) {
        line.buttons.push_back({"Show", [&app, reading] { showPlaceOfLine(app, reading); }});
        line.buttons.push_back({"Open as text", [&app, reading] { app.mainForm.openAsText(reading.path); }});
    }
    app.mainForm.messageBar().tell(std::move(line));
}

void tellUploaded(const App_Context& app) {
    app.document().Unlisted.clear();
    tellStrayValues(app);
}

} // namespace zorvane::app
