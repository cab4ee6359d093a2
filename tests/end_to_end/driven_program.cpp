// SPDX-License-Identifier: MIT

#include "tests/end_to_end/driven_program.h"

#include "tests/support/wait_until.h"

#include <algorithm>

namespace {

/// By file name only: a space would split a path in such a list.
QString preloaded(Port_List port_list) {
    QStringList libraries{HALVERN_HAND, HALVERN_PORT_LIST};
    if (port_list == Port_List::throws) {
        libraries.prepend(HALVERN_THROWING_PORTS);
    }
    return libraries.join(':');
}

} // namespace

Driven_Program::Driven_Program(const QStringList& ports, Port_List port_list,
                               QMap<QString, QString> environment)
    : run({.program = halvern_program(), .ports = ports, .environment = [&] {
               environment.insert("LD_PRELOAD", preloaded(port_list));
               environment.insert("LD_LIBRARY_PATH", HALVERN_LIBRARY_FOLDERS);
               return environment;
           }()}) {}

void Driven_Program::answer(const QString& actions) {
    run.child().write("answer " + actions.toUtf8() + '\n');
}

void Driven_Program::choose_model(const QString& model) {
    answer("radioButton_" + model + ",pushButton_Continue");
}

void Driven_Program::close_window() { run.child().write("close\n"); }

void Driven_Program::ask_for_fonts() { run.child().write("fonts\n"); }

void Driven_Program::set_theme_font() { run.child().write("theme font\n"); }

bool Driven_Program::wait_for(const QString& beginning) {
    const auto told = [&] {
        return std::ranges::any_of(lines(),
                                   [&](const QString& line) { return line.startsWith(beginning); });
    };
    return wait_until([&] { return told() || run.has_ended(); }, 20'000) && told();
}

QStringList Driven_Program::lines() {
    return QString::fromUtf8(run.output()).split('\n', Qt::SkipEmptyParts);
}
