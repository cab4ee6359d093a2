// SPDX-License-Identifier: MIT

#include "tests/support/model_fixture.h"
#include "tests/support/own_display.h"
#include "tests/support/wait_until.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QProcess>
#include <QTest>

/// The warning about a mouse parking value, and the click that leaves the field: with the mouse and
/// the keyboard of a real X server, on all three models.
class Test_Range_Warning : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void a_click_on_a_button_does_its_work_before_the_box_opens_data();
    void a_click_on_a_button_does_its_work_before_the_box_opens();
    void a_click_on_a_list_lets_choose_before_the_box_opens_data() { add_model_rows(); }
    void a_click_on_a_list_lets_choose_before_the_box_opens();
    void a_click_that_opens_a_dialog_lets_answer_before_the_box_opens_data() { add_model_rows(); }
    void a_click_that_opens_a_dialog_lets_answer_before_the_box_opens();
    void tab_and_return_open_the_box_at_once_data();
    void tab_and_return_open_the_box_at_once();
    void a_window_closed_by_its_frame_shows_no_box_data() { add_model_rows(); }
    void a_window_closed_by_its_frame_shows_no_box();
    void a_click_by_which_the_window_closes_shows_no_box_data() { add_model_rows(); }
    void a_click_by_which_the_window_closes_shows_no_box();

private:
    void open_with_500_typed(Switch_Model model, const QString& field = "lineEdit_MouseParking_x");

    const Real_Time time; ///< the display's
    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Window_Fixture> fixture;
};

namespace {

constexpr int max_wait = 20'000;

constexpr std::pair<const char*, Switch_Model> models[] = {
    {"Lite", Switch_Model::lite}, {"Plus", Switch_Model::plus}, {"Pro", Switch_Model::pro}};

bool x11_input(const QStringList& words) { return QProcess::execute("xdotool", words) == 0; }

/// Whether the window manager takes this window for the active one, and so gives it the keys.
bool is_active_for_manager(const QByteArray& window) {
    QProcess xdotool;
    xdotool.start("xdotool", {"getactivewindow"});
    return xdotool.waitForFinished() && xdotool.readAll().trimmed() == window;
}

bool move_to(const QWidget& widget) {
    const QPoint spot = widget.mapToGlobal(widget.rect().center());
    return x11_input({"mousemove", QString::number(spot.x()), QString::number(spot.y())});
}

Modal_Expectation range_warning(const Modal_Action& action = press_button("OK")) {
    return {.class_name = "QMessageBox",
            .title = "Information",
            .text = "Mouse Parking Range is between 0-100",
            .icon = QMessageBox::Warning,
            .buttons = QStringList{"OK"},
            .action = action};
}

/// Waits for everything that is pending.
void settle() {
    for (int round = 0; round < 50; ++round) {
        QTest::qWait(1);
    }
}

} // namespace

