// SPDX-License-Identifier: MIT

#include "tests/link/reply_bench.h"
#include "tests/support/modal_robot.h"

#include <QTest>

/// What one chunk from the serial line triggers, and what stays in the buffer.
class Test_Serial_Chunks : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void the_steps_of_a_chunk_have_their_order();
    void text_behind_a_nul_is_lost_to_everything();
    void bytes_that_are_no_utf8_become_replacement_characters();
    void the_terminal_gets_every_chunk_as_it_came();
    void an_empty_chunk_changes_nothing();

    void either_marker_anywhere_in_a_chunk_shows_a_switch_data();
    void either_marker_anywhere_in_a_chunk_shows_a_switch();
    void other_text_shows_no_switch_data();
    void other_text_shows_no_switch();
    void a_marker_split_over_two_chunks_is_not_seen();
    void a_connected_switch_is_not_announced_again();
    void the_first_chunk_with_a_marker_becomes_the_status_text();

    void at_1000_characters_the_buffer_stays_and_beyond_it_is_emptied_first();
    void the_limit_counts_characters_and_not_bytes();
    void a_chunk_longer_than_the_limit_is_kept_whole();
    void the_limit_empties_the_buffer_even_during_a_report();

    void the_readers_look_through_the_whole_buffer();
    void after_a_notice_the_buffer_is_emptied();
    void during_a_report_a_notice_keeps_the_buffer_and_its_wish();
    void without_a_notice_the_buffer_stays();

    void a_saved_layout_asks_for_the_layout_with_an_empty_buffer();
    void a_saved_layout_is_seen_across_two_chunks();
    void a_saved_layout_beside_a_notice_loses_the_notice();
    void a_saved_layout_takes_the_wish_to_empty_the_buffer_down();
    void a_saved_layout_raises_its_flags_although_writing_is_disabled();

private:
    void take(const QByteArray& raw) { bench->replies.take_serial_chunk(raw); }
    QStringList& records() const { return bench->view.records; }
    Session_State& state() const { return bench->state; }
    /// Makes the view act as a window's readers do: a "**C" in the text requests an empty buffer.
    void answer_notices() const;

    std::unique_ptr<Reply_Bench> bench;
    std::unique_ptr<Modal_Robot> robot;
};

void Test_Serial_Chunks::init() {
    robot = std::make_unique<Modal_Robot>();
    bench = std::make_unique<Reply_Bench>();
}

void Test_Serial_Chunks::cleanup() {
    bench.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(robot->snapshots().size(), 0);
}

void Test_Serial_Chunks::answer_notices() const {
    bench->view.on_record = [this](const QString& record) {
        if (record.startsWith("km:") && record.contains("**C")) {
            state().buff_clear_pending = true;
        }
    };
}

void Test_Serial_Chunks::the_steps_of_a_chunk_have_their_order() {
    state().info_report_pending = true;
    bool still_pending_when_shown = false;
    bool still_pending_at_audio = true;
    bench->view.on_record = [&](const QString& record) {
        if (record.startsWith("show:")) {
            still_pending_when_shown = state().info_report_pending;
        } else if (record.startsWith("audio:")) {
            still_pending_at_audio = state().info_report_pending;
        }
    };
    take("KM\n");
    const QStringList expected{"answered", "both:KM\n", "km:KM\n",
                               "usb:KM\n", "show:KM\n", "audio:KM\n"};
    QCOMPARE(records(), expected);
    // The timer starts after the terminal and before the audio.
    QVERIFY(still_pending_when_shown);
    QVERIFY(!still_pending_at_audio);
}

void Test_Serial_Chunks::text_behind_a_nul_is_lost_to_everything() {
    take(QByteArray("seen\0KM **C 2", 13));
    QCOMPARE(state().received_buff, "seen");
    QCOMPARE(bench->view.texts_of("show"), QStringList{"seen"});
    QCOMPARE(bench->view.texts_of("km"), QStringList{"seen"});
    QVERIFY(!state().km_connected);
    // Only that chunk is affected.
    take(" more");
    QCOMPARE(state().received_buff, "seen more");
}

void Test_Serial_Chunks::bytes_that_are_no_utf8_become_replacement_characters() {
    take("K\xFFM \xC3");
    const QString text =
        QString("K") + QChar::ReplacementCharacter + "M " + QChar::ReplacementCharacter;
    QCOMPARE(state().received_buff, text);
    QCOMPARE(bench->view.texts_of("show"), QStringList{text});
    QVERIFY(!state().km_connected);
}

