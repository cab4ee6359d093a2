// SPDX-License-Identifier: MIT

// From just before exec to the model dialog's first content on screen: the real program, unchanged,
// compared with a program that shows a bare dialog.

#include "benchmarks/measurements.h"
#include "benchmarks/programs_beside.h"
#include "benchmarks/statistics.h"

#include <QProcess>

#include <array>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int warm_up_rounds = 2;
constexpr int start_rounds = 21;
constexpr int max_start_ms = 20'000;

/// A pipe whose ends only the intended children inherit.
class Pipe {
public:
    Pipe() {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw Measurement_Failed("no pipe");
        }
    }
    ~Pipe() {
        close(ends[0]);
        close(ends[1]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    [[nodiscard]] int writing_end() const { return ends[1]; }

    [[nodiscard]] qint64 read_time() const {
        pollfd wait = {ends[0], POLLIN, 0};
        qint64 time = 0;
        if (poll(&wait, 1, max_start_ms) != 1 || read(ends[0], &time, sizeof time) != sizeof time) {
            throw Measurement_Failed("a program did not show anything");
        }
        return time;
    }

private:
    std::array<int, 2> ends{};
};

QProcessEnvironment environment_with_pipe(int pipe_end) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LD_PRELOAD", file_beside("libhalvern_first_flush.so"));
    environment.insert("HALVERN_BENCH_PIPE", QString::number(pipe_end));
    return environment;
}

double milliseconds_to_screen(const QString& program) {
    const Pipe pipe;
    const int pipe_end = pipe.writing_end();
    QProcess process;
    process.setProcessEnvironment(environment_with_pipe(pipe_end));
    process.setChildProcessModifier([pipe_end] {
        fcntl(pipe_end, F_SETFD, 0);
        const qint64 begin = now_ns();
        if (write(pipe_end, &begin, sizeof begin) != sizeof begin) {
            _exit(1);
        }
    });
    process.start(file_beside(program), QStringList());
    const qint64 begin = pipe.read_time();
    const qint64 end = pipe.read_time();
    process.kill();
    process.waitForFinished();
    return milliseconds_between(begin, end);
}

} // namespace

Rows measure_start() {
    Samples tool;
    Samples bare;
    Samples form;
    for (int round = -warm_up_rounds; round < start_rounds; ++round) {
        const double tool_time = milliseconds_to_screen("halvern");
        const double bare_time = milliseconds_to_screen("halvern-bench-bare-dialog");
        const double form_time = milliseconds_to_screen("halvern-bench-bare-form-dialog");
        if (round >= 0) {
            tool.push_back(tool_time);
            bare.push_back(bare_time);
            form.push_back(form_time);
        }
    }
    const QString what = "start to model dialog on screen";
    return {ratio_row(what, "a bare Qt Widgets dialog", tool, bare, "ms", 1.10),
            ratio_row(what, "the dialog's form, bare", tool, form, "ms", 1.10)};
}
