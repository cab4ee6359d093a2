// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/modal_action.h"

#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <deque>
#include <functional>
#include <optional>

/// The look of a modal widget when the robot found it.
struct Modal_Snapshot {
    QString class_name;
    QString object_name;
    QString title;
    /// A message box's text; of any other widget the texts of its visible labels, one per line.
    QString text;
    QStringList label_texts;
    std::optional<QMessageBox::Icon> icon;     ///< of a message box
    std::optional<Qt::TextFormat> text_format; ///< of a message box
    QStringList buttons;                       ///< captions of the visible buttons, without "&"

    QString to_string() const;
};

/// How the next modal widget must look, and what to do with it. What is left out is not checked.
struct Modal_Expectation {
    QString class_name = {}; ///< the class or one it inherits
    std::optional<QString> object_name = {};
    std::optional<QString> title = {};
    std::optional<QString> text = {}; ///< a message box's text, or one of the labels
    std::optional<QMessageBox::Icon> icon = {};
    std::optional<QStringList> buttons = {};
    Modal_Action action = {};
};

/// Answers modal widgets while a test waits inside them.
///
///     Modal_Robot robot;
///     robot.expect({.class_name = "QMessageBox", .text = "Done", .action = press_button("OK")});
///     button.click();
///     QVERIFY2(robot.done(), robot.why());
///
/// It watches the active modal widget from a timer and compares each new one with the next
/// expectation. A widget that does not match, or that nobody expects, is recorded as a failure and
/// closed, so that no test hangs. A widget that stays open after its action is compared with the
/// next expectation for some time, and then closed with a failure.
class Modal_Robot : public QObject {
    Q_OBJECT

public:
    explicit Modal_Robot(QObject* parent = nullptr);

    /// Appends to the queue. An expectation without an action presses Return.
    void expect(const Modal_Expectation& expectation);

    /// How long a widget may stay open after its action, 5 seconds unless set.
    void set_patience(std::chrono::milliseconds new_patience) { patience = new_patience; }

    /// Whether everything expected was shown and answered, and nothing else.
    bool done() const { return expectations.empty() && failure_texts.isEmpty(); }

    /// Why done() is false, for QVERIFY2. Valid until the next call.
    const char* why() const;

    /// Everything found, in order, whether it matched or not.
    const QList<Modal_Snapshot>& snapshots() const { return all_snapshots; }
    /// For tests with hundreds of them.
    void clear_snapshots() { all_snapshots = {}; }

    const QStringList& failures() const { return failure_texts; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void look();
    void meet(QWidget& modal);
    void meet_again(QWidget& modal);
    void act(QWidget& modal, const Modal_Action& action, const std::function<void()>& if_gone);
    void report_gone();
    void dismiss(QWidget& modal, const QString& failure);

    QTimer timer;
    std::deque<Modal_Expectation> expectations;
    QList<Modal_Snapshot> all_snapshots;
    QStringList failure_texts;
    /// Widgets found and not hidden since, the newest last.
    QList<QPointer<QWidget>> known;
    QPointer<QWidget> awaiting_action;
    std::chrono::milliseconds patience{5000};
    std::chrono::milliseconds waited{0};
    mutable QByteArray why_text;
};

/// The visible top-level windows of this process, as "Class name". Empty after a test that closes
/// its windows.
QStringList windows_left();
