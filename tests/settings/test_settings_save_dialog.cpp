// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "tests/support/close_fixture.h"
#include "tests/support/log_folder.h"
#include "tests/support/model_fixture.h"
#include "tests/support/settings_fixture.h"
#include "tests/support/wait_until.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QTest>

/// How a settings file is saved: the dialog, the box, and paths of all kinds.
class Test_Settings_Save_Dialog : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void the_dialog_begins_in_the_users_home_and_shows_text_files();
    void the_status_is_asked_for_before_the_dialog_opens();
    void a_cancelled_dialog_writes_nothing_and_says_nothing();
    void a_save_after_a_cancelled_one_works();
    void the_answer_to_the_question_is_served_while_the_dialog_is_open();
    void a_save_keeps_the_reply_buffer_until_the_next_report();
    void an_existing_file_is_replaced_whole();
    void an_existing_file_stays_if_the_user_does_not_want_it_replaced();
    void a_file_that_cant_be_written_is_saved_as_far_as_the_box_says_data();
    void a_file_that_cant_be_written_is_saved_as_far_as_the_box_says();
    void a_save_after_one_that_failed_works();
    void a_path_beyond_ascii_is_written();
    void no_ending_is_added_to_the_name();
    void the_next_dialog_begins_in_the_home_again();
    void the_look_up_of_coordinates_is_logged_on_the_lite_only();

private:
    /// The last lines of a new unit's file.
    QByteArray last_lines() const {
        return QByteArray("\nMouse Mode: //ks\n") +
               (fixture->is_pro() ? "Audio settings: //a 0\nAudio chacked state: ALL\n" : "");
    }
    QByteArray content() const { return Settings_Fixture::read(fixture->path()); }

    std::unique_ptr<Settings_Fixture> fixture;
};

namespace {

const QByteArray first_line = "KM Control: //c1\n";

} // namespace

void Test_Settings_Save_Dialog::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    fixture = std::make_unique<Settings_Fixture>(model);
    QVERIFY(fixture->open_filled());
    fixture->robot.clear_snapshots();
}

void Test_Settings_Save_Dialog::cleanup() { close_fixture(fixture); }

void Test_Settings_Save_Dialog::the_dialog_begins_in_the_users_home_and_shows_text_files() {
    QString directory;
    QStringList filters;
    auto accept_mode = QFileDialog::AcceptOpen;
    const QWidget* parent = &fixture->window_fixture.window();
    fixture->expect_file_dialog("Save Settings File", [&](QWidget& modal) {
        const auto& dialog = static_cast<QFileDialog&>(modal);
        directory = dialog.directory().path();
        filters = dialog.nameFilters();
        accept_mode = dialog.acceptMode();
        parent = dialog.parentWidget();
        return press_key(Qt::Key_Escape)(modal);
    });
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    QCOMPARE(directory, QDir::homePath());
    QCOMPARE(directory, QFileInfo(fixture->path()).path());
    QCOMPARE(filters, QStringList{"Text files (*.txt)"});
    QCOMPARE(accept_mode, QFileDialog::AcceptSave);
    QVERIFY(parent == nullptr);
}

void Test_Settings_Save_Dialog::the_status_is_asked_for_before_the_dialog_opens() {
    QByteArrayList before_choice;
    fixture->expect_file_dialog("Save Settings File", [&](QWidget& modal) {
        before_choice = fixture->window_fixture.commands();
        return choose_file(fixture->path())(modal);
    });
    fixture->expect_saved_box();
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    QCOMPARE(before_choice, QByteArrayList{"//rl"});
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList());
}

void Test_Settings_Save_Dialog::a_cancelled_dialog_writes_nothing_and_says_nothing() {
    fixture->expect_file_dialog("Save Settings File", press_button("Cancel"));
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    QCOMPARE(fixture->robot.snapshots().size(), 1);
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList{"//rl"});
    QCOMPARE(QDir(QDir::homePath()).entryList(QDir::Files), QStringList());
}

void Test_Settings_Save_Dialog::a_save_after_a_cancelled_one_works() {
    fixture->expect_file_dialog("Save Settings File", press_key(Qt::Key_Escape));
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    QVERIFY2(fixture->save(fixture->path()), fixture->robot.why());
    QVERIFY(content().startsWith(first_line));
    QVERIFY(content().endsWith(last_lines()));
}

void Test_Settings_Save_Dialog::the_answer_to_the_question_is_served_while_the_dialog_is_open() {
    fixture->expect_file_dialog("Save Settings File", [&](QWidget& modal) {
        // The unit changes its channel meanwhile, and the widgets with it.
        fixture->window_fixture.device.press_hotkey(4);
        const bool followed = wait_until([&] {
            return fixture->window_fixture.combo("comboBox_KM_Control").currentIndex() == 3;
        });
        return followed ? choose_file(fixture->path())(modal) : "the notice was not served";
    });
    fixture->expect_saved_box();
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    QVERIFY2(content().startsWith("KM Control: //c4\nUSB Control: //u4\n"), content());
}

