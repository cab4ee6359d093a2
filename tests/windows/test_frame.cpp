// SPDX-License-Identifier: MIT

#include "tests/support/find_child.h"
#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QElapsedTimer>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>

/// The Lite window around its pages: look, left menu, the lock-out of Refresh, and the page that is
/// never shown.
class Test_Frame : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void the_window_has_its_fixed_size_title_icon_and_focus();
    void refresh_has_its_icon();
    void a_start_shows_the_first_page_with_its_button_active();
    void each_page_button_shows_its_page_and_is_the_only_active_one();
    void refresh_asks_the_three_questions();
    void refresh_takes_the_custom_names_out_and_the_report_puts_them_back_once();
    void a_change_right_after_refresh_is_sent();
    void refresh_is_dead_at_once_and_for_1700_ms();
    void refresh_is_disabled_again_after_50_ms();
    void refresh_within_the_lock_out_asks_nothing_and_is_armed_again_after_1700_ms();
    void a_late_answer_revives_the_button_but_not_the_refresh();
    void the_send_button_and_return_in_its_line_do_nothing();
    void closing_the_window_ends_the_event_loop();

private:
    QPushButton& refresh() const { return lite->button("pushButton_Refresh"); }
    QStackedWidget& pages() const {
        return find_child<QStackedWidget>(lite->window(), "stackedWidget");
    }
    void stay_silent();

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

const QString active =
    "background-color: rgb(77, 156, 238); border: 2.5px solid rgb(189, 189, 189); border-radius: "
    "10px";
const QString idle =
    "QPushButton {background-color: rgb(189, 189, 189);border: 2.5px solid rgb(77, 156, "
    "238);border-radius: 10px;}QPushButton:hover {background-color: rgb(77, 156, "
    "238);border-radius: 10px;}QPushButton:pressed {background-color: rgb(189, 189, 189);border: "
    "2.5px solid rgb(77, 156, 238);border-radius: 10px;}";

const QStringList page_buttons{"ConfigurationBtn", "pushButton_Mouse_Speed_Settings",
                               "TopologyAndDisplayBtn"};

/// Records when a widget was enabled and disabled, in milliseconds since the start.
class Enabled_Record : public QObject {
public:
    struct Change {
        bool enabled;
        qint64 milliseconds;
    };

    explicit Enabled_Record(QWidget& watched) {
        watched.installEventFilter(this);
        clock.start();
    }

    const QList<Change>& changes() const { return all_changes; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::EnabledChange) {
            all_changes.append({static_cast<QWidget*>(watched)->isEnabled(), clock.elapsed()});
        }
        return false;
    }

private:
    QElapsedTimer clock;
    QList<Change> all_changes;
};

QImage image_of(const QIcon& icon) { return icon.pixmap(64, 64).toImage(); }

} // namespace

void Test_Frame::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
}

void Test_Frame::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Frame::stay_silent() {
    Fault_Plan plan;
    plan.silence = true;
    lite->device.set_faults(plan);
}

void Test_Frame::the_window_has_its_fixed_size_title_icon_and_focus() {
    lite->open();
    const QMainWindow& window = lite->window();
    QCOMPARE(window.size(), QSize(1305, 693));
    QCOMPARE(window.minimumSize(), QSize(1305, 693));
    QCOMPARE(window.maximumSize(), QSize(1305, 693));
    QCOMPARE(window.windowTitle(), "Halvern");
    QCOMPARE(window.focusPolicy(), Qt::StrongFocus);
    const QImage icon = image_of(QIcon(":/img/logos/icon_logo_Velmoran.png"));
    QVERIFY(!icon.isNull());
    QCOMPARE(image_of(window.windowIcon()), icon);
}

void Test_Frame::refresh_has_its_icon() {
    lite->open();
    QCOMPARE(refresh().iconSize(), QSize(25, 25));
    const QImage icon = image_of(QIcon(":/img/logos/refresh.png"));
    QVERIFY(!icon.isNull());
    QCOMPARE(image_of(refresh().icon()), icon);
}

void Test_Frame::a_start_shows_the_first_page_with_its_button_active() {
    lite->open();
    QCOMPARE(pages().currentIndex(), 0);
    QCOMPARE(lite->button("ConfigurationBtn").styleSheet(), active);
    QCOMPARE(lite->button("pushButton_Mouse_Speed_Settings").styleSheet(), idle);
    QCOMPARE(lite->button("TopologyAndDisplayBtn").styleSheet(), idle);
}

void Test_Frame::each_page_button_shows_its_page_and_is_the_only_active_one() {
    QVERIFY(lite->open_connected());
    for (const int page : {1, 2, 0, 2, 1, 0}) {
        QTest::mouseClick(&lite->button(page_buttons[page]), Qt::LeftButton);
        QCOMPARE(pages().currentIndex(), page);
        for (int other = 0; other < page_buttons.size(); ++other) {
            QCOMPARE(lite->button(page_buttons[other]).styleSheet(), other == page ? active : idle);
        }
    }
}

void Test_Frame::refresh_asks_the_three_questions() {
    QVERIFY(lite->open_filled());
    QTest::mouseClick(&refresh(), Qt::LeftButton);
    QCOMPARE(lite->commands(), question_list);
}

