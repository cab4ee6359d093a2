// SPDX-License-Identifier: MIT

#include "tests/support/find_child.h"
#include "tests/support/modal_robot.h"
#include "tests/support/model_fixture.h"
#include "tests/support/wait_until.h"

#include <QCheckBox>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// Settings files in which the models differ, each on all three windows.
class Test_Model_Settings : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void a_pro_file_sends_its_audio_command_on_the_pro_only();
    void a_file_without_audio_leaves_the_pros_boxes_and_sends_a_lone_return();
    void a_file_chosen_soon_after_a_cancel_gets_its_second_part_early_on_plus_and_pro();

private:
    [[nodiscard]] bool is_lite() const { return tested == Switch_Model::lite; }
    [[nodiscard]] bool is_pro() const { return tested == Switch_Model::pro; }
    [[nodiscard]] QString path() const { return folder.filePath("unit.txt"); }
    void write_file(const QByteArray& text) const;
    /// Loads the file and waits until its second part has been applied.
    [[nodiscard]] bool load();

    Switch_Model tested = Switch_Model::lite;
    QTemporaryDir folder;
    std::unique_ptr<Window_Fixture> fixture;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

/// The unit whose file is shown in docs/settings-file.md.
Switch_State documented_unit() {
    Switch_State state;
    state.km_channel = 2;
    state.relative_mouse = true;
    state.cursor_rolling = true;
    state.custom_entries = {
        {{150, 300, "DESK"}, {100, 100, "WALL"}, {200, 200, "HALL"}, {500, 500, "ROOM"}}};
    state.resolutions = {1, 4, 10, 7};
    state.layout_positions = {1, 2, 5, 6};
    state.audio = {Audio_Routing::Mode::channels, {true, false, true, false}};
    return state;
}

constexpr char common_lines[] = "KM Control: //c2\n"
                                "USB Control: //u1\n"
                                "Limit Ports: //D4\n"
                                "Cursor Rolling: //o1\n"
                                "Mouse Parking: //MP 50 50\n"
                                "Resolution channel 1: //CE 1 1\n"
                                "Resolution channel 2: //CE 2 4\n"
                                "Resolution channel 3: //CE 3 10\n"
                                "Resolution channel 4: //CE 4 7\n"
                                "Custom mouse movement setting 1: //MM C1 150 300 DESK\n"
                                "Custom mouse movement setting 2: //MM C2 100 100 WALL\n"
                                "Custom mouse movement setting 3: //MM C3 200 200 HALL\n"
                                "Custom mouse movement setting 4: //MM C4 500 500 ROOM\n"
                                "Data from mouse movement label 1: 150 300 DESK\n"
                                "Data from mouse movement label 2: 100 100 WALL\n"
                                "Data from mouse movement label 3: 200 200 HALL\n"
                                "Data from mouse movement label 4: 500 500 ROOM\n"
                                "Grid settings: //FF01B01FF02B02FF03B05FF04B06\n"
                                "Coordinates channel 1: 0 0\n"
                                "Coordinates channel 2: 0 1\n"
                                "Coordinates channel 3: 1 0\n"
                                "Coordinates channel 4: 1 1\n"
                                "Buzzer: //B1\n"
                                "Mouse Mode: //km\n";

constexpr char audio_lines[] = "Audio settings: //a 1 3\n"
                               "Audio chacked state: 13\n";

} // namespace

void Test_Model_Settings::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    tested = model;
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(tested, *robot);
    fixture->device.unit().set_state(documented_unit());
    QFile::remove(path());
}

void Test_Model_Settings::cleanup() {
    fixture.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList{});
}

void Test_Model_Settings::write_file(const QByteArray& text) const {
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
}

bool Test_Model_Settings::load() {
    robot->expect({.class_name = "QFileDialog", .action = choose_file(path())});
    robot->expect({.class_name = "QMessageBox",
                   .text = "Settings file applied",
                   .action = press_button("OK")});
    fixture->button("pushButton_Load_Settings_File").click();
    return wait_until([this] { return robot->done(); }, 10'000);
}

void Test_Model_Settings::a_pro_file_sends_its_audio_command_on_the_pro_only() {
    QVERIFY(fixture->open_filled());
    write_file(QByteArray(common_lines) + audio_lines);
    fixture->device.clear_record();
    QVERIFY(load());
    QByteArrayList sent = fixture->commands();
    sent.removeAll("//BP"); // the unit's word on the layout is asked for in between
    QCOMPARE(sent.contains("//a 1 3"), is_pro());
    QVERIFY(!sent.contains("13"));
    QVERIFY(!sent.contains(""));
    QCOMPARE(sent.last(), QByteArray("//km"));
    if (is_pro()) {
        QVERIFY(find_child<QCheckBox>(fixture->window(), "checkBox_ch1").isChecked());
        QVERIFY(find_child<QCheckBox>(fixture->window(), "checkBox_ch3").isChecked());
    }
}

void Test_Model_Settings::a_file_without_audio_leaves_the_pros_boxes_and_sends_a_lone_return() {
    QVERIFY(fixture->open_filled());
    if (is_pro()) {
        const auto& box = find_child<QCheckBox>(fixture->window(), "checkBox_ch3");
        QVERIFY(wait_until([&] { return box.isChecked(); }));
    }
    write_file(common_lines);
    fixture->device.clear_record();
    QVERIFY(load());
    QCOMPARE(fixture->commands().count(QByteArray()), is_pro() ? 1 : 0);
    if (is_pro()) {
        QVERIFY(find_child<QCheckBox>(fixture->window(), "checkBox_ch1").isChecked());
        QVERIFY(find_child<QCheckBox>(fixture->window(), "checkBox_ch3").isChecked());
    }
}

void Test_Model_Settings::
    a_file_chosen_soon_after_a_cancel_gets_its_second_part_early_on_plus_and_pro() {
    QVERIFY(fixture->open_filled());
    write_file(common_lines);
    robot->expect({.class_name = "QFileDialog", .action = press_key(Qt::Key_Escape)});
    fixture->button("pushButton_Load_Settings_File").click();
    // The cancelled load's timer is running on Plus and Pro; it finds this file's first part.
    QTest::qWait(1000);
    robot->expect({.class_name = "QFileDialog", .action = choose_file(path())});
    const int boxes = !is_lite() ? 2 : 1;
    for (int i = 0; i < boxes; ++i) {
        robot->expect({.class_name = "QMessageBox",
                       .text = "Settings file applied",
                       .action = press_button("OK")});
    }
    fixture->button("pushButton_Load_Settings_File").click();
    QVERIFY(wait_until([this] { return robot->done(); }, 10'000));
}

int main(int argc, char** argv) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    Test_Model_Settings test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_model_settings.moc"
