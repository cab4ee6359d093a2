// SPDX-License-Identifier: MIT

#include "app/yes_no_dialog.h"
#include "tests/support/find_child.h"
#include "tests/support/modal_robot.h"

#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QTest>

/// The yes-or-no dialog.
class Test_Yes_No_Dialog : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void it_has_its_fixed_look();
    void it_shows_the_question_and_the_captions_it_was_given();
    void markup_in_the_question_is_shown_as_its_characters();
    void each_end_leaves_its_own_result_data();
    void each_end_leaves_its_own_result();
    void a_frame_close_outside_of_a_run_counts_as_cancel_too();
    void without_an_answer_the_result_is_null();
    void the_last_answer_counts();
};

void Test_Yes_No_Dialog::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_Yes_No_Dialog::it_has_its_fixed_look() {
    const Yes_No_Dialog dialog("Question?", "Yes", "No");
    QCOMPARE(dialog.windowTitle(), "Halvern");
    QCOMPARE(dialog.minimumSize(), QSize(312, 100));
    QCOMPARE(dialog.maximumSize(), QSize(312, 100));
    QVERIFY(!dialog.windowIcon().isNull());
    QCOMPARE(dialog.windowIcon().pixmap(32).toImage(),
             QIcon(":/img/logos/icon_logo_Velmoran.png").pixmap(32).toImage());
}

void Test_Yes_No_Dialog::it_shows_the_question_and_the_captions_it_was_given() {
    const Yes_No_Dialog dialog("Perform factory reset?", "Confirm", "Stop");
    QCOMPARE(find_child<QLabel>(dialog, "label_message").text(), "Perform factory reset?");
    QCOMPARE(find_child<QPushButton>(dialog, "pushButton_OK").text(), "Confirm");
    QCOMPARE(find_child<QPushButton>(dialog, "pushButton_Cancel").text(), "Stop");
}

void Test_Yes_No_Dialog::markup_in_the_question_is_shown_as_its_characters() {
    const Yes_No_Dialog dialog("<b>Reset</b>?", "Yes", "No");
    const QLabel& label = find_child<QLabel>(dialog, "label_message");
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QCOMPARE(label.text(), "<b>Reset</b>?");
}

void Test_Yes_No_Dialog::each_end_leaves_its_own_result_data() {
    QTest::addColumn<Modal_Action>("action");
    QTest::addColumn<QString>("result");
    QTest::newRow("OK") << press_object("pushButton_OK") << "OK";
    QTest::newRow("Cancel") << press_object("pushButton_Cancel") << "Cancel";
    QTest::newRow("frame") << close_by_frame() << "Cancel";
    QTest::newRow("Escape") << press_key(Qt::Key_Escape) << QString();
}

void Test_Yes_No_Dialog::each_end_leaves_its_own_result() {
    QFETCH(Modal_Action, action);
    QFETCH(QString, result);
    Yes_No_Dialog dialog("Perform factory reset?", "Confirm", "Cancel");
    Modal_Robot robot;
    robot.expect({.class_name = "Yes_No_Dialog",
                  .title = "Halvern",
                  .text = "Perform factory reset?",
                  .buttons = QStringList{"Confirm", "Cancel"},
                  .action = action});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(dialog.get_result_text(), result);
    QCOMPARE(dialog.get_result_text().isNull(), result.isNull());
    QVERIFY(dialog.isHidden());
}

void Test_Yes_No_Dialog::a_frame_close_outside_of_a_run_counts_as_cancel_too() {
    Yes_No_Dialog dialog("Question?", "Yes", "No");
    dialog.show();
    dialog.close();
    QCOMPARE(dialog.get_result_text(), "Cancel");
}

void Test_Yes_No_Dialog::without_an_answer_the_result_is_null() {
    const Yes_No_Dialog dialog("Question?", "Yes", "No");
    QVERIFY(dialog.get_result_text().isNull());
}

void Test_Yes_No_Dialog::the_last_answer_counts() {
    Yes_No_Dialog dialog("Perform factory reset?", "Confirm", "Cancel");
    Modal_Robot robot;
    robot.expect({.action = press_object("pushButton_OK")});
    robot.expect({.action = close_by_frame()});
    dialog.exec();
    QCOMPARE(dialog.get_result_text(), "OK");
    dialog.exec();
    QCOMPARE(dialog.get_result_text(), "Cancel");
    QVERIFY2(robot.done(), robot.why());
}

QTEST_MAIN(Test_Yes_No_Dialog)

#include "test_yes_no_dialog.moc"
