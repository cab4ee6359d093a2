// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "tests/link/reply_bench.h"
#include "tests/support/expect_box.h"
#include "tests/support/log_folder.h"
#include "tests/support/modal_robot.h"
#include "tests/support/stated_wait.h"
#include "tests/support/wait_until.h"

#include <QTest>

#include <chrono>
#include <stdexcept>

using namespace std::chrono_literals;
using std::chrono::milliseconds;

/// When a report on the serial line counts as complete, and how it is applied.
class Test_Serial_Reports : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void the_report_is_read_1000_ms_after_its_first_chunk();
    void only_the_first_chunk_starts_the_wait();
    void without_a_question_no_chunk_starts_the_wait();
    void the_layout_is_read_1000_ms_after_its_confirmation();
    void both_waits_can_run_at_once();
    void a_running_wait_is_not_stopped_by_a_closed_port();

    void all_reports_are_read_from_the_one_buffer();
    void without_a_layout_line_the_layout_text_is_0();
    void the_readers_run_in_their_order_with_changes_disabled();
    void a_report_ends_with_an_empty_buffer_and_all_flags_settled();
    void an_empty_buffer_is_a_report_too();
    void a_failing_reader_is_told_and_ends_the_report_data();
    void a_failing_reader_is_told_and_ends_the_report();
    void a_failed_report_keeps_the_buffer();
    void a_failed_report_drops_the_buffer_if_a_notice_asked_for_it();
    void a_failed_report_raises_the_flags_only_after_its_box();
    void any_kind_of_exception_counts_as_a_failure();
    void chunks_are_served_while_the_failure_box_is_open();

    void the_new_layout_is_read_from_the_whole_buffer_which_stays();
    void nothing_catches_what_a_bad_new_layout_throws();

private:
    Session_State& state() const { return bench->state; }
    void fail_at(const QString& step) const;
    void expect_failure_box();

    std::unique_ptr<Log_Folder> folder;
    std::unique_ptr<Reply_Bench> bench;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

constexpr int max_wait = 20'000;

} // namespace

void Test_Serial_Reports::init() {
    folder = std::make_unique<Log_Folder>();
    QCOMPARE(open_log(), 1);
    robot = std::make_unique<Modal_Robot>();
    bench = std::make_unique<Reply_Bench>();
}

void Test_Serial_Reports::cleanup() {
    bench.reset();
    QVERIFY2(robot->done(), robot->why());
    close_log();
    folder.reset();
}

void Test_Serial_Reports::fail_at(const QString& step) const {
    bench->view.on_record = [step](const QString& record) {
        if (record == step) {
            throw std::out_of_range("missing key");
        }
    };
}

void Test_Serial_Reports::expect_failure_box() {
    expect_warning(*robot, "Setting data from TQL error");
}

void Test_Serial_Reports::the_report_is_read_1000_ms_after_its_first_chunk() {
    state().info_report_pending = true;
    const qint64 first_chunk = bench->window.clock.elapsed();
    bench->replies.take_serial_chunk("KM\n");
    QVERIFY(!state().info_report_pending);
    QVERIFY(wait_until([&] { return !bench->window.report_calls.isEmpty(); }, max_wait));
    const milliseconds waited(bench->window.report_calls.first() - first_chunk);
    QCOMPARE(wrong_wait(waited, 1000ms), QByteArray());
    QCOMPARE(bench->window.layout_calls.size(), 0);
}

void Test_Serial_Reports::only_the_first_chunk_starts_the_wait() {
    state().info_report_pending = true;
    bench->replies.take_serial_chunk("K");
    QVERIFY(!wait_until([&] { return !bench->window.report_calls.isEmpty(); }, 300));
    bench->replies.take_serial_chunk("M\n");
    QVERIFY(wait_until([&] { return !bench->window.report_calls.isEmpty(); }, max_wait));
    QVERIFY(!wait_until([&] { return bench->window.report_calls.size() > 1; }, 700));
}

void Test_Serial_Reports::without_a_question_no_chunk_starts_the_wait() {
    state().report_in_progress = true;
    state().layout_report_pending = true;
    bench->replies.take_serial_chunk("KM\n");
    QVERIFY(!wait_until([&] { return !bench->window.report_calls.isEmpty(); }, 1200));
    QCOMPARE(bench->window.layout_calls.size(), 0);
}