void Test_Serial_Chunks::the_terminal_gets_every_chunk_as_it_came() {
    const QByteArray utf8 = "Gr\xC3\xBC\xC3\x9F"
                            "e \t<b>\n";
    take("  one\r\n");
    take("\r\n\r\n");
    take(utf8);
    const QStringList shown{"  one\r\n", "\r\n\r\n", QString::fromUtf8(utf8)};
    QCOMPARE(bench->view.texts_of("show"), shown);
}

void Test_Serial_Chunks::an_empty_chunk_changes_nothing() {
    state().info_report_pending = true;
    take("KM\n");
    records().clear();
    take("");
    QCOMPARE(state().received_buff, "KM\n");
    QCOMPARE(bench->view.texts_of("show"), QStringList{""});
    QVERIFY(!records().contains("answered"));
    QVERIFY(!state().info_report_pending);
    QVERIFY(!state().layout_saved_pending);
    QCOMPARE(bench->line.received(), "");
}

void Test_Serial_Chunks::either_marker_anywhere_in_a_chunk_shows_a_switch_data() {
    QTest::addColumn<QByteArray>("chunk");
    QTest::newRow("//RL") << QByteArray("//RL");
    QTest::newRow("KM") << QByteArray("KM");
    QTest::newRow("in a line") << QByteArray("answer to //RL follows\n");
    QTest::newRow("in a word") << QByteArray("4711xKMx");
    QTest::newRow("ordinary reply text") << QByteArray("\nstored, KMs are idle\n");
    QTest::newRow("both") << QByteArray("//RL KM");
}

void Test_Serial_Chunks::either_marker_anywhere_in_a_chunk_shows_a_switch() {
    QFETCH(QByteArray, chunk);
    take(chunk);
    QVERIFY(state().km_connected);
    QCOMPARE(records().count("answered"), 1);
}

void Test_Serial_Chunks::other_text_shows_no_switch_data() {
    QTest::addColumn<QByteArray>("chunk");
    QTest::newRow("lower case") << QByteArray("//rl km");
    QTest::newRow("one slash") << QByteArray("/RL");
    QTest::newRow("a gap") << QByteArray("K M");
    QTest::newRow("behind a NUL") << QByteArray("x\0KM", 4);
    QTest::newRow("nothing") << QByteArray();
}

void Test_Serial_Chunks::other_text_shows_no_switch() {
    QFETCH(QByteArray, chunk);
    take(chunk);
    QVERIFY(!state().km_connected);
    QVERIFY(!records().contains("answered"));
    QCOMPARE(state().status_buff, "");
}

void Test_Serial_Chunks::a_marker_split_over_two_chunks_is_not_seen() {
    take("//R");
    take("L K");
    take("M\n");
    QVERIFY(!state().km_connected);
    QVERIFY(!records().contains("answered"));
    // Although the buffer contains both by now.
    QCOMPARE(state().received_buff, "//RL KM\n");
    take("KM\n");
    QVERIFY(state().km_connected);
}

void Test_Serial_Chunks::a_connected_switch_is_not_announced_again() {
    take("KM\n");
    take("KM //RL\n");
    QCOMPARE(records().count("answered"), 1);
    // A refresh clears it; the next marker sets it again.
    state().km_connected = false;
    take("KM\n");
    QCOMPARE(records().count("answered"), 2);
}

void Test_Serial_Chunks::the_first_chunk_with_a_marker_becomes_the_status_text() {
    take("noise\n");
    QCOMPARE(state().status_buff, "");
    take("KM Port Limit: 2\n");
    QCOMPARE(state().status_buff, "KM Port Limit: 2\n");
    take("KM Port Limit: 3\n");
    QCOMPARE(state().status_buff, "KM Port Limit: 2\n");
}

void Test_Serial_Chunks::at_1000_characters_the_buffer_stays_and_beyond_it_is_emptied_first() {
    take(QByteArray(1000, 'a'));
    take(QByteArray(10, 'b'));
    QCOMPARE(state().received_buff, QString(1000, 'a') + QString(10, 'b'));
    take("next");
    QCOMPARE(state().received_buff, "next");
}

void Test_Serial_Chunks::the_limit_counts_characters_and_not_bytes() {
    take(QByteArray("\xC3\xA4").repeated(1000));
    take("b");
    QCOMPARE(state().received_buff, QString(1000, QChar(0xE4)) + "b");
    take("c");
    QCOMPARE(state().received_buff, "c");
}

