// SPDX-License-Identifier: MIT

#include "tests/support/virtual_time.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <arpa/inet.h>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <poll.h>
#include <sched.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

using std::chrono::nanoseconds;
using namespace std::chrono_literals;

namespace {

// The virtual time of one round of events, or of reading the wall clock, so that a loop that does
// nothing else ends.
constexpr nanoseconds look_length = 10us;
// A sleep really yields to others, but not for long.
constexpr nanoseconds max_real_sleep = 1ms;

constexpr int processor_bits = 64;

struct Clock {
    int virtual_holders = 0;
    int real_holders = 0;
    bool is_virtual = false;
    nanoseconds virtual_now{0}; ///< while virtual
    nanoseconds ahead{0};       ///< of the machine's clock, while real
    nanoseconds wall_ahead{0};  ///< of virtual_now, while virtual
};

/// Of the main thread only: Qt Test watches it from another, by real time. Initialised before any
/// code runs, because the clock is read early.
constinit Clock the_clock;
/// A bit for each processor on which datagrams have been sent and their arrival has not been
/// awaited yet.
constinit std::atomic<std::uint64_t> sending_processors = 0;

bool is_main_thread() {
    thread_local const bool is_main = syscall(SYS_gettid) == getpid();
    return is_main;
}

bool time_is_virtual() { return is_main_thread() && the_clock.is_virtual; }

nanoseconds length_of(const timespec& time) {
    return std::chrono::seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

timespec timespec_of(nanoseconds length) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(length);
    return {.tv_sec = seconds.count(), .tv_nsec = (length - seconds).count()};
}

nanoseconds read_machine_clock(clockid_t clock) {
    timespec time{};
    syscall(SYS_clock_gettime, clock, &time);
    return length_of(time);
}

void choose_clock() {
    const bool wants_virtual = the_clock.virtual_holders > 0 && the_clock.real_holders == 0;
    if (wants_virtual == the_clock.is_virtual) {
        return;
    }
    const nanoseconds real_now = read_machine_clock(CLOCK_MONOTONIC);
    if (wants_virtual) {
        // Whole milliseconds, like a timer's length: otherwise some event loops round up.
        the_clock.virtual_now =
            std::chrono::ceil<std::chrono::milliseconds>(real_now + the_clock.ahead);
        the_clock.wall_ahead = read_machine_clock(CLOCK_REALTIME) - the_clock.virtual_now;
    } else {
        the_clock.ahead = the_clock.virtual_now - real_now;
    }
    the_clock.is_virtual = wants_virtual;
}

int poll_really(pollfd* files, nfds_t count, const timespec* timeout, const sigset_t* mask) {
    timespec left{};
    if (timeout != nullptr) {
        left = *timeout;
    }
    constexpr size_t signal_set_bytes = 8; // the kernel's size, not the C library's
    return static_cast<int>(syscall(SYS_ppoll, files, count, timeout != nullptr ? &left : nullptr,
                                    mask, signal_set_bytes));
}

/// Sends a datagram to itself on one processor, and waits for it. A processor delivers what is sent
/// over the loopback in order, at once or, when it is busy, a little later.
void follow_datagrams(int own_socket, int processor) {
    cpu_set_t only;
    CPU_ZERO(&only);
    CPU_SET(processor, &only);
    sched_setaffinity(0, sizeof only, &only);
    // On a flooded network one can be lost.
    for (int tries = 0; tries < 1000; ++tries) {
        char mark = 'm';
        syscall(SYS_sendto, own_socket, &mark, sizeof mark, 0, nullptr, 0);
        if (recv(own_socket, &mark, sizeof mark, 0) > 0) {
            return;
        }
    }
}

void follow_datagrams(std::uint64_t by_processors) {
    const int own_socket = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const any_address = reinterpret_cast<sockaddr*>(&address);
    const timeval longest{.tv_sec = 0, .tv_usec = 20'000};
    cpu_set_t processors;
    if (bind(own_socket, any_address, length) == 0 &&
        getsockname(own_socket, any_address, &length) == 0 &&
        connect(own_socket, any_address, length) == 0 &&
        setsockopt(own_socket, SOL_SOCKET, SO_RCVTIMEO, &longest, sizeof longest) == 0 &&
        sched_getaffinity(0, sizeof processors, &processors) == 0) {
        for (int processor = 0; processor < CPU_SETSIZE; ++processor) {
            if (CPU_ISSET(processor, &processors) &&
                (by_processors >> (processor % processor_bits) & 1U) != 0) {
                follow_datagrams(own_socket, processor);
            }
        }
        sched_setaffinity(0, sizeof processors, &processors);
    }
    close(own_socket);
}

/// To be called before and after a datagram is sent.
void note_datagram(int own_socket) {
    int domain = 0;
    socklen_t length = sizeof domain;
    if (getsockopt(own_socket, SOL_SOCKET, SO_DOMAIN, &domain, &length) == 0 && domain == AF_INET) {
        sending_processors |= std::uint64_t{1} << (sched_getcpu() % processor_bits);
    }
}

int poll_in_time(pollfd* files, nfds_t count, const timespec* timeout, const sigset_t* mask) {
    if (!time_is_virtual() || timeout == nullptr) {
        return poll_really(files, count, timeout, mask);
    }
    constexpr timespec at_once{.tv_sec = 0, .tv_nsec = 0};
    // Querying a terminal also delivers what has been written at its other end.
    int ready = poll_really(files, count, &at_once, mask);
    const nanoseconds length = length_of(*timeout);
    if (ready == 0 && length > 0ns) {
        virtual_time::let_datagrams_arrive();
        ready = poll_really(files, count, &at_once, mask);
    }
    the_clock.virtual_now += ready == 0 ? std::max(length, look_length) : look_length;
    return ready;
}

void sleep_in_time(const timespec& length) {
    const timespec real = timespec_of(std::min(length_of(length), max_real_sleep));
    syscall(SYS_clock_nanosleep, CLOCK_MONOTONIC, 0, &real, nullptr);
    the_clock.virtual_now += length_of(length);
}

} // namespace

// These take precedence over the C library's functions, for Qt's shared libraries and for GLib as
// well.

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    if (!is_main_thread() || (clock != CLOCK_MONOTONIC && clock != CLOCK_REALTIME)) {
        return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    }
    if (!the_clock.is_virtual) {
        *time = timespec_of(read_machine_clock(clock) +
                            (clock == CLOCK_MONOTONIC ? the_clock.ahead : 0ns));
    } else if (clock == CLOCK_MONOTONIC) {
        *time = timespec_of(the_clock.virtual_now);
    } else {
        the_clock.virtual_now += look_length;
        *time = timespec_of(the_clock.virtual_now + the_clock.wall_ahead);
    }
    return 0;
}

