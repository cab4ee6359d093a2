// SPDX-License-Identifier: MIT

#include "sim/switch_report.h"
#include "tests/settings/settings_snapshot.h"
#include "tests/support/close_fixture.h"
#include "tests/support/model_fixture.h"
#include "tests/support/settings_fixture.h"
#include "tests/support/wait_until.h"

#include <QTest>

/// The warnings of the user guide: how settings can be lost without a message.
class Test_Settings_Losses : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void a_save_after_an_unanswered_refresh_has_no_names_and_its_load_wipes_the_units();
    void a_saved_box_that_stands_over_a_load_costs_a_pro_its_audio_lines();
    void a_blank_at_the_end_of_a_line_counts();
    void a_report_that_comes_before_the_file_is_chosen_keeps_its_names();
    void a_report_that_comes_between_the_parts_keeps_its_names();
    void a_lites_file_sets_the_mouse_mode_of_the_others();

private:
    [[nodiscard]] QStringList custom_items() const;

    std::unique_ptr<Settings_Fixture> fixture;
    Settings_Lines lines;
};

namespace {

const QStringList unit_names = {"DESK", "WALL", "HALL", "ROOM"};
const QStringList file_names = {"BANK", "TREE", "LAMP", "SOFA"};

} // namespace

void Test_Settings_Losses::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    lines = Settings_Lines(model);
    fixture = std::make_unique<Settings_Fixture>(model);
    QVERIFY(fixture->open_filled());
    QCOMPARE(custom_items(), unit_names);
}

void Test_Settings_Losses::cleanup() { close_fixture(fixture); }

QStringList Test_Settings_Losses::custom_items() const {
    QStringList items;
    for (int item = 9; item < fixture->window_fixture.resolution(1).count(); ++item) {
        items.append(fixture->window_fixture.resolution(1).itemText(item));
    }
    return items;
}

void Test_Settings_Losses::
    a_save_after_an_unanswered_refresh_has_no_names_and_its_load_wipes_the_units() {
    fixture->silence_switch();
    fixture->window_fixture.button("pushButton_Refresh").click();
    QCOMPARE(custom_items(), QStringList());
    QVERIFY(fixture->window_fixture.button("pushButton_Create_Settings_File").isEnabled());
    QVERIFY2(fixture->save(fixture->path()), fixture->robot.why());
    const QByteArray text = Settings_Fixture::read(fixture->path());
    QVERIFY2(text.contains("\nCustom mouse movement setting 1: //MM C1 100 100 \n"), text);
    QVERIFY2(text.contains("\nData from mouse movement label 1: 100 100 DESK\n"), text);

    QCOMPARE(fixture->window_fixture.device.unit().state().custom_entries[0].name,
             QByteArray("DESK"));
    QVERIFY2(fixture->load_first_part(fixture->path()), fixture->robot.why());
    (void)fixture->window_fixture.commands();
    for (const Custom_Entry& entry : fixture->window_fixture.device.unit().state().custom_entries) {
        QCOMPARE(entry.name, QByteArray());
    }
}

void Test_Settings_Losses::a_saved_box_that_stands_over_a_load_costs_a_pro_its_audio_lines() {
    fixture->silence_switch();
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text(), "other.txt")),
             fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    // The part is called again while the box is open, as by the timer of an earlier load; its own
    // box covers the first.
    fixture->expect_file_dialog("Save Settings File", choose_file(fixture->path()));
    fixture->robot.expect({.text = "File saved", .action = [&](QWidget&) {
                               const bool called = QMetaObject::invokeMethod(
                                   &fixture->window_fixture.window(),
                                   "load_second_part_of_settings", Qt::QueuedConnection);
                               return called ? QString() : "no such slot";
                           }});
    fixture->expect_applied_box();
    fixture->expect_saved_box();
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    QVERIFY2(fixture->robot.done(), fixture->robot.why());
    QVERIFY(Settings_Fixture::read(fixture->path()).endsWith("\nMouse Mode: //km\n"));
    // The next one has them.
    QVERIFY2(fixture->save(fixture->path("next.txt")), fixture->robot.why());
    QCOMPARE(Settings_Fixture::read(fixture->path("next.txt")).count("Audio"),
             fixture->is_pro() ? 2 : 0);
}

void Test_Settings_Losses::a_blank_at_the_end_of_a_line_counts() {
    fixture->silence_switch();
    lines["Cursor Rolling: "] = "//o1 ";
    lines["Buzzer: "] = "//B1 ";
    lines["Mouse Mode: "] = "//km ";
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(look_at(*fixture),
             good_snapshot(*fixture, {{"roll", "0"}, {"buzzer", "off"}, {"mode", "0"}}));
    // The unit gets the blanks as well.
    QCOMPARE(fixture->window_fixture.commands(),
             lines.values(first_part_labels) + fixture->sent_in_second_part(lines));
}

void Test_Settings_Losses::a_report_that_comes_before_the_file_is_chosen_keeps_its_names() {
    fixture->window_fixture.button("pushButton_Refresh").click();
    const QString path = fixture->write(lines.text());
    fixture->expect_file_dialog("Select file", [&](QWidget& modal) {
        return fixture->window_fixture.wait_filled() ? choose_file(path)(modal) : "no report came";
    });
    fixture->window_fixture.button("pushButton_Load_Settings_File").click();
    QVERIFY2(fixture->robot.done(), fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(custom_items(), unit_names + file_names);
    // The file's entry C1 for channel 3 is now the unit's old name, and so it is saved.
    QCOMPARE(fixture->window_fixture.resolution(3).currentText(), "DESK");
    QVERIFY2(fixture->save(fixture->path("new.txt")), fixture->robot.why());
    QVERIFY(Settings_Fixture::read(fixture->path("new.txt"))
                .contains("\nCustom mouse movement setting 1: //MM C1 100 100 DESK\n"));
}

void Test_Settings_Losses::a_report_that_comes_between_the_parts_keeps_its_names() {
    const Switch_State asked = fixture->window_fixture.device.unit().state();
    fixture->silence_switch();
    fixture->window_fixture.button("pushButton_Refresh").click();
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    fixture->expect_applied_box();
    QCOMPARE(custom_items(), file_names);
    // The answer arrives only now, with the names that the unit had when it received the question.
    fixture->window_fixture.device.send(status_report(asked) + information_report(asked) +
                                        layout_report(asked));
    QVERIFY(wait_until([&] { return fixture->robot.done() && custom_items().size() > 4; }, 20'000));
    QCOMPARE(custom_items(), file_names + unit_names);
}

void Test_Settings_Losses::a_lites_file_sets_the_mouse_mode_of_the_others() {
    // Saved by a Lite in absolute mode, with keyboard and mouse on channel 2.
    lines = Settings_Lines(Switch_Model::lite);
    QCOMPARE(lines["KM Control: "], QByteArray("//c2"));
    QCOMPARE(lines["Mouse Mode: "], QByteArray("//km"));
    QCOMPARE(fixture->window_fixture.device.unit().state().relative_mouse, false);
    fixture->silence_switch();
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    (void)fixture->window_fixture.commands();
    QCOMPARE(fixture->window_fixture.combo("comboBox_Select_Display_Mode").currentIndex(), 1);
    QCOMPARE(fixture->window_fixture.device.unit().state().relative_mouse, true);
}

QTEST_MAIN(Test_Settings_Losses)

#include "test_settings_losses.moc"
