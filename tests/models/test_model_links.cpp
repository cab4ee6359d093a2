// SPDX-License-Identifier: MIT

#include "sim/port_list.h"
#include "tests/support/modal_robot.h"
#include "tests/support/model_fixture.h"
#include "tests/support/wait_until.h"

#include <QElapsedTimer>
#include <QTest>

/// The rows of the model table that concern the serial link, each on all three windows.
class Test_Model_Links : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void only_plus_and_pro_have_the_adapters_buttons_and_labels();
    void the_start_asks_the_models_questions();
    void a_refresh_asks_the_models_questions_in_order();
    void a_port_change_asks_the_models_questions();
    void on_opens_the_port_anew_and_asks_the_models_questions();
    void off_closes_the_port_and_disables_the_controls();
    void off_after_a_refresh_disables_the_controls_on_plus_and_pro_only();
    void opening_a_port_empties_the_terminal_on_the_pro_only();
    void the_mouse_mode_follows_the_km_channel_on_the_lite_only();
    void a_factory_reset_on_the_serial_line_refreshes_after_2500_ms();
    void a_cancelled_load_asks_the_models_questions();
    void only_the_pro_has_audio_widgets();

private:
    [[nodiscard]] const Model_Facts& row() const { return model_row(tested); }
    [[nodiscard]] QByteArrayList questions() const;
    [[nodiscard]] bool has(const char* name) const {
        return fixture->window().findChild<QWidget*>(name) != nullptr;
    }

    Switch_Model tested = Switch_Model::lite;
    std::unique_ptr<Window_Fixture> fixture;
    std::unique_ptr<Modal_Robot> robot;
};

void Test_Model_Links::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    tested = model;
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(tested, *robot);
}

void Test_Model_Links::cleanup() {
    fixture.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList{});
}

QByteArrayList Test_Model_Links::questions() const {
    QByteArrayList all{"//rl", "//??", "//BP"};
    if (row().has_audio) {
        all.append("//QA");
    }
    return all;
}

void Test_Model_Links::only_plus_and_pro_have_the_adapters_buttons_and_labels() {
    fixture->open();
    for (const char* name :
         {"label_name_of_USR", "pushButton_Admin_Settings", "pushButton_Connection_Settings"}) {
        QCOMPARE(has(name), row().has_network);
    }
    QVERIFY(has("comboBox_SelectPort"));
    QVERIFY(has("label_Select_port"));
}

void Test_Model_Links::the_start_asks_the_models_questions() {
    fixture->open();
    QVERIFY(fixture->wait_connected());
    QCOMPARE(fixture->commands(), questions());
}

void Test_Model_Links::a_refresh_asks_the_models_questions_in_order() {
    QVERIFY(fixture->open_filled());
    QCOMPARE(fixture->commands(), QByteArrayList{});
    fixture->button("pushButton_Refresh").click();
    QCOMPARE(fixture->commands(), questions());
}

void Test_Model_Links::a_port_change_asks_the_models_questions() {
    Simulated_Switch second(tested);
    fixture->ports.append(second.device_name());
    QVERIFY(fixture->open_filled());
    fixture->combo("comboBox_SelectPort").setCurrentIndex(1);
    QVERIFY(!fixture->is_connected());
    QVERIFY(fixture->wait_connected());
    QVERIFY(wait_until([&] { return second.received_commands() == questions(); }));
    QCOMPARE(fixture->device.received_commands(), QByteArrayList{});
}

void Test_Model_Links::on_opens_the_port_anew_and_asks_the_models_questions() {
    QVERIFY(fixture->open_filled());
    fixture->button("pushButton_OFF_Connection").click();
    QVERIFY(!fixture->is_connected());
    fixture->button("pushButton_ON_Connection").click();
    QVERIFY(fixture->wait_connected());
    QCOMPARE(fixture->commands(), questions());
}

