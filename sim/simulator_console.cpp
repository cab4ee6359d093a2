// SPDX-License-Identifier: MIT

#include "sim/simulator_console.h"

#include "sim/fault_names.h"
#include "sim/state_file.h"
#include "sim/switch_report.h"

#include <QTime>
#include <QTimer>

namespace {

const char short_help[] = "both N | km N | usb N | report | send TEXT | fault NAME [VALUE] | "
                          "fault none | vanish | quit, with #N in front for unit N";

/// Bytes as one line that can be read: control characters and those above ASCII as \xNN.
QString readable(const QByteArray& bytes) {
    QString text;
    for (const char byte : bytes) {
        const auto code = static_cast<uchar>(byte);
        if (code < 0x20 || code > 0x7e) {
            text += QString("\\x%1").arg(code, 2, 16, QChar('0'));
        } else {
            text += QChar(code);
        }
    }
    return text;
}

QByteArray full_report(const Switch_Logic& unit) {
    const QByteArray report = status_report(unit.state()) + information_report(unit.state()) +
                              layout_report(unit.state());
    return unit.model() == Switch_Model::pro ? report + audio_report(unit.state()) : report;
}

} // namespace

Simulator_Console::Simulator_Console(const Simulator_Options& options,
                                     std::function<void(const QString&)> print)
    : simulator_options(options), print_line(std::move(print)) {
    const std::vector<Switch_State> kept = options.state_file.isEmpty()
                                               ? std::vector<Switch_State>()
                                               : read_state_file(options.state_file);
    for (int number = 1; number <= options.units; ++number) {
        set_up_unit(number);
        const auto index = static_cast<std::size_t>(number - 1);
        if (index < kept.size()) {
            units.back()->unit().set_state(kept[index]);
        }
    }
}

void Simulator_Console::set_up_unit(int number) {
    units.push_back(std::make_unique<Simulated_Switch>(simulator_options.model));
    Simulated_Switch* unit = units.back().get();
    unit->set_faults(simulator_options.faults);
    connect(unit, &Simulated_Switch::command_received, this,
            [this, number](const QByteArray& command) {
                print_line(QString("%1  unit %2  %3")
                               .arg(QTime::currentTime().toString("hh:mm:ss.zzz"))
                               .arg(number)
                               .arg(readable(command)));
                keep_state();
            });
    connect(unit, &Simulated_Switch::vanished, this,
            [this, number] { print_line(QString("Unit %1 has disconnected.").arg(number)); });
    if (simulator_options.vanish_after) {
        // Every command starts a wait; the first to end disconnects the unit.
        connect(unit, &Simulated_Switch::command_received, unit,
                [unit, wait = *simulator_options.vanish_after] {
                    QTimer::singleShot(wait, Qt::PreciseTimer, unit, &Simulated_Switch::vanish);
                });
    }
}

QStringList Simulator_Console::device_names() const {
    QStringList names;
    for (const auto& unit : units) {
        names.append(unit->device_name());
    }
    return names;
}

void Simulator_Console::introduce_units() const {
    int number = 1;
    for (const auto& unit : units) {
        print_line(QString("Unit %1 (%2): %3")
                       .arg(number++)
                       .arg(model_name(unit->unit().model()), unit->device_name()));
    }
}

void Simulator_Console::carry_out(const QString& line) {
    QString text = line.trimmed();
    qsizetype number = 1;
    if (text.startsWith('#')) {
        number = text.section(' ', 0, 0).mid(1).toInt();
        text = text.section(' ', 1).trimmed();
    }
    if (number < 1 || number > static_cast<qsizetype>(units.size())) {
        print_line("This unit does not exist.");
        return;
    }
    carry_out(*units[static_cast<std::size_t>(number - 1)], text.section(' ', 0, 0),
              text.section(' ', 1));
}

void Simulator_Console::carry_out(Simulated_Switch& unit, const QString& verb,
                                  const QString& rest) {
    if (verb.isEmpty()) {
        return;
    }
    if (verb == "both" || verb == "km" || verb == "usb") {
        change_channel(unit, verb, rest);
    } else if (verb == "report") {
        print_line(QString::fromUtf8(full_report(unit.unit())).trimmed());
    } else if (verb == "send") {
        unit.send(rest.toUtf8() + "\n");
    } else if (verb == "fault") {
        change_faults(unit, rest);
    } else if (verb == "vanish") {
        unit.vanish();
    } else if (verb == "help") {
        print_line(short_help);
    } else if (verb == "quit") {
        emit quit_wanted();
    } else {
        print_line(QString("Unknown command: %1. Commands: %2").arg(verb, short_help));
    }
}

void Simulator_Console::change_channel(Simulated_Switch& unit, const QString& verb,
                                       const QString& rest) {
    const int channel = rest.toInt();
    if (channel < 1 || channel > 4) {
        print_line("A channel is a number from 1 to 4.");
        return;
    }
    if (verb == "both") {
        unit.press_hotkey(channel);
    } else {
        unit.send(unit.unit().answer((verb == "km" ? "//c" : "//u") + QByteArray::number(channel)));
    }
    keep_state();
}

void Simulator_Console::change_faults(Simulated_Switch& unit, const QString& rest) {
    Fault_Plan plan = unit.fault_plan();
    if (rest == "none") {
        plan = Fault_Plan();
    } else if (!set_fault(plan, rest.section(' ', 0, 0), rest.section(' ', 1))) {
        QStringList names;
        for (const Fault_Word& word : fault_names()) {
            names.append(word.name +
                         (word.value_name.isEmpty() ? "" : " " + word.value_name.toUpper()));
        }
        print_line(QString("Unknown fault. Faults: none, %1.").arg(names.join(", ")));
        return;
    }
    unit.set_faults(plan);
}

void Simulator_Console::keep_state() const {
    if (simulator_options.state_file.isEmpty()) {
        return;
    }
    std::vector<Switch_State> states;
    for (const auto& unit : units) {
        states.push_back(unit->unit().state());
    }
    if (!write_state_file(simulator_options.state_file, states)) {
        print_line(QString("Cannot write %1.").arg(simulator_options.state_file));
    }
}