void Test_Serial_Chunks::a_chunk_longer_than_the_limit_is_kept_whole() {
    take(QByteArray(5000, 'a'));
    QCOMPARE(state().received_buff.size(), 5000);
    // The limit is checked with each chunk, even an empty one.
    take("");
    QCOMPARE(state().received_buff, "");
}

void Test_Serial_Chunks::the_limit_empties_the_buffer_even_during_a_report() {
    state().report_in_progress = true;
    take("KM Port Limit: 2\n" + QByteArray(1000, 'a'));
    take("Buzzer: on\n");
    QCOMPARE(state().received_buff, "Buzzer: on\n");
}

void Test_Serial_Chunks::the_readers_look_through_the_whole_buffer() {
    take("*");
    take("*C 2");
    const QStringList seen{"*", "**C 2"};
    QCOMPARE(bench->view.texts_of("both"), seen);
    QCOMPARE(bench->view.texts_of("km"), seen);
    QCOMPARE(bench->view.texts_of("usb"), seen);
    QCOMPARE(bench->view.texts_of("audio"), seen);
}

void Test_Serial_Chunks::after_a_notice_the_buffer_is_emptied() {
    answer_notices();
    take("**C 2\n");
    QCOMPARE(state().received_buff, "");
    QVERIFY(!state().buff_clear_pending);
    // The audio was still searched for in the text.
    QCOMPARE(bench->view.texts_of("audio"), QStringList{"**C 2\n"});
}

void Test_Serial_Chunks::during_a_report_a_notice_keeps_the_buffer_and_its_wish() {
    answer_notices();
    state().report_in_progress = true;
    take("**C 2\n");
    take("KM\n");
    QCOMPARE(state().received_buff, "**C 2\nKM\n");
    QVERIFY(state().buff_clear_pending);
    // The first chunk after the report removes it.
    state().report_in_progress = false;
    take("");
    QCOMPARE(state().received_buff, "");
    QVERIFY(!state().buff_clear_pending);
}

void Test_Serial_Chunks::without_a_notice_the_buffer_stays() {
    answer_notices();
    take("Done.\n");
    take("Done.\n");
    QCOMPARE(state().received_buff, "Done.\nDone.\n");
}

void Test_Serial_Chunks::a_saved_layout_asks_for_the_layout_with_an_empty_buffer() {
    take("older text\n");
    records().clear();
    take(layout_saved);
    QCOMPARE(state().received_buff, "");
    QVERIFY(state().layout_report_pending);
    // Handled in the same run: the timer is running.
    QVERIFY(!state().layout_saved_pending);
    QCOMPARE(bench->line.received(), "//BP\r");
    const QStringList expected{"both:", "km:", "usb:", "show:" + QString(layout_saved), "audio:"};
    QCOMPARE(records(), expected);
    take("//FF01B01\n");
    QCOMPARE(state().received_buff, "//FF01B01\n");
}

void Test_Serial_Chunks::a_saved_layout_is_seen_across_two_chunks() {
    take("Saving horiz");
    QCOMPARE(bench->line.received(), "");
    take("ontal dimension as 4\n");
    QCOMPARE(bench->line.received(), "//BP\r");
    QCOMPARE(state().received_buff, "");
}

void Test_Serial_Chunks::a_saved_layout_beside_a_notice_loses_the_notice() {
    answer_notices();
    take("**C 2\n" + layout_saved + "**C 3\n");
    QCOMPARE(bench->view.texts_of("km"), QStringList{""});
    QCOMPARE(bench->view.texts_of("show"), QStringList{"**C 2\n" + layout_saved + "**C 3\n"});
    QVERIFY(!state().buff_clear_pending);
    QCOMPARE(bench->line.received(), "//BP\r");
}

void Test_Serial_Chunks::a_saved_layout_takes_the_wish_to_empty_the_buffer_down() {
    answer_notices();
    state().report_in_progress = true;
    take("**C 2\n");
    QVERIFY(state().buff_clear_pending);
    take(layout_saved);
    QVERIFY(!state().buff_clear_pending);
    state().report_in_progress = false;
    take("//FF01B01\n");
    QCOMPARE(state().received_buff, "//FF01B01\n");
}

void Test_Serial_Chunks::a_saved_layout_raises_its_flags_although_writing_is_disabled() {
    state().write_enabled = false;
    take(layout_saved);
    QCOMPARE(bench->line.received(), "");
    QVERIFY(state().layout_report_pending);
    QCOMPARE(state().received_buff, "");
}

QTEST_MAIN(Test_Serial_Chunks)

#include "test_serial_chunks.moc"
