// SPDX-License-Identifier: MIT

#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

/// The robot that answers modal widgets in all other tests.
class Test_Modal_Robot : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void a_fitting_message_box_is_answered_by_its_button();
    void each_wrong_property_is_a_failure_data();
    void each_wrong_property_is_a_failure();
    void an_unexpected_box_is_closed_and_recorded();
    void a_missing_box_leaves_the_robot_undone();
    void boxes_are_answered_in_their_order();
    void a_box_opened_by_an_action_is_answered_inside_it();
    void one_dialog_can_be_acted_on_twice();
    void a_dialog_left_open_is_closed_after_the_patience();
    void a_dialog_that_refuses_to_close_does_not_hang_the_test();
    void a_button_that_is_not_there_is_reported_with_those_that_are();
    void escape_rejects_a_dialog();
    void the_frame_close_reaches_the_close_event();
    void a_file_dialog_takes_a_typed_name();
    void a_dialog_shown_again_counts_as_a_new_one();
    void windows_left_names_what_is_visible();
};

namespace {

QMessageBox::StandardButton show_box(const QString& text) {
    QMessageBox box(QMessageBox::Warning, "Information", text,
                    QMessageBox::Ok | QMessageBox::Cancel);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

/// A dialog with a line edit and a button that opens a box.
class Asking_Dialog : public QDialog {
public:
    Asking_Dialog() {
        edit->setObjectName("edit");
        ask->setObjectName("ask");
        ask->move(0, 50);
        connect(ask, &QPushButton::clicked, this, [this] { answer = show_box("Really?"); });
        resize(300, 200);
    }

    void closeEvent(QCloseEvent* event) override {
        ++close_events;
        QDialog::closeEvent(event);
    }

    QLineEdit* edit = new QLineEdit(this);
    QPushButton* ask = new QPushButton("&Ask", this);
    int answer = 0;
    int close_events = 0;
};

class Stubborn_Dialog : public QDialog {
public:
    void reject() override {}
};

} // namespace

void Test_Modal_Robot::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_Modal_Robot::a_fitting_message_box_is_answered_by_its_button() {
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox",
                  .title = "Information",
                  .text = "Done",
                  .icon = QMessageBox::Warning,
                  .buttons = QStringList{"OK", "Cancel"},
                  .action = press_button("Cancel")});
    QCOMPARE(show_box("Done"), QMessageBox::Cancel);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(robot.snapshots().size(), 1);
    QCOMPARE(robot.snapshots().first().text, "Done");
}

void Test_Modal_Robot::each_wrong_property_is_a_failure_data() {
    QTest::addColumn<QString>("class_name");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("icon");
    QTest::addColumn<QString>("button");
    QTest::newRow("class") << "QFileDialog"
                           << "Information"
                           << "Done" << 2 << "OK";
    QTest::newRow("title") << "QMessageBox"
                           << "Other"
                           << "Done" << 2 << "OK";
    QTest::newRow("text") << "QMessageBox"
                          << "Information"
                          << "Undone" << 2 << "OK";
    QTest::newRow("icon") << "QMessageBox"
                          << "Information"
                          << "Done" << 1 << "OK";
    QTest::newRow("button") << "QMessageBox"
                            << "Information"
                            << "Done" << 2 << "Yes";
}

void Test_Modal_Robot::each_wrong_property_is_a_failure() {
    QFETCH(QString, class_name);
    QFETCH(QString, title);
    QFETCH(QString, text);
    QFETCH(int, icon);
    QFETCH(QString, button);
    Modal_Robot robot;
    robot.expect({.class_name = class_name,
                  .title = title,
                  .text = text,
                  .icon = static_cast<QMessageBox::Icon>(icon),
                  .buttons = QStringList{button, "Cancel"},
                  .action = press_button("OK")});
    show_box("Done");
    QVERIFY(!robot.done());
    QCOMPARE(robot.failures().size(), 1);
    QVERIFY(robot.failures().first().startsWith(QTest::currentDataTag()));
}

void Test_Modal_Robot::an_unexpected_box_is_closed_and_recorded() {
    Modal_Robot robot;
    show_box("Surprise");
    QVERIFY(!robot.done());
    QVERIFY2(QByteArray(robot.why()).contains("Surprise"), robot.why());
}

