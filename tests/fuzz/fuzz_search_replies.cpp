// SPDX-License-Identifier: MIT

// Replies of any length to the search for adapters, into its lists, its dialog, and the two readers
// of the configurator.
// Input: a byte of which the lowest bits choose the dialog and a press on its Refresh; then the
// datagrams, a group for each search.

#include "tests/fuzz/datagram_input.h"
#include "tests/fuzz/fake_boxes.h"
#include "tests/fuzz/fake_network.h"
#include "tests/fuzz/start.h"
#include "tests/fuzz/stated_ends.h"
#include "usr/adapter_replies.h"
#include "usr/select_hardware_dialog.h"
#include "usr/usr_configurator.h"

namespace {

/// Replaces exit(1), which follows the box.
struct No_Hardware_End : std::runtime_error {
    using std::runtime_error::runtime_error;
};

constexpr const char* no_hardware = "No hardware online";

void check_lists(const USR_searcher& searcher) {
    for (const QString& reply : searcher.get_USR_replies()) {
        expect(reply.size() == search_reply::digits, "a reply of wrong length is in the list");
        static_cast<void>(get_name_from_reply(reply));
    }
    expect(searcher.get_USR_addresses().size() >= searcher.get_USR_replies().size(),
           "a reply without an address is in the list");
}

/// The end that follows if the next search finds nothing.
std::optional<Stated_End> end_of_search(const Datagram_Input& input) {
    if (!input.is_empty_group_next()) {
        return std::nullopt;
    }
    return Stated_End{&typeid(No_Hardware_End), no_hardware};
}

void search_by_dialog(Datagram_Input& input, bool refreshes) {
    std::unique_ptr<Select_hardware_Dialog> dialog;
    const bool ended = ends_as_stated(end_of_search(input),
                                      [&] { dialog = std::make_unique<Select_hardware_Dialog>(); });
    if (!ended) {
        check_lists(*dialog);
    }
    if (!ended && refreshes) {
        // Not with the button: no exception may pass through Qt's code, which is built without
        // exceptions.
        const bool ended_now = ends_as_stated(end_of_search(input), [&] {
            QMetaObject::invokeMethod(dialog.get(), "on_pushButton_Refresh_clicked");
        });
        if (!ended_now) {
            check_lists(*dialog);
        }
    }
}

void search_alone() {
    USR_searcher searcher;
    searcher.search_USR_in_network();
    check_lists(searcher);
    USR_configurator configurator("127.0.0.2", "admin", "admin");
    configurator.get_data_from_USR();
    static_cast<void>(configurator.make_login_frame());
    static_cast<void>(configurator.get_IP_after_hanging());
    check_lists(configurator);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    start_application(*argc, *argv);
    fake_boxes::while_shown([](const QString& text) {
        expect(text == no_hardware, "a search shows a box of another text");
        throw No_Hardware_End(no_hardware);
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    constexpr unsigned by_dialog = 1;
    constexpr unsigned with_refresh = 2;
    if (size == 0) {
        return -1;
    }
    Datagram_Input input(data + 1, size - 1);
    fake_network::start([&input](const QByteArray&) { return input.next_group(); });
    if (data[0] & by_dialog) {
        search_by_dialog(input, data[0] & with_refresh);
    } else {
        search_alone();
    }
    return 0;
}
