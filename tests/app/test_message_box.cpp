// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "app/message_box.h"
#include "tests/support/find_child.h"
#include "tests/support/log_folder.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <stdexcept>

/// The common look of all message boxes, and the common handling of all failures.
class Test_Message_Box : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void a_box_has_the_common_look_whatever_its_icon_data();
    void a_box_has_the_common_look_whatever_its_icon();
    void setting_the_look_shows_the_box_and_does_not_wait();
    void an_information_box_is_modal_and_waits_for_ok();
    void an_information_box_is_gone_after_ok();
    void a_text_is_cut_at_its_first_nul_data();
    void a_text_is_cut_at_its_first_nul();
    void markup_is_shown_as_its_characters();
    void events_are_served_while_a_box_is_open();
    void a_second_box_can_open_over_the_first();
    void a_failure_is_in_the_log_before_its_box_opens();
    void a_failure_shows_its_text_with_the_warning_icon();
    void a_failure_needs_no_open_log();
    void a_step_without_an_exception_reports_nothing();
    void every_kind_of_exception_is_reported_once();
};

namespace {

QImage window_icon_image(const QWidget& widget) { return widget.windowIcon().pixmap(32).toImage(); }

/// The label in which a message box shows its text.
QLabel& text_label(const QWidget& box) { return find_child<QLabel>(box, "qt_msgbox_label"); }

} // namespace

void Test_Message_Box::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_Message_Box::a_box_has_the_common_look_whatever_its_icon_data() {
    QTest::addColumn<int>("icon");
    QTest::newRow("information") << 1;
    QTest::newRow("warning") << 2;
}

void Test_Message_Box::a_box_has_the_common_look_whatever_its_icon() {
    QFETCH(int, icon);
    QMessageBox box;
    set_message_box_look("Enter name of setting", icon, &box);
    QCOMPARE(box.font().family(), "Segoe UI");
    QCOMPARE(box.font().pointSize(), 12);
    QCOMPARE(box.font().weight(), QFont::Normal);
    QVERIFY(!box.font().italic());
    QCOMPARE(box.windowTitle(), "Information");
    QCOMPARE(window_icon_image(box),
             QIcon(":/img/logos/icon_logo_Velmoran.png").pixmap(32).toImage());
    QVERIFY(!window_icon_image(box).isNull());
    QCOMPARE(box.standardButtons(), QMessageBox::Ok);
    QCOMPARE(box.buttons().size(), 1);
    QCOMPARE(static_cast<int>(box.icon()), icon);
    QCOMPARE(box.text(), "Enter name of setting");
    QCOMPARE(text_label(box).font().pointSize(), 12);
}

void Test_Message_Box::setting_the_look_shows_the_box_and_does_not_wait() {
    QMessageBox box;
    set_message_box_look("Please wait for changes to be made", QMessageBox::Information, &box);
    QVERIFY(box.isVisible());
    QCOMPARE(box.result(), 0);
}

void Test_Message_Box::an_information_box_is_modal_and_waits_for_ok() {
    bool returned = false;
    bool returned_before_ok = true;
    bool has_parent = true;
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox",
                  .title = "Information",
                  .text = "Mouse Parking Range is between 0-100",
                  .icon = QMessageBox::Warning,
                  .buttons = QStringList{"OK"},
                  .action = [&](QWidget& box) {
                      returned_before_ok = returned;
                      has_parent = box.parentWidget() != nullptr;
                      return press_button("OK")(box);
                  }});
    show_information_box("Mouse Parking Range is between 0-100", QMessageBox::Warning);
    returned = true;
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(!returned_before_ok);
    QVERIFY(!has_parent);
}

void Test_Message_Box::an_information_box_is_gone_after_ok() {
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox", .action = press_button("OK")});
    show_information_box("Done", QMessageBox::Information);
    QVERIFY2(robot.done(), robot.why());
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        QVERIFY(!widget->inherits("QMessageBox"));
    }
}

void Test_Message_Box::a_text_is_cut_at_its_first_nul_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const QString nul(QChar(0));
    QTest::newRow("no NUL") << QString::fromUtf8("größer als 500 €")
                            << QString::fromUtf8("größer als 500 €");
    QTest::newRow("in the middle") << "seen" + nul + "lost"
                                   << "seen";
    QTest::newRow("two") << "seen" + nul + "lost" + nul + "lost"
                         << "seen";
    QTest::newRow("first") << nul + "lost"
                           << "";
    QTest::newRow("empty") << ""
                           << "";
}

