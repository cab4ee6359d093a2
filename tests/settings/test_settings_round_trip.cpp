// SPDX-License-Identifier: MIT

#include "tests/settings/untimed_window.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <numeric>
#include <random>

/// Settings saved from one unit and loaded into another, over many random states, with a fixed
/// seed.
class Test_Settings_Round_Trip : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();

    void what_a_file_carries_arrives_in_widgets_and_unit_data();
    void what_a_file_carries_arrives_in_widgets_and_unit();

private:
    [[nodiscard]] bool save_from_source(const QString& path);
    [[nodiscard]] bool load_into_target(const QString& path);
    /// The content of a window's widgets, one text for each.
    QStringList widget_texts(const Untimed_Window& window) const;

    QTemporaryDir folder;
    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Untimed_Window> source;
    std::unique_ptr<Untimed_Window> target;
};

namespace {

constexpr int batches = 10;
constexpr int states_per_batch = 50;

class Random_States {
public:
    explicit Random_States(unsigned int seed) : generator(seed) {}

    Switch_State next() {
        Switch_State state;
        state.km_channel = number(1, 4);
        state.usb_channel = number(1, 4);
        state.relative_mouse = number(0, 1) == 1;
        state.port_limit = number(2, 4);
        state.cursor_rolling = number(0, 1) == 1;
        state.parking_x = number(0, 100);
        state.parking_y = number(0, 100);
        state.buzzer = number(0, 1) == 1;
        for (Custom_Entry& entry : state.custom_entries) {
            entry = {number(1, 500), number(1, 500), name()};
        }
        for (int& resolution : state.resolutions) {
            resolution = number(1, 13);
        }
        std::array<int, 16> cells = {};
        std::iota(cells.begin(), cells.end(), 1);
        std::shuffle(cells.begin(), cells.end(), generator);
        std::copy_n(cells.begin(), 4, state.layout_positions.begin());
        return state;
    }

private:
    int number(int low, int high) { return std::uniform_int_distribution(low, high)(generator); }

    /// Up to ten letters, digits, signs and inner blanks.
    QByteArray name() {
        static const QByteArray signs = "ABCXYZabcxyz0189-_.,%&<> ";
        QByteArray text;
        for (int length = number(0, 10); length > 0; --length) {
            text += signs.at(number(0, static_cast<int>(signs.size()) - 1));
        }
        return text.trimmed();
    }

    std::mt19937 generator;
};

QByteArray without_blanks(QByteArray text) { return text.replace(" ", ""); }

/// The state of the other unit after a load: the file of a Lite does not contain everything.
Switch_State expected_unit(const Switch_State& saved, const Switch_State& before) {
    Switch_State state = saved;
    state.hotkey_trigger = before.hotkey_trigger;
    // The mode follows the channel of keyboard and mouse.
    state.relative_mouse = saved.km_channel != 1;
    // The command of an entry takes the name from the list, which drops blanks.
    for (Custom_Entry& entry : state.custom_entries) {
        entry.name = without_blanks(entry.name);
    }
    // Gray channels are both written as channel 3: the last one counts, channel 4 is unchanged.
    if (saved.port_limit < 4) {
        state.layout_positions[2] = saved.layout_positions[3];
        state.layout_positions[3] = before.layout_positions[3];
    }
    return state;
}

/// All that a file can contain, one text for each setting.
QStringList unit_texts(const Switch_State& state) {
    QStringList texts = {QString("km %1 usb %2 limit %3")
                             .arg(state.km_channel)
                             .arg(state.usb_channel)
                             .arg(state.port_limit),
                         QString("relative %1 rolling %2 buzzer %3")
                             .arg(state.relative_mouse)
                             .arg(state.cursor_rolling)
                             .arg(state.buzzer),
                         QString("parking %1 %2").arg(state.parking_x).arg(state.parking_y),
                         "hotkey " + state.hotkey_trigger};
    for (const Custom_Entry& entry : state.custom_entries) {
        texts.append(QString("%1 %2 [").arg(entry.x_speed).arg(entry.y_speed) + entry.name + ']');
    }
    for (const int resolution : state.resolutions) {
        texts.append("resolution " + QString::number(resolution));
    }
    for (const int position : state.layout_positions) {
        texts.append("position " + QString::number(position));
    }
    return texts;
}

} // namespace