void Test_Serial_Reports::the_layout_is_read_1000_ms_after_its_confirmation() {
    const qint64 confirmation = bench->window.clock.elapsed();
    bench->replies.take_serial_chunk(layout_saved);
    bench->replies.take_serial_chunk("//FF01B01\n");
    QVERIFY(wait_until([&] { return !bench->window.layout_calls.isEmpty(); }, max_wait));
    const milliseconds waited(bench->window.layout_calls.first() - confirmation);
    QCOMPARE(wrong_wait(waited, 1000ms), QByteArray());
    QVERIFY(!wait_until([&] { return bench->window.layout_calls.size() > 1; }, 300));
    QCOMPARE(bench->window.report_calls.size(), 0);
}

void Test_Serial_Reports::both_waits_can_run_at_once() {
    state().info_report_pending = true;
    bench->replies.take_serial_chunk(layout_saved);
    QVERIFY(wait_until(
        [&] {
            return bench->window.report_calls.size() == 1 && bench->window.layout_calls.size() == 1;
        },
        max_wait));
}

void Test_Serial_Reports::a_running_wait_is_not_stopped_by_a_closed_port() {
    state().info_report_pending = true;
    bench->replies.take_serial_chunk("KM\n");
    bench->line.devices.close_port();
    state().km_connected = false;
    QVERIFY(wait_until([&] { return bench->window.report_calls.size() == 1; }, max_wait));
}

void Test_Serial_Reports::all_reports_are_read_from_the_one_buffer() {
    state().received_buff = "KM Port Limit: 2\n//FF01B09FF02B10\r\nBuzzer: on\n//FF01B11\n";
    const std::string whole = state().received_buff.toStdString();
    bench->replies.get_data_from_TQL_by_serial_port();
    QCOMPARE(state().info_buff, whole);
    QCOMPARE(state().status_buff, whole);
    // The rest of the first line with the key.
    QCOMPARE(state().layout_buff, "01B09FF02B10\r");
}

void Test_Serial_Reports::without_a_layout_line_the_layout_text_is_0() {
    state().received_buff = "KM Port Limit: 2\n";
    bench->replies.get_data_from_TQL_by_serial_port();
    QCOMPARE(state().layout_buff, "0");
}

void Test_Serial_Reports::the_readers_run_in_their_order_with_changes_disabled() {
    state().ui_changes_enabled = true;
    bool enabled_during_readers = false;
    bench->view.on_record = [&](const QString&) {
        enabled_during_readers = enabled_during_readers || state().ui_changes_enabled;
    };
    state().received_buff = "KM\n";
    bench->replies.get_data_from_TQL_by_serial_port();
    const QStringList expected{"information", "status", "layout"};
    QCOMPARE(bench->view.records, expected);
    QVERIFY(!enabled_during_readers);
}

void Test_Serial_Reports::a_report_ends_with_an_empty_buffer_and_all_flags_settled() {
    bench->line.writer.send_start_commands();
    state().received_buff = "KM\n";
    state().buff_clear_pending = true;
    state().ui_changes_enabled = false;
    bench->replies.get_data_from_TQL_by_serial_port();
    QCOMPARE(state().received_buff, "");
    QVERIFY(state().ui_changes_enabled);
    QVERIFY(!state().report_in_progress);
    QVERIFY(!state().info_report_pending);
    QVERIFY(!state().layout_report_pending);
    QVERIFY(!state().buff_clear_pending);
}

void Test_Serial_Reports::an_empty_buffer_is_a_report_too() {
    state().info_buff = "older";
    bench->replies.get_data_from_TQL_by_serial_port();
    QCOMPARE(state().info_buff, "");
    QCOMPARE(state().status_buff, "");
    QCOMPARE(bench->view.records.size(), 3);
}

void Test_Serial_Reports::a_failing_reader_is_told_and_ends_the_report_data() {
    QTest::addColumn<QString>("step");
    QTest::addColumn<QStringList>("records");
    QTest::newRow("information") << "information" << QStringList{"information"};
    QTest::newRow("status") << "status" << QStringList{"information", "status"};
    QTest::newRow("layout") << "layout" << QStringList{"information", "status", "layout"};
}

