#include "tests/settings/settings_desk.h"
#include "tests/support/model_fixture.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"

#include <QTest>

#include <chrono>

/// What happens while a load is waiting for its second part.
class Test_Settings_Load_Overlap : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void a_second_file_gets_the_first_ones_second_part_early_and_its_own_later();
    void a_dialog_that_stands_over_the_2000_ms_keeps_the_second_part_from_coming();
    void a_second_dialog_that_is_cancelled_keeps_the_second_part_from_coming();
    void off_between_the_parts_applies_the_second_and_sends_nothing();
    void the_window_may_close_between_the_parts();
    void a_second_part_without_a_load_does_nothing();

private:
    std::unique_ptr<Settings_Desk> desk;
    Settings_Lines first;
    Settings_Lines second;
};

namespace {

constexpr int second_part_wait = 2000;

} // namespace

void Test_Settings_Load_Overlap::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    first = Settings_Lines(model);
    second = Settings_Lines(model);
    second["KM Control: "] = "//c4";
    second["USB Control: "] = "//u4";
    desk = std::make_unique<Settings_Desk>(model);
    QVERIFY(desk->open_filled());
    desk->robot.forget_sights();
    desk->silence_switch();
}

void Test_Settings_Load_Overlap::cleanup() {
    const bool robot_done = desk->robot.done();
    const QByteArray why = desk->robot.why();
    desk.reset();
    QVERIFY2(robot_done, why);
    QCOMPARE(windows_left(), QStringList());
}

void Test_Settings_Load_Overlap::
    a_second_file_gets_the_first_ones_second_part_early_and_its_own_later() {
    const QString first_path = desk->write(first.text(), "first.txt");
    const QString second_path = desk->write(second.text(), "second.txt");
    QVERIFY2(desk->load_first_part(first_path), desk->robot.why());
    virtual_time::pass(std::chrono::seconds(1));
    QVERIFY2(desk->load_first_part(second_path), desk->robot.why());
    QCOMPARE(desk->fixture.commands(),
             first.values(first_part_labels) + second.values(first_part_labels));
    // Both timers find a first part applied, and both apply the file that was read last.
    QVERIFY2(desk->wait_for_second_part(), desk->robot.why());
    QVERIFY2(desk->wait_for_second_part(), desk->robot.why());
    QCOMPARE(desk->fixture.commands(),
             desk->sent_in_second_part(second) + desk->sent_in_second_part(second));
}

void Test_Settings_Load_Overlap::
    a_dialog_that_stands_over_the_2000_ms_keeps_the_second_part_from_coming() {
    QVERIFY2(desk->load_first_part(desk->write(first.text())), desk->robot.why());
    (void)desk->fixture.commands();
    const QString second_path = desk->write(second.text(), "second.txt");
    QByteArrayList meanwhile = {"not looked at"};
    desk->expect_file_dialog("Select file", [&](QWidget& modal) {
        // The first timer fires in this time, and only it could send anything.
        (void)wait_until([&] { return !desk->fixture.device.received_commands().isEmpty(); },
                         second_part_wait + 500);
        meanwhile = desk->fixture.device.received_commands();
        return choose_file(second_path)(modal);
    });
    desk->fixture.button("pushButton_Load_Settings_File").click();
    QVERIFY2(desk->robot.done(), desk->robot.why());
    QCOMPARE(meanwhile, QByteArrayList());
    QCOMPARE(desk->fixture.commands(), second.values(first_part_labels));
    QVERIFY2(desk->wait_for_second_part(), desk->robot.why());
    QCOMPARE(desk->fixture.commands(), desk->sent_in_second_part(second));
}

void Test_Settings_Load_Overlap::
    a_second_dialog_that_is_cancelled_keeps_the_second_part_from_coming() {
    QVERIFY2(desk->load_first_part(desk->write(first.text())), desk->robot.why());
    (void)desk->fixture.commands();
    desk->expect_file_dialog("Select file", press_key(Qt::Key_Escape));
    desk->fixture.button("pushButton_Load_Settings_File").click();
    QCOMPARE(desk->fixture.commands(), desk->start_commands());
    const auto boxes = desk->robot.sights().size();
    QVERIFY(
        !wait_until([&] { return desk->robot.sights().size() > boxes; }, second_part_wait + 500));
    QCOMPARE(desk->fixture.commands(), QByteArrayList());
}

void Test_Settings_Load_Overlap::off_between_the_parts_applies_the_second_and_sends_nothing() {
    QVERIFY2(desk->load_first_part(desk->write(first.text())), desk->robot.why());
    (void)desk->fixture.commands();
    desk->fixture.button("pushButton_OFF_Connection").click();
    QVERIFY2(desk->wait_for_second_part(), desk->robot.why());
    QCOMPARE(desk->fixture.combo("comboBox_USB_Control").currentIndex(), 2);
    QCOMPARE(desk->fixture.label("label_Custom_4").text(), "500 499 SOFA");
    // What the switch hears next is the greeting of the next connection.
    desk->fixture.button("pushButton_ON_Connection").click();
    QCOMPARE(desk->fixture.commands(), desk->start_commands());
}

void Test_Settings_Load_Overlap::the_window_may_close_between_the_parts() {
    QVERIFY2(desk->load_first_part(desk->write(first.text())), desk->robot.why());
    const auto boxes = desk->robot.sights().size();
    desk->fixture.close();
    QVERIFY(
        !wait_until([&] { return desk->robot.sights().size() > boxes; }, second_part_wait + 500));
}

void Test_Settings_Load_Overlap::a_second_part_without_a_load_does_nothing() {
    QVERIFY(desk->fixture.run_slot("load_second_part_of_settings"));
    QCOMPARE(desk->robot.sights().size(), 0);
    QCOMPARE(desk->fixture.commands(), QByteArrayList());
    QCOMPARE(desk->fixture.combo("comboBox_USB_Control").currentIndex(), 0);
}

QTEST_MAIN(Test_Settings_Load_Overlap)

#include "test_settings_load_overlap.moc"