void Test_Modal_Robot::a_missing_box_leaves_the_robot_undone() {
    Modal_Robot robot;
    robot.expect({.text = "Never"});
    QVERIFY(!robot.done());
    QVERIFY2(QByteArray(robot.why()).contains("Never"), robot.why());
}

void Test_Modal_Robot::boxes_are_answered_in_their_order() {
    Modal_Robot robot;
    robot.expect({.text = "One", .action = press_button("OK")});
    robot.expect({.text = "Two", .action = press_button("Cancel")});
    QCOMPARE(show_box("One"), QMessageBox::Ok);
    QCOMPARE(show_box("Two"), QMessageBox::Cancel);
    QVERIFY2(robot.done(), robot.why());
}

void Test_Modal_Robot::a_box_opened_by_an_action_is_answered_inside_it() {
    Modal_Robot robot;
    robot.expect({.class_name = "QDialog",
                  .action = in_order({press_object("ask"), type_into("edit", "after"),
                                      press_key(Qt::Key_Escape)})});
    robot.expect({.text = "Really?", .action = press_button("Cancel")});
    Asking_Dialog dialog;
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(dialog.answer, static_cast<int>(QMessageBox::Cancel));
    QCOMPARE(dialog.edit->text(), "after");
}

void Test_Modal_Robot::one_dialog_can_be_acted_on_twice() {
    Modal_Robot robot;
    robot.expect({.class_name = "QDialog", .action = type_into("edit", "first")});
    robot.expect({.class_name = "QDialog", .action = press_key(Qt::Key_Escape)});
    Asking_Dialog dialog;
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(dialog.edit->text(), "first");
}

void Test_Modal_Robot::a_dialog_left_open_is_closed_after_the_patience() {
    Modal_Robot robot;
    robot.set_patience(std::chrono::milliseconds(50));
    robot.expect({.class_name = "QDialog", .action = leave_open()});
    Asking_Dialog dialog;
    dialog.exec();
    QVERIFY(robot.failures().value(0).startsWith("left open"));
}

void Test_Modal_Robot::a_dialog_that_refuses_to_close_does_not_hang_the_test() {
    Modal_Robot robot;
    Stubborn_Dialog dialog;
    dialog.exec();
    QVERIFY(robot.failures().value(0).startsWith("not expected"));
}

void Test_Modal_Robot::a_button_that_is_not_there_is_reported_with_those_that_are() {
    Modal_Robot robot;
    robot.expect({.class_name = "QDialog", .action = press_button("Tell")});
    Asking_Dialog dialog;
    dialog.exec();
    QVERIFY2(robot.failures().value(0).contains("\"Tell\""), robot.why());
    QVERIFY2(robot.failures().value(0).contains("\"Ask\" (ask)"), robot.why());
}

void Test_Modal_Robot::escape_rejects_a_dialog() {
    Modal_Robot robot;
    robot.expect({.class_name = "QDialog", .action = press_key(Qt::Key_Escape)});
    Asking_Dialog dialog;
    QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Rejected));
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(dialog.close_events, 0);
}

void Test_Modal_Robot::the_frame_close_reaches_the_close_event() {
    Modal_Robot robot;
    robot.expect({.class_name = "QDialog", .action = close_by_frame()});
    Asking_Dialog dialog;
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(dialog.close_events, 1);
}

void Test_Modal_Robot::a_file_dialog_takes_a_typed_name() {
    QTemporaryDir folder;
    const QString path = folder.filePath("settings.txt");
    Modal_Robot robot;
    robot.expect({.class_name = "QFileDialog", .title = "Save", .action = choose_file(path)});
    QCOMPARE(QFileDialog::getSaveFileName(nullptr, "Save", folder.path()), path);
    QVERIFY2(robot.done(), robot.why());
}

void Test_Modal_Robot::a_dialog_shown_again_counts_as_a_new_one() {
    Modal_Robot robot;
    robot.expect({.class_name = "QDialog", .action = press_key(Qt::Key_Escape)});
    robot.expect({.title = "other", .action = press_key(Qt::Key_Escape)});
    Asking_Dialog dialog;
    dialog.exec();
    dialog.exec();
    QVERIFY(robot.failures().value(0).startsWith("title"));
}

void Test_Modal_Robot::windows_left_names_what_is_visible() {
    QWidget window;
    window.setObjectName("forgotten");
    window.show();
    QCOMPARE(windows_left(), QStringList("QWidget forgotten"));
}

int main(int argc, char* argv[]) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    Test_Modal_Robot test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_modal_robot.moc"
