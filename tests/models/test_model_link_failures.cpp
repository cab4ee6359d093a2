// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "link/link_transport.h"
#include "tests/support/log_folder.h"
#include "tests/support/modal_robot.h"
#include "tests/support/model_fixture.h"
#include "tests/support/wait_until.h"

#include <QTest>
#include <QTimer>

#include <new>

namespace {

bool opening_fails = false;
bool closing_fails = false;

} // namespace

// The linker redirects the calls of QSerialPort::setFlowControl(), the last one before a port is
// opened, and of Link_Transport::close_port() to here (see CMakeLists.txt): they can fail on
// demand, which no input can cause.
bool real_set_flow_control(QSerialPort* port, QSerialPort::FlowControl control) __asm__(
    "__real__ZN11QSerialPort14setFlowControlENS_11FlowControlE");
bool failing_set_flow_control(QSerialPort* port, QSerialPort::FlowControl control) __asm__(
    "__wrap__ZN11QSerialPort14setFlowControlENS_11FlowControlE");
void real_close_port(Link_Transport* devices) __asm__("__real__ZN14Link_Transport10close_portEv");
void failing_close_port(Link_Transport* devices) __asm__(
    "__wrap__ZN14Link_Transport10close_portEv");

bool failing_set_flow_control(QSerialPort* port, QSerialPort::FlowControl control) {
    if (opening_fails) {
        throw std::bad_alloc();
    }
    return real_set_flow_control(port, control);
}

void failing_close_port(Link_Transport* devices) {
    if (closing_fails) {
        throw std::bad_alloc();
    }
    real_close_port(devices);
}

/// Which failure of the serial line is logged, shown or silent, on all three windows. A Lite's log
/// is closed; here it is opened for it, to see what the common code writes.
class Test_Model_Link_Failures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void an_exception_while_a_port_is_opened_is_logged_and_shown_data();
    void an_exception_while_a_port_is_opened_is_logged_and_shown();
    void an_exception_while_the_first_port_is_opened_is_logged_and_shown();
    void a_port_that_does_not_open_is_neither_logged_nor_shown_data();
    void a_port_that_does_not_open_is_neither_logged_nor_shown();
    void a_port_that_can_not_be_replaced_is_told_as_a_failed_opening();
    void a_port_that_off_can_not_close_is_told_of_on_plus_and_pro_only();
    void off_without_a_port_is_neither_logged_nor_shown();

private:
    /// Opens the window on its switch, with the log open, and a second line in the list.
    [[nodiscard]] bool open();
    /// Expects the single box of a failure, and the log entry before the box opens.
    void expect_failure(const QString& text);
    /// ON after OFF, or the choice of the second port.
    void add_ways_to_open();
    void open_port_anew(const QString& way);

    Switch_Model tested = Switch_Model::lite;
    std::unique_ptr<Log_Folder> folder;
    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Window_Fixture> fixture;
    std::unique_ptr<Simulated_Switch> second;
    QStringList logged_before_box;
};

namespace {

const QString opening_failure = "Connection to serial port error";

QString indicator_style(const QString& colour) {
    return QString("background-color: %1; border-radius: 10px; height: 20px; width: 20px;")
        .arg(colour);
}

} // namespace

void Test_Model_Link_Failures::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    tested = model;
    logged_before_box.clear();
    folder = std::make_unique<Log_Folder>();
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(model, *robot);
    second = std::make_unique<Simulated_Switch>(model);
    fixture->ports.append(second->device_name());
    if (tested == Switch_Model::lite) {
        QCOMPARE(open_log(), 1);
    }
}

void Test_Model_Link_Failures::cleanup() {
    opening_fails = false;
    closing_fails = false;
    fixture.reset();
    second.reset();
    folder.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList{});
}

bool Test_Model_Link_Failures::open() {
    const bool filled = fixture->open_filled();
    return filled && folder->entries().isEmpty();
}

void Test_Model_Link_Failures::expect_failure(const QString& text) {
    robot->expect({.class_name = "QMessageBox",
                   .title = "Information",
                   .text = text,
                   .icon = QMessageBox::Warning,
                   .buttons = QStringList{"OK"},
                   .action = [this](QWidget& box) {
                       logged_before_box = folder->entries();
                       return press_button("OK")(box);
                   }});
}

void Test_Model_Link_Failures::add_ways_to_open() {
    QTest::addColumn<QString>("way");
    QTest::newRow("ON") << "ON";
    QTest::newRow("another port") << "another port";
}

void Test_Model_Link_Failures::open_port_anew(const QString& way) {
    if (way == "ON") {
        QVERIFY(fixture->run_slot("on_pushButton_ON_Connection_clicked"));
    } else {
        fixture->combo("comboBox_SelectPort").setCurrentIndex(1);
    }
}

void Test_Model_Link_Failures::an_exception_while_a_port_is_opened_is_logged_and_shown_data() {
    add_ways_to_open();
}

void Test_Model_Link_Failures::an_exception_while_a_port_is_opened_is_logged_and_shown() {
    QFETCH(const QString, way);
    QVERIFY(open());
    opening_fails = true;
    expect_failure(opening_failure);
    open_port_anew(way);
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(logged_before_box, QStringList{opening_failure});
    QCOMPARE(folder->entries(), QStringList{opening_failure});
    // The earlier port is gone and no other is open: what the user does is not sent.
    fixture->combo("comboBox_KM_Control").setCurrentIndex(2);
    opening_fails = false;
    QVERIFY(fixture->run_slot("on_pushButton_ON_Connection_clicked"));
    Simulated_Switch& device = way == "ON" ? fixture->device : *second;
    QVERIFY(wait_until([&] { return device.received_commands().contains("//BP"); }));
    QVERIFY(!fixture->device.received_commands().contains("//c3"));
    QVERIFY(!second->received_commands().contains("//c3"));
    // The port that ON opens works, and there is no further message.
    fixture->combo("comboBox_KM_Control").setCurrentIndex(3);
    QVERIFY(wait_until([&] { return device.received_commands().contains("//c4"); }));
    QCOMPARE(folder->entries().size(), 1);
}

