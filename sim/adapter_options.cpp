// SPDX-License-Identifier: MIT

#include "sim/adapter_options.h"

#include "sim/fault_names.h"

#include <QCommandLineParser>

namespace {

constexpr int max_adapters = 1000;
constexpr int largest_datagram = 65507;

// Marks an option as a fault in the help text.
const QString fault_mark = "Fault:";

QList<QCommandLineOption> all_options() {
    return {
        {"count", "Number of adapters, at consecutive addresses.", "number", "1"},
        {"address", "Address of the first adapter, within 127.0.0.0/8.", "ip", "127.0.0.2"},
        {"dhcp-address", "Address after a change to DHCP; by default the first address.", "ip"},
        {"allocation", "\"dhcp\" or \"static\".", "kind", "dhcp"},
        {"gateway", "Default gateway.", "ip", "127.0.0.1"},
        {"subnet-mask", "Subnet mask.", "mask", "255.0.0.0"},
        {"mac", "MAC address of the first adapter, 12 hex digits.", "digits", "d8b04c000002"},
        {"name", "Name, at most 16 bytes.", "text", "ADAPTER"},
        {"name-hex", "Fault: the bytes of a name that is not text.", "digits"},
        {"user", "User name, at most 6 bytes.", "text", "admin"},
        {"password", "Password, at most 6 bytes.", "text", "admin"},
        {"switch", "The switch behind port 23: \"plus\", \"pro\" or \"none\".", "model", "plus"},
        {"split", "Fault: bytes of a switch's answer in one datagram; 0 for all.", "bytes", "0"},
        {"away", "Milliseconds from an apply until the adapter is back.", "ms", "1000"},
        {"delay", "Fault: milliseconds before each answer.", "ms", "0"},
        {"copies", "Fault: number of times that each answer is sent.", "number", "1"},
        {"silent-search", "Fault: no answer to searches."},
        {"silent-login", "Fault: number of logins that are not answered; -1 for all.", "number",
         "0"},
        {"never-back", "Fault: does not come back after an apply."},
        {"search-bytes", "Fault: size of the answer to a search.", "bytes", "36"},
        {"login-bytes", "Fault: size of the answer to a login.", "bytes", "260"},
        {"foreign", "Fault: size of a foreign datagram before each search answer.", "bytes"},
        {"switch-fault",
         "Fault of the switch, as in halvern-sim, such as crlf or missing=Buzzer. Can be "
         "given several times.",
         "fault"},
    };
}

void describe(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        "Simulates serial-to-Ethernet adapters on the loopback of a private network namespace:\n"
        "\n"
        "  unshare -Urn sh -c 'ip link set lo up;\n"
        "      ip route add 255.255.255.255 dev lo src 127.0.0.1; halvern-sim-adapter'\n"
        "\n"
        "Each adapter answers searches, logins and configuration frames on UDP port 1901, stores\n"
        "its configuration, restarts after an apply, and has a switch behind UDP port 23. Every\n"
        "received frame is printed with the reaction to it. Outside a private network no port is\n"
        "bound, and the exit code is 2.");
    parser.addHelpOption();
    parser.addOptions(all_options());
}

/// Reads options one by one, and keeps the first error.
class Option_Reader {
public:
    Option_Reader(const QCommandLineParser& command_line, QString& first_error)
        : parser(command_line), error(first_error) {}

    int number(const QString& option, int low, int high) {
        bool is_number = false;
        const int value = parser.value(option).toInt(&is_number);
        if (!is_number || value < low || value > high) {
            set_error(option, QString("a number from %1 to %2").arg(low).arg(high));
        }
        return value;
    }

    Fault_Plan switch_faults(const QString& option) {
        Fault_Plan plan;
        for (const QString& text : parser.values(option)) {
            if (!set_fault(plan, text.section('=', 0, 0), text.section('=', 1))) {
                set_error(option, "a fault from halvern-sim --help");
            }
        }
        return plan;
    }

