// SPDX-License-Identifier: MIT

#include "tests/fuzz/fuzz_window.h"

#include "link/link_transport.h"
#include "pages/model_traits.h"
#include "tests/fuzz/fake_boxes.h"
#include "tests/fuzz/fake_timers.h"
#include "tests/fuzz/recording_device.h"
#include "tests/fuzz/stated_ends.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

/// How many inputs there are between two comparisons with a new window.
constexpr int starts_between_checks = 500;

} // namespace

Fuzz_Window::Fuzz_Window(const Model_Traits& model_traits)
    : Bare_Window(model_traits, Timers::run) {
    expect(fake_timers::are_in_place(), "Qt's own timers would fire in real time");
    controller().chrome.set_window_looks();
    controller().chrome.set_refresh_icon();
    controller().chrome.show_configuration_page();
    controller().menu.disable_configuration_controls();
    controller().menu.disable_setting_widgets();
    controller().menu.set_disconnected_indicator();
    controller().layout.set_up_table();
    // Applies the style sheets now, not during a later input.
    for (QWidget* widget : findChildren<QWidget*>()) {
        widget->ensurePolished();
    }
    memory.emplace(*this);
    controller().layout.set_default_layout();
    first_description = description_of(*this);
}

void Fuzz_Window::start_again(Link_Method method) {
    fake_timers::forget();
    fake_boxes::forget();
    fake_boxes::while_shown({});
    all_sent.clear();
    make_controller();
    memory->restore();
    controller().layout.set_default_layout();
    check_reset();
    QCoreApplication::sendPostedEvents();
    open_link(method);
    controller().session.state.write_enabled = true;
    controller().session.state.ui_changes_enabled = false;
    controller().session.writer.send_start_commands();
}

void Fuzz_Window::open_link(Link_Method method) {
    controller().session.choose(method);
    Link_Transport& transport = controller().session.get_transport();
    if (method == Link_Method::network) {
        transport.use_socket(std::make_unique<Recording_Socket>(all_sent));
    } else {
        transport.use_port(std::make_unique<Recording_Port>(all_sent));
    }
}

void Fuzz_Window::check_reset() {
    if (starts++ % starts_between_checks > 1) {
        return;
    }
    const QByteArrayList now = description_of(*this);
    for (qsizetype i = 0; i < std::max(now.size(), first_description.size()); ++i) {
        if (now.value(i) != first_description.value(i)) {
            qFatal("the window kept something of an earlier input:\n%s\ninstead of\n%s",
                   now.value(i).constData(), first_description.value(i).constData());
        }
    }
}

void Fuzz_Window::receive(const QByteArray& chunk) {
    static_cast<Recording_Port&>(*controller().session.get_transport().get_serial_port())
        .receive(chunk);
    controller().session.serialRecieve();
}

void Fuzz_Window::receive_datagram(const QByteArray& chunk) {
    controller().session.replies.take_network_chunk(chunk);
}

Fuzz_Window& window_of_model(unsigned char first_byte) {
    // Never deleted, like the application.
    static std::array<Fuzz_Window*, 3> windows{};
    static const std::array<const Model_Traits*, 3> models{&lite_model, &plus_model, &pro_model};
    const std::size_t which = first_byte % windows.size();
    if (windows[which] == nullptr) {
        windows[which] = new Fuzz_Window(*models[which]);
    }
    return *windows[which];
}