extern "C" int poll(pollfd* files, nfds_t count, int milliseconds) {
    const timespec timeout = timespec_of(std::chrono::milliseconds(milliseconds));
    return poll_in_time(files, count, milliseconds < 0 ? nullptr : &timeout, nullptr);
}

extern "C" int ppoll(pollfd* files, nfds_t count, const timespec* timeout, const sigset_t* mask) {
    return poll_in_time(files, count, timeout, mask);
}

extern "C" int nanosleep(const timespec* length, timespec* left) {
    if (!time_is_virtual()) {
        return static_cast<int>(syscall(SYS_nanosleep, length, left));
    }
    sleep_in_time(*length);
    return 0;
}

extern "C" int clock_nanosleep(clockid_t clock, int flags, const timespec* time, timespec* left) {
    if (!time_is_virtual() || clock != CLOCK_MONOTONIC) {
        return syscall(SYS_clock_nanosleep, clock, flags, time, left) == 0 ? 0 : errno;
    }
    const bool until = (flags & TIMER_ABSTIME) != 0;
    sleep_in_time(timespec_of(length_of(*time) - (until ? the_clock.virtual_now : 0ns)));
    return 0;
}

extern "C" ssize_t sendto(int file, const void* bytes, size_t size, int flags,
                          const sockaddr* address, socklen_t length) {
    note_datagram(file);
    const ssize_t sent = syscall(SYS_sendto, file, bytes, size, flags, address, length);
    const int error = errno;
    note_datagram(file);
    errno = error;
    return sent;
}

extern "C" ssize_t sendmsg(int file, const msghdr* message, int flags) {
    note_datagram(file);
    const ssize_t sent = syscall(SYS_sendmsg, file, message, flags);
    const int error = errno;
    note_datagram(file);
    errno = error;
    return sent;
}

namespace virtual_time {

nanoseconds now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return length_of(time);
}

void let_datagrams_arrive() {
    const std::uint64_t processors = sending_processors.exchange(0);
    if (processors != 0) {
        follow_datagrams(processors);
    }
}

void leap(std::chrono::milliseconds time) {
    (the_clock.is_virtual ? the_clock.virtual_now : the_clock.ahead) += time;
}

void pass(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer end;
    end.setTimerType(Qt::PreciseTimer);
    end.setSingleShot(true);
    QObject::connect(&end, &QTimer::timeout, &loop, &QEventLoop::quit);
    end.start(time);
    loop.exec();
}

std::chrono::milliseconds time_until(const std::function<bool()>& condition,
                                     std::chrono::milliseconds longest) {
    const nanoseconds start = now();
    bool is_over = false;
    QTimer end;
    end.setSingleShot(true);
    end.setTimerType(Qt::PreciseTimer);
    QObject::connect(&end, &QTimer::timeout, &end, [&is_over] { is_over = true; });
    end.start(longest);
    while (!condition()) {
        if (is_over) {
            return longest;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return std::chrono::duration_cast<std::chrono::milliseconds>(now() - start);
}

} // namespace virtual_time

Virtual_Time::Virtual_Time() {
    ++the_clock.virtual_holders;
    choose_clock();
}

Virtual_Time::~Virtual_Time() {
    --the_clock.virtual_holders;
    choose_clock();
}

Real_Time::Real_Time() {
    ++the_clock.real_holders;
    choose_clock();
}

Real_Time::~Real_Time() {
    --the_clock.real_holders;
    choose_clock();
}
