// SPDX-License-Identifier: MIT

#include "sim/adapter_network.h"
#include "sim/adapter_options.h"
#include "sim/switch_behind_adapter.h"
#include "sim/switch_logic.h"

#include <QCoreApplication>
#include <QTextStream>

#include <memory>
#include <vector>

namespace {

constexpr int exit_wrong_arguments = 1;
constexpr int exit_no_private_network = 2;

/// Flushes each line, so that a reader at the other end of a pipe gets it at once.
void print_line(const QString& line) { QTextStream(stdout) << line << Qt::endl; }

/// The switch behind one adapter.
struct Own_Switch {
    Own_Switch(Simulated_Adapter& adapter, const Adapter_Options& options)
        : unit(options.switch_model == "pro" ? Switch_Model::pro : Switch_Model::plus),
          place(adapter, unit) {
        place.set_faults(options.switch_faults);
    }

    Switch_Logic unit;
    Switch_Behind_Adapter place;
};

using Own_Switches = std::vector<std::unique_ptr<Own_Switch>>;

void print_doings(const Simulated_Adapter& adapter) {
    const auto address = [&adapter] { return adapter.unit().state().address.toString(); };
    QObject::connect(
        &adapter, &Simulated_Adapter::frame_taken, &adapter,
        [address](const QByteArray& frame, const Adapter_Reaction& reaction) {
            print_line(QString("%1 received %2: %3")
                           .arg(address(), QString::fromLatin1(frame.toHex()), reaction.note));
        });
    QObject::connect(
        &adapter, &Simulated_Adapter::switch_command_taken, &adapter,
        [address](const QByteArray& command) {
            print_line(QString("%1 switch command: %2").arg(address(), QString::fromUtf8(command)));
        });
    QObject::connect(&adapter, &Simulated_Adapter::came_back, &adapter, [address, &adapter] {
        print_line(address() + (adapter.is_online() ? " came back" : " is not available"));
    });
}

bool add_adapters(Adapter_Network& network, const Adapter_Options& options,
                  Own_Switches& switches) {
    for (int number = 0; number < options.count; ++number) {
        Simulated_Adapter& adapter = network.add(Adapter_Network::numbered(options.first, number));
        if (!adapter.is_online()) {
            print_line(adapter.unit().state().address.toString() + " is not available");
            return false;
        }
        adapter.unit().set_faults(options.faults);
        adapter.set_delay(options.delay);
        adapter.set_time_away(options.time_away);
        adapter.set_split(options.split_bytes);
        if (options.switch_model != "none") {
            switches.push_back(std::make_unique<Own_Switch>(adapter, options));
        }
        print_doings(adapter);
    }
    return true;
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    QString error;
    const auto options = read_adapter_options(QCoreApplication::arguments(), error);
    if (!options) {
        QTextStream(stderr) << error << Qt::endl;
        return exit_wrong_arguments;
    }
    Adapter_Network network;
    Own_Switches switches;
    if (!network.start() || !add_adapters(network, *options, switches)) {
        QTextStream(stderr)
            << "No private network with a free port 1901; --help shows how to create one."
            << Qt::endl;
        return exit_no_private_network;
    }
    print_line(QString("%1 adapter(s) from %2 on")
                   .arg(options->count)
                   .arg(options->first.address.toString()));
    return QCoreApplication::exec();
}