    QHostAddress address(const QString& option) {
        const QHostAddress value(parser.value(option));
        if (value.protocol() != QAbstractSocket::IPv4Protocol) {
            set_error(option, "an IPv4 address");
        }
        return value;
    }

    QByteArray text(const QString& option, qsizetype max_bytes) {
        return within(option, parser.value(option).toUtf8(), max_bytes);
    }

    QByteArray bytes(const QString& option, qsizetype max_bytes) {
        return within(option, QByteArray::fromHex(parser.value(option).toLatin1()), max_bytes);
    }

    QString one_of(const QString& option, const QStringList& choices) {
        if (!choices.contains(parser.value(option))) {
            set_error(option, "one of " + choices.join(", "));
        }
        return parser.value(option);
    }

private:
    QByteArray within(const QString& option, const QByteArray& value, qsizetype max_bytes) {
        if (value.size() > max_bytes) {
            set_error(option, QString("at most %1 bytes").arg(max_bytes));
        }
        return value;
    }

    void set_error(const QString& option, const QString& wanted) {
        if (error.isEmpty()) {
            error = QString("--%1 must be %2").arg(option, wanted);
        }
    }

    const QCommandLineParser& parser;
    QString& error;
};

Adapter_State read_state(const QCommandLineParser& parser, Option_Reader& reader) {
    Adapter_State state;
    state.address = reader.address("address");
    state.static_ip = state.address;
    state.dhcp_address =
        parser.isSet("dhcp-address") ? reader.address("dhcp-address") : state.address;
    state.dhcp = reader.one_of("allocation", {"dhcp", "static"}) == "dhcp";
    state.gateway = reader.address("gateway");
    state.subnet_mask = reader.address("subnet-mask");
    state.mac = reader.bytes("mac", 6).leftJustified(6, '\0');
    state.name = parser.isSet("name-hex") ? reader.bytes("name-hex", 16) : reader.text("name", 16);
    state.username = reader.text("user", 6);
    state.password = reader.text("password", 6);
    return state;
}

Adapter_Faults read_faults(const QCommandLineParser& parser, Option_Reader& reader) {
    Adapter_Faults faults;
    faults.silent_to_search = parser.isSet("silent-search");
    faults.unanswered_logins = reader.number("silent-login", -1, max_adapters);
    faults.never_comes_back = parser.isSet("never-back");
    faults.copies = reader.number("copies", 0, max_adapters);
    faults.search_reply_bytes = reader.number("search-bytes", 0, largest_datagram);
    faults.login_answer_bytes = reader.number("login-bytes", 0, largest_datagram);
    if (parser.isSet("foreign")) {
        faults.foreign_datagram_bytes = reader.number("foreign", 0, largest_datagram);
    }
    return faults;
}

} // namespace

QStringList adapter_fault_names() {
    QStringList names;
    for (const QCommandLineOption& option : all_options()) {
        if (option.description().startsWith(fault_mark)) {
            names += option.names();
        }
    }
    return names;
}

std::optional<Adapter_Options> read_adapter_options(const QStringList& arguments, QString& error) {
    constexpr int max_wait_ms = 3'600'000;
    QCommandLineParser parser;
    describe(parser);
    parser.process(arguments);

    Option_Reader reader(parser, error);
    Adapter_Options options;
    options.first = read_state(parser, reader);
    options.faults = read_faults(parser, reader);
    options.count = reader.number("count", 1, max_adapters);
    options.delay = std::chrono::milliseconds(reader.number("delay", 0, max_wait_ms));
    options.time_away = std::chrono::milliseconds(reader.number("away", 0, max_wait_ms));
    options.split_bytes = reader.number("split", 0, largest_datagram);
    options.switch_faults = reader.switch_faults("switch-fault");
    options.switch_model = reader.one_of("switch", {"plus", "pro", "none"});
    if (!parser.positionalArguments().isEmpty()) {
        error = "only options are allowed";
    }
    if (!error.isEmpty()) {
        return std::nullopt;
    }
    return options;
}
