// SPDX-License-Identifier: MIT

#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

/// How the Lite handles the loss of the other end of its open port.
class Test_Serial_Link_Loss : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_lost_port_shows_nothing();
    void a_lost_port_lets_the_program_rest();
    void commands_to_a_lost_port_are_dropped_in_silence();
    void on_opens_a_port_anew_that_was_lost_before_any_answer();
    void off_and_on_open_a_port_anew_that_was_lost_while_connected();
    void a_report_that_came_before_the_loss_is_still_read();
    void the_window_closes_after_a_loss();

private:
    /// Replaces the device's own name by one that can be moved from one device to another.
    void list_a_plug();
    void plug_in(const Simulated_Switch& device);
    void pull_the_plug();

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
    // A port's name is a path below /dev.
    QTemporaryDir folder{"/dev/shm/plug-XXXXXX"};
    QString plug;
};

namespace {

void serve_events_for(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

void Test_Serial_Link_Loss::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
}

void Test_Serial_Link_Loss::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Serial_Link_Loss::list_a_plug() {
    QVERIFY2(folder.isValid(), qPrintable(folder.errorString()));
    plug = folder.filePath("plug");
    plug_in(lite->device);
    lite->ports = {plug};
}

void Test_Serial_Link_Loss::plug_in(const Simulated_Switch& device) {
    QFile::remove(plug);
    QVERIFY(QFile::link(device.device_name(), plug));
}

void Test_Serial_Link_Loss::pull_the_plug() {
    lite->device.vanish();
    // Qt handles a read of 0 bytes as an error and reads errno, whatever has set it last. With most
    // values it then reads on without end; a few of those that a serial port itself sets end this.
    errno = ENOENT;
    // The port's own notification comes through the event loop and is handled there.
    serve_events_for(100);
}

void Test_Serial_Link_Loss::a_lost_port_shows_nothing() {
    QVERIFY(lite->open_filled());
    const QString text = lite->terminal_text();
    pull_the_plug();
    QVERIFY(lite->is_connected());
    QVERIFY(!lite->button("pushButton_ON_Connection").isEnabled());
    QVERIFY(lite->button("pushButton_OFF_Connection").isEnabled());
    QVERIFY(lite->button("pushButton_Refresh").isEnabled());
    QVERIFY(lite->combo("comboBox_KM_Control").isEnabled());
    QCOMPARE(lite->terminal_text(), text);
    QCOMPARE(robot->snapshots().size(), 0);
}

void Test_Serial_Link_Loss::a_lost_port_lets_the_program_rest() {
    QVERIFY(lite->open_filled());
    pull_the_plug();
    // An unquieted port wakes the event loop thousands of times, on a busy machine too. Waiting
    // itself does about 150 times in these 1500 ms.
    const int rounds = count_event_rounds(1500);
    QVERIFY2(rounds < 500, qPrintable(QString("%1 rounds of events").arg(rounds)));
}

void Test_Serial_Link_Loss::commands_to_a_lost_port_are_dropped_in_silence() {
    QVERIFY(lite->open_filled());
    lite->device.vanish();
    // This command before the loss has been noticed, the others after it.
    lite->button("pushButton_Soft_Reset").click();
    serve_events_for(100);
    lite->combo("comboBox_KM_Control").setCurrentIndex(3);
    lite->button("pushButton_Soft_Reset").click();
    lite->button("pushButton_Refresh").click();
    lite->window().writeData("past the guard");
    serve_events_for(100);
    QVERIFY(lite->is_connected());
    QCOMPARE(robot->snapshots().size(), 0);
    QCOMPARE(lite->device.received_commands(), QByteArrayList());
}

void Test_Serial_Link_Loss::on_opens_a_port_anew_that_was_lost_before_any_answer() {
    list_a_plug();
    Fault_Plan silent;
    silent.silence = true;
    lite->device.set_faults(silent);
    lite->open();
    QVERIFY(wait_until([&] { return lite->device.received_commands() == question_list; }));
    pull_the_plug();
    QVERIFY(!lite->is_connected());

    const Simulated_Switch next;
    plug_in(next);
    lite->button("pushButton_ON_Connection").click();
    QVERIFY(lite->wait_connected());
    QCOMPARE(next.received_commands(), question_list);
    QVERIFY(lite->wait_filled());
}

void Test_Serial_Link_Loss::off_and_on_open_a_port_anew_that_was_lost_while_connected() {
    list_a_plug();
    QVERIFY(lite->open_filled());
    pull_the_plug();
    lite->button("pushButton_OFF_Connection").click();
    QVERIFY(!lite->is_connected());
    QVERIFY(!lite->button("pushButton_Refresh").isEnabled());

    Simulated_Switch next;
    plug_in(next);
    lite->button("pushButton_ON_Connection").click();
    QVERIFY(lite->wait_filled());
    QCOMPARE(next.received_commands(), question_list);
    lite->button("pushButton_Soft_Reset").click();
    QVERIFY(wait_until([&] { return next.received_commands().contains("//R"); }));
}

void Test_Serial_Link_Loss::a_report_that_came_before_the_loss_is_still_read() {
    lite->open();
    QVERIFY(wait_until([&] { return lite->terminal_text().endsWith("FF04B04\n"); }));
    lite->device.vanish();
    QVERIFY(lite->wait_filled());
    QCOMPARE(lite->label("label_Current_Hotkey_Trigger_Data").text(), "Left Ctrl");
    QVERIFY(lite->is_connected());
}

void Test_Serial_Link_Loss::the_window_closes_after_a_loss() {
    QVERIFY(lite->open_connected());
    lite->device.vanish();
    QVERIFY(lite->window().close());
    lite->close();
    QCOMPARE(robot->snapshots().size(), 0);
}

QTEST_MAIN(Test_Serial_Link_Loss)

#include "test_serial_link_loss.moc"
