// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractItemView>
#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QProcess>
#include <QStringList>
#include <QTimer>

#include <deque>
#include <functional>
#include <optional>

/// The mouse, moved by real input events of the X server, over the cells of a table.
///
///     Pointer pointer(table);
///     pointer.press(0, 0);
///     pointer.move(1, 2);
///     pointer.drop();
///     QVERIFY2(pointer.run(), pointer.why());
///
/// Each step waits until the table has received the one before, as a user does. A timer runs them,
/// because a drag runs its own event loop until it ends.
class Pointer : public QObject {
    Q_OBJECT

public:
    explicit Pointer(QAbstractItemView& table);

    /// Moves to the middle of a cell and presses the left button.
    void press(int row, int column);
    /// Drags to the middle of a cell in several steps.
    void move(int row, int column);
    /// Drags out of the table, to a position in the table's window.
    void leave_to(const QPoint& spot_in_window);
    void release();
    /// As release(), and waits until the table has received the drop.
    void drop();
    /// Ends a drag with the Escape key; the button is still down.
    void escape();
    void hold_control();
    void let_control_go();
    /// Waits where the pointer is.
    void wait_for(const std::function<bool()>& condition);

    /// press(), move(), drop().
    void drag(int row, int column, int to_row, int to_column);
    /// press(), release().
    void click(int row, int column);

    /// Runs all planned steps, and returns when the drag has ended.
    [[nodiscard]] bool run();
    /// Why run() returned false.
    const char* why() const { return failure.constData(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Step {
        QByteArray name;
        QStringList command; ///< for xdotool; empty does nothing but wait
        std::function<bool()> is_done;
    };

    /// The events of the table's viewport since the step began.
    struct Seen {
        std::optional<QPoint> place; ///< of the pointer with the button down
        bool press = false;
        bool leaving = false;
        bool drop = false;
    };

    void add(const QByteArray& name, const QStringList& command,
             const std::function<bool()>& is_done);
    void move_to(const QPoint& place);
    QPoint centre(int row, int column) const;
    void go_on();
    void give_up(const QByteArray& reason);

    QAbstractItemView& view;
    std::deque<Step> steps;
    QPoint planned_place; ///< on the viewport, after all steps planned so far
    QTimer timer;
    QProcess xdotool;
    QElapsedTimer step_time; ///< valid while a step is running
    Seen seen;
    QByteArray failure;
};
