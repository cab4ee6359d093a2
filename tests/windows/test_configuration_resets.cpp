// SPDX-License-Identifier: MIT

#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QElapsedTimer>
#include <QTest>

/// The factory reset, which asks first and reads everything back, and the soft reset, which does
/// neither.
class Test_Configuration_Resets : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_confirmed_factory_reset_is_sent_and_refreshed_after_2500_ms();
    void the_refresh_after_a_factory_reset_fills_the_page_anew();
    void a_factory_reset_that_is_not_confirmed_sends_nothing_data();
    void a_factory_reset_that_is_not_confirmed_sends_nothing();
    void replies_are_served_while_the_question_stands();
    void the_refresh_after_a_factory_reset_comes_even_when_disconnected_meanwhile();
    void without_a_port_a_factory_reset_refreshes_nothing();
    void a_soft_reset_is_sent_at_once_and_followed_by_nothing();

private:
    void expect_question(const Modal_Action& action);

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

/// More than the 2500 ms after which a refresh would follow.
constexpr int past_any_refresh_ms = 2800;

} // namespace

void Test_Configuration_Resets::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    QVERIFY(lite->open_filled());
}

void Test_Configuration_Resets::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Configuration_Resets::expect_question(const Modal_Action& action) {
    robot->expect({.class_name = "Yes_No_Dialog",
                   .title = "Halvern",
                   .text = "Perform factory reset?",
                   .buttons = QStringList{"Confirm", "Cancel"},
                   .action = action});
}

void Test_Configuration_Resets::a_confirmed_factory_reset_is_sent_and_refreshed_after_2500_ms() {
    expect_question(press_button("Confirm"));
    QElapsedTimer clock;
    clock.start();
    lite->button("pushButton_Factory_Reset").click();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(lite->commands(), QByteArrayList{"//F"});
    QVERIFY(lite->is_filled());
    QVERIFY(wait_until([&] { return lite->device.received_commands() == question_list; }));
    QVERIFY(clock.elapsed() >= 2500);
}

void Test_Configuration_Resets::the_refresh_after_a_factory_reset_fills_the_page_anew() {
    lite->combo("comboBox_KM_Control").setCurrentIndex(2);
    lite->combo("comboBox_Enable_or_Disable_Cursor_Roll").setCurrentIndex(1);
    QCOMPARE(lite->commands(), QByteArrayList({"//c3", "//o1"}));
    expect_question(press_object("pushButton_OK"));
    lite->button("pushButton_Factory_Reset").click();
    QVERIFY(wait_until([&] { return !lite->is_filled(); }));
    QVERIFY(lite->wait_filled());
    QCOMPARE(lite->combo("comboBox_KM_Control").currentIndex(), 0);
    QCOMPARE(lite->combo("comboBox_Enable_or_Disable_Cursor_Roll").currentIndex(), 0);
    QCOMPARE(lite->commands(), QByteArrayList{"//F"} + question_list);
}

void Test_Configuration_Resets::a_factory_reset_that_is_not_confirmed_sends_nothing_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("Cancel") << 0;
    QTest::newRow("closed by the frame") << 1;
    QTest::newRow("Escape") << 2;
}

void Test_Configuration_Resets::a_factory_reset_that_is_not_confirmed_sends_nothing() {
    QFETCH(const int, way);
    const QList<Modal_Action> ways{press_button("Cancel"), close_by_frame(),
                                   press_key(Qt::Key_Escape)};
    expect_question(ways[way]);
    lite->button("pushButton_Factory_Reset").click();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(lite->commands(), QByteArrayList());
    // No refresh follows later either.
    QTest::qWait(past_any_refresh_ms);
    QVERIFY(lite->is_filled());
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Configuration_Resets::replies_are_served_while_the_question_stands() {
    expect_question([this](QWidget& dialog) {
        const bool served = lite->say("**C 4\n");
        const QString failure = press_button("Cancel")(dialog);
        return served ? failure : QString("the notice was not served");
    });
    lite->button("pushButton_Factory_Reset").click();
    QCOMPARE(lite->combo("comboBox_KM_Control").currentIndex(), 3);
}

void Test_Configuration_Resets::
    the_refresh_after_a_factory_reset_comes_even_when_disconnected_meanwhile() {
    expect_question(press_button("Confirm"));
    QElapsedTimer clock;
    clock.start();
    lite->button("pushButton_Factory_Reset").click();
    QCOMPARE(lite->commands(), QByteArrayList{"//F"});
    lite->button("pushButton_OFF_Connection").click();
    QVERIFY(lite->is_filled());
    QVERIFY(wait_until([&] { return !lite->is_filled(); }));
    QVERIFY(clock.elapsed() >= 2500);
    QVERIFY(!lite->is_connected());
    QCOMPARE(lite->device.received_commands(), QByteArrayList());
    // The link works as before.
    lite->button("pushButton_ON_Connection").click();
    QVERIFY(lite->wait_filled());
    QCOMPARE(lite->commands(), question_list);
}

void Test_Configuration_Resets::without_a_port_a_factory_reset_refreshes_nothing() {
    lite->button("pushButton_OFF_Connection").click();
    // The button is disabled by now.
    expect_question(press_button("Confirm"));
    QVERIFY(lite->run_slot("on_pushButton_Factory_Reset_clicked"));
    QTest::qWait(past_any_refresh_ms);
    QVERIFY(lite->is_filled());
    QCOMPARE(lite->device.received_commands(), QByteArrayList());
}

void Test_Configuration_Resets::a_soft_reset_is_sent_at_once_and_followed_by_nothing() {
    Switch_State changed;
    changed.hotkey_trigger = "Num Lock";
    lite->device.unit().set_state(changed);
    QTest::mouseClick(&lite->button("pushButton_Soft_Reset"), Qt::LeftButton);
    QCOMPARE(robot->snapshots().size(), 0);
    QCOMPARE(lite->commands(), QByteArrayList{"//R"});
    QTest::qWait(past_any_refresh_ms);
    QVERIFY(lite->is_filled());
    QCOMPARE(lite->label("label_Current_Hotkey_Trigger_Data").text(), "Left Ctrl");
    QCOMPARE(lite->commands(), QByteArrayList());
}

QTEST_MAIN(Test_Configuration_Resets)

#include "test_configuration_resets.moc"
