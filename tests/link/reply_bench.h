// SPDX-License-Identifier: MIT

#pragma once

#include "link/reply_dispatcher.h"
#include "tests/link/open_line.h"
#include "tests/link/recording_view.h"
#include "tests/support/virtual_time.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>

/// What the unit answers to a new layout.
inline const QByteArray layout_saved = "Saving horizontal dimension as 4\n";

/// The slots that a reply dispatcher's timers call, in place of a window's. Each call is recorded
/// as the time since this object was created, in milliseconds.
class Timed_Slots : public QObject {
    Q_OBJECT

public:
    Timed_Slots() { clock.start(); }

    QList<qint64> report_calls;
    QList<qint64> layout_calls;
    QElapsedTimer clock;

public slots:
    void get_data_from_TQL_by_serial_port() { report_calls.append(clock.elapsed()); }
    void set_current_layout_from_buff() { layout_calls.append(clock.elapsed()); }
};

/// A reply dispatcher, with an open line for what it sends and a record of what it finds. Time is
/// virtual as long as it exists.
struct Reply_Bench {
    explicit Reply_Bench(Notice_Order order = Notice_Order::layout_first)
        : replies(line.state, line.writer, view, window, order) {}

    Virtual_Time time;
    Open_Line line;
    Session_State& state = line.state;
    Recording_View view;
    Timed_Slots window;
    Reply_Dispatcher replies;
};