void Test_Range_Warning::cleanup() {
    (void)x11_input({"mouseup", "1"});
    fixture.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Range_Warning::open_with_500_typed(Switch_Model model, const QString& field) {
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(model, *robot);
    QVERIFY(fixture->open_filled());
    const QByteArray window = QByteArray::number(fixture->window().winId());
    const auto is_active = [&] {
        return fixture->window().isActiveWindow() && is_active_for_manager(window);
    };
    // Repeated, because the window manager ignores a request while it is busy with the window.
    QVERIFY(wait_until(
        [&] {
            return is_active() || (x11_input({"windowactivate", window}), false);
        },
        max_wait));
    QLineEdit& line_edit = fixture->line_edit(field);
    QVERIFY(move_to(line_edit));
    QVERIFY(x11_input({"click", "1"}));
    QVERIFY(wait_until([&] { return line_edit.hasFocus(); }, max_wait));
    QVERIFY(x11_input({"key", "ctrl+a", "5", "0", "0"}));
    QVERIFY(wait_until([&] { return line_edit.text() == "500"; }, max_wait));
}

void Test_Range_Warning::a_click_on_a_button_does_its_work_before_the_box_opens_data() {
    QTest::addColumn<Switch_Model>("model");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QByteArray>("command");
    for (const auto& [name, model] : models) {
        QTest::addRow("%s Apply behind x", name)
            << model << "lineEdit_MouseParking_x"
            << "pushButton_Apply_mouse_parking" << QByteArray("//MP 500 50");
        QTest::addRow("%s Apply behind y", name)
            << model << "lineEdit_MouseParking_y"
            << "pushButton_Apply_mouse_parking" << QByteArray("//MP 50 500");
        QTest::addRow("%s Soft Reset", name) << model << "lineEdit_MouseParking_x"
                                             << "pushButton_Soft_Reset" << QByteArray("//R");
    }
}

void Test_Range_Warning::a_click_on_a_button_does_its_work_before_the_box_opens() {
    QFETCH(Switch_Model, model);
    QFETCH(QString, field);
    QFETCH(QString, button);
    QFETCH(QByteArray, command);
    open_with_500_typed(model, field);
    QPushButton& clicked = fixture->button(button);
    bool is_pressed_under_the_box = true;
    QByteArrayList before_the_box;
    robot->expect(range_warning([&](QWidget& box) {
        is_pressed_under_the_box = clicked.isDown();
        before_the_box = fixture->commands();
        return press_button("OK")(box);
    }));

    QVERIFY(move_to(clicked));
    QVERIFY(x11_input({"mousedown", "1"}));
    QVERIFY(wait_until([&] { return clicked.isDown(); }, max_wait));
    settle();
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
    QVERIFY(x11_input({"mouseup", "1"}));

    QVERIFY(wait_until([&] { return robot->done(); }, max_wait));
    QVERIFY(!is_pressed_under_the_box);
    QCOMPARE(before_the_box, QByteArrayList{command});
    QCOMPARE(fixture->line_edit(field).text(), "500");
}

void Test_Range_Warning::a_click_on_a_list_lets_choose_before_the_box_opens() {
    QFETCH(Switch_Model, model);
    open_with_500_typed(model);
    QComboBox& list = fixture->combo("comboBox_USB_Control");
    QCOMPARE(list.currentText(), "1");
    QByteArrayList before_the_box;
    robot->expect(range_warning([&](QWidget& box) {
        before_the_box = fixture->commands();
        return press_button("OK")(box);
    }));

    QVERIFY(move_to(list));
    QVERIFY(x11_input({"click", "1"}));
    QVERIFY(wait_until([&] { return list.view()->isVisible(); }, max_wait));
    settle();
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
    QVERIFY(list.view()->isVisible());
    QVERIFY(x11_input({"key", "End", "Return"}));

    QVERIFY(wait_until([&] { return robot->done(); }, max_wait));
    QCOMPARE(before_the_box, QByteArrayList{"//u4"});
}

void Test_Range_Warning::a_click_that_opens_a_dialog_lets_answer_before_the_box_opens() {
    QFETCH(Switch_Model, model);
    open_with_500_typed(model);
    robot->expect({.class_name = "Yes_No_Dialog", .action = press_button("Cancel")});
    robot->expect(range_warning());
    QVERIFY(move_to(fixture->button("pushButton_Factory_Reset")));
    QVERIFY(x11_input({"click", "1"}));
    QVERIFY(wait_until([&] { return robot->done(); }, max_wait));
    QCOMPARE(fixture->commands(), QByteArrayList());
}

void Test_Range_Warning::tab_and_return_open_the_box_at_once_data() {
    QTest::addColumn<Switch_Model>("model");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("keeps_focus");
    for (const auto& [name, model] : models) {
        QTest::addRow("%s Return", name) << model << Qt::Key_Return << true;
        QTest::addRow("%s Tab", name) << model << Qt::Key_Tab << false;
    }
}

void Test_Range_Warning::tab_and_return_open_the_box_at_once() {
    QFETCH(Switch_Model, model);
    QFETCH(Qt::Key, key);
    QFETCH(bool, keeps_focus);
    open_with_500_typed(model);
    QLineEdit& field = fixture->line_edit("lineEdit_MouseParking_x");
    robot->expect(range_warning());
    QTest::keyClick(&field, key);
    // The key's own event was waiting while the box was open.
    QVERIFY2(robot->done(), robot->why());
    // The widget that gets the keys once the window is active again.
    QCOMPARE(fixture->window().focusWidget() == &field, keeps_focus);
}

void Test_Range_Warning::a_window_closed_by_its_frame_shows_no_box() {
    QFETCH(Switch_Model, model);
    open_with_500_typed(model);
    QVERIFY(x11_input({"key", "alt+F4"}));
    QVERIFY(wait_until([&] { return !fixture->window().isVisible(); }, max_wait));
    settle();
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
}

void Test_Range_Warning::a_click_by_which_the_window_closes_shows_no_box() {
    QFETCH(Switch_Model, model);
    open_with_500_typed(model);
    QPushButton& clicked = fixture->button("pushButton_Soft_Reset");
    connect(&clicked, &QPushButton::pressed, &fixture->window(), &QWidget::close);
    QVERIFY(move_to(clicked));
    QVERIFY(x11_input({"click", "1"}));
    QVERIFY(wait_until([&] { return !fixture->window().isVisible(); }, max_wait));
    settle();
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
}

int main(int argc, char** argv) {
    if (!is_on_own_display()) {
        return run_on_own_display(argc, argv);
    }
    QApplication application(argc, argv);
    // A closed window does not end the test.
    QApplication::setQuitOnLastWindowClosed(false);
    Test_Range_Warning test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_range_warning.moc"
