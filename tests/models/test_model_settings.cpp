// SPDX-License-Identifier: MIT

#include "tests/support/find_child.h"
#include "tests/support/modal_robot.h"
#include "tests/support/model_fixture.h"
#include "tests/support/sample_units.h"
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
    write_file(QByteArray(documented_lines) + documented_audio_lines);
    fixture->device.clear_record();
    QVERIFY(load());
    QByteArrayList sent = fixture->commands();
    sent.removeAll("//BP"); // sent in between to read the layout back
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
    write_file(documented_lines);
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
    write_file(documented_lines);
    robot->expect({.class_name = "QFileDialog", .action = press_key(Qt::Key_Escape)});
    fixture->button("pushButton_Load_Settings_File").click();
    // The cancelled load's timer is running on Plus and Pro; it meets this file's first part.
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
