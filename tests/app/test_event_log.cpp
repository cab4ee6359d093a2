// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "tests/support/log_folder.h"

#include <QDateTime>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QTimeZone>

#include <ctime>

/// The event log: where it is created, its three kinds of lines, and when entries are dropped.
class Test_Event_Log : public QObject {
    Q_OBJECT

private slots:
    void opening_makes_the_file_and_writes_the_start_line_at_once();
    void an_entry_is_its_message_three_blanks_and_the_local_time();
    void an_entrys_time_is_that_of_the_place_data();
    void an_entrys_time_is_that_of_the_place();
    void every_entry_is_in_the_file_at_once();
    void a_message_is_written_as_it_stands_data();
    void a_message_is_written_as_it_stands();
    void closing_writes_the_stop_line_at_once();
    void a_run_without_entries_leaves_exactly_two_lines();
    void a_second_run_erases_the_first();
    void an_entry_after_closing_goes_nowhere();
    void an_entry_before_opening_goes_nowhere();
    void closing_a_log_that_was_never_opened_makes_no_file();
    void closing_a_log_that_was_never_opened_leaves_an_older_file_untouched();
    void without_its_folder_no_file_is_made_and_entries_vanish();
    void a_file_in_the_folders_place_is_left_alone();
    void a_file_that_can_not_be_opened_makes_opening_fail_in_silence();
    void a_write_that_fails_is_ignored();
    void after_a_failed_opening_a_later_one_works();
};

namespace {

const QByteArray start_line = "Start.........\n";
const QByteArray stop_line = "Stop.........\n";

/// Puts the process into another time zone for the lifetime of the object.
class Time_Zone {
public:
    explicit Time_Zone(const QByteArray& zone) {
        qputenv("TZ", zone);
        tzset();
    }
    ~Time_Zone() {
        if (was_set) {
            qputenv("TZ", earlier);
        } else {
            qunsetenv("TZ");
        }
        tzset();
    }
    Time_Zone(const Time_Zone&) = delete;
    Time_Zone& operator=(const Time_Zone&) = delete;

private:
    bool was_set = qEnvironmentVariableIsSet("TZ");
    QByteArray earlier = qgetenv("TZ");
};

} // namespace

void Test_Event_Log::opening_makes_the_file_and_writes_the_start_line_at_once() {
    const Log_Folder folder;
    QCOMPARE(open_log(), 1);
    QCOMPARE(folder.text(), start_line);
    close_log();
}

void Test_Event_Log::an_entry_is_its_message_three_blanks_and_the_local_time() {
    const Log_Folder folder;
    open_log();
    const QDateTime before = QDateTime::currentDateTime();
    write_log_line("Write data error");
    const QDateTime after = QDateTime::currentDateTime();
    const QString lines = QString::fromUtf8(folder.text());
    close_log();

    const QRegularExpression form("\\AStart\\.{9}\nWrite data error   "
                                  "(\\d{4}-\\d{2}-\\d{2} \\d{2}:\\d{2}:\\d{2})\n\\z");
    const QRegularExpressionMatch match = form.match(lines);
    QVERIFY2(match.hasMatch(), qPrintable(lines));
    // The text has no fractions of a second.
    const QDateTime time = QDateTime::fromString(match.captured(1), "yyyy-MM-dd HH:mm:ss");
    QVERIFY(time > before.addSecs(-1));
    QVERIFY(time <= after);
}

void Test_Event_Log::an_entrys_time_is_that_of_the_place_data() {
    QTest::addColumn<QByteArray>("zone"); // POSIX counts westwards
    QTest::addColumn<int>("seconds_east");
    QTest::newRow("UTC") << QByteArray("UTC0") << 0;
    QTest::newRow("Kathmandu") << QByteArray("<+0545>-5:45") << 20'700;
    QTest::newRow("Newfoundland") << QByteArray("NST3:30") << -12'600;
    QTest::newRow("beyond midnight") << QByteArray("<+14>-14") << 50'400;
}

void Test_Event_Log::an_entrys_time_is_that_of_the_place() {
    QFETCH(const QByteArray, zone);
    QFETCH(const int, seconds_east);
    const Time_Zone local_zone(zone);
    const Log_Folder folder;
    open_log();
    const qint64 before = QDateTime::currentSecsSinceEpoch();
    write_log_line("Write data error");
    const qint64 after = QDateTime::currentSecsSinceEpoch();
    const QByteArray lines = folder.text();
    close_log();
    QStringList possible;
    for (qint64 second = before; second <= after; ++second) {
        const QDateTime there =
            QDateTime::fromSecsSinceEpoch(second + seconds_east, QTimeZone::utc());
        possible << "Write data error   " + there.toString("yyyy-MM-dd HH:mm:ss");
    }
    const QString entry = QString::fromUtf8(lines.split('\n').value(1));
    QVERIFY2(possible.contains(entry), qPrintable(entry + ", not " + possible.join(" or ")));
}

