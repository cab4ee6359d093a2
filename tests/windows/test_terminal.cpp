// SPDX-License-Identifier: MIT

#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QElapsedTimer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <ctime>

/// The terminal pane: the raw stream as plain characters, scrolled to its end, at a constant cost.
class Test_Terminal : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void text_is_shown_raw_and_in_the_order_of_arrival();
    void markup_is_shown_as_its_characters_data();
    void markup_is_shown_as_its_characters();
    void markup_that_is_the_first_text_of_all_is_shown_as_its_characters();
    void odd_line_ends_read_as_if_the_whole_had_been_rewritten();
    void a_nul_byte_hides_the_rest_of_its_chunk();
    void bytes_that_are_no_text_show_as_replacement_characters();
    void the_end_is_in_view_after_a_chunk();
    void the_view_is_scrolled_again_100_ms_later();
    void the_terminal_takes_no_typing_and_keeps_no_undo_history();
    void the_terminal_is_never_cleared();
    void a_chunk_costs_no_more_with_a_megabyte_shown();

private:
    bool wait_for(const QString& text);
    QScrollBar& scroll_bar() const { return *lite->terminal().verticalScrollBar(); }
    bool is_end_in_view() const;

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

/// Processor time of this thread, so that the load of the machine does not count.
double thread_seconds() {
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

QByteArray lines_of(int size) {
    QByteArray text;
    for (int line = 0; text.size() < size; ++line) {
        text += QByteArray::number(line).rightJustified(8, '0') + " all quiet on channel one\n";
    }
    return text;
}

/// The processor time of one chunk from the line to the terminal.
double cost_of_chunk(Lite_Fixture& lite) {
    QSignalSpy shown(&lite.terminal(), &QTextEdit::textChanged);
    const double before = thread_seconds();
    lite.device.send("one more line of text\n");
    if (!wait_until([&] { return !shown.isEmpty(); })) {
        qFatal("The chunk was not shown");
    }
    return thread_seconds() - before;
}

double median(QList<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

void Test_Terminal::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    QVERIFY(lite->open_filled());
}

void Test_Terminal::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

bool Test_Terminal::wait_for(const QString& text) {
    return wait_until([&] { return lite->terminal_text() == text; });
}

bool Test_Terminal::is_end_in_view() const {
    const QTextEdit& terminal = lite->terminal();
    return terminal.textCursor().atEnd() &&
           terminal.viewport()->rect().contains(terminal.cursorRect());
}

void Test_Terminal::text_is_shown_raw_and_in_the_order_of_arrival() {
    QString expected = lite->terminal_text();
    for (const char* chunk : {"  blanks before", " and behind  \n", "\n\n", "\ttabs\t\n",
                              "no line "
                              "end",
                              "**C 2\n", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\n", "x"}) {
        lite->device.send(chunk);
        expected += QString::fromUtf8(chunk);
        QVERIFY(wait_for(expected));
    }
}

void Test_Terminal::markup_is_shown_as_its_characters_data() {
    QTest::addColumn<QByteArray>("chunk");
    QTest::newRow("bold") << QByteArray("<b>bold</b>\n");
    QTest::newRow("a whole page") << QByteArray("<!DOCTYPE html><html><body><h1>Hi</h1></body>\n");
    QTest::newRow("an image") << QByteArray("<img src=\"file:///nowhere.png\">\n");
    QTest::newRow("entities") << QByteArray("&lt;&amp;&#65;\n");
    QTest::newRow("Markdown") << QByteArray("# head\n* item **C*\n`code`\n");
    QTest::newRow("a format") << QByteArray("%s%n%1 100%\n");
}

void Test_Terminal::markup_is_shown_as_its_characters() {
    QFETCH(const QByteArray, chunk);
    const QString expected = lite->terminal_text() + QString::fromUtf8(chunk);
    lite->device.send(chunk);
    QVERIFY(wait_for(expected));
    // It has not left a style either.
    QVERIFY(!lite->terminal().textCursor().charFormat().isImageFormat());
    QCOMPARE(lite->terminal().textCursor().charFormat().fontWeight(),
             lite->terminal().currentCharFormat().fontWeight());
    QVERIFY(!lite->terminal().toHtml().contains("<h1"));
    QVERIFY(!lite->terminal().toHtml().contains("<img"));
    QVERIFY(lite->say("plain\n"));
}

void Test_Terminal::markup_that_is_the_first_text_of_all_is_shown_as_its_characters() {
    // Qt guesses from the beginning of a text whether it is rich.
    for (const char* chunk : {"<b>bold</b>\n", "<html><body><h1>Hi</h1></body></html>\n"}) {
        lite = std::make_unique<Lite_Fixture>();
        Fault_Plan silent;
        silent.silence = true;
        lite->device.set_faults(silent);
        lite->open();
        QVERIFY(lite->say(chunk));
        QVERIFY(lite->say("<i>more</i>\n"));
        lite.reset();
    }
}

void Test_Terminal::odd_line_ends_read_as_if_the_whole_had_been_rewritten() {
    QTextEdit rewritten;
    rewritten.setPlainText(lite->terminal_text());
    for (const char* chunk : {"one\r\ntwo\r\n", "three\r", "\nfour", "\r", "\r", "\n\n",
                              "non\xC2\xA0"
                              "breaking",
                              "line\xE2\x80\xA8separator", "paragraph\xE2\x80\xA9separator\n",
                              "\v\f\x1b[1m\x7f", "end\n"}) {
        rewritten.setPlainText(rewritten.toPlainText() + QString::fromUtf8(chunk));
        lite->device.send(chunk);
        QVERIFY2(wait_for(rewritten.toPlainText()), chunk);
    }
}

void Test_Terminal::a_nul_byte_hides_the_rest_of_its_chunk() {
    const QString before = lite->terminal_text();
    lite->device.send(QByteArray("seen\0unseen **C 3\n", 18));
    QVERIFY(wait_for(before + "seen"));
    lite->device.send("seen again\n");
    QVERIFY(wait_for(before + "seenseen again\n"));
    QCOMPARE(lite->combo("comboBox_KM_Control").currentIndex(), 0);
}

void Test_Terminal::bytes_that_are_no_text_show_as_replacement_characters() {
    const QString before = lite->terminal_text();
    lite->device.send("a\xFFz\n");
    QVERIFY(wait_for(before + "a\ufffdz\n"));
}

void Test_Terminal::the_end_is_in_view_after_a_chunk() {
    QVERIFY(lite->say(lines_of(3000)));
    QVERIFY(scroll_bar().maximum() > scroll_bar().pageStep());
    QVERIFY(is_end_in_view());
    lite->terminal().moveCursor(QTextCursor::Start);
    QVERIFY(!is_end_in_view());
    QVERIFY(lite->say("one more\n"));
    QVERIFY(is_end_in_view());
}

void Test_Terminal::the_view_is_scrolled_again_100_ms_later() {
    QElapsedTimer clock;
    clock.start();
    QVERIFY(lite->say(lines_of(3000)));
    lite->terminal().moveCursor(QTextCursor::Start);
    QVERIFY(!is_end_in_view());
    QVERIFY(wait_until([this] { return is_end_in_view(); }));
    QVERIFY2(clock.elapsed() >= 100, qPrintable(QString::number(clock.elapsed())));
}

void Test_Terminal::the_terminal_takes_no_typing_and_keeps_no_undo_history() {
    const QString before = lite->terminal_text();
    lite->terminal().setFocus();
    QTest::keyClicks(&lite->terminal(), "typed");
    QCOMPARE(lite->terminal_text(), before);
    QVERIFY(lite->say("a chunk\n"));
    QVERIFY(!lite->terminal().isUndoRedoEnabled());
    QVERIFY(!lite->terminal().document()->isUndoAvailable());
    lite->terminal().undo();
    QCOMPARE(lite->terminal_text(), before + "a chunk\n");
}

void Test_Terminal::the_terminal_is_never_cleared() {
    const QString first_report = lite->terminal_text();
    QVERIFY(!first_report.isEmpty());
    lite->button("pushButton_OFF_Connection").click();
    QCOMPARE(lite->terminal_text(), first_report);
    lite->button("pushButton_ON_Connection").click();
    QVERIFY(lite->wait_filled());
    QCOMPARE(lite->terminal_text(), first_report + first_report);
    lite->button("pushButton_Refresh").click();
    QVERIFY(lite->wait_filled());
    QCOMPARE(lite->terminal_text(), first_report + first_report + first_report);
}

void Test_Terminal::a_chunk_costs_no_more_with_a_megabyte_shown() {
    Lite_Fixture full;
    QVERIFY(full.open_filled());
    full.terminal().setPlainText(lines_of(1'000'000));
    lite->terminal().setPlainText(lines_of(1000));
    QList<double> with_little;
    QList<double> with_much;
    // The first rounds lay the text out.
    for (int round = 0; round < 25; ++round) {
        const double little = cost_of_chunk(*lite);
        const double much = cost_of_chunk(full);
        if (round >= 4) {
            with_little.append(little);
            with_much.append(much);
        }
    }
    // Rewriting the whole text would cost a thousand times as much.
    const double ratio = median(with_much) / median(with_little);
    QVERIFY2(ratio < 5, qPrintable(QString("%1 times").arg(ratio)));
}

QTEST_MAIN(Test_Terminal)

#include "test_terminal.moc"