void Test_Serial_Reports::a_failing_reader_is_told_and_ends_the_report() {
    QFETCH(QString, step);
    QFETCH(QStringList, records);
    fail_at(step);
    expect_failure_box();
    state().received_buff = "KM\n";
    bench->replies.get_data_from_TQL_by_serial_port();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(bench->view.records, records);
    QCOMPARE(folder->entries(), QStringList{"Setting data from TQL error"});
}

void Test_Serial_Reports::a_failed_report_keeps_the_buffer() {
    fail_at("status");
    expect_failure_box();
    state().report_in_progress = true;
    state().received_buff = "KM Port Limit: x\n";
    bench->replies.get_data_from_TQL_by_serial_port();
    QCOMPARE(state().received_buff, "KM Port Limit: x\n");
    QVERIFY(!state().report_in_progress);
}

void Test_Serial_Reports::a_failed_report_drops_the_buffer_if_a_notice_asked_for_it() {
    fail_at("status");
    expect_failure_box();
    state().received_buff = "KM Port Limit: x\n";
    state().buff_clear_pending = true;
    bench->replies.get_data_from_TQL_by_serial_port();
    QCOMPARE(state().received_buff, "");
    QVERIFY(!state().buff_clear_pending);
}

void Test_Serial_Reports::a_failed_report_raises_the_flags_only_after_its_box() {
    fail_at("layout");
    state().write_enabled = false;
    state().refresh_enabled = false;
    state().ui_changes_enabled = true;
    bool any_raised_behind_box = true;
    robot->expect({.text = "Setting data from TQL error", .action = [&](QWidget& box) {
                       any_raised_behind_box = state().write_enabled || state().refresh_enabled ||
                                               state().ui_changes_enabled;
                       return press_button("OK")(box);
                   }});
    bench->replies.get_data_from_TQL_by_serial_port();
    QVERIFY2(robot->done(), robot->why());
    QVERIFY(!any_raised_behind_box);
    QVERIFY(state().write_enabled);
    QVERIFY(state().refresh_enabled);
    QVERIFY(state().ui_changes_enabled);
}

void Test_Serial_Reports::any_kind_of_exception_counts_as_a_failure() {
    bench->view.on_record = [](const QString&) { throw 1; };
    expect_failure_box();
    bench->replies.get_data_from_TQL_by_serial_port();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(folder->entries(), QStringList{"Setting data from TQL error"});
}

void Test_Serial_Reports::chunks_are_served_while_the_failure_box_is_open() {
    fail_at("information");
    robot->expect({.text = "Setting data from TQL error", .action = [&](QWidget& box) {
                       bench->replies.take_serial_chunk("meanwhile\n");
                       return press_button("OK")(box);
                   }});
    state().received_buff = "KM\n";
    bench->replies.get_data_from_TQL_by_serial_port();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(state().received_buff, "KM\nmeanwhile\n");
    QCOMPARE(bench->view.texts_of("show"), QStringList{"meanwhile\n"});
}

void Test_Serial_Reports::the_new_layout_is_read_from_the_whole_buffer_which_stays() {
    state().received_buff = "first line\n//FF01B09FF02B10\nlast line\n";
    state().layout_report_pending = true;
    state().ui_changes_enabled = true;
    bench->replies.set_current_layout_from_buff();
    QCOMPARE(state().layout_buff, "first line\n//FF01B09FF02B10\nlast line\n");
    QCOMPARE(state().received_buff, "first line\n//FF01B09FF02B10\nlast line\n");
    QVERIFY(!state().layout_report_pending);
    QCOMPARE(bench->view.records, QStringList{"layout"});
}

void Test_Serial_Reports::nothing_catches_what_a_bad_new_layout_throws() {
    fail_at("layout");
    state().received_buff = "no layout here\n";
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, bench->replies.set_current_layout_from_buff());
    QCOMPARE(folder->entries(), QStringList());
    QCOMPARE(robot->snapshots().size(), 0);
}

QTEST_MAIN(Test_Serial_Reports)

#include "test_serial_reports.moc"
