// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class QSocketNotifier;

/// The standard input, line by line, without blocking the event loop.
class Line_Input : public QObject {
    Q_OBJECT

public:
    explicit Line_Input(QObject* parent = nullptr);

signals:
    /// One line, without its end. A last line without an end counts as well.
    void line(const QString& text);

    /// The input has ended; nothing follows.
    void ended();

private:
    void read_more();

    QSocketNotifier* notifier;
    QByteArray unfinished;
};
