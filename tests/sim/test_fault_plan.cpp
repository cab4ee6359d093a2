// SPDX-License-Identifier: MIT

#include "sim/fault_plan.h"
#include "sim/switch_report.h"

#include <QTest>

#include <algorithm>

/// How faults change answers, without a line.
class Test_Fault_Plan : public QObject {
    Q_OBJECT

private slots:
    void without_faults_an_answer_goes_out_whole_and_at_once();
    void the_delay_stands_before_the_first_piece_only();
    void an_answer_is_cut_into_pieces_of_the_given_size();
    void crlf_ends_every_line_in_two_bytes();
    void a_nul_byte_stands_inside_the_answer();
    void invalid_utf8_comes_out_as_replacement_characters();
    void a_missing_key_takes_its_line_away();
    void an_oversize_answer_has_more_than_1000_characters_and_keeps_its_keys();
    void markup_is_put_around_the_hotkey_and_the_custom_names_only();
    void markup_keeps_the_columns_of_a_custom_entry();
    void silence_and_disappearance_send_nothing();
    void an_empty_answer_sends_nothing();
    void faults_add_up();
};

namespace {

using std::chrono::milliseconds;

QByteArray joined(const std::vector<Timed_Chunk>& chunks) {
    QByteArray text;
    for (const Timed_Chunk& chunk : chunks) {
        text += chunk.bytes;
    }
    return text;
}

} // namespace

void Test_Fault_Plan::without_faults_an_answer_goes_out_whole_and_at_once() {
    const auto chunks = plan_chunks(Fault_Plan(), "one\ntwo\n");
    QCOMPARE(chunks, (std::vector<Timed_Chunk>{{milliseconds(0), "one\ntwo\n"}}));
}

void Test_Fault_Plan::the_delay_stands_before_the_first_piece_only() {
    Fault_Plan plan;
    plan.delay = milliseconds(700);
    plan.chunk_size = 3;
    plan.chunk_gap = milliseconds(20);
    const auto chunks = plan_chunks(plan, "abcdefg");
    QCOMPARE(chunks,
             (std::vector<Timed_Chunk>{
                 {milliseconds(700), "abc"}, {milliseconds(20), "def"}, {milliseconds(20), "g"}}));
}

void Test_Fault_Plan::an_answer_is_cut_into_pieces_of_the_given_size() {
    Fault_Plan plan;
    plan.chunk_size = 1;
    const QByteArray report = status_report(Switch_State());
    const auto chunks = plan_chunks(plan, report);
    QCOMPARE(chunks.size(), static_cast<std::size_t>(report.size()));
    QCOMPARE(joined(chunks), report);
}

void Test_Fault_Plan::crlf_ends_every_line_in_two_bytes() {
    Fault_Plan plan;
    plan.crlf = true;
    QCOMPARE(corrupt_text(plan, "one\ntwo\n"), "one\r\ntwo\r\n");
}

void Test_Fault_Plan::a_nul_byte_stands_inside_the_answer() {
    Fault_Plan plan;
    plan.nul = true;
    const QByteArray text = corrupt_text(plan, "Done.\n");
    QCOMPARE(text.count('\0'), 1);
    QVERIFY(text.indexOf('\0') > 0);
    QCOMPARE(QByteArray(text).replace('\0', ""), "Done.\n");
}

void Test_Fault_Plan::invalid_utf8_comes_out_as_replacement_characters() {
    Fault_Plan plan;
    plan.invalid_utf8 = true;
    const QString text = QString::fromUtf8(corrupt_text(plan, "one\ntwo\n"));
    QVERIFY(text.startsWith("one\uFFFD"));
    QVERIFY(text.endsWith("\ntwo\n"));
}

void Test_Fault_Plan::a_missing_key_takes_its_line_away() {
    Fault_Plan plan;
    plan.missing_key = "Buzzer: ";
    const QByteArray report = status_report(Switch_State());
    const QByteArray text = corrupt_text(plan, report);
    QVERIFY(!text.contains("Buzzer"));
    QCOMPARE(text.count('\n'), report.count('\n') - 1);
    QVERIFY(text.contains("C4\t"));
}

void Test_Fault_Plan::an_oversize_answer_has_more_than_1000_characters_and_keeps_its_keys() {
    Fault_Plan plan;
    plan.oversize = true;
    const QByteArray report = status_report(Switch_State());
    const QByteArray text = corrupt_text(plan, report);
    QVERIFY(text.startsWith(report));
    const QByteArray filling = text.mid(report.size());
    QVERIFY(filling.size() > 1000);
    QVERIFY(std::all_of(filling.begin(), filling.end(),
                        [](char byte) { return byte == '.' || byte == '\n'; }));
}

void Test_Fault_Plan::markup_is_put_around_the_hotkey_and_the_custom_names_only() {
    Fault_Plan plan;
    plan.markup = true;
    const Switch_State state;
    QCOMPARE(corrupt_text(plan, information_report(state)).count('<'), 3);
    QCOMPARE(corrupt_text(plan, status_report(state)).count('<'), 3 * 4);
    QCOMPARE(corrupt_text(plan, layout_report(state)), layout_report(state));
    QVERIFY(corrupt_text(plan, information_report(state))
                .startsWith("Current Hotkey Trigger: <b>Left Ctrl</b>"));
}

void Test_Fault_Plan::markup_keeps_the_columns_of_a_custom_entry() {
    Fault_Plan plan;
    plan.markup = true;
    QVERIFY(corrupt_text(plan, status_report(Switch_State())).contains("C2\t100 100 <b>WALL</b>"));
}

void Test_Fault_Plan::silence_and_disappearance_send_nothing() {
    Fault_Plan silent;
    silent.silence = true;
    Fault_Plan gone;
    gone.disappearance = true;
    QVERIFY(plan_chunks(silent, "Done.\n").empty());
    QVERIFY(plan_chunks(gone, "Done.\n").empty());
}

void Test_Fault_Plan::an_empty_answer_sends_nothing() {
    QVERIFY(plan_chunks(Fault_Plan(), "").empty());
}

void Test_Fault_Plan::faults_add_up() {
    Fault_Plan plan;
    plan.crlf = true;
    plan.missing_key = "two";
    plan.chunk_size = 4;
    QCOMPARE(plan_chunks(plan, "one\ntwo\nsix\n"),
             (std::vector<Timed_Chunk>{{milliseconds(0), "one\r"},
                                       {milliseconds(5), "\nsix"},
                                       {milliseconds(5), "\r\n"}}));
}

QTEST_GUILESS_MAIN(Test_Fault_Plan)

#include "test_fault_plan.moc"