void Test_Message_Box::a_text_is_cut_at_its_first_nul() {
    QFETCH(QString, text);
    QFETCH(QString, shown);
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox", .text = shown, .action = press_button("OK")});
    show_information_box(text, QMessageBox::Information);
    QVERIFY2(robot.done(), robot.why());
}

void Test_Message_Box::markup_is_shown_as_its_characters() {
    const QString markup = "<b>Bold</b> <img src=\"x\"> &lt;";
    Qt::TextFormat label_format = Qt::AutoText;
    QString label_text;
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox", .text = markup, .action = [&](QWidget& box) {
                      label_format = text_label(box).textFormat();
                      label_text = text_label(box).text();
                      return press_button("OK")(box);
                  }});
    show_information_box(markup, QMessageBox::Warning);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(robot.snapshots().first().text_format, Qt::PlainText);
    QCOMPARE(label_format, Qt::PlainText);
    QCOMPARE(label_text, markup);
}

void Test_Message_Box::events_are_served_while_a_box_is_open() {
    bool timer_fired = false;
    bool fired_while_open = false;
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox", .action = leave_open()});
    QTimer::singleShot(20, this, [&] {
        timer_fired = true;
        QWidget* box = QApplication::activeModalWidget();
        fired_while_open = box != nullptr && box->isVisible();
        if (box != nullptr) {
            press_button("OK")(*box);
        }
    });
    show_information_box("Open", QMessageBox::Information);
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(timer_fired);
    QVERIFY(fired_while_open);
}

void Test_Message_Box::a_second_box_can_open_over_the_first() {
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox", .text = "first", .action = [](QWidget& box) {
                      show_information_box("second", QMessageBox::Warning);
                      return press_button("OK")(box);
                  }});
    robot.expect({.class_name = "QMessageBox", .text = "second", .action = press_button("OK")});
    show_information_box("first", QMessageBox::Warning);
    QVERIFY2(robot.done(), robot.why());
}

void Test_Message_Box::a_failure_is_in_the_log_before_its_box_opens() {
    const Log_Folder folder;
    open_log();
    QStringList entries_behind_box;
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox", .action = [&](QWidget& box) {
                      entries_behind_box = folder.entries();
                      return press_button("OK")(box);
                  }});
    report_failure("Write data error");
    close_log();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(entries_behind_box, QStringList{"Write data error"});
    QCOMPARE(folder.entries(), QStringList{"Write data error"});
}

void Test_Message_Box::a_failure_shows_its_text_with_the_warning_icon() {
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox",
                  .title = "Information",
                  .text = "Search USR error",
                  .icon = QMessageBox::Warning,
                  .buttons = QStringList{"OK"},
                  .action = press_button("OK")});
    report_failure("Search USR error");
    QVERIFY2(robot.done(), robot.why());
}

void Test_Message_Box::a_failure_needs_no_open_log() {
    const Log_Folder folder;
    Modal_Robot robot;
    robot.expect({.text = "Bytes converting error", .action = press_button("OK")});
    report_failure("Bytes converting error");
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(!folder.has_log());
}

void Test_Message_Box::a_step_without_an_exception_reports_nothing() {
    QCOMPARE(report_exceptions(
                 "Get gateway error", [] { return 7; }, -1),
             7);
}

void Test_Message_Box::every_kind_of_exception_is_reported_once() {
    Modal_Robot robot;
    for (int i = 0; i < 2; ++i) {
        robot.expect({.text = "Get gateway error",
                      .icon = QMessageBox::Warning,
                      .action = press_button("OK")});
    }
    const auto standard = []() -> int { throw std::out_of_range("far"); };
    const auto other = []() -> int { throw "text"; };
    QCOMPARE(report_exceptions("Get gateway error", standard, -1), -1);
    QCOMPARE(report_exceptions("Get gateway error", other, -1), -1);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(robot.snapshots().size(), 2);
}

QTEST_MAIN(Test_Message_Box)

#include "test_message_box.moc"
