// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "tests/link/reply_bench.h"
#include "tests/support/log_folder.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QTest>

#include <stdexcept>

/// A chunk from the network, which is read as a complete report.
class Test_Network_Replies : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void the_terminal_shows_only_chunks_from_the_first_marker_on();
    void the_first_chunk_fills_all_buffers_and_is_applied_at_once();
    void the_steps_of_a_first_chunk_have_their_order();
    void a_first_chunk_without_a_marker_is_applied_and_not_shown();
    void later_chunks_go_to_the_terminal_and_the_notices_only();
    void a_report_split_over_two_chunks_is_not_put_together();
    void the_information_question_alone_applies_nothing();
    void chunks_are_never_gathered();
    void an_applied_report_empties_the_buffer_and_a_notice_does_not();
    void no_timer_takes_part();
    void a_report_never_ends_the_flag_of_the_serial_line();
    void a_failing_report_is_told_as_on_the_serial_line();
    void text_behind_a_nul_is_lost_to_everything();
    void bytes_that_are_no_utf8_become_replacement_characters();

    void the_readers_run_in_the_order_of_their_model_data();
    void the_readers_run_in_the_order_of_their_model();
    void the_layout_is_asked_for_at_its_place_in_the_order_data();
    void the_layout_is_asked_for_at_its_place_in_the_order();
    void a_saved_layout_asks_for_the_layout_and_the_next_chunk_is_it();
    void a_saved_layout_beside_a_notice_keeps_the_notice();
    void a_saved_layout_is_not_seen_across_two_chunks();

private:
    void take(const QByteArray& raw) { bench->replies.take_network_chunk(raw); }
    QStringList& records() const { return bench->view.records; }
    Session_State& state() const { return bench->state; }

    std::unique_ptr<Log_Folder> folder;
    std::unique_ptr<Reply_Bench> bench;
    std::unique_ptr<Modal_Robot> robot;
};

Q_DECLARE_METATYPE(Notice_Order)

namespace {

const QByteArray report = "KM Port Limit: 2\n//FF01B01\nBuzzer: on\n";

/// The records of the steps after the report: the notices and the audio.
QStringList notice_words(const QStringList& records) {
    QStringList words;
    for (const QString& record : records) {
        const QString word = record.section(':', 0, 0);
        if (QStringList{"both", "km", "usb", "audio"}.contains(word)) {
            words.append(word);
        }
    }
    return words;
}

} // namespace

void Test_Network_Replies::init() {
    folder = std::make_unique<Log_Folder>();
    QCOMPARE(open_log(), 1);
    robot = std::make_unique<Modal_Robot>();
    bench = std::make_unique<Reply_Bench>();
}

void Test_Network_Replies::cleanup() {
    bench.reset();
    QVERIFY2(robot->done(), robot->why());
    close_log();
    folder.reset();
}

void Test_Network_Replies::the_terminal_shows_only_chunks_from_the_first_marker_on() {
    take("before\n");
    QVERIFY(!records().contains("answered"));
    take("the first KM\n");
    take("and all others\n");
    const QStringList shown{"the first KM\n", "and all others\n"};
    QCOMPARE(bench->view.texts_of("show"), shown);
    QCOMPARE(records().count("answered"), 1);
}

void Test_Network_Replies::the_first_chunk_fills_all_buffers_and_is_applied_at_once() {
    bench->line.writer.send_start_commands();
    state().ui_changes_enabled = false;
    take(report);
    QCOMPARE(state().info_buff, report.toStdString());
    QCOMPARE(state().status_buff, report.toStdString());
    // The whole chunk, not only this line.
    QCOMPARE(state().layout_buff, report.toStdString());
    QVERIFY(!state().info_report_pending);
    QVERIFY(!state().layout_report_pending);
    QVERIFY(state().km_connected);
    QVERIFY(state().ui_changes_enabled);
    QVERIFY(records().contains("layout"));
}

void Test_Network_Replies::the_steps_of_a_first_chunk_have_their_order() {
    bench->line.writer.send_start_commands();
    take("KM\n");
    const QStringList expected{"answered", "show:KM\n", "information", "status",    "layout",
                               "km:KM\n",  "usb:KM\n",  "both:KM\n",   "audio:KM\n"};
    QCOMPARE(records(), expected);
}

