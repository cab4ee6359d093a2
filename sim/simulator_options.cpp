// SPDX-License-Identifier: MIT

#include "sim/simulator_options.h"

#include "sim/fault_names.h"
#include "sim/port_list.h"

#include <QCommandLineParser>

#include <array>

namespace {

constexpr std::array models = {Switch_Model::lite, Switch_Model::plus, Switch_Model::pro};
constexpr int max_units = 32;

const char description[] = R"(
Simulates keyboard-and-mouse switches on pseudo-terminals, so that Halvern can
be used without hardware. The first lines of the output list the ports and show
how to start Halvern with them. After that, each command that a unit receives is
printed with the time.

INPUT
  Commands on the standard input apply to the first unit. With "#N" in front, they
  apply to unit N:
    both N           switch everything to channel N, as the unit's hotkey does
    km N, usb N      switch keyboard and mouse, or USB, to channel N
    report           print what the unit would report
    send TEXT        send a line of text
    fault NAME [VALUE]   add a fault, by the name of its option
    fault none       remove all faults
    vanish           disconnect the unit for good
    help             list these commands
    quit             quit

ENVIRONMENT
  A PROGRAM after "--" is started with
    HALVERN_SIM_PORTS   the names of the ports, separated by colons
    LD_PRELOAD          the library that replaces libudev and lists these ports
  and has no other serial ports. halvern-sim ends when the program ends.

EXIT STATUS
  The status of PROGRAM; 128 plus the signal number if a signal ended it; 127 if
  it cannot be started. Without PROGRAM it is 0, also after SIGINT and SIGTERM.
  2 if the command line is wrong.

EXAMPLES
  halvern-sim --units 2 -- ./halvern
  halvern-sim --model pro --delay 1500 --chunk 16)";

/// Options and positional arguments; the parser itself cannot be copied.
struct Simulator_Option_Parser {
    Simulator_Option_Parser() {
        parser.setApplicationDescription(description);
        parser.setOptionsAfterPositionalArgumentsMode(
            QCommandLineParser::ParseAsPositionalArguments);
        parser.addOptions({model, units});
        for (const Fault_Word& word : fault_names()) {
            parser.addOption({word.name, word.description, word.value_name});
        }
        parser.addOptions({vanish_after, state_file, end_with_input, help});
        parser.addPositionalArgument("program", "Program to start with the units.",
                                     "[-- PROGRAM [ARGUMENT...]]");
    }

    QCommandLineOption model{"model", "Model of the units: lite, plus or pro.", "model", "lite"};
    QCommandLineOption units{"units", "Number of units.", "n", "1"};
    QCommandLineOption vanish_after{"vanish-after", "Disconnect this long after the first command.",
                                    "ms"};
    QCommandLineOption state_file{
        "state-file", "Read the units' settings from this file and save them there.", "file"};
    QCommandLineOption end_with_input{"end-with-input", "Quit when the standard input ends."};
    QCommandLineOption help{QStringList{"h", "help"}, "Print this text and quit."};
    QCommandLineParser parser;
};

QString read_model(const QString& name, Simulator_Options& options) {
    for (const Switch_Model model : models) {
        if (model_name(model) == name) {
            options.model = model;
            return {};
        }
    }
    return QString("There is no model \"%1\".").arg(name);
}

QString read_units(const QString& text, Simulator_Options& options) {
    bool is_number = false;
    options.units = text.toInt(&is_number);
    if (is_number && options.units >= 1 && options.units <= max_units) {
        return {};
    }
    return QString("The number of units is between 1 and %1.").arg(max_units);
}

QString read_faults(const QCommandLineParser& parser, Simulator_Options& options) {
    for (const Fault_Word& word : fault_names()) {
        const QString value = word.value_name.isEmpty() ? QString() : parser.value(word.name);
        if (parser.isSet(word.name) && !set_fault(options.faults, word.name, value)) {
            return QString("--%1 cannot be \"%2\".").arg(word.name, value);
        }
    }
    return {};
}

QString read_vanish_after(const QString& text, Simulator_Options& options) {
    bool is_number = false;
    const uint milliseconds = text.toUInt(&is_number);
    if (!is_number) {
        return QString("--vanish-after cannot be \"%1\".").arg(text);
    }
    options.vanish_after = std::chrono::milliseconds(milliseconds);
    return {};
}

} // namespace

Simulator_Options read_simulator_options(const QStringList& arguments) {
    Simulator_Options options;
    Simulator_Option_Parser console;
    if (!console.parser.parse(arguments)) {
        options.error = console.parser.errorText();
        return options;
    }
    options.help_wanted = console.parser.isSet(console.help);
    options.end_with_input = console.parser.isSet(console.end_with_input);
    options.state_file = console.parser.value(console.state_file);
    options.program = console.parser.positionalArguments();

    options.error = read_model(console.parser.value(console.model), options);
    if (options.error.isEmpty()) {
        options.error = read_units(console.parser.value(console.units), options);
    }
    if (options.error.isEmpty()) {
        options.error = read_faults(console.parser, options);
    }
    if (options.error.isEmpty() && console.parser.isSet(console.vanish_after)) {
        options.error = read_vanish_after(console.parser.value(console.vanish_after), options);
    }
    return options;
}

QString simulator_help() { return Simulator_Option_Parser().parser.helpText(); }

QString model_name(Switch_Model model) {
    switch (model) {
    case Switch_Model::lite:
        return "lite";
    case Switch_Model::plus:
        return "plus";
    case Switch_Model::pro:
        break;
    }
    return "pro";
}