void Test_Settings_Save_Dialog::a_save_keeps_the_reply_buffer_until_the_next_report() {
    QVERIFY2(fixture->save(fixture->path()), fixture->robot.why());
    QVERIFY(wait_until(
        [&] { return fixture->window_fixture.terminal_text().endsWith("Buzzer: on\n"); }));
    QVERIFY(fixture->window_fixture.say("**C 3\n"));
    QVERIFY(fixture->window_fixture.say("**C 2\n"));
    // No report follows the question, so the first notice stays and is the one that is found.
    QCOMPARE(fixture->window_fixture.combo("comboBox_KM_Control").currentIndex(), 2);
    QVERIFY(fixture->window_fixture.run_slot("refresh_UI"));
    QVERIFY(fixture->window_fixture.wait_filled());
    QVERIFY(fixture->window_fixture.say("**C 3\n"));
    QVERIFY(fixture->window_fixture.say("**C 2\n"));
    QCOMPARE(fixture->window_fixture.combo("comboBox_KM_Control").currentIndex(), 1);
}

void Test_Settings_Save_Dialog::an_existing_file_is_replaced_whole() {
    fixture->write(QByteArray(100'000, 'x'));
    fixture->expect_file_dialog("Save Settings File", choose_file(fixture->path()));
    fixture->robot.expect({.class_name = "QMessageBox", .action = press_button("Yes")});
    fixture->expect_saved_box();
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    QVERIFY(content().startsWith(first_line));
    QVERIFY(!content().contains('x'));
}

void Test_Settings_Save_Dialog::an_existing_file_stays_if_the_user_does_not_want_it_replaced() {
    fixture->write("precious");
    fixture->expect_file_dialog("Save Settings File", choose_file(fixture->path()));
    fixture->robot.expect({.class_name = "QMessageBox", .action = press_button("No")});
    fixture->expect_file_dialog("Save Settings File", press_key(Qt::Key_Escape));
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    QCOMPARE(content(), QByteArray("precious"));
}

void Test_Settings_Save_Dialog::a_file_that_cant_be_written_is_saved_as_far_as_the_box_says_data() {
    QTest::addColumn<QString>("path");
    QTest::addRow("no such folder") << "/nowhere/to/be/found/settings.txt";
    QTest::addRow("a file in place of the folder") << "/dev/null/settings.txt";
    QTest::addRow("a folder of the system") << "/proc/settings.txt";
}

void Test_Settings_Save_Dialog::a_file_that_cant_be_written_is_saved_as_far_as_the_box_says() {
    QFETCH(const QString, path);
    QVERIFY2(fixture->save(path), fixture->robot.why());
    QVERIFY(!QFile::exists(path));
}

void Test_Settings_Save_Dialog::a_save_after_one_that_failed_works() {
    QVERIFY2(fixture->save("/nowhere/to/be/found/settings.txt"), fixture->robot.why());
    QVERIFY2(fixture->save(fixture->path()), fixture->robot.why());
    QVERIFY(content().startsWith(first_line));
    QVERIFY(content().endsWith(last_lines()));
}

void Test_Settings_Save_Dialog::a_path_beyond_ascii_is_written() {
    const QString path = fixture->path(QString::fromUtf8("Größe 東京 🖥.txt"));
    QVERIFY2(fixture->save(path), fixture->robot.why());
    QVERIFY(Settings_Fixture::read(path).startsWith(first_line));
}

void Test_Settings_Save_Dialog::no_ending_is_added_to_the_name() {
    QVERIFY2(fixture->save(fixture->path("plain")), fixture->robot.why());
    QCOMPARE(QDir(QDir::homePath()).entryList(QDir::Files), QStringList{"plain"});
}

void Test_Settings_Save_Dialog::the_next_dialog_begins_in_the_home_again() {
    QVERIFY(QDir(QDir::homePath()).mkdir("below"));
    QVERIFY2(fixture->save(fixture->path("below/settings.txt")), fixture->robot.why());
    QString directory;
    fixture->expect_file_dialog("Save Settings File", [&](QWidget& modal) {
        directory = static_cast<QFileDialog&>(modal).directory().path();
        return press_key(Qt::Key_Escape)(modal);
    });
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    QCOMPARE(directory, QDir::homePath());
}

void Test_Settings_Save_Dialog::the_look_up_of_coordinates_is_logged_on_the_lite_only() {
    const Log_Folder log;
    QCOMPARE(open_log(), 1);
    QVERIFY2(fixture->save(fixture->path()), fixture->robot.why());
    QStringList expected;
    for (int sought = 1; sought <= 4; ++sought) {
        for (int passed = 1; passed <= sought; ++passed) {
            expected.append(QString("Channel %1       Channel %2").arg(passed).arg(sought));
        }
    }
    QCOMPARE(log.entries(), fixture->is_lite() ? expected : QStringList());
    close_log();
}

QTEST_MAIN(Test_Settings_Save_Dialog)

#include "test_settings_save_dialog.moc"
