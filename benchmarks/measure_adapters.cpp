// SPDX-License-Identifier: MIT

// How many of the adapters that answer at once the search lists, and how long it takes beyond its
// fixed time. Runs only in a private network, which ./bench creates.

#include "benchmarks/measurements.h"
#include "benchmarks/statistics.h"
#include "sim/adapter_network.h"
#include "usr/usr_searcher.h"

#include <QLoggingCategory>
#include <QMessageLogContext>
#include <QSemaphore>
#include <QThread>

#include <ctime>

namespace {

/// The adapters in a separate thread, because the search blocks its own on purpose.
class Adapter_Thread : public QThread {
    Q_OBJECT

public:
    explicit Adapter_Thread(int adapter_count) : count(adapter_count) {
        start();
        decided.acquire();
        if (!online) {
            quit();
            wait();
            throw Measurement_Failed("no private network for the adapters");
        }
    }
    ~Adapter_Thread() override {
        quit();
        wait();
    }
    Adapter_Thread(const Adapter_Thread&) = delete;
    Adapter_Thread& operator=(const Adapter_Thread&) = delete;

protected:
    void run() override {
        Adapter_Network network;
        online = network.start();
        for (int number = 0; online && number < count; ++number) {
            online = network.add(Adapter_Network::numbered({}, number)).is_online();
        }
        decided.release();
        exec();
    }

private:
    int count;
    bool online = false;
    QSemaphore decided;
};

QString receive_buffer_line;

void keep_receive_buffer_line(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                              const QString& message) {
    if (message.contains("receive buffer")) {
        receive_buffer_line = message;
    }
}

/// The buffer size that the system granted, from the search's own debug lines.
QString receive_buffer() {
    const Adapter_Thread adapters(1);
    QLoggingCategory::setFilterRules("halvern.usr.debug=true");
    const QtMessageHandler usual_handler = qInstallMessageHandler(keep_receive_buffer_line);
    USR_searcher().search_USR_in_network();
    qInstallMessageHandler(usual_handler);
    QLoggingCategory::setFilterRules("");
    return receive_buffer_line.section(' ', -1);
}

Row measure_count(int count) {
    constexpr double fixed_search_ms = 1500;
    const Adapter_Thread adapters(count);
    USR_searcher searcher;
    const qint64 begin = now_ns();
    searcher.search_USR_in_network();
    const double beyond = milliseconds_between(begin, now_ns()) - fixed_search_ms;
    QStringList listed = searcher.get_USR_replies();
    listed.removeDuplicates();
    const double share = static_cast<double>(listed.size()) / count;
    Row row = row_with_limit(
        QString("adapters listed of %1 that answer at once").arg(count), "all",
        QString("%1 (search 1.5 s and %2 ms)").arg(readable(share), readable(beyond)), 1 - share, 0,
        "1");
    return row;
}

} // namespace

/// Of this thread; the adapters are in another.
double processor_ms() {
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

Row measure_listening() {
    constexpr double listening_ms = 1000;
    constexpr double aim = 0.05;
    const Adapter_Thread adapters(1);
    const double before = processor_ms();
    USR_searcher().search_USR_in_network();
    const double share = (processor_ms() - before) / listening_ms;
    return row_with_limit("processor time while the search listens", "the second it listens",
                          readable(share), share, aim, "under 0.05");
}

Rows measure_adapters() {
    Rows rows{measure_listening()};
    for (const int count : {1, 10, 100, 250, 1000}) {
        rows.append(measure_count(count));
    }
    rows.append({"receive buffer that the system granted", "4194304 asked for",
                 receive_buffer() + " bytes", "", Row::Verdict::information});
    return rows;
}

#include "measure_adapters.moc"
