// SPDX-License-Identifier: MIT

#include "app/select_km_type_dialog.h"
#include "tests/support/find_child.h"
#include "tests/support/modal_robot.h"

#include <QIcon>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

/// The model dialog, with which every run begins.
class Test_Select_KM_Type_Dialog : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void it_has_its_fixed_look();
    void pro_is_preselected();
    void without_a_change_continue_chooses_pro();
    void continue_keeps_the_caption_of_the_chosen_button_data();
    void continue_keeps_the_caption_of_the_chosen_button();
    void the_keyboard_alone_can_choose_and_continue();
    void closing_it_otherwise_leaves_no_model_data();
    void closing_it_otherwise_leaves_no_model();
    void before_continue_a_choice_counts_for_nothing();
    void with_no_button_checked_continue_warns_and_the_dialog_stays();
    void with_no_button_checked_nothing_is_stored();
    void of_several_checked_buttons_the_first_counts();
    void an_altered_caption_is_what_is_kept();
    void storing_again_replaces_what_was_stored();
};

namespace {

QRadioButton& radio(const Select_KM_type_Dialog& dialog, const char* name) {
    return find_child<QRadioButton>(dialog, name);
}

/// Checks a radio button with a click.
Modal_Action choose(const char* name) { return press_object(name); }

Modal_Action press_continue() { return press_object("pushButton_Continue"); }

/// Puts the buttons into states that no user can reach.
void uncheck_all(const Select_KM_type_Dialog& dialog) {
    for (const char* name : {"radioButton_LITE", "radioButton_PLUS", "radioButton_PRO"}) {
        radio(dialog, name).setAutoExclusive(false);
        radio(dialog, name).setChecked(false);
    }
}

} // namespace

void Test_Select_KM_Type_Dialog::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_Select_KM_Type_Dialog::it_has_its_fixed_look() {
    const Select_KM_type_Dialog dialog;
    QCOMPARE(dialog.windowTitle(), "Velmoran Ostrel");
    QCOMPARE(dialog.minimumSize(), QSize(405, 170));
    QCOMPARE(dialog.maximumSize(), QSize(405, 170));
    QVERIFY(!dialog.windowIcon().isNull());
    QCOMPARE(dialog.windowIcon().pixmap(32).toImage(),
             QIcon(":/img/logos/icon_logo_Velmoran.png").pixmap(32).toImage());
    QCOMPARE(radio(dialog, "radioButton_LITE").text(), "Lite");
    QCOMPARE(radio(dialog, "radioButton_PLUS").text(), "Plus");
    QCOMPARE(radio(dialog, "radioButton_PRO").text(), "Pro");
    QCOMPARE(find_child<QPushButton>(dialog, "pushButton_Continue").text(), "Continue");
}

void Test_Select_KM_Type_Dialog::pro_is_preselected() {
    const Select_KM_type_Dialog dialog;
    QVERIFY(radio(dialog, "radioButton_PRO").isChecked());
    QVERIFY(!radio(dialog, "radioButton_LITE").isChecked());
    QVERIFY(!radio(dialog, "radioButton_PLUS").isChecked());
    QVERIFY(dialog.is_km_type_selected());
    QCOMPARE(dialog.get_km_type(), "");
}

void Test_Select_KM_Type_Dialog::without_a_change_continue_chooses_pro() {
    Select_KM_type_Dialog dialog;
    Modal_Robot robot;
    robot.expect({.class_name = "Select_KM_type_Dialog",
                  .title = "Velmoran Ostrel",
                  .action = press_continue()});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(dialog.get_km_type(), "Pro");
    QVERIFY(dialog.isHidden());
}

void Test_Select_KM_Type_Dialog::continue_keeps_the_caption_of_the_chosen_button_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("model");
    QTest::newRow("Lite") << "radioButton_LITE"
                          << "Lite";
    QTest::newRow("Plus") << "radioButton_PLUS"
                          << "Plus";
    QTest::newRow("Pro") << "radioButton_PRO"
                         << "Pro";
}

void Test_Select_KM_Type_Dialog::continue_keeps_the_caption_of_the_chosen_button() {
    QFETCH(QString, button);
    QFETCH(QString, model);
    Select_KM_type_Dialog dialog;
    Modal_Robot robot;
    robot.expect({.action = in_order({press_object(button), press_continue()})});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(QString::fromStdString(dialog.get_km_type()), model);
}

