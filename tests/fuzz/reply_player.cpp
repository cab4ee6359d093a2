// SPDX-License-Identifier: MIT

#include "tests/fuzz/reply_player.h"

#include "pages/model_traits.h"
#include "tests/fuzz/fake_boxes.h"
#include "tests/fuzz/stated_ends.h"
#include "tests/fuzz/timed_slots.h"

#include <QScopeGuard>

#include <algorithm>

namespace {

constexpr char first_mark = 0x1C;
constexpr char pause_mark = 0x1D;
constexpr char refresh_mark = 0x1E;
constexpr char submit_mark = 0x1F;

constexpr int report_wait_ms = 1000;
constexpr int max_wait_ms = 10'000;
constexpr int max_boxes_open = 3;

bool is_mark(char character) { return character >= first_mark && character <= submit_mark; }

bool is_question(const QByteArray& command) {
    static const QByteArrayList questions{"//rl\r", "//??\r", "//BP\r", "//QA\r"};
    return questions.contains(command);
}

/// The layout command, and the port limit, which is lifted while the command is composed.
bool is_from_submit(const QByteArray& command) {
    return command == "//\r" || command.startsWith("//FF") || command.startsWith("//D");
}

} // namespace

Reply_Player::Reply_Player(Fuzz_Window& fuzz_window, Link_Method link_method,
                           const QByteArray& input)
    : window(fuzz_window), method(link_method), rest(input) {
    window.start_again(method);
    fake_boxes::while_shown([this](const QString&) { serve_under_box(); });
}

void Reply_Player::play() {
    while (!rest.isEmpty() && !ended) {
        step();
    }
    pass_time(window, max_wait_ms, ended);
    check();
    fake_boxes::while_shown({});
}

void Reply_Player::step() {
    const auto* end = std::find_if(rest.cbegin(), rest.cend(), is_mark);
    const QByteArray chunk = rest.left(end - rest.cbegin());
    const char mark = end == rest.cend() ? first_mark : *end;
    rest.remove(0, chunk.size() + 1);
    serve(chunk);
    check();
    act(mark);
}

void Reply_Player::serve(const QByteArray& chunk) {
    if (method == Link_Method::serial) {
        ends_as_stated(std::nullopt, [&] { window.receive(chunk); });
        return;
    }
    // A datagram is a complete answer: if a new layout was confirmed, it is read at once.
    const Session_State& state = window.controller().session.state;
    std::optional<Stated_End> stated;
    if (state.layout_report_pending && state.layout_saved_pending) {
        stated = layout_end(text_of_chunk(chunk), &window.model() == &plus_model);
    }
    const bool ends = ends_as_stated(stated, [&] { window.receive_datagram(chunk); });
    ended = ended || ends;
}

void Reply_Player::act(char mark) {
    if (ended) {
        return;
    }
    if (mark == pause_mark) {
        pass_time(window, report_wait_ms, ended);
    } else if (mark == refresh_mark) {
        window.controller().chrome.refresh_clicked();
    } else if (mark == submit_mark) {
        layout_submitted = true;
        window.controller().layout.submit();
    }
}

void Reply_Player::serve_under_box() {
    if (ended || rest.isEmpty() || boxes_open == max_boxes_open) {
        return;
    }
    ++boxes_open;
    const auto close = qScopeGuard([this] { --boxes_open; });
    step();
}

void Reply_Player::check() const {
    expect(std::ranges::all_of(window.sent(),
                               [this](const QByteArray& command) {
                                   return is_question(command) ||
                                          (layout_submitted && is_from_submit(command));
                               }),
           "a reply made the tool change a setting of the switch");
}
