// SPDX-License-Identifier: MIT

#include "tests/support/find_child.h"
#include "tests/support/program_run.h"
#include "tests/support/virtual_display.h"
#include "tests/support/wait_until.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <csignal>

/// The helpers that all other tests share, except the robot.
class Test_Support : public QObject {
    Q_OBJECT

private slots:
    void find_child_finds_a_widget_at_any_depth();
    void find_child_lists_the_children_when_it_fails();
    void wait_until_returns_as_soon_as_the_condition_holds();
    void wait_until_gives_up_in_time();
    void wait_until_notices_what_no_event_tells();
    void wait_until_deletes_what_is_to_be_deleted_later();
    void a_program_run_collects_status_and_output();
    void a_program_run_collects_the_ending_signal();
    void a_program_run_tells_of_a_failed_start();
    void a_program_run_shows_only_the_given_ports();
    void a_program_runs_without_a_display_unless_one_is_given();
    void a_running_program_is_killed_with_its_run();
    void a_virtual_display_can_be_used_by_a_program();
};

namespace {

const char ask_for_missing_child[] = "--ask-for-missing-child";

Program_Setting shell(const QString& script) {
    return {.program = "sh", .arguments = {"-c", script}};
}

} // namespace

void Test_Support::find_child_finds_a_widget_at_any_depth() {
    QWidget window;
    auto* box = new QWidget(&window);
    auto* label = new QLabel(box);
    label->setObjectName("label_deep");
    QCOMPARE(&find_child<QLabel>(window, "label_deep"), label);
}

void Test_Support::find_child_lists_the_children_when_it_fails() {
    Program_Run run(
        {.program = QCoreApplication::applicationFilePath(), .arguments = {ask_for_missing_child}});
    QVERIFY(run.wait_for_end());
    QVERIFY(run.exit_status() != 0);
    const QByteArray message = run.errors();
    QVERIFY2(message.contains("QWidget has no QLabel \"button_there\""), message.constData());
    QVERIFY2(message.contains("QPushButton button_there\n"), message.constData());
    QVERIFY2(message.contains("QLabel label_there\n"), message.constData());
}

void Test_Support::wait_until_returns_as_soon_as_the_condition_holds() {
    bool fired = false;
    QTimer::singleShot(20, Qt::PreciseTimer, this, [&] { fired = true; });
    QElapsedTimer clock;
    clock.start();
    QVERIFY(wait_until([&] { return fired; }, 10'000));
    QVERIFY(clock.elapsed() < 5'000);
}

void Test_Support::wait_until_gives_up_in_time() {
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!wait_until([] { return false; }, 50));
    QVERIFY(clock.elapsed() >= 50);
}

void Test_Support::wait_until_notices_what_no_event_tells() {
    QElapsedTimer clock;
    clock.start();
    QVERIFY(wait_until([&] { return clock.elapsed() > 30; }, 10'000));
}

void Test_Support::wait_until_deletes_what_is_to_be_deleted_later() {
    QPointer<QObject> object = new QObject;
    object->deleteLater();
    QVERIFY(wait_until([&] { return object.isNull(); }));
}

void Test_Support::a_program_run_collects_status_and_output() {
    Program_Run run(shell("echo out; echo err >&2; exit 3"));
    QVERIFY(run.started());
    QVERIFY(run.wait_for_end());
    QCOMPARE(run.exit_status(), 3);
    QVERIFY(!run.ending_signal());
    QCOMPARE(run.output(), "out\n");
    QCOMPARE(run.errors(), "err\n");
}

void Test_Support::a_program_run_collects_the_ending_signal() {
    Program_Run run(shell("kill -ABRT $$"));
    QVERIFY(run.wait_for_end());
    QCOMPARE(run.ending_signal(), SIGABRT);
    QVERIFY(!run.exit_status());
}

void Test_Support::a_program_run_tells_of_a_failed_start() {
    Program_Run run({.program = "/no/such/program"});
    QVERIFY(!run.started());
    QVERIFY(run.wait_for_end());
    QVERIFY(!run.exit_status());
    QVERIFY(!run.ending_signal());
}

void Test_Support::a_program_run_shows_only_the_given_ports() {
    const QString list_ports = QDir(QCoreApplication::applicationDirPath()).filePath("list_ports");
    Program_Run two({.program = list_ports, .ports = {"/dev/pts/5", "/dev/pts/6"}});
    QVERIFY(two.wait_for_end());
    QCOMPARE(two.output(), "pts/5\npts/6\n");
    Program_Run none({.program = list_ports});
    QVERIFY(none.wait_for_end());
    QCOMPARE(none.exit_status(), 0);
    QCOMPARE(none.output(), "");
}

void Test_Support::a_program_runs_without_a_display_unless_one_is_given() {
    const QString script = "echo $QT_QPA_PLATFORM/$DISPLAY/$WAYLAND_DISPLAY/$EXTRA";
    Program_Run without(shell(script));
    QVERIFY(without.wait_for_end());
    QCOMPARE(without.output(), "offscreen///\n");
    Program_Setting setting = shell(script);
    setting.display = ":7";
    setting.environment = {{"EXTRA", "more"}};
    Program_Run with(setting);
    QVERIFY(with.wait_for_end());
    QCOMPARE(with.output(), "xcb/:7//more\n");
}

void Test_Support::a_running_program_is_killed_with_its_run() {
    pid_t child = 0;
    {
        Program_Run run(shell("read nothing"));
        QVERIFY(run.started());
        child = static_cast<pid_t>(run.child().processId());
        QVERIFY(!run.wait_for_end(20));
    }
    QCOMPARE(::kill(child, 0), -1);
}

void Test_Support::a_virtual_display_can_be_used_by_a_program() {
    const Virtual_Display display;
    QVERIFY(display.name().startsWith(':'));
    Program_Run run({.program = QCoreApplication::applicationFilePath(),
                     .arguments = {"-platform", "xcb", "-functions"},
                     .display = display.name()});
    QVERIFY(run.wait_for_end());
    QVERIFY2(run.exit_status() == 0, run.errors().constData());
}

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(ask_for_missing_child)) {
        QWidget window;
        (new QLabel(&window))->setObjectName("label_there");
        (new QPushButton(&window))->setObjectName("button_there");
        find_child<QLabel>(window, "button_there");
    }
    Test_Support test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_support.moc"