void Test_Model_Links::off_closes_the_port_and_disables_the_controls() {
    QVERIFY(fixture->open_filled());
    fixture->button("pushButton_OFF_Connection").click();
    QVERIFY(!fixture->is_connected());
    QVERIFY(!fixture->button("pushButton_Refresh").isEnabled());
    QVERIFY(!fixture->combo("comboBox_KM_Control").isEnabled());
    const QString before = fixture->terminal_text();
    fixture->device.send("nobody listens\n");
    QVERIFY(wait_until([this] { return fixture->device.all_sent(); }));
    QTest::qWait(0);
    QCOMPARE(fixture->terminal_text(), before);
}

void Test_Model_Links::off_after_a_refresh_disables_the_controls_on_plus_and_pro_only() {
    QVERIFY(fixture->open_filled());
    Fault_Plan silence;
    silence.silence = true;
    fixture->device.set_faults(silence);
    QVERIFY(fixture->run_slot("refresh_UI"));
    fixture->button("pushButton_OFF_Connection").click();
    // The connected flag is cleared since the refresh, so OFF leaves the green side as it is.
    QVERIFY(fixture->is_connected());
    QCOMPARE(fixture->combo("comboBox_KM_Control").isEnabled(), !row().controls_fall_with_device);
}

void Test_Model_Links::opening_a_port_empties_the_terminal_on_the_pro_only() {
    QVERIFY(fixture->open_filled());
    Fault_Plan silence;
    silence.silence = true;
    fixture->device.set_faults(silence);
    const QString before = fixture->terminal_text();
    QVERIFY(!before.isEmpty());
    fixture->button("pushButton_OFF_Connection").click();
    fixture->button("pushButton_ON_Connection").click();
    QCOMPARE(fixture->terminal_text(), row().clears_terminal_on_port_open ? QString() : before);
}

void Test_Model_Links::the_mouse_mode_follows_the_km_channel_on_the_lite_only() {
    const bool by_km_channel = tested == Switch_Model::lite;
    QVERIFY(fixture->open_filled());
    QComboBox& mode = fixture->combo("comboBox_Select_Display_Mode");
    QCOMPARE(fixture->combo("comboBox_KM_Control").currentText(), "1");
    mode.setCurrentIndex(1);
    QCOMPARE(fixture->commands(), QByteArrayList{by_km_channel ? "//ks" : "//km"});
    fixture->combo("comboBox_KM_Control").setCurrentIndex(2);
    QCOMPARE(fixture->commands(), QByteArrayList{"//c3"});
    mode.setCurrentIndex(0);
    QCOMPARE(fixture->commands(), QByteArrayList{by_km_channel ? "//km" : "//ks"});
}

void Test_Model_Links::a_factory_reset_on_the_serial_line_refreshes_after_2500_ms() {
    QVERIFY(fixture->open_filled());
    robot->expect({.class_name = "Yes_No_Dialog", .action = press_button("Confirm")});
    // The product's wait begins before the click returns.
    QElapsedTimer since_reset;
    since_reset.start();
    fixture->button("pushButton_Factory_Reset").click();
    QVERIFY(wait_until([this] { return fixture->device.received_commands().contains("//rl"); }));
    QVERIFY(since_reset.elapsed() >= 2500);
    QCOMPARE(fixture->commands(), QByteArrayList{"//F"} + questions());
}

void Test_Model_Links::a_cancelled_load_asks_the_models_questions() {
    QVERIFY(fixture->open_filled());
    robot->expect({.class_name = "QFileDialog", .action = press_key(Qt::Key_Escape)});
    fixture->button("pushButton_Load_Settings_File").click();
    QCOMPARE(fixture->commands(), questions());
    QVERIFY(fixture->wait_filled());
}

void Test_Model_Links::only_the_pro_has_audio_widgets() {
    fixture->open();
    for (const char* name :
         {"checkBox_ALL", "checkBox_FOLLOW", "checkBox_ch1", "pushButton_AudioSubmit"}) {
        QCOMPARE(has(name), row().has_audio);
    }
    const bool is_pro = tested == Switch_Model::pro;
    QCOMPARE(has("lineEdit_Mouse_Movement_Name_2"), is_pro);
    QCOMPARE(has("lineEdit_Mouse_Movement_Name"), !is_pro);
}

int main(int argc, char** argv) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    Test_Model_Links test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_model_links.moc"