void Test_Event_Log::every_entry_is_in_the_file_at_once() {
    const Log_Folder folder;
    open_log();
    write_log_line("first");
    QCOMPARE(folder.entries(), QStringList{"first"});
    write_log_line("second");
    const QStringList both{"first", "second"};
    QCOMPARE(folder.entries(), both);
    close_log();
}

void Test_Event_Log::a_message_is_written_as_it_stands_data() {
    QTest::addColumn<QString>("message");
    QTest::newRow("empty") << "";
    QTest::newRow("format marks") << "%s %n %1 {}";
    QTest::newRow("markup") << "<b>bold</b> &amp;";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("Grüße");
    QTest::newRow("long") << QString(100'000, 'x');
}

void Test_Event_Log::a_message_is_written_as_it_stands() {
    QFETCH(QString, message);
    const Log_Folder folder;
    open_log();
    write_log_line(message.toStdString());
    QCOMPARE(folder.entries(), QStringList{message});
    close_log();
}

void Test_Event_Log::closing_writes_the_stop_line_at_once() {
    const Log_Folder folder;
    open_log();
    write_log_line("one");
    close_log();
    QVERIFY(folder.text().startsWith(start_line + "one   "));
    QVERIFY(folder.text().endsWith('\n' + stop_line));
    QCOMPARE(folder.text().count('\n'), 3);
}

void Test_Event_Log::a_run_without_entries_leaves_exactly_two_lines() {
    const Log_Folder folder;
    open_log();
    close_log();
    QCOMPARE(folder.text(), start_line + stop_line);
}

void Test_Event_Log::a_second_run_erases_the_first() {
    const Log_Folder folder;
    open_log();
    write_log_line("of the first run");
    close_log();
    open_log();
    QCOMPARE(folder.text(), start_line);
    write_log_line("of the second run");
    close_log();
    QCOMPARE(folder.entries(), QStringList{"of the second run"});
}

void Test_Event_Log::an_entry_after_closing_goes_nowhere() {
    const Log_Folder folder;
    open_log();
    close_log();
    write_log_line("too late");
    QCOMPARE(folder.text(), start_line + stop_line);
    // It is not kept for the next run either.
    open_log();
    QCOMPARE(folder.text(), start_line);
    close_log();
}

void Test_Event_Log::an_entry_before_opening_goes_nowhere() {
    const Log_Folder folder;
    write_log_line("too early");
    QVERIFY(!folder.has_log());
    open_log();
    QCOMPARE(folder.text(), start_line);
    close_log();
}

void Test_Event_Log::closing_a_log_that_was_never_opened_makes_no_file() {
    const Log_Folder folder;
    close_log();
    QVERIFY(!folder.has_log());
    QCOMPARE(folder.names().size(), 1);
}

void Test_Event_Log::closing_a_log_that_was_never_opened_leaves_an_older_file_untouched() {
    const Log_Folder folder;
    QFile file(folder.log_path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("older\n");
    file.close();
    write_log_line("swallowed");
    close_log();
    QCOMPARE(folder.text(), "older\n");
}

void Test_Event_Log::without_its_folder_no_file_is_made_and_entries_vanish() {
    const Log_Folder folder(Log_Folder::Folder::missing);
    QCOMPARE(open_log(), -1);
    write_log_line("vanishes");
    close_log();
    QCOMPARE(folder.names(), QStringList());
}

void Test_Event_Log::a_file_in_the_folders_place_is_left_alone() {
    const Log_Folder folder(Log_Folder::Folder::missing);
    QFile file(R"(C:\Users\Public\Documents)");
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no folder");
    file.close();
    QCOMPARE(open_log(), -1);
    write_log_line("vanishes");
    close_log();
    QCOMPARE(folder.names().size(), 1);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "no folder");
}

void Test_Event_Log::a_file_that_can_not_be_opened_makes_opening_fail_in_silence() {
    const Log_Folder folder;
    QVERIFY(QDir().mkdir(folder.log_path()));
    QCOMPARE(open_log(), -1);
    write_log_line("vanishes");
    close_log();
    QCOMPARE(QDir(folder.log_path()).entryList(QDir::NoDotAndDotDot).size(), 0);
}

void Test_Event_Log::a_write_that_fails_is_ignored() {
    const Log_Folder folder;
    // A device that opens but accepts no data, like a full disk.
    QVERIFY(QFile::link("/dev/full", folder.log_path()));
    QCOMPARE(open_log(), 1);
    write_log_line("lost");
    close_log();
    QVERIFY(QFile::remove(folder.log_path()));
    // The next run starts with a new file.
    QCOMPARE(open_log(), 1);
    write_log_line("kept");
    QCOMPARE(folder.entries(), QStringList{"kept"});
    close_log();
}

void Test_Event_Log::after_a_failed_opening_a_later_one_works() {
    {
        const Log_Folder folder(Log_Folder::Folder::missing);
        QCOMPARE(open_log(), -1);
    }
    const Log_Folder folder;
    QCOMPARE(open_log(), 1);
    write_log_line("kept");
    QCOMPARE(folder.entries(), QStringList{"kept"});
    close_log();
}

QTEST_GUILESS_MAIN(Test_Event_Log)

#include "test_event_log.moc"
