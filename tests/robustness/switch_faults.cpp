// SPDX-License-Identifier: MIT

#include "tests/robustness/switch_faults.h"

#include "sim/fault_names.h"
#include "sim/simulator_options.h"
#include "sim/switch_report.h"
#include "tests/support/sample_units.h"

#include <QTest>

#include <algorithm>

namespace {

const QString nothing = QStringLiteral("(none)");

Unit_Snapshot joined(Unit_Snapshot first, const Unit_Snapshot& second) {
    first.insert(second);
    return first;
}

const Unit_Snapshot no_information = {{"hotkey", "0"},
                                      {"km", as_at_start},
                                      {"usb", as_at_start},
                                      {"parking x", "0"},
                                      {"parking y", "0"}};

const Unit_Snapshot no_layout = {{"layout", as_at_start}};

const Unit_Snapshot no_resolutions = {{"resolution 1", as_at_start}, {"resolution 2", as_at_start},
                                      {"resolution 3", as_at_start}, {"resolution 4", as_at_start},
                                      {"buzzer", as_at_start},       {"layout", as_at_start}};

/// The report ends before the custom entry of this number: the names before it are in the lists;
/// the labels, which are written after all names, keep their text.
Unit_Snapshot no_entries_from(int number) {
    Unit_Snapshot snapshot = no_resolutions;
    for (int entry = 1; entry <= 4; ++entry) {
        snapshot[QString("entry %1").arg(entry)] = as_at_start;
        if (entry >= number) {
            snapshot[QString("name %1").arg(entry)] = nothing;
        }
    }
    return snapshot;
}

Unit_Snapshot marked_up() {
    const auto as_markup = [](const QString& text) {
        return "<b>" + text + "</b><img src=\"file:///nowhere.png\">";
    };
    Unit_Snapshot snapshot = {{"hotkey", as_markup("Scroll Lock")}};
    int number = 1;
    for (const Custom_Entry& entry : used_unit().custom_entries) {
        snapshot[QString("entry %1").arg(number)] =
            QString("%1 %2 ").arg(entry.x_speed).arg(entry.y_speed) + as_markup(entry.name);
        snapshot[QString("name %1").arg(number)] = as_markup(entry.name).remove(' ');
        ++number;
    }
    return snapshot;
}

Unit_Snapshot with_carriage_returns() {
    Unit_Snapshot snapshot = {{"rolling", "off"},
                              {"mode", "absolute"},
                              {"buzzer", "off"},
                              {"hotkey", "Scroll Lock\r"},
                              {"parking y", "34\r"}};
    int number = 1;
    for (const Custom_Entry& entry : used_unit().custom_entries) {
        snapshot[QString("entry %1").arg(number)] =
            QString("%1 %2 ").arg(entry.x_speed).arg(entry.y_speed) + entry.name + '\r';
        snapshot[QString("name %1").arg(number)] = entry.name + '\r';
        ++number;
    }
    return snapshot;
}

Switch_Fault_Case same_on_both_paths(const QString& fault, const QString& value,
                                     const Outcome& outcome) {
    return {fault, value, outcome, outcome, {}};
}

Switch_Fault_Case missing(const QString& key, const Outcome& outcome) {
    return same_on_both_paths("missing", key, outcome);
}

/// The names that are at their fixed place in the lists.
QStringList names_in(const Unit_Snapshot& snapshot) {
    QStringList names;
    for (int number = 1; number <= 4; ++number) {
        const QString name = snapshot[QString("name %1").arg(number)];
        if (name != nothing) {
            names << name;
        }
    }
    return names;
}

const QString warned = "The message box \"Setting data from TQL error\" appears; ";

std::vector<Switch_Fault_Case> timing_cases() {
    const Outcome right{.words = "Everything is correct."};
    const Outcome late{.words = "Everything is correct, with this delay."};
    const Unit_Snapshot first_answer_only =
        joined(joined(no_information, no_layout), {{"km", "3"}});
    const Unit_Snapshot cut_name =
        joined(joined(no_information, no_entries_from(2)), {{"km", "3"}, {"name 1", "BA"}});
    return {
        {"delay", "200", right, late},
        {"delay",
         "1200",
         {.words = warned +
                   "the pages show the first answer; hotkey and parking show 0, and USB channel "
                   "and layout show their start values. The KM channel arrives late, as a notice.",
          .shown = first_answer_only,
          .warns = true},
         late},
        {"chunk",
         "16",
         right,
         {.words = warned + "the first piece counts as the whole report: no number of ports is "
                            "selected, rolling is off, the mode is absolute, hotkey and parking "
                            "show 0, and everything else shows its start value.",
          .shown = joined(joined(no_information, no_entries_from(1)),
                          {{"ports", nothing}, {"rolling", "off"}, {"mode", "absolute"}}),
          .warns = true,
          .beside = {{"gap", "150"}}}},
        {"gap",
         "150",
         {.words = "Everything is correct.", .beside = {{"chunk", "64"}}},
         {.words = warned +
                   "the first piece counts as the whole report: the mouse mode shows absolute, "
                   "hotkey and parking show 0, and everything else that the piece does not "
                   "contain shows its start value. The KM channel arrives as a notice.",
          .shown = joined(joined(no_information, no_entries_from(1)),
                          {{"km", "3"}, {"mode", "absolute"}}),
          .warns = true,
          .beside = {{"chunk", "64"}}}},
        {"gap",
         "1500",
         {.words = warned + "the pages show what arrived within 1000 ms, including a cut name; "
                            "hotkey and parking show 0, and everything else shows its start value. "
                            "The KM channel arrives late, as a notice.",
          .shown = cut_name,
          .warns = true,
          .beside = {{"chunk", "100"}}},
         {.words = warned + "the first piece counts as the whole report, including a cut name; "
                            "hotkey and parking show 0, and everything else shows its start value. "
                            "The KM channel arrives late, as a notice.",
          .shown = cut_name,
          .warns = true,
          .beside = {{"chunk", "100"}}}},
    };
}

std::vector<Switch_Fault_Case> text_cases() {
    const QString replacement = QString(2, QChar(QChar::ReplacementCharacter));
    const Unit_Snapshot behind_the_byte =
        joined(no_entries_from(2), {{"name 1", "rrentHotkeyTrigger:ScrollLock"},
                                    {"usb", as_at_start},
                                    {"parking x", "0"},
                                    {"parking y", "0"},
                                    {"audio", as_at_start}});
    return {
        same_on_both_paths("crlf", {},
                           {.words = "Cursor rolling shows off, the mouse mode absolute, and the "
                                     "buzzer off. The CR stays in texts; all numbers are correct.",
                            .shown = with_carriage_returns()}),
        {"nul",
         {},
         {.words =
              warned +
              "the text after the NUL byte is lost, and the text before it runs into the next "
              "answer: the first custom entry shows a wrong name, parking shows 0, and USB "
              "channel, entries, resolutions, buzzer, layout and audio show their start values.",
          .shown = behind_the_byte,
          .warns = true,
          .beside = {{"delay", "50"}}},
         {.words = warned +
                   "the text after the NUL byte is lost: hotkey and parking show 0, and "
                   "channels, resolutions, buzzer, layout and audio show their start values. "
                   "On the Pro the first resolution arrives, and the buzzer shows off.",
          .shown = joined(joined(no_information, no_resolutions), {{"audio", as_at_start}}),
          .warns = true},
         {{"resolution 1", "2"}, {"buzzer", "off"}}},
        {"invalid-utf8",
         {},
         {.words = "Replacement characters appear after the hotkey and in the terminal; everything "
                   "else is correct.",
          .shown = {{"hotkey", "Scroll Lock" + replacement}}},
         {.words = "Replacement characters appear in the terminal; everything else is correct."}},
        {"oversize",
         {},
         {.words = warned +
                   "a report of more than 1000 characters is dropped: no number of ports is "
                   "selected, rolling is off, the mode is absolute, hotkey and parking show 0, and "
                   "everything else shows its start value. The KM channel arrives as a notice.",
          .shown =
              joined(joined(no_information, no_entries_from(1)),
                     {{"km", "3"}, {"ports", nothing}, {"rolling", "off"}, {"mode", "absolute"}}),
          .warns = true,
          .beside = {{"chunk", "100"}}},
         {.words = "Everything is correct: the network has no limit."}},
        same_on_both_paths(
            "markup", {},
            {"The markup is shown as text; the lists show names without spaces.", marked_up()}),
        same_on_both_paths(
            "silent", {},
            {"The indicator stays red, the controls stay disabled, and no message box appears.",
             {},
             false,
             false}),
        same_on_both_paths(
            "disappear", {},
            {"The indicator stays red, the controls stay disabled, and no message box appears.",
             {},
             false,
             false}),
    };
}

std::vector<Switch_Fault_Case> missing_cases() {
    const QString entry_words = warned + "the names before this one are in the lists; entries, "
                                         "resolutions, buzzer and layout keep their start values.";
    return {
        missing("//RL", {"Everything is correct: KM is a marker, too."}),
        missing("KM Port Limit: ", {"No number of ports is selected.", {{"ports", nothing}}}),
        missing("KM Cursor Rolling: ", {"Cursor rolling shows off.", {{"rolling", "off"}}}),
        missing("KM tracking mode: ", {"The mouse mode shows absolute.", {{"mode", "absolute"}}}),
        missing("C1\t", {entry_words, no_entries_from(1), true}),
        missing("C2\t", {entry_words, no_entries_from(2), true}),
        missing("C3\t", {entry_words, no_entries_from(3), true}),
        missing("C4\t", {entry_words, no_entries_from(4), true}),
        missing("Channels resolution:",
                {warned + "resolutions, buzzer and layout keep their start values.", no_resolutions,
                 true}),
        missing("Buzzer: ", {"The buzzer shows off.", {{"buzzer", "off"}}}),
        missing("Current Hotkey Trigger: ", {"The hotkey shows 0.", {{"hotkey", "0"}}}),
        missing("Current KM Control: ",
                {"The KM channel keeps its start value.", {{"km", as_at_start}}}),
        missing("Current USB Control ",
                {"The USB channel keeps its start value.", {{"usb", as_at_start}}}),
        missing("Current parking location: X=",
                {"Parking shows 0 in both fields.", {{"parking x", "0"}, {"parking y", "0"}}}),
        missing("//FF", {warned + "the layout keeps its start value; everything else is correct.",
                         no_layout, true}),
        missing("**A", {"The audio boxes keep their start values.", {{"audio", as_at_start}}}),
    };
}

/// The lines that a unit of this model reports.
QByteArrayList report_lines(Switch_Model model) {
    const Switch_State state = used_unit();
    QByteArray report = status_report(state) + information_report(state) + layout_report(state);
    if (model == Switch_Model::pro) {
        report += audio_report(state);
    }
    QByteArrayList lines = report.split('\n');
    lines.removeAll(QByteArray());
    return lines;
}

void add_row(Switch_Model model, const QString& name, int number) {
    QTest::addRow("%s, %s", qPrintable(model_name(model)), qPrintable(name)) << model << number;
}

/// The index of the case of a line that is left out; -1 if there is none.
int case_of_line(const QByteArray& line) {
    const auto& cases = switch_fault_cases();
    const auto found = std::find_if(cases.begin(), cases.end(), [&](const Switch_Fault_Case& one) {
        return one.fault == "missing" && line.contains(one.value.toUtf8());
    });
    return found == cases.end() ? -1 : static_cast<int>(found - cases.begin());
}

} // namespace