void Test_Model_Link_Failures::an_exception_while_the_first_port_is_opened_is_logged_and_shown() {
    opening_fails = true;
    // Once as the list's first line is chosen, and once as the port is opened again.
    const auto expect_boxes = [this] {
        expect_failure(opening_failure);
        expect_failure(opening_failure);
    };
    if (tested == Switch_Model::lite) {
        expect_boxes();
    } else {
        // After the wizard's dialog, which the fixture itself expects.
        QTimer::singleShot(0, this, expect_boxes);
    }
    fixture->open();
    QCOMPARE(folder->entries(), QStringList({opening_failure, opening_failure}));
    opening_fails = false;
    QVERIFY(!fixture->is_connected());
    QVERIFY(fixture->button("pushButton_ON_Connection").isEnabled());
    QVERIFY(!fixture->button("pushButton_Refresh").isEnabled());
    fixture->button("pushButton_ON_Connection").click();
    QVERIFY(fixture->wait_connected());
    QCOMPARE(folder->entries().size(), 2);
}

void Test_Model_Link_Failures::a_port_that_does_not_open_is_neither_logged_nor_shown_data() {
    add_ways_to_open();
}

void Test_Model_Link_Failures::a_port_that_does_not_open_is_neither_logged_nor_shown() {
    QFETCH(const QString, way);
    QVERIFY(open());
    const qsizetype boxes = robot->snapshots().size();
    const QString style = fixture->button("pushButton_Connection_Indicator").styleSheet();
    QCOMPARE(style, indicator_style("green"));
    fixture->combo("comboBox_SelectPort").setItemText(0, "pts/no-such-line");
    fixture->combo("comboBox_SelectPort").setItemText(1, "pts/nor-such-line");
    open_port_anew(way);
    fixture->combo("comboBox_KM_Control").setCurrentIndex(2);
    QCOMPARE(folder->entries(), QStringList());
    QCOMPARE(robot->snapshots().size(), boxes);
    // ON leaves the indicator to the switch's answer; another port turns it red at once.
    QCOMPARE(fixture->button("pushButton_Connection_Indicator").styleSheet(),
             indicator_style(way == "ON" ? "green" : "red"));
    QCOMPARE(fixture->device.received_commands(), QByteArrayList());
}

void Test_Model_Link_Failures::a_port_that_can_not_be_replaced_is_told_as_a_failed_opening() {
    QVERIFY(open());
    closing_fails = true;
    expect_failure(opening_failure);
    fixture->combo("comboBox_SelectPort").setCurrentIndex(1);
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(logged_before_box, QStringList{opening_failure});
    QCOMPARE(folder->entries(), QStringList{opening_failure});
    closing_fails = false;
    // No state is rolled back: the earlier port is open, and gets the questions.
    QVERIFY(fixture->wait_connected());
    QVERIFY(fixture->device.received_commands().contains("//BP"));
    QCOMPARE(second->received_commands(), QByteArrayList());
}

void Test_Model_Link_Failures::a_port_that_off_can_not_close_is_told_of_on_plus_and_pro_only() {
    QVERIFY(open());
    const bool told = tested != Switch_Model::lite;
    const qsizetype boxes = robot->snapshots().size();
    closing_fails = true;
    if (told) {
        expect_failure("Close serial error");
    }
    fixture->button("pushButton_OFF_Connection").click();
    QVERIFY2(robot->done(), robot->why());
    const QStringList entries = told ? QStringList{"Close serial error"} : QStringList();
    QCOMPARE(logged_before_box, entries);
    QCOMPARE(folder->entries(), entries);
    QCOMPARE(robot->snapshots().size(), boxes + (told ? 1 : 0));
    // The link is OFF nevertheless, and what the user does is not sent.
    QCOMPARE(fixture->button("pushButton_Connection_Indicator").styleSheet(),
             indicator_style("red"));
    QVERIFY(fixture->button("pushButton_ON_Connection").isEnabled());
    QVERIFY(!fixture->button("pushButton_OFF_Connection").isEnabled());
    QVERIFY(!fixture->combo("comboBox_KM_Control").isEnabled());
    QVERIFY(!fixture->button("pushButton_Refresh").isEnabled());
    fixture->combo("comboBox_KM_Control").setCurrentIndex(2);
    closing_fails = false;
    QVERIFY(fixture->run_slot("on_pushButton_ON_Connection_clicked"));
    QVERIFY(fixture->wait_connected());
    QVERIFY(!fixture->device.received_commands().contains("//c3"));
    QCOMPARE(folder->entries(), entries);
}

void Test_Model_Link_Failures::off_without_a_port_is_neither_logged_nor_shown() {
    QVERIFY(open());
    const qsizetype boxes = robot->snapshots().size();
    for (int round = 0; round < 3; ++round) {
        QVERIFY(fixture->run_slot("on_pushButton_OFF_Connection_clicked"));
    }
    QCOMPARE(folder->entries(), QStringList());
    QCOMPARE(robot->snapshots().size(), boxes);
    // The count of open ports is not below zero: one ON is enough.
    fixture->button("pushButton_ON_Connection").click();
    QVERIFY(fixture->wait_connected());
    fixture->combo("comboBox_KM_Control").setCurrentIndex(2);
    QVERIFY(wait_until([&] { return fixture->device.received_commands().contains("//c3"); }));
}

int main(int argc, char** argv) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    Test_Model_Link_Failures test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_model_link_failures.moc"
