// SPDX-License-Identifier: MIT

#include "link/command_writer.h"
#include "tests/support/modal_robot.h"
#include "tests/support/model_fixture.h"
#include "tests/support/wait_until.h"

#include <QAbstractEventDispatcher>
#include <QTest>

#include <optional>

namespace {

constexpr int second_part_wait = 2000;

/// How many single-shot timers of that length are running.
int armed_second_parts() {
    const QAbstractEventDispatcher& dispatcher = *QAbstractEventDispatcher::instance();
    int count = 0;
    for (QObject* timer : dispatcher.children()) {
        for (const QAbstractEventDispatcher::TimerInfo& info : dispatcher.registeredTimers(timer)) {
            count += info.interval == second_part_wait ? 1 : 0;
        }
    }
    return count;
}

/// How many were running when the questions had been sent.
std::optional<int> armed_at_the_questions;

} // namespace

// The linker redirects the calls of Command_Writer::send_start_commands() to here (see
// CMakeLists.txt).
void real_send(Command_Writer* writer) __asm__("__real__ZN14Command_Writer19send_start_commandsEv");
void watched_send(Command_Writer* writer) __asm__(
    "__wrap__ZN14Command_Writer19send_start_commandsEv");

void watched_send(Command_Writer* writer) {
    real_send(writer);
    armed_at_the_questions = armed_second_parts();
}

/// A settings load whose dialog is cancelled, on all three windows: everything is read back.
class Test_Model_Cancelled_Load : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void the_second_parts_timer_starts_behind_the_questions();
    void a_change_while_the_dialog_is_open_is_sent_if_custom_names_were_removed();

private:
    /// Loads, and cancels after it has selected an entry behind the open dialog.
    void change_and_cancel(int km_index);
    [[nodiscard]] QByteArrayList questions() const;

    Switch_Model tested = Switch_Model::lite;
    std::unique_ptr<Window_Fixture> fixture;
    std::unique_ptr<Modal_Robot> robot;
};

void Test_Model_Cancelled_Load::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    tested = model;
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(model, *robot);
}

void Test_Model_Cancelled_Load::cleanup() {
    fixture.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList{});
}

void Test_Model_Cancelled_Load::change_and_cancel(int km_index) {
    robot->expect({.class_name = "QFileDialog", .action = [this, km_index](QWidget& dialog) {
                       fixture->combo("comboBox_KM_Control").setCurrentIndex(km_index);
                       return press_key(Qt::Key_Escape)(dialog);
                   }});
    fixture->button("pushButton_Load_Settings_File").click();
}

QByteArrayList Test_Model_Cancelled_Load::questions() const {
    QByteArrayList asked = {"//rl", "//??", "//BP"};
    if (tested == Switch_Model::pro) {
        asked.append("//QA");
    }
    return asked;
}

void Test_Model_Cancelled_Load::the_second_parts_timer_starts_behind_the_questions() {
    QVERIFY(fixture->open_filled());
    QCOMPARE(armed_second_parts(), 0);
    armed_at_the_questions.reset();
    robot->expect({.class_name = "QFileDialog", .action = press_key(Qt::Key_Escape)});
    fixture->button("pushButton_Load_Settings_File").click();
    QCOMPARE(armed_at_the_questions, std::optional<int>(0));
    // The Lite starts none.
    QCOMPARE(armed_second_parts(), tested == Switch_Model::lite ? 0 : 1);

    // Without a file the second part does nothing.
    QVERIFY(fixture->wait_filled());
    QVERIFY(wait_until([] { return armed_second_parts() == 0; }));
    QCOMPARE(fixture->commands(), questions());
    QCOMPARE(robot->snapshots().constLast().class_name, "QFileDialog");
    // What the user chooses is sent.
    fixture->combo("comboBox_KM_Control").setCurrentIndex(2);
    QCOMPARE(fixture->commands(), QByteArrayList{"//c3"});
}

void Test_Model_Cancelled_Load::
    a_change_while_the_dialog_is_open_is_sent_if_custom_names_were_removed() {
    QVERIFY(fixture->open_filled());
    // No report puts the names back.
    Fault_Plan plan;
    plan.silence = true;
    fixture->device.set_faults(plan);
    change_and_cancel(2);
    QCOMPARE(fixture->commands(), QByteArrayList{"//c3"} + questions());
    change_and_cancel(3);
    QCOMPARE(fixture->commands(), questions());
    fixture->combo("comboBox_KM_Control").setCurrentIndex(1);
    QCOMPARE(fixture->commands(), QByteArrayList{"//c2"});
}

int main(int argc, char** argv) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    Test_Model_Cancelled_Load test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_model_cancelled_load.moc"
