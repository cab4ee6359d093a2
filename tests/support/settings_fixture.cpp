// SPDX-License-Identifier: MIT

#include "tests/support/settings_fixture.h"

#include "tests/support/expect_box.h"
#include "tests/support/model_fixture.h"
#include "tests/support/wait_until.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QFile>

const QByteArrayList first_part_labels = {"KM Control: ",
                                          "Custom mouse movement setting 1: ",
                                          "Custom mouse movement setting 2: ",
                                          "Custom mouse movement setting 3: ",
                                          "Custom mouse movement setting 4: ",
                                          "Resolution channel 1: ",
                                          "Resolution channel 2: ",
                                          "Resolution channel 3: ",
                                          "Resolution channel 4: "};

Settings_Fixture::Settings_Fixture(Switch_Model switch_model)
    : model(switch_model), owned_fixture(make_model_fixture(switch_model, robot)) {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    qputenv("HOME", folder.path().toUtf8());
}

Settings_Fixture::~Settings_Fixture() { qputenv("HOME", earlier_home); }

bool Settings_Fixture::open_filled() {
    return window_fixture.open_filled() &&
           (!is_pro() || wait_until([this] { return !checked_audio_boxes().isEmpty(); }));
}

QString Settings_Fixture::checked_audio_boxes() const {
    QStringList checked;
    for (const char* name : {"ALL", "FOLLOW", "ch1", "ch2", "ch3", "ch4"}) {
        const auto* box =
            window_fixture.window().findChild<QCheckBox*>(QString("checkBox_") + name);
        if (is_pro() && box != nullptr && box->isChecked()) {
            checked.append(name);
        }
    }
    return checked.join(' ');
}

QString Settings_Fixture::path(const QString& name) const { return folder.filePath(name); }

QString Settings_Fixture::write(const QByteArray& content, const QString& name) const {
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("%s can't be written", qPrintable(path(name)));
    }
    return path(name);
}