void Test_Network_Replies::a_first_chunk_without_a_marker_is_applied_and_not_shown() {
    state().status_buff = "older";
    state().info_report_pending = true;
    state().layout_report_pending = true;
    take("Buzzer: on\n");
    QCOMPARE(state().info_buff, "Buzzer: on\n");
    QCOMPARE(state().layout_buff, "Buzzer: on\n");
    QCOMPARE(state().status_buff, "older");
    const QStringList applied{"information", "status", "layout"};
    QCOMPARE(records().mid(0, 3), applied);
    QCOMPARE(bench->view.texts_of("show"), QStringList());
    QVERIFY(!state().km_connected);
}

void Test_Network_Replies::later_chunks_go_to_the_terminal_and_the_notices_only() {
    bench->line.writer.send_start_commands();
    take(report);
    records().clear();
    take("KM Port Limit: 4\n");
    const QString text = "KM Port Limit: 4\n";
    const QStringList expected{"show:" + text, "km:" + text, "usb:" + text, "both:" + text,
                               "audio:" + text};
    QCOMPARE(records(), expected);
    QCOMPARE(state().info_buff, report.toStdString());
    QCOMPARE(state().status_buff, report.toStdString());
    QCOMPARE(state().layout_buff, report.toStdString());
}

void Test_Network_Replies::a_report_split_over_two_chunks_is_not_put_together() {
    bench->line.writer.send_start_commands();
    take("KM Port Limit: 2\n");
    take("Buzzer: on\n");
    QCOMPARE(state().info_buff, "KM Port Limit: 2\n");
    QCOMPARE(records().count("status"), 1);
    const QStringList seen{"KM Port Limit: 2\n", "Buzzer: on\n"};
    QCOMPARE(bench->view.texts_of("km"), seen);
}

void Test_Network_Replies::the_information_question_alone_applies_nothing() {
    state().info_report_pending = true;
    take("KM\n");
    QCOMPARE(state().info_buff, "KM\n");
    QVERIFY(!state().info_report_pending);
    QVERIFY(!records().contains("information"));
}

void Test_Network_Replies::chunks_are_never_gathered() {
    take("KM one\n");
    take("two\n");
    QCOMPARE(state().received_buff, "");
    state().received_buff = "left over";
    take(QByteArray(2000, 'x'));
    QCOMPARE(state().received_buff, "left over");
}

void Test_Network_Replies::an_applied_report_empties_the_buffer_and_a_notice_does_not() {
    state().received_buff = "left over";
    state().buff_clear_pending = true;
    take("**C 2\n");
    QCOMPARE(state().received_buff, "left over");
    QVERIFY(state().buff_clear_pending);
    state().layout_report_pending = true;
    take("KM\n");
    QCOMPARE(state().received_buff, "");
    QVERIFY(state().buff_clear_pending);
}

void Test_Network_Replies::no_timer_takes_part() {
    bench->line.writer.send_start_commands();
    take(report);
    take(layout_saved);
    take(report);
    QVERIFY(!wait_until(
        [&] {
            return !bench->window.report_calls.isEmpty() || !bench->window.layout_calls.isEmpty();
        },
        1300));
}

void Test_Network_Replies::a_report_never_ends_the_flag_of_the_serial_line() {
    bench->line.writer.send_start_commands();
    QVERIFY(state().report_in_progress);
    take(report);
    take("**C 2\n");
    QVERIFY(state().report_in_progress);
}

void Test_Network_Replies::a_failing_report_is_told_as_on_the_serial_line() {
    bench->line.writer.send_start_commands();
    state().write_enabled = false;
    state().refresh_enabled = false;
    state().received_buff = "left over";
    bench->view.on_record = [](const QString& record) {
        if (record == "status") {
            throw std::invalid_argument("stoi");
        }
    };
    robot->expect({.class_name = "QMessageBox",
                   .title = "Information",
                   .text = "Setting data from TQL error",
                   .icon = QMessageBox::Warning,
                   .action = press_button("OK")});
    take(report);
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(folder->entries(), QStringList{"Setting data from TQL error"});
    QVERIFY(!records().contains("layout"));
    QVERIFY(state().write_enabled && state().refresh_enabled && state().ui_changes_enabled);
    QCOMPARE(state().received_buff, "left over");
    // The notices of the chunk are still searched for.
    const QStringList notices{"km", "usb", "both", "audio"};
    QCOMPARE(notice_words(records()), notices);
}