void Test_Frame::refresh_takes_the_custom_names_out_and_the_report_puts_them_back_once() {
    QVERIFY(lite->open_filled());
    refresh().click();
    for (int channel = 1; channel <= 4; ++channel) {
        QCOMPARE(lite->resolution(channel).count(), 9);
    }
    QVERIFY(lite->wait_filled());
    for (int channel = 1; channel <= 4; ++channel) {
        QCOMPARE(lite->resolution(channel).count(), 13);
        QCOMPARE(lite->resolution(channel).itemText(9), "DESK");
    }
    QCOMPARE(lite->commands(), question_list);
}

void Test_Frame::a_change_right_after_refresh_is_sent() {
    QVERIFY(lite->open_filled());
    refresh().click();
    lite->combo("comboBox_KM_Control").setCurrentIndex(3);
    QCOMPARE(lite->commands(), question_list + QByteArrayList{"//c4"});
}

void Test_Frame::refresh_is_dead_at_once_and_for_1700_ms() {
    QVERIFY(lite->open_filled());
    stay_silent();
    const Enabled_Record record(refresh());
    QTest::mouseClick(&refresh(), Qt::LeftButton);
    QVERIFY(!refresh().isEnabled());
    // The second click hits a disabled button.
    QTest::mouseClick(&refresh(), Qt::LeftButton);
    QVERIFY(wait_until([&] { return refresh().isEnabled(); }));
    QCOMPARE(record.changes().size(), 2);
    QVERIFY(record.changes()[1].milliseconds >= 1700);
    QCOMPARE(lite->commands(), question_list);
    QTest::mouseClick(&refresh(), Qt::LeftButton);
    QCOMPARE(lite->commands(), question_list);
}

void Test_Frame::refresh_is_disabled_again_after_50_ms() {
    QVERIFY(lite->open_filled());
    stay_silent();
    const Enabled_Record record(refresh());
    refresh().click();
    refresh().setEnabled(true);
    QVERIFY(wait_until([&] { return record.changes().size() == 4; }));
    QVERIFY(!record.changes()[2].enabled);
    QVERIFY(record.changes()[2].milliseconds >= 50);
    QVERIFY(record.changes()[2].milliseconds < 1700);
    QVERIFY(record.changes()[3].enabled);
    QVERIFY(record.changes()[3].milliseconds >= 1700);
}

void Test_Frame::refresh_within_the_lock_out_asks_nothing_and_is_armed_again_after_1700_ms() {
    QVERIFY(lite->open_filled());
    stay_silent();
    refresh().click();
    QCOMPARE(lite->commands(), question_list);
    QTest::qWait(100);
    // The slot is called directly, because the button is disabled.
    const Enabled_Record record(refresh());
    QVERIFY(lite->run_slot("on_pushButton_Refresh_clicked"));
    QVERIFY(!refresh().isEnabled());
    QCOMPARE(lite->commands(), QByteArrayList());
    // The first click's timer enables the button; the second one's finds it enabled.
    QVERIFY(wait_until([&] { return refresh().isEnabled(); }));
    refresh().setEnabled(false);
    QVERIFY(wait_until([&] { return refresh().isEnabled(); }));
    QVERIFY(record.changes().last().milliseconds >= 1700);
    QCOMPARE(lite->commands(), QByteArrayList());
    refresh().click();
    QCOMPARE(lite->commands(), question_list);
}

void Test_Frame::a_late_answer_revives_the_button_but_not_the_refresh() {
    QVERIFY(lite->open_filled());
    stay_silent();
    refresh().click();
    QCOMPARE(lite->commands(), question_list);
    QTest::qWait(100);
    // The unit's text is not a report, which is noticed at the end of the wait.
    robot->expect({.class_name = "QMessageBox", .text = "Setting data from TQL error"});
    QVERIFY(lite->say("KM\n"));
    QVERIFY(refresh().isEnabled());
    QTest::mouseClick(&refresh(), Qt::LeftButton);
    QVERIFY(!refresh().isEnabled());
    QCOMPARE(lite->commands(), QByteArrayList());
    QVERIFY(wait_until([&] { return robot->done() && refresh().isEnabled(); }));
}

void Test_Frame::the_send_button_and_return_in_its_line_do_nothing() {
    QVERIFY(lite->open_filled());
    const QString text = lite->terminal_text();
    pages().setCurrentIndex(3);
    QLineEdit& line = lite->line_edit("lineEdit_Command");
    QTextEdit& view = find_child<QTextEdit>(lite->window(), "textEdit");
    QTest::keyClicks(&line, "//R");
    QTest::keyClick(&line, Qt::Key_Return);
    QVERIFY(lite->button("pushButton_Send_Command").isVisible());
    QTest::mouseClick(&lite->button("pushButton_Send_Command"), Qt::LeftButton);
    QCOMPARE(line.text(), "//R");
    QCOMPARE(view.toPlainText(), "");
    QCOMPARE(lite->terminal_text(), text);
    QCOMPARE(pages().currentIndex(), 3);
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Frame::closing_the_window_ends_the_event_loop() {
    lite->open();
    constexpr int loop_had_to_be_ended = 77;
    QTimer::singleShot(0, &lite->window(), &QWidget::close);
    QTimer::singleShot(10'000, &lite->window(),
                       [] { QCoreApplication::exit(loop_had_to_be_ended); });
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(!lite->window().isVisible());
}

QTEST_MAIN(Test_Frame)

#include "test_frame.moc"