Fault_Plan Switch_Fault_Case::plan(const Outcome& outcome) const {
    Fault_Plan plan;
    bool understood = set_fault(plan, fault, value);
    for (const auto& [word, its_value] : outcome.beside) {
        understood = set_fault(plan, word, its_value) && understood;
    }
    if (!understood) {
        qFatal("no such fault: %s", qPrintable(name()));
    }
    return plan;
}

QString Switch_Fault_Case::name() const {
    return value.isEmpty() ? fault : fault + " \"" + value.trimmed() + '"';
}

QString Switch_Fault_Case::title() const {
    const QString shown = QString(value).replace('\t', "<tab>");
    return value.isEmpty() ? fault + '`' : fault + ' ' + shown + '`';
}

const std::vector<Switch_Fault_Case>& switch_fault_cases() {
    static const std::vector<Switch_Fault_Case> cases = [] {
        std::vector<Switch_Fault_Case> all = timing_cases();
        for (const auto& more : {text_cases(), missing_cases()}) {
            all.insert(all.end(), more.begin(), more.end());
        }
        return all;
    }();
    return cases;
}

void add_switch_fault_rows(const std::vector<Switch_Model>& models) {
    QTest::addColumn<Switch_Model>("model");
    QTest::addColumn<int>("number");
    const auto& cases = switch_fault_cases();
    for (const Switch_Model model : models) {
        for (const Fault_Word& word : fault_names()) {
            if (word.name == "missing") {
                for (const QByteArray& line : report_lines(model)) {
                    add_row(model, "missing in \"" + line.simplified() + '"', case_of_line(line));
                }
                continue;
            }
            bool has_case = false;
            for (std::size_t i = 0; i < cases.size(); ++i) {
                if (cases[i].fault == word.name) {
                    add_row(model, cases[i].name(), static_cast<int>(i));
                    has_case = true;
                }
            }
            if (!has_case) {
                add_row(model, word.name, -1);
            }
        }
    }
}

Unit_Snapshot wanted_snapshot(const Outcome& outcome, const Unit_Snapshot& of_unit,
                              const Unit_Snapshot& at_start) {
    if (!outcome.answers) {
        return at_start;
    }
    Unit_Snapshot wanted = of_unit;
    for (auto point = outcome.shown.begin(); point != outcome.shown.end(); ++point) {
        if (wanted.contains(point.key())) {
            wanted[point.key()] =
                point.value() == as_at_start ? at_start[point.key()] : point.value();
        }
    }
    return wanted;
}

Unit_Snapshot wanted_after_refresh(const Unit_Snapshot& before, const Unit_Snapshot& of_unit) {
    Unit_Snapshot wanted = of_unit;
    const QStringList old_names = names_in(before);
    if (old_names.size() < 4) {
        const QStringList names = old_names + names_in(of_unit);
        for (int number = 1; number <= 4; ++number) {
            wanted[QString("name %1").arg(number)] = names[number - 1];
        }
    }
    return wanted;
}
