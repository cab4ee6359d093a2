// SPDX-License-Identifier: MIT

#include "sim/termination_signals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// The handler writes to this pipe; a signal handler may do little more.
volatile std::sig_atomic_t signal_pipe = -1;

void pass_on(int) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t count = write(signal_pipe, &byte, 1);
}

void set_handler(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

} // namespace

Termination_Signals::Termination_Signals(QObject* parent) : QObject(parent) {
    if (pipe2(pipe_ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        qFatal("No pipe for signals");
    }
    signal_pipe = pipe_ends[1];
    auto* notifier = new QSocketNotifier(pipe_ends[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (read(pipe_ends[0], &byte, 1) == 1) {
            emit received();
        }
    });
    set_handler(pass_on);
}

Termination_Signals::~Termination_Signals() {
    set_handler(SIG_DFL);
    signal_pipe = -1;
    close(pipe_ends[0]);
    close(pipe_ends[1]);
}