void Test_Network_Replies::text_behind_a_nul_is_lost_to_everything() {
    bench->line.writer.send_start_commands();
    take(QByteArray("KM\0//FF01B01 **C 2", 18));
    QCOMPARE(state().info_buff, "KM");
    QCOMPARE(state().status_buff, "KM");
    QCOMPARE(state().layout_buff, "KM");
    QCOMPARE(bench->view.texts_of("show"), QStringList{"KM"});
    QCOMPARE(bench->view.texts_of("km"), QStringList{"KM"});
    records().clear();
    take(QByteArray("\0KM", 3));
    QCOMPARE(bench->view.texts_of("show"), QStringList{""});
}

void Test_Network_Replies::bytes_that_are_no_utf8_become_replacement_characters() {
    take("KM \xFF");
    QCOMPARE(bench->view.texts_of("show"),
             QStringList{QString("KM ") + QChar::ReplacementCharacter});
}

void Test_Network_Replies::the_readers_run_in_the_order_of_their_model_data() {
    QTest::addColumn<Notice_Order>("order");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("layout first") << Notice_Order::layout_first
                                  << QStringList{"km", "usb", "both", "audio"};
    QTest::newRow("both first") << Notice_Order::both_first
                                << QStringList{"both", "km", "usb", "audio"};
}

void Test_Network_Replies::the_readers_run_in_the_order_of_their_model() {
    QFETCH(Notice_Order, order);
    QFETCH(QStringList, words);
    bench = std::make_unique<Reply_Bench>(order);
    take("KM **C 2\n");
    QCOMPARE(notice_words(records()), words);
}

void Test_Network_Replies::the_layout_is_asked_for_at_its_place_in_the_order_data() {
    QTest::addColumn<Notice_Order>("order");
    QTest::addColumn<QStringList>("before");
    QTest::newRow("layout first") << Notice_Order::layout_first << QStringList();
    QTest::newRow("both first") << Notice_Order::both_first << QStringList{"both"};
}

void Test_Network_Replies::the_layout_is_asked_for_at_its_place_in_the_order() {
    QFETCH(Notice_Order, order);
    QFETCH(QStringList, before);
    bench = std::make_unique<Reply_Bench>(order);
    QStringList records_before_question;
    bench->view.on_record = [&](const QString& record) {
        if (!state().layout_saved_pending) {
            records_before_question.append(record);
        }
    };
    take(layout_saved);
    QCOMPARE(notice_words(records_before_question), before);
    QCOMPARE(notice_words(records()).size(), 4);
    QCOMPARE(bench->line.received(), "//BP\r");
}

void Test_Network_Replies::a_saved_layout_asks_for_the_layout_and_the_next_chunk_is_it() {
    state().received_buff = "left over";
    take(layout_saved);
    QVERIFY(state().layout_saved_pending);
    QVERIFY(state().layout_report_pending);
    QCOMPARE(state().received_buff, "");
    QCOMPARE(bench->line.received(), "//BP\r");
    QVERIFY(!records().contains("layout"));
    records().clear();
    take("//FF01B09FF02B10\n");
    QCOMPARE(state().layout_buff, "//FF01B09FF02B10\n");
    QVERIFY(!state().layout_saved_pending);
    QVERIFY(!state().layout_report_pending);
    QVERIFY(records().contains("layout"));
    QVERIFY(!records().contains("information"));
    QVERIFY(!records().contains("status"));
    QCOMPARE(bench->line.received(), "");
}

void Test_Network_Replies::a_saved_layout_beside_a_notice_keeps_the_notice() {
    take(layout_saved + "**C 2\n");
    QCOMPARE(bench->view.texts_of("km"), QStringList{QString(layout_saved) + "**C 2\n"});
}

void Test_Network_Replies::a_saved_layout_is_not_seen_across_two_chunks() {
    take("Saving horiz");
    take("ontal dimension as 4\n");
    QVERIFY(!state().layout_saved_pending);
    QCOMPARE(bench->line.received(), "");
}

QTEST_MAIN(Test_Network_Replies)

#include "test_network_replies.moc"
