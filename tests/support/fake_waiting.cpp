// SPDX-License-Identifier: MIT

#include "tests/support/fake_waiting.h"

#include "usr/waiting.h"

#include <stdexcept>
#include <utility>

namespace {

constexpr qint64 nanoseconds_per_reading = 10'000'000;

struct State {
    std::function<void()> happening;
    int blocks = 0;
    quint64 milliseconds = 0;
    bool next_block_fails = false;
    int readings_left = 0;
    std::function<void()> at_reading;
    qint64 clock = 0;
};

State& state() {
    static State the_state;
    return the_state;
}

} // namespace

namespace fake_waiting {

void reset() {
    const qint64 clock = state().clock;
    state() = State();
    state().clock = clock;
}

void while_blocked(const std::function<void()>& happening) { state().happening = happening; }

int block_count() { return state().blocks; }

quint64 blocked_milliseconds() { return state().milliseconds; }

void fail_at_next_block() { state().next_block_fails = true; }

void at_clock_reading(int readings, const std::function<void()>& happening) {
    state().readings_left = readings;
    state().at_reading = happening;
}

} // namespace fake_waiting

void block_for_milliseconds(unsigned long milliseconds) {
    if (state().next_block_fails) {
        state().next_block_fails = false;
        throw std::runtime_error("no blocking now");
    }
    ++state().blocks;
    state().milliseconds += milliseconds;
    if (state().happening) {
        state().happening();
    }
}

// Does nothing: the clock advances when it is read.
void wait_for_datagram(const QUdpSocket& /*socket*/, int /*milliseconds*/) {}

qint64 read_wall_clock() {
    if (state().at_reading && state().readings_left-- == 0) {
        std::exchange(state().at_reading, {})();
    }
    state().clock += nanoseconds_per_reading;
    return state().clock;
}