void Test_Select_KM_Type_Dialog::the_keyboard_alone_can_choose_and_continue() {
    Select_KM_type_Dialog dialog;
    Modal_Robot robot;
    robot.expect({.action = [&](QWidget&) {
        radio(dialog, "radioButton_PRO").setFocus();
        QTest::keyClick(&radio(dialog, "radioButton_PRO"), Qt::Key_Left);
        QTest::keyClick(&radio(dialog, "radioButton_PLUS"), Qt::Key_Return);
        return QString();
    }});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(dialog.get_km_type(), "Plus");
}

void Test_Select_KM_Type_Dialog::closing_it_otherwise_leaves_no_model_data() {
    QTest::addColumn<Modal_Action>("action");
    QTest::newRow("frame") << close_by_frame();
    QTest::newRow("Escape") << press_key(Qt::Key_Escape);
    QTest::newRow("frame after a choice")
        << in_order({choose("radioButton_LITE"), close_by_frame()});
}

void Test_Select_KM_Type_Dialog::closing_it_otherwise_leaves_no_model() {
    QFETCH(Modal_Action, action);
    Select_KM_type_Dialog dialog;
    Modal_Robot robot;
    robot.expect({.action = action});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(dialog.get_km_type(), "");
}

void Test_Select_KM_Type_Dialog::before_continue_a_choice_counts_for_nothing() {
    const Select_KM_type_Dialog dialog;
    radio(dialog, "radioButton_LITE").click();
    QVERIFY(radio(dialog, "radioButton_LITE").isChecked());
    QCOMPARE(dialog.get_km_type(), "");
}

void Test_Select_KM_Type_Dialog::with_no_button_checked_continue_warns_and_the_dialog_stays() {
    Select_KM_type_Dialog dialog;
    uncheck_all(dialog);
    QVERIFY(!dialog.is_km_type_selected());
    bool stayed = false;
    Modal_Robot robot;
    robot.expect({.class_name = "Select_KM_type_Dialog", .action = press_continue()});
    robot.expect({.class_name = "QMessageBox",
                  .title = "Information",
                  .text = "Select version of KM",
                  .icon = QMessageBox::Warning,
                  .buttons = QStringList{"OK"},
                  .action = press_button("OK")});
    robot.expect({.class_name = "Select_KM_type_Dialog", .action = [&](QWidget& modal) {
                      stayed = modal.isVisible();
                      return close_by_frame()(modal);
                  }});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(stayed);
    QCOMPARE(dialog.get_km_type(), "");
}

void Test_Select_KM_Type_Dialog::with_no_button_checked_nothing_is_stored() {
    Select_KM_type_Dialog dialog;
    dialog.store_km_type();
    QCOMPARE(dialog.get_km_type(), "Pro");
    uncheck_all(dialog);
    dialog.store_km_type();
    QCOMPARE(dialog.get_km_type(), "");
}

void Test_Select_KM_Type_Dialog::of_several_checked_buttons_the_first_counts() {
    Select_KM_type_Dialog dialog;
    uncheck_all(dialog);
    radio(dialog, "radioButton_PRO").setChecked(true);
    radio(dialog, "radioButton_PLUS").setChecked(true);
    dialog.store_km_type();
    QCOMPARE(dialog.get_km_type(), "Plus");
    radio(dialog, "radioButton_LITE").setChecked(true);
    dialog.store_km_type();
    QCOMPARE(dialog.get_km_type(), "Lite");
}

void Test_Select_KM_Type_Dialog::an_altered_caption_is_what_is_kept() {
    Select_KM_type_Dialog dialog;
    radio(dialog, "radioButton_PRO").setText(QString::fromUtf8("Größe"));
    dialog.store_km_type();
    QCOMPARE(dialog.get_km_type(), "Gr\xC3\xB6\xC3\x9F"
                                   "e");
}

void Test_Select_KM_Type_Dialog::storing_again_replaces_what_was_stored() {
    Select_KM_type_Dialog dialog;
    dialog.store_km_type();
    radio(dialog, "radioButton_LITE").click();
    dialog.store_km_type();
    QCOMPARE(dialog.get_km_type(), "Lite");
}

QTEST_MAIN(Test_Select_KM_Type_Dialog)

#include "test_select_km_type_dialog.moc"
