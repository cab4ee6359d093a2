// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/debug_lines.h"
#include "tests/support/raw_sender.h"

/// Another program that binds the search port exactly between a failed search and its repetition,
/// when a debug line is printed.
class Port_Taker {
public:
    Port_Taker() {
        waiting_socket() = &socket;
        earlier_handler =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
                if (text.contains("searching again")) {
                    waiting_socket()->bind(QHostAddress::AnyIPv4, search_port);
                }
            });
    }
    ~Port_Taker() { qInstallMessageHandler(earlier_handler); }
    Port_Taker(const Port_Taker&) = delete;
    Port_Taker& operator=(const Port_Taker&) = delete;

    [[nodiscard]] bool has_port() const { return socket.state() == QAbstractSocket::BoundState; }

private:
    static QUdpSocket*& waiting_socket() {
        static QUdpSocket* waiting = nullptr;
        return waiting;
    }

    const Debug_Lines debug_lines;
    QUdpSocket socket;
    QtMessageHandler earlier_handler = nullptr;
};