void Test_Settings_Round_Trip::initTestCase() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    robot = std::make_unique<Modal_Robot>();
    source = std::make_unique<Untimed_Window>();
    target = std::make_unique<Untimed_Window>();
    QVERIFY(target->read_unit());
}

void Test_Settings_Round_Trip::cleanupTestCase() {
    source.reset();
    target.reset();
    QCOMPARE(windows_left(), QStringList());
}

void Test_Settings_Round_Trip::cleanup() { QVERIFY2(robot->done(), robot->why()); }

bool Test_Settings_Round_Trip::save_from_source(const QString& path) {
    QFile::remove(path);
    robot->expect({.class_name = "QFileDialog", .action = choose_file(path)});
    robot->expect({.class_name = "QMessageBox", .text = "File saved"});
    source->controller().settings.create_settings_file();
    // The answer to the save's own question must not be mistaken for the next report.
    return robot->done() && source->wait_until_obeyed();
}

bool Test_Settings_Round_Trip::load_into_target(const QString& path) {
    robot->expect({.class_name = "QFileDialog", .action = choose_file(path)});
    target->controller().settings.load_settings_file();
    if (!robot->done() || !target->wait_until_obeyed()) {
        return false;
    }
    robot->expect({.class_name = "QMessageBox", .text = "Settings file applied"});
    target->controller().settings.load_second_part_of_settings();
    return robot->done() && target->wait_until_obeyed();
}

QStringList Test_Settings_Round_Trip::widget_texts(const Untimed_Window& window) const {
    QStringList texts;
    for (const char* name :
         {"comboBox_KM_Control", "comboBox_USB_Control", "comboBox_Select_active_port",
          "comboBox_Enable_or_Disable_Cursor_Roll", "comboBox_mouse_movement_resolution_setting_1",
          "comboBox_mouse_movement_resolution_setting_2",
          "comboBox_mouse_movement_resolution_setting_3",
          "comboBox_mouse_movement_resolution_setting_4"}) {
        const auto& combo = static_cast<QComboBox&>(window.widget(name));
        texts.append(QString("%1 %2 of %3 %4")
                         .arg(name)
                         .arg(combo.currentIndex())
                         .arg(combo.count())
                         .arg(combo.currentText()));
    }
    for (int number = 1; number <= 4; ++number) {
        const QString name = "label_Custom_" + QString::number(number);
        texts.append(static_cast<QLabel&>(window.widget(name)).text());
        texts.append(window.controller().layout.get_channel_coordinates("Channel " +
                                                                        QString::number(number)));
    }
    for (const char* name : {"lineEdit_Mouse_Movement_X", "lineEdit_Mouse_Movement_Y",
                             "lineEdit_Mouse_Movement_Name", "lineEdit_MouseParking_x"}) {
        texts.append(static_cast<QLineEdit&>(window.widget(name)).text());
    }
    texts.append(window.controller().layout.get_grid_command());
    texts.append(window.controller().configuration.get_buzzer_command());
    return texts;
}

void Test_Settings_Round_Trip::what_a_file_carries_arrives_in_widgets_and_unit_data() {
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= batches; ++seed) {
        QTest::addRow("%d states of seed %u", states_per_batch, seed) << seed;
    }
}

void Test_Settings_Round_Trip::what_a_file_carries_arrives_in_widgets_and_unit() {
    QFETCH(const unsigned int, seed);
    Random_States states(seed);
    const QString path = folder.filePath("settings.txt");
    for (int round = 0; round < states_per_batch; ++round) {
        const Switch_State saved = states.next();
        source->device.unit().set_state(saved);
        QVERIFY(source->read_unit());
        const Switch_State before = target->device.unit().state();
        QVERIFY2(save_from_source(path), robot->why());
        QVERIFY2(load_into_target(path), robot->why());

        QCOMPARE(unit_texts(target->device.unit().state()),
                 unit_texts(expected_unit(saved, before)));
        QCOMPARE(widget_texts(*target), widget_texts(*source));
        // The two expected differences: the blank before Y, and the mode of a Lite.
        QCOMPARE(static_cast<QLineEdit&>(target->widget("lineEdit_MouseParking_y")).text(),
                 ' ' + QString::number(saved.parking_y));
        QCOMPARE(
            static_cast<QComboBox&>(target->widget("comboBox_Select_Display_Mode")).currentIndex(),
            saved.km_channel == 1 ? 0 : 1);
    }
}

QTEST_MAIN(Test_Settings_Round_Trip)

#include "test_settings_round_trip.moc"
