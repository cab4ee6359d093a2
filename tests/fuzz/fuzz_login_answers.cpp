// SPDX-License-Identifier: MIT

// Answers of any length to a login at an adapter, and what the tool reads from them, shows and
// sends.
// Input: a byte of which the lowest bits choose searches that are answered by the input too, an
// adapter that is silent when the input is at its end, and, if all three next are set, the dialog;
// then the datagrams, a group for each frame.

#include "sim/adapter_logic.h"
#include "tests/fuzz/datagram_input.h"
#include "tests/fuzz/fake_boxes.h"
#include "tests/fuzz/fake_network.h"
#include "tests/fuzz/start.h"
#include "tests/fuzz/stated_ends.h"
#include "usr/ip_settings_dialog.h"
#include "usr/usr_configurator.h"

namespace {

constexpr unsigned searches_from_input = 1;
constexpr unsigned silent_at_the_end = 2;
// Creating the dialog takes far longer than everything else.
constexpr unsigned by_dialog = 4 | 8 | 16;

constexpr char search_command = 1;
constexpr char login_command = 3;

constexpr const char* adapter_ip = "127.0.0.2";

QByteArrayList answer(Datagram_Input& input, unsigned options, const QByteArray& frame) {
    const char command = frame.at(2);
    if (command == search_command && !(options & searches_from_input)) {
        return {Adapter_Logic().search_reply()};
    }
    if (!input.is_at_end()) {
        return command <= login_command ? input.next_group() : QByteArrayList();
    }
    if (options & silent_at_the_end) {
        return {};
    }
    return {command == search_command ? Adapter_Logic().search_reply()
                                      : Adapter_Logic().login_answer()};
}

void expect_address(const QString& text) {
    expect(text.isEmpty() || text == "-1" || text.count('.') == 3,
           "a text that is no address was read as one");
}

void read_all(USR_configurator& adapter) {
    const QString allocation = adapter.get_ip_allocation();
    expect(allocation == "00" || allocation == "80" || allocation == "-1",
           "an IP allocation that does not exist");
    expect_address(adapter.get_static_ip());
    expect_address(adapter.get_subnet_mask());
    expect_address(adapter.get_gateway());
    expect(adapter.get_usr_name().size() <= 16, "a name longer than its field");
}

void write_all(USR_configurator& adapter) {
    const int done = adapter.change_credentials_and_name("user", "secret", "DESK");
    expect(done == 1 || done == -1, "a result that does not exist");
    static_cast<void>(adapter.setup_USR());
    expect_address(adapter.get_IP_after_hanging());
}

void read_by_dialog() {
    const IP_Settings_Dialog dialog(adapter_ip, "admin", "admin", "80");
    expect_address(dialog.get_static_ip());
    expect_address(dialog.get_subnet_mask());
    expect_address(dialog.get_gateway());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    start_application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size == 0) {
        return -1;
    }
    Datagram_Input input(data + 1, size - 1);
    const unsigned options = data[0];
    fake_network::start(
        [&input, options](const QByteArray& frame) { return answer(input, options, frame); });
    ends_as_stated(std::nullopt, [&] {
        if ((options & by_dialog) == by_dialog) {
            read_by_dialog();
            return;
        }
        USR_configurator adapter(adapter_ip, "admin", "admin");
        read_all(adapter);
        write_all(adapter);
    });
    return 0;
}
