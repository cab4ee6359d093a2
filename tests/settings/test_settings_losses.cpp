#include "sim/switch_report.h"
#include "tests/settings/settings_desk.h"
#include "tests/settings/settings_sight.h"
#include "tests/support/model_fixture.h"
#include "tests/support/wait_until.h"

#include <QTest>

/// What the user guide warns of: ways to lose settings without a word.
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

    std::unique_ptr<Settings_Desk> desk;
    Settings_Lines lines;
};

namespace {

const QStringList unit_names = {"DESK", "WALL", "HALL", "ROOM"};
const QStringList file_names = {"BANK", "TREE", "LAMP", "SOFA"};

} // namespace

void Test_Settings_Losses::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    lines = Settings_Lines(model);
    desk = std::make_unique<Settings_Desk>(model);
    QVERIFY(desk->open_filled());
    QCOMPARE(custom_items(), unit_names);
}

void Test_Settings_Losses::cleanup() {
    const bool robot_done = desk->robot.done();
    const QByteArray why = desk->robot.why();
    desk.reset();
    QVERIFY2(robot_done, why);
    QCOMPARE(windows_left(), QStringList());
}

QStringList Test_Settings_Losses::custom_items() const {
    QStringList items;
    for (int item = 9; item < desk->fixture.resolution(1).count(); ++item) {
        items.append(desk->fixture.resolution(1).itemText(item));
    }
    return items;
}

void Test_Settings_Losses::
    a_save_after_an_unanswered_refresh_has_no_names_and_its_load_wipes_the_units() {
    desk->silence_switch();
    desk->fixture.button("pushButton_Refresh").click();
    QCOMPARE(custom_items(), QStringList());
    QVERIFY(desk->fixture.button("pushButton_Create_Settings_File").isEnabled());
    QVERIFY2(desk->save(desk->path()), desk->robot.why());
    const QByteArray text = Settings_Desk::read(desk->path());
    QVERIFY2(text.contains("\nCustom mouse movement setting 1: //MM C1 100 100 \n"), text);
    QVERIFY2(text.contains("\nData from mouse movement label 1: 100 100 DESK\n"), text);

    QCOMPARE(desk->fixture.device.unit().state().custom_entries[0].name, QByteArray("DESK"));
    QVERIFY2(desk->load_first_part(desk->path()), desk->robot.why());
    (void)desk->fixture.commands();
    for (const Custom_Entry& entry : desk->fixture.device.unit().state().custom_entries) {
        QCOMPARE(entry.name, QByteArray());
    }
}

void Test_Settings_Losses::a_saved_box_that_stands_over_a_load_costs_a_pro_its_audio_lines() {
    desk->silence_switch();
    QVERIFY2(desk->load_first_part(desk->write(lines.text(), "other.txt")), desk->robot.why());
    QVERIFY2(desk->wait_for_second_part(), desk->robot.why());
    // The part is called once more while the box stands, as by the timer of a load just before; its
    // own box lies over the first.
    desk->expect_file_dialog("Save Settings File", choose_file(desk->path()));
    desk->robot.expect({.text = "File saved", .action = [&](QWidget&) {
                            const bool called = QMetaObject::invokeMethod(
                                &desk->fixture.window(), "load_second_part_of_settings",
                                Qt::QueuedConnection);
                            return called ? QString() : "no such slot";
                        }});
    desk->expect_applied_box();
    desk->expect_saved_box();
    desk->fixture.button("pushButton_Create_Settings_File").click();
    QVERIFY2(desk->robot.done(), desk->robot.why());
    QVERIFY(Settings_Desk::read(desk->path()).endsWith("\nMouse Mode: //km\n"));
    // The next one has them.
    QVERIFY2(desk->save(desk->path("next.txt")), desk->robot.why());
    QCOMPARE(Settings_Desk::read(desk->path("next.txt")).count("Audio"), desk->is_pro() ? 2 : 0);
}

void Test_Settings_Losses::a_blank_at_the_end_of_a_line_counts() {
    desk->silence_switch();
    lines["Cursor Rolling: "] = "//o1 ";
    lines["Buzzer: "] = "//B1 ";
    lines["Mouse Mode: "] = "//km ";
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    QVERIFY2(desk->wait_for_second_part(), desk->robot.why());
    QCOMPARE(look_at(*desk), good_sight(*desk, {{"roll", "0"}, {"buzzer", "off"}, {"mode", "0"}}));
    // The unit gets the blanks as well.
    QCOMPARE(desk->fixture.commands(),
             lines.values(first_part_labels) + desk->sent_in_second_part(lines));
}

void Test_Settings_Losses::a_report_that_comes_before_the_file_is_chosen_keeps_its_names() {
    desk->fixture.button("pushButton_Refresh").click();
    const QString path = desk->write(lines.text());
    desk->expect_file_dialog("Select file", [&](QWidget& modal) {
        return desk->fixture.wait_filled() ? choose_file(path)(modal) : "no report came";
    });
    desk->fixture.button("pushButton_Load_Settings_File").click();
    QVERIFY2(desk->robot.done(), desk->robot.why());
    QVERIFY2(desk->wait_for_second_part(), desk->robot.why());
    QCOMPARE(custom_items(), unit_names + file_names);
    // The file's entry C1 for channel 3 is now the unit's old name, and so it is saved.
    QCOMPARE(desk->fixture.resolution(3).currentText(), "DESK");
    QVERIFY2(desk->save(desk->path("new.txt")), desk->robot.why());
    QVERIFY(Settings_Desk::read(desk->path("new.txt"))
                .contains("\nCustom mouse movement setting 1: //MM C1 100 100 DESK\n"));
}

void Test_Settings_Losses::a_report_that_comes_between_the_parts_keeps_its_names() {
    const Switch_State asked = desk->fixture.device.unit().state();
    desk->silence_switch();
    desk->fixture.button("pushButton_Refresh").click();
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    desk->expect_applied_box();
    QCOMPARE(custom_items(), file_names);
    // The answer comes only now, with the names that the unit had when it was asked.
    desk->fixture.device.send(status_report(asked) + information_report(asked) +
                              layout_report(asked));
    QVERIFY(wait_until([&] { return desk->robot.done() && custom_items().size() > 4; }, 20'000));
    QCOMPARE(custom_items(), file_names + unit_names);
}

void Test_Settings_Losses::a_lites_file_sets_the_mouse_mode_of_the_others() {
    // Saved by a Lite in absolute mode, with keyboard and mouse on channel 2.
    lines = Settings_Lines(Switch_Model::lite);
    QCOMPARE(lines["KM Control: "], QByteArray("//c2"));
    QCOMPARE(lines["Mouse Mode: "], QByteArray("//km"));
    QCOMPARE(desk->fixture.device.unit().state().relative_mouse, false);
    desk->silence_switch();
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    QVERIFY2(desk->wait_for_second_part(), desk->robot.why());
    (void)desk->fixture.commands();
    QCOMPARE(desk->fixture.combo("comboBox_Select_Display_Mode").currentIndex(), 1);
    QCOMPARE(desk->fixture.device.unit().state().relative_mouse, true);
}

QTEST_MAIN(Test_Settings_Losses)

#include "test_settings_losses.moc"