QByteArray Settings_Fixture::read(const QString& file_path) {
    QFile file(file_path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

void Settings_Fixture::expect_saved_box() { expect_information(robot, "File saved"); }

void Settings_Fixture::expect_error_boxes(int count) {
    for (int i = 0; i < count; ++i) {
        expect_warning(robot, "Error in setting the interface");
    }
}

void Settings_Fixture::expect_applied_box() { expect_information(robot, "Settings file applied"); }

void Settings_Fixture::expect_file_dialog(const QString& title, const Modal_Action& action) {
    robot.expect({.class_name = "QFileDialog", .title = title, .action = action});
}

bool Settings_Fixture::save(const QString& file_path) {
    expect_file_dialog("Save Settings File", choose_file(file_path));
    expect_saved_box();
    window_fixture.button("pushButton_Create_Settings_File").click();
    return robot.done();
}

bool Settings_Fixture::load_first_part(const QString& file_path, int error_boxes) {
    expect_file_dialog("Select file", choose_file(file_path));
    expect_error_boxes(error_boxes);
    window_fixture.button("pushButton_Load_Settings_File").click();
    return robot.done();
}

bool Settings_Fixture::wait_for_second_part(int error_boxes, int mode_error_boxes) {
    expect_error_boxes(error_boxes + (is_pro() ? 0 : mode_error_boxes));
    expect_applied_box();
    expect_error_boxes(is_pro() ? mode_error_boxes : 0);
    return wait_until([this] { return robot.done(); }, 60'000);
}

void Settings_Fixture::silence_switch() {
    Fault_Plan plan;
    plan.silence = true;
    window_fixture.device.set_faults(plan);
}

QLineEdit& Settings_Fixture::custom_field(const QString& what) const {
    return window_fixture.line_edit("lineEdit_Mouse_Movement_" + what + (is_pro() ? "_2" : ""));
}

QPushButton& Settings_Fixture::custom_submit() const {
    return window_fixture.button(QString("pushButton_Submit_Custom_Mouse_Movement_Settings") +
                                 (is_pro() ? "_2" : ""));
}

QByteArrayList Settings_Fixture::start_commands() const {
    const QByteArrayList common = {"//rl", "//??", "//BP"};
    return is_pro() ? common + QByteArrayList{"//QA"} : common;
}

QByteArrayList Settings_Fixture::sent_before_box(const Settings_Lines& lines) const {
    const QByteArrayList common = {"USB Control: ",   "Limit Ports: ",   "Cursor Rolling: ",
                                   "Mouse Parking: ", "Grid settings: ", "Buzzer: "};
    return lines.values(is_pro() ? common : common + QByteArrayList{"Mouse Mode: "});
}

QByteArrayList Settings_Fixture::sent_after_box(const Settings_Lines& lines) const {
    return is_pro() ? lines.values({"Audio settings: ", "Mouse Mode: "}) : QByteArrayList();
}

Settings_Lines::Settings_Lines(Switch_Model model) {
    const std::pair<const char*, const char*> all[] = {
        {"KM Control: ", "//c2"},
        {"USB Control: ", "//u3"},
        {"Limit Ports: ", "//D3"},
        {"Cursor Rolling: ", "//o1"},
        {"Mouse Parking: ", "//MP 30 70"},
        {"Resolution channel 1: ", "//CE 1 2"},
        {"Resolution channel 2: ", "//CE 2 13"},
        {"Resolution channel 3: ", "//CE 3 10"},
        {"Resolution channel 4: ", "//CE 4 9"},
        {"Custom mouse movement setting 1: ", "//MM C1 150 300 BANK"},
        {"Custom mouse movement setting 2: ", "//MM C2 101 102 TREE"},
        {"Custom mouse movement setting 3: ", "//MM C3 201 202 LAMP"},
        {"Custom mouse movement setting 4: ", "//MM C4 500 499 SOFA"},
        {"Data from mouse movement label 1: ", "150 300 BANK"},
        {"Data from mouse movement label 2: ", "101 102 TREE"},
        {"Data from mouse movement label 3: ", "201 202 LAMP"},
        {"Data from mouse movement label 4: ", "500 499 SOFA"},
        {"Grid settings: ", "//FF01B06FF02B07FF03B10FF03B11"},
        {"Coordinates channel 1: ", "1 1"},
        {"Coordinates channel 2: ", "1 2"},
        {"Coordinates channel 3: ", "2 1"},
        {"Coordinates channel 4: ", "2 2"},
        {"Buzzer: ", "//B0"},
        {"Mouse Mode: ", "//km"},
    };
    for (const auto& [label, value] : all) {
        labels.append(label);
        lines[label] = value;
    }
    if (model == Switch_Model::pro) {
        labels += {"Audio settings: ", "Audio chacked state: "};
        lines["Audio settings: "] = "//a 2 4";
        lines["Audio chacked state: "] = "24";
    }
}

QByteArray& Settings_Lines::operator[](const QByteArray& label) {
    if (!lines.contains(label)) {
        qFatal("no line %s", label.constData());
    }
    return lines[label];
}

void Settings_Lines::remove(const QByteArray& label) { labels.removeAll(label); }

QByteArray Settings_Lines::text(const QByteArray& line_end) const {
    QByteArray whole;
    for (const QByteArray& label : labels) {
        whole += label + lines[label] + line_end;
    }
    return whole;
}

QByteArray Settings_Lines::reversed_text() const {
    QByteArray whole;
    for (const QByteArray& label : labels) {
        whole.prepend(label + lines[label] + '\n');
    }
    return whole;
}

QByteArrayList Settings_Lines::values(const QByteArrayList& wanted) const {
    QByteArrayList found;
    for (const QByteArray& label : wanted) {
        found.append(labels.contains(label) ? lines[label] : QByteArray());
    }
    return found;
}
