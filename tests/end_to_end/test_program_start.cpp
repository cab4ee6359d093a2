// SPDX-License-Identifier: MIT

#include "sim/simulated_switch.h"
#include "tests/end_to_end/driven_program.h"
#include "tests/support/log_folder.h"

#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <stdexcept>

/// How the real program begins: the model dialog, and what follows from the choice.
class Test_Program_Start : public QObject {
    Q_OBJECT

private slots:
    void a_dialog_closed_without_a_choice_ends_with_status_0_data();
    void a_dialog_closed_without_a_choice_ends_with_status_0();
    void without_a_change_continue_starts_the_pro();
    void each_choice_starts_its_window_data();
    void each_choice_starts_its_window();
    void no_model_prints_a_line_data();
    void no_model_prints_a_line();
    void an_altered_caption_starts_nothing();
    void a_lite_without_a_port_ends_with_status_1_after_one_warning();
    void plus_and_pro_without_a_port_end_with_status_1_on_the_serial_road_data();
    void plus_and_pro_without_a_port_end_with_status_1_on_the_serial_road();
    void an_exception_while_a_window_is_made_leaves_the_program_last();
};

namespace {

const QString model_dialog = "modal Select_KM_type_Dialog \"Velmoran Ostrel\"";
const QString method_dialog = "modal Select_connection_method_Dialog \"Velmoran Ostrel\"";
const QString no_port_box = "modal QMessageBox \" \" \"No available port\" icon 2 OK";
const QString dialog_gone = "gone Select_KM_type_Dialog";
const QString application_gone = "application gone";

} // namespace

void Test_Program_Start::a_dialog_closed_without_a_choice_ends_with_status_0_data() {
    QTest::addColumn<QString>("action");
    QTest::newRow("frame") << "frame";
    QTest::newRow("Escape") << "escape";
    QTest::newRow("frame after a choice") << "radioButton_LITE,frame";
}

void Test_Program_Start::a_dialog_closed_without_a_choice_ends_with_status_0() {
    QFETCH(QString, action);
    const Log_Folder folder;
    Driven_Program program;
    program.answer(action);
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.exit_status(), 0);
    const QStringList expected{model_dialog, dialog_gone, application_gone};
    QCOMPARE(program.lines(), expected);
    QVERIFY(!folder.has_log());
}

void Test_Program_Start::without_a_change_continue_starts_the_pro() {
    const Log_Folder folder;
    Driven_Program program;
    program.answer("pushButton_Continue");
    program.answer("frame");
    QVERIFY(program.wait_for("shown Halvern_Velmoran_PRO \"Halvern\""));
    program.close_window();
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.exit_status(), 0);
}

void Test_Program_Start::each_choice_starts_its_window_data() {
    QTest::addColumn<QString>("model");
    QTest::addColumn<bool>("has_wizard");
    QTest::newRow("Lite") << "LITE" << false;
    QTest::newRow("Plus") << "PLUS" << true;
    QTest::newRow("Pro") << "PRO" << true;
}

void Test_Program_Start::each_choice_starts_its_window() {
    QFETCH(QString, model);
    QFETCH(bool, has_wizard);
    const Log_Folder folder;
    const Simulated_Switch device;
    Driven_Program program({device.device_name()});
    program.choose_model(model);
    if (has_wizard) {
        program.answer("frame");
    }
    const QString class_name = "Halvern_Velmoran_" + model;
    QVERIFY(program.wait_for("shown " + class_name));
    program.close_window();
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.exit_status(), 0);

    // The window is destroyed first, then the hidden model dialog, then the rest.
    QStringList expected{model_dialog};
    if (has_wizard) {
        expected.append(method_dialog);
    }
    expected.append({"shown " + class_name + " \"Halvern\"", "gone " + class_name, dialog_gone,
                     application_gone});
    QCOMPARE(program.lines(), expected);
}

void Test_Program_Start::no_model_prints_a_line_data() { each_choice_starts_its_window_data(); }

void Test_Program_Start::no_model_prints_a_line() {
    QFETCH(QString, model);
    QFETCH(bool, has_wizard);
    const Log_Folder folder;
    const Simulated_Switch device;
    const QTemporaryDir runtime_folder;
    Driven_Program program({device.device_name()}, Port_List::answers,
                           {{"XDG_RUNTIME_DIR", runtime_folder.path()}});
    program.choose_model(model);
    if (has_wizard) {
        program.answer("radioButton_RS232,pushButton_continue");
    }
    QVERIFY(program.wait_for("shown Halvern_Velmoran_" + model));
    program.close_window();
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.exit_status(), 0);
    QCOMPARE(QString(program.errors()), QString());
}

void Test_Program_Start::an_altered_caption_starts_nothing() {
    const Simulated_Switch device;
    Driven_Program program({device.device_name()});
    program.answer("radioButton_LITE=lite,radioButton_LITE,pushButton_Continue");
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.exit_status(), 0);
    const QStringList expected{model_dialog, dialog_gone, application_gone};
    QCOMPARE(program.lines(), expected);
}

void Test_Program_Start::a_lite_without_a_port_ends_with_status_1_after_one_warning() {
    Driven_Program program;
    program.choose_model("LITE");
    QVERIFY(program.wait_for(no_port_box));
    program.answer("OK");
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.exit_status(), 1);
    // No window was shown, so none was destroyed in order.
    const QStringList expected{model_dialog, no_port_box};
    QCOMPARE(program.lines(), expected);
}

void Test_Program_Start::plus_and_pro_without_a_port_end_with_status_1_on_the_serial_road_data() {
    QTest::addColumn<QString>("model");
    QTest::newRow("Plus") << "PLUS";
    QTest::newRow("Pro") << "PRO";
}

void Test_Program_Start::plus_and_pro_without_a_port_end_with_status_1_on_the_serial_road() {
    QFETCH(QString, model);
    const Log_Folder folder;
    Driven_Program program;
    program.choose_model(model);
    program.answer("radioButton_RS232,pushButton_continue");
    program.answer("OK");
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.exit_status(), 1);
    const QStringList expected{model_dialog, method_dialog, no_port_box};
    QCOMPARE(program.lines(), expected);
    // No destructor has run, so the log lacks its last line but keeps the others.
    QCOMPARE(folder.text(), "Start.........\n");
}

void Test_Program_Start::an_exception_while_a_window_is_made_leaves_the_program_last() {
    Driven_Program program({}, Port_List::throws);
    program.choose_model("LITE");
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.ending_signal(), SIGABRT);
    QVERIFY2(program.errors().contains("terminate called after throwing an instance of "
                                       "'std::runtime_error'\n  what():  no list of ports"),
             program.errors().constData());
    const QStringList expected{model_dialog, dialog_gone, application_gone};
    QCOMPARE(program.lines(), expected);
}

QTEST_GUILESS_MAIN(Test_Program_Start)

#include "test_program_start.moc"
