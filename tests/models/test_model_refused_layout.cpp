// SPDX-License-Identifier: MIT

#include "tests/support/layout_table.h"
#include "tests/support/modal_robot.h"
#include "tests/support/model_fixture.h"
#include "tests/support/wait_until.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// A layout with a cell outside the grid is refused: the tiles stay, and the marks of inactive
/// channels follow the port limit that came with it. On all three windows.
class Test_Model_Refused_Layout : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void a_report_marks_the_channels_of_its_limit();
    void a_file_marks_the_channels_of_its_limit();
    void a_file_takes_the_marks_away_with_its_limit();

private:
    [[nodiscard]] QString path() const { return folder.filePath("unit.txt"); }
    /// Loads a file with a limit and channel 3 below the grid, up to its last box, while the unit
    /// does not answer.
    [[nodiscard]] bool load_refused(const QByteArray& limit_command);
    /// The layout line of a settings file saved now.
    QByteArray saved_layout();

    QTemporaryDir folder;
    std::unique_ptr<Window_Fixture> fixture;
    std::unique_ptr<Modal_Robot> robot;
};

void Test_Model_Refused_Layout::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(model, *robot);
    QFile::remove(path());
}

void Test_Model_Refused_Layout::cleanup() {
    fixture.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList{});
}

bool Test_Model_Refused_Layout::load_refused(const QByteArray& limit_command) {
    QFile file(path());
    const QByteArray text = "KM Control: //c1\n"
                            "USB Control: //u1\n"
                            "Limit Ports: " +
                            limit_command +
                            "\n"
                            "Cursor Rolling: //o0\n"
                            "Mouse Parking: //MP 50 50\n"
                            "Resolution channel 1: //CE 1 1\n"
                            "Resolution channel 2: //CE 2 1\n"
                            "Resolution channel 3: //CE 3 1\n"
                            "Resolution channel 4: //CE 4 1\n"
                            "Custom mouse movement setting 1: //MM C1 150 300 DESK\n"
                            "Custom mouse movement setting 2: //MM C2 100 100 WALL\n"
                            "Custom mouse movement setting 3: //MM C3 200 200 HALL\n"
                            "Custom mouse movement setting 4: //MM C4 500 500 ROOM\n"
                            "Data from mouse movement label 1: 150 300 DESK\n"
                            "Data from mouse movement label 2: 100 100 WALL\n"
                            "Data from mouse movement label 3: 200 200 HALL\n"
                            "Data from mouse movement label 4: 500 500 ROOM\n"
                            "Grid settings: //FF01B05FF02B06FF03B17FF04B08\n"
                            "Coordinates channel 1: 1 0\n"
                            "Coordinates channel 2: 1 1\n"
                            "Coordinates channel 3: 4 0\n"
                            "Coordinates channel 4: 1 3\n"
                            "Buzzer: //B1\n"
                            "Mouse Mode: //ks\n";
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        return false;
    }
    file.close();
    // An answer to the layout command would make the tool read the layout back.
    Fault_Plan silence;
    silence.silence = true;
    fixture->device.set_faults(silence);
    robot->expect({.class_name = "QFileDialog", .action = choose_file(path())});
    robot->expect({.class_name = "QMessageBox",
                   .text = "Settings file applied",
                   .action = press_button("OK")});
    fixture->button("pushButton_Load_Settings_File").click();
    return wait_until([this] { return robot->done(); }, 10'000);
}

QByteArray Test_Model_Refused_Layout::saved_layout() {
    const QString saved = folder.filePath("saved.txt");
    QFile::remove(saved);
    robot->expect({.class_name = "QFileDialog", .action = choose_file(saved)});
    robot->expect(
        {.class_name = "QMessageBox", .text = "File saved", .action = press_button("OK")});
    fixture->button("pushButton_Create_Settings_File").click();
    QFile file(saved);
    if (!file.open(QIODevice::ReadOnly)) {
        return "no file";
    }
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("Grid settings: ")) {
            return line;
        }
    }
    return "no such line";
}

void Test_Model_Refused_Layout::a_report_marks_the_channels_of_its_limit() {
    Switch_State state;
    state.port_limit = 3;
    state.layout_positions = {5, 6, 7, 17};
    fixture->device.unit().set_state(state);
    QVERIFY(fixture->open_filled());
    QCOMPARE(fixture->combo("comboBox_Select_active_port").currentIndex(), 1);
    QCOMPARE(Layout_Table(*fixture).picture(), "123d/..../..../....");
    QCOMPARE(saved_layout(), QByteArray("Grid settings: //FF01B01FF02B02FF03B03FF03B04"));

    state.port_limit = 2;
    state.layout_positions = {0, 6, 7, 8};
    fixture->device.unit().set_state(state);
    QVERIFY(fixture->run_slot("refresh_UI"));
    QVERIFY(fixture->wait_filled());
    QCOMPARE(Layout_Table(*fixture).picture(), "12cd/..../..../....");
}

void Test_Model_Refused_Layout::a_file_marks_the_channels_of_its_limit() {
    QVERIFY(fixture->open_filled());
    QCOMPARE(Layout_Table(*fixture).picture(), "1234/..../..../....");
    QVERIFY2(load_refused("//D3"), robot->why());
    QCOMPARE(Layout_Table(*fixture).picture(), "123d/..../..../....");
    QCOMPARE(saved_layout(), QByteArray("Grid settings: //FF01B01FF02B02FF03B03FF03B04"));
    QVERIFY2(load_refused("//D2"), robot->why());
    QCOMPARE(Layout_Table(*fixture).picture(), "12cd/..../..../....");
}

void Test_Model_Refused_Layout::a_file_takes_the_marks_away_with_its_limit() {
    Switch_State state;
    state.port_limit = 2;
    fixture->device.unit().set_state(state);
    QVERIFY(fixture->open_filled());
    QCOMPARE(Layout_Table(*fixture).picture(), "12cd/..../..../....");
    QVERIFY2(load_refused("//D4"), robot->why());
    QCOMPARE(Layout_Table(*fixture).picture(), "1234/..../..../....");
    QCOMPARE(saved_layout(), QByteArray("Grid settings: //FF01B01FF02B02FF03B03FF04B04"));
}

int main(int argc, char** argv) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    Test_Model_Refused_Layout test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_model_refused_layout.moc"
