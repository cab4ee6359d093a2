// SPDX-License-Identifier: MIT

#include "tests/tour/in_gui.h"
#include "tests/tour/outside.h"
#include "tests/tour/step_failed.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QTcpSocket>
#include <QThread>

#include <future>
#include <memory>

namespace {

constexpr int connection_patience_ms = 120'000;

/// A connection to the port of this machine that an environment variable names. The other end may
/// need a moment until it listens.
class Connection {
public:
    explicit Connection(const char* port_variable) {
        const int port = qEnvironmentVariableIntValue(port_variable);
        QElapsedTimer waited;
        waited.start();
        do {
            constexpr unsigned long try_again_ms = 50;
            socket.connectToHost("127.0.0.1", static_cast<quint16>(port));
            if (socket.waitForConnected(connection_patience_ms)) {
                return;
            }
            QThread::msleep(try_again_ms);
        } while (waited.elapsed() < connection_patience_ms);
        throw Step_Failed(QString("nobody listens at %1 %2").arg(port_variable).arg(port));
    }

    void write_line(const QByteArray& line) {
        socket.write(line + '\n');
        while (socket.bytesToWrite() > 0) {
            if (!socket.waitForBytesWritten(connection_patience_ms)) {
                throw Step_Failed("the connection is gone: " + socket.errorString());
            }
        }
    }

    QByteArray read_line() {
        while (!socket.canReadLine()) {
            if (!socket.waitForReadyRead(connection_patience_ms)) {
                throw Step_Failed("no answer: " + socket.errorString());
            }
        }
        return socket.readLine().chopped(1);
    }

    QByteArray read(std::chrono::milliseconds patience) {
        if (socket.bytesAvailable() == 0) {
            socket.waitForReadyRead(static_cast<int>(patience.count()));
        }
        return socket.readAll();
    }

private:
    QTcpSocket socket;
};

/// Belong to the tour's thread: its event dispatcher watches the sockets.
std::unique_ptr<Connection> units_connection;
std::unique_ptr<Connection> helper_connection;

Connection& opened(std::unique_ptr<Connection>& connection, const char* port_variable) {
    if (!connection) {
        connection = std::make_unique<Connection>(port_variable);
    }
    return *connection;
}

Connection& units() { return opened(units_connection, "HALVERN_TOUR_UNITS_PORT"); }

/// Each line is a request, its words separated by tabs; the answer is a line that is empty or
/// contains the error.
QByteArray answer_to(const QStringList& words) {
    Connection& connection = opened(helper_connection, "HALVERN_TOUR_HELPER_PORT");
    connection.write_line(words.join('\t').toUtf8());
    return connection.read_line();
}

} // namespace

void outside::xdotool(const QStringList& arguments) {
    const QByteArray refusal = answer_to(QStringList{"xdotool"} + arguments);
    if (!refusal.isEmpty()) {
        throw Step_Failed("xdotool " + arguments.join(' ') + ": " + QString::fromUtf8(refusal));
    }
}

QByteArray outside::units_output(std::chrono::milliseconds patience) {
    return units().read(patience);
}

void outside::ask_units(const QByteArray& line) { units().write_line(line); }

void outside::await_painted() {
    // Wine sends it to the X server when the program's thread has nothing left to do.
    const auto promise = std::make_shared<std::promise<void>>();
    const auto idle = promise->get_future();
    in_gui([promise] {
        return QObject::connect(
            QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, qApp,
            [promise] { promise->set_value(); }, Qt::SingleShotConnection);
    });
    if (idle.wait_for(gui_patience) != std::future_status::ready) {
        throw Step_Failed("the program does not come to rest");
    }
}

void outside::print(const QString& line) {
    // A line of the tour contains no line ends, but the reason of a failure may.
    for (const QString& part : line.split('\n')) {
        answer_to({"print", part});
    }
}

void outside::leave() {
    units_connection.reset();
    helper_connection.reset();
}
