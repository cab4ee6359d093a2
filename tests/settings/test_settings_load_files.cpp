// SPDX-License-Identifier: MIT

#include "tests/settings/settings_snapshot.h"
#include "tests/support/close_fixture.h"
#include "tests/support/model_fixture.h"
#include "tests/support/settings_fixture.h"
#include "tests/support/wait_until.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

/// Files of all kinds: other line ends, bytes that are not text, and paths that can't be read.
class Test_Settings_Load_Files : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void a_file_with_windows_line_ends_loads_the_same();
    void a_last_line_without_an_end_counts();
    void a_file_with_bare_carriage_returns_is_one_long_line();
    void bytes_that_are_no_utf8_go_out_as_they_stand();
    void a_nul_byte_goes_out_as_it_stands();
    void a_file_without_a_single_label_data();
    void a_file_without_a_single_label();
    void labels_without_values_are_missing_lines();
    void a_path_with_nothing_to_read_is_a_file_without_labels_data();
    void a_path_with_nothing_to_read_is_a_file_without_labels();
    void a_folder_is_entered_and_not_loaded();
    void a_file_that_vanishes_between_the_parts_is_loaded_whole();
    void a_file_that_changes_between_the_parts_is_loaded_as_it_was();
    void a_path_beyond_ascii_is_read();

private:
    [[nodiscard]] bool load(const QString& path, int first_part_errors = 0, int mode_errors = 0);

    std::unique_ptr<Settings_Fixture> fixture;
    Settings_Lines lines;
    /// The audio boxes as the unit's report has filled them; a file without a state leaves them.
    QString audio_before;
};

namespace {

/// The state after a load in which every line is missing, into a filled page.
const Snapshot snapshot_without_lines = {{"km", "0"},       {"usb", "0"},
                                         {"limit", "-1"},   {"roll", "0"},
                                         {"mode", "0"},     {"parking", "0|0"},
                                         {"names", ""},     {"resolutions", "-1 -1 -1 -1"},
                                         {"buzzer", "off"}, {"label 1", ""},
                                         {"label 2", ""},   {"label 3", ""},
                                         {"label 4", ""},   {"fields", "100|100|DESK"}};

/// A file without labels causes an error box for each custom entry, and one at the mouse mode for
/// the empty label.
constexpr int first_errors_without_lines = 4;
constexpr int mode_errors_without_lines = 1;

} // namespace

void Test_Settings_Load_Files::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    lines = Settings_Lines(model);
    fixture = std::make_unique<Settings_Fixture>(model);
    QVERIFY(fixture->open_filled());
    fixture->robot.clear_snapshots();
    fixture->silence_switch();
    audio_before = fixture->checked_audio_boxes();
    QCOMPARE(audio_before.isEmpty(), !fixture->is_pro());
}

void Test_Settings_Load_Files::cleanup() { close_fixture(fixture); }

bool Test_Settings_Load_Files::load(const QString& path, int first_part_errors, int mode_errors) {
    return fixture->load_first_part(path, first_part_errors) &&
           fixture->wait_for_second_part(0, mode_errors);
}

void Test_Settings_Load_Files::a_file_with_windows_line_ends_loads_the_same() {
    QVERIFY2(load(fixture->write(lines.text("\r\n"))), fixture->robot.why());
    QCOMPARE(look_at(*fixture), good_snapshot(*fixture));
    QCOMPARE(fixture->window_fixture.commands(),
             lines.values(first_part_labels) + fixture->sent_in_second_part(lines));
}

void Test_Settings_Load_Files::a_last_line_without_an_end_counts() {
    QVERIFY2(load(fixture->write(lines.text().chopped(1))), fixture->robot.why());
    QCOMPARE(look_at(*fixture), good_snapshot(*fixture));
    QCOMPARE(fixture->window_fixture.commands().constLast(), QByteArray("//km"));
}

// Every value extends to the end of the file, and the switch gets it unchanged.
void Test_Settings_Load_Files::a_file_with_bare_carriage_returns_is_one_long_line() {
    const QByteArray text = lines.text("\r");
    QVERIFY2(fixture->load_first_part(fixture->write(text)), fixture->robot.why());
    QByteArray sent;
    for (const QByteArray& label : first_part_labels) {
        sent += text.mid(text.indexOf(label) + label.size()) + '\r';
    }
    QVERIFY(wait_until(
        [&] { return fixture->window_fixture.device.received_bytes().size() >= sent.size(); }));
    QCOMPARE(fixture->window_fixture.device.received_bytes(), sent);
    const Snapshot snapshot = look_at(*fixture);
    QCOMPARE(snapshot.value("km"), "1");
    QCOMPARE(snapshot.value("resolutions"), "1 12 9 8");
    QVERIFY(snapshot.value("names").startsWith("BANK\rCustommousemovementsetting2:"));
}

void Test_Settings_Load_Files::bytes_that_are_no_utf8_go_out_as_they_stand() {
    lines["Custom mouse movement setting 2: "] = "//MM C2 101 102 \xFF\x80T\xC3";
    lines["Data from mouse movement label 2: "] = "101 102 \xFF\x80T\xC3";
    lines["Cursor Rolling: "] = "//o1\xE2\x82";
    QVERIFY2(load(fixture->write(lines.text())), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(),
             lines.values(first_part_labels) + fixture->sent_in_second_part(lines));
    const QString replaced = QString("%1%1T%1").arg(QChar(QChar::ReplacementCharacter));
    QCOMPARE(look_at(*fixture),
             good_snapshot(*fixture, {{"names", "BANK " + replaced + " LAMP SOFA"},
                                      {"label 2", "101 102 " + replaced},
                                      {"roll", "0"}}));
}

void Test_Settings_Load_Files::a_nul_byte_goes_out_as_it_stands() {
    lines["KM Control: "] = QByteArray("//c3\0//F", 8);
    lines["USB Control: "] = QByteArray("\0//u2", 5);
    QVERIFY2(load(fixture->write(lines.text())), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(),
             lines.values(first_part_labels) + fixture->sent_in_second_part(lines));
    QCOMPARE(look_at(*fixture), good_snapshot(*fixture, {{"km", "2"}, {"usb", "1"}}));
}

void Test_Settings_Load_Files::a_file_without_a_single_label_data() {
    QTest::addColumn<QByteArray>("content");
    QByteArray all_bytes;
    for (int byte = 0; byte < 256; ++byte) {
        all_bytes.append(static_cast<char>(byte));
    }
    QTest::addRow("empty") << QByteArray();
    QTest::addRow("binary") << all_bytes.repeated(64);
    QTest::addRow("text") << QByteArray("Dear Sir or Madam,\nthis is no settings file.\n");
    QTest::addRow("labels without their blank") << QByteArray("KM Control://c2\nUSB Control:\n");
    QTest::addRow("labels in other letters") << QByteArray("km control: //c2\n");
    QTest::addRow("UTF-16") << QByteArray("\xFF\xFEK\0M\0 \0C\0o\0n\0t\0r\0o\0l\0:\0 \0", 26);
}

void Test_Settings_Load_Files::a_file_without_a_single_label() {
    QFETCH(const QByteArray, content);
    QVERIFY2(load(fixture->write(content), first_errors_without_lines, mode_errors_without_lines),
             fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList(fixture->sent_count()));
    Snapshot snapshot = look_at(*fixture);
    QCOMPARE(snapshot.take("audio"), audio_before);
    // All four are on the first cell, and both gray channels have marked the one tile there.
    QCOMPARE(snapshot.take("tiles"), "[Channel 4\nINACTIVE\nINACTIVE #a0a0a4].../..../..../....");
    QCOMPARE(snapshot, snapshot_without_lines);
}

void Test_Settings_Load_Files::labels_without_values_are_missing_lines() {
    QByteArray labels_alone;
    for (const QByteArray& line : lines.text().split('\n')) {
        labels_alone += line.left(line.indexOf(": ") + 2) + '\n';
    }
    QVERIFY2(
        load(fixture->write(labels_alone), first_errors_without_lines, mode_errors_without_lines),
        fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList(fixture->sent_count()));
    Snapshot snapshot = look_at(*fixture);
    QCOMPARE(snapshot.take("audio"), audio_before);
    QVERIFY(snapshot.take("tiles").startsWith("[Channel 4"));
    QCOMPARE(snapshot, snapshot_without_lines);
}

void Test_Settings_Load_Files::a_path_with_nothing_to_read_is_a_file_without_labels_data() {
    QTest::addColumn<QString>("path");
    QTest::addRow("no such file") << "/nowhere/to/be/found/settings.txt";
    QTest::addRow("a file in place of the folder") << "/dev/null/settings.txt";
    // It can be opened, but the first read fails.
    QTest::addRow("a file that can't be read on") << "/proc/self/mem";
    QTest::addRow("a high surrogate alone") << QString(QChar(0xD83D)) + ".txt";
    QTest::addRow("a low surrogate alone") << QString("a") + QChar(0xDDA5);
    // Opening it would block until there is a writer.
    QTest::addRow("a pipe") << "pipe";
    QTest::addRow("a link to a pipe") << "link";
    // It would never end.
    QTest::addRow("a device") << "/dev/zero";
}

void Test_Settings_Load_Files::a_path_with_nothing_to_read_is_a_file_without_labels() {
    QFETCH(const QString, path);
    QCOMPARE(mkfifo(fixture->path("pipe").toUtf8(), 0600), 0);
    QVERIFY(QFile::link(fixture->path("pipe"), fixture->path("link")));
    QVERIFY2(load(QDir(fixture->path("")).filePath(path), first_errors_without_lines,
                  mode_errors_without_lines),
             fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList(fixture->sent_count()));
}

void Test_Settings_Load_Files::a_folder_is_entered_and_not_loaded() {
    QVERIFY(QDir(QDir::homePath()).mkdir("folder"));
    fixture->expect_file_dialog("Select file", choose_file(fixture->path("folder")));
    // It still exists in the folder.
    fixture->expect_file_dialog("Select file", press_key(Qt::Key_Escape));
    fixture->window_fixture.button("pushButton_Load_Settings_File").click();
    QVERIFY2(fixture->robot.done(), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(), fixture->start_commands());
}

void Test_Settings_Load_Files::a_file_that_vanishes_between_the_parts_is_loaded_whole() {
    const QString path = fixture->write(lines.text());
    QVERIFY2(fixture->load_first_part(path), fixture->robot.why());
    QVERIFY(QFile::remove(path));
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(look_at(*fixture), good_snapshot(*fixture));
}

void Test_Settings_Load_Files::a_file_that_changes_between_the_parts_is_loaded_as_it_was() {
    const QString path = fixture->write(lines.text());
    QVERIFY2(fixture->load_first_part(path), fixture->robot.why());
    fixture->write("USB Control: //u4\n");
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(look_at(*fixture), good_snapshot(*fixture));
}

void Test_Settings_Load_Files::a_path_beyond_ascii_is_read() {
    const QString name = QString::fromUtf8("Größe 東京 🖥.txt");
    QVERIFY2(load(fixture->write(lines.text(), name)), fixture->robot.why());
    QCOMPARE(look_at(*fixture), good_snapshot(*fixture));
}

QTEST_MAIN(Test_Settings_Load_Files)

#include "test_settings_load_files.moc"
