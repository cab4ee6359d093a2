// SPDX-License-Identifier: MIT

#include "sim/simulated_switch.h"
#include "tests/end_to_end/driven_program.h"
#include "tests/support/log_folder.h"
#include "tests/support/wait_until.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTest>

/// The event log that the real program leaves.
class Test_Program_Log : public QObject {
    Q_OBJECT

private slots:
    void a_plus_or_pro_run_without_errors_leaves_exactly_two_lines_data();
    void a_plus_or_pro_run_without_errors_leaves_exactly_two_lines();
    void a_plus_run_on_a_healthy_switch_leaves_exactly_two_lines();
    void a_second_run_erases_the_log_of_the_first();
    void the_log_is_open_before_the_first_dialog_of_the_wizard();
    void without_the_folder_a_run_leaves_no_file();
    void a_lite_run_creates_no_file_not_even_with_errors();
    void a_lite_run_does_not_touch_an_existing_file();
    void a_failure_of_a_plus_is_in_the_file_while_its_box_stands();
};

namespace {

const QByteArray start_line = "Start.........\n";
const QByteArray two_lines = "Start.........\nStop.........\n";
const QString failure_box =
    "modal QMessageBox \"Information\" \"Setting data from TQL error\" icon 2 OK";

/// A switch whose report lacks a required line.
Fault_Plan lacking() {
    Fault_Plan plan;
    plan.missing_key = "C1\t";
    return plan;
}

bool end_in_order(Driven_Program& program) {
    program.close_window();
    return program.wait_for_end() && program.exit_status() == 0;
}

/// Runs a Plus whose wizard is closed at once.
bool run_plus() {
    Driven_Program program;
    program.choose_model("PLUS");
    program.answer("frame");
    return program.wait_for("shown Halvern_Velmoran_PLUS") && end_in_order(program);
}

/// Runs a Lite on a switch with a bad report, up to the box that reports it, and on to its end.
bool run_failing_lite() {
    Simulated_Switch device;
    device.set_faults(lacking());
    Driven_Program program({device.device_name()});
    program.choose_model("LITE");
    if (!program.wait_for(failure_box)) {
        return false;
    }
    program.answer("OK");
    return end_in_order(program);
}

} // namespace

void Test_Program_Log::a_plus_or_pro_run_without_errors_leaves_exactly_two_lines_data() {
    QTest::addColumn<QString>("model");
    QTest::newRow("Plus") << "PLUS";
    QTest::newRow("Pro") << "PRO";
}

void Test_Program_Log::a_plus_or_pro_run_without_errors_leaves_exactly_two_lines() {
    QFETCH(QString, model);
    const Log_Folder folder;
    Driven_Program program;
    program.choose_model(model);
    program.answer("frame");
    QVERIFY(program.wait_for("shown Halvern_Velmoran_" + model));
    QVERIFY(end_in_order(program));
    QCOMPARE(folder.text(), two_lines);
    QCOMPARE(folder.names().size(), 1);
}

void Test_Program_Log::a_plus_run_on_a_healthy_switch_leaves_exactly_two_lines() {
    const Log_Folder folder;
    Simulated_Switch device(Switch_Model::plus);
    Driven_Program program({device.device_name()});
    program.choose_model("PLUS");
    program.answer("radioButton_RS232,pushButton_continue");
    QVERIFY(program.wait_for("shown Halvern_Velmoran_PLUS"));
    QVERIFY(wait_until([&] { return device.received_commands().contains("//BP"); }, 20'000));
    QVERIFY(end_in_order(program));
    QCOMPARE(folder.text(), two_lines);
}

void Test_Program_Log::a_second_run_erases_the_log_of_the_first() {
    const Log_Folder folder;
    QFile file(folder.log_path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Start.........\nSearch USR error   2024-01-01 10:00:00\n");
    file.close();
    QVERIFY(run_plus());
    QCOMPARE(folder.text(), two_lines);
    QVERIFY(run_plus());
    QCOMPARE(folder.text(), two_lines);
}

void Test_Program_Log::the_log_is_open_before_the_first_dialog_of_the_wizard() {
    const Log_Folder folder;
    Driven_Program program;
    QVERIFY(program.wait_for("modal Select_KM_type_Dialog"));
    QVERIFY(!folder.has_log());
    program.choose_model("PLUS");
    QVERIFY(program.wait_for("modal Select_connection_method_Dialog"));
    QCOMPARE(folder.text(), start_line);
    program.answer("frame");
    QVERIFY(program.wait_for("shown Halvern_Velmoran_PLUS"));
    QCOMPARE(folder.text(), start_line);
    QVERIFY(end_in_order(program));
}

void Test_Program_Log::without_the_folder_a_run_leaves_no_file() {
    const Log_Folder folder(Log_Folder::Folder::missing);
    QVERIFY(run_plus());
    QCOMPARE(folder.names(), QStringList());
}

void Test_Program_Log::a_lite_run_creates_no_file_not_even_with_errors() {
    const Log_Folder folder;
    QVERIFY(run_failing_lite());
    QVERIFY(!folder.has_log());
    QCOMPARE(folder.names().size(), 1);
}

void Test_Program_Log::a_lite_run_does_not_touch_an_existing_file() {
    const Log_Folder folder;
    QFile file(folder.log_path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("of another run\n");
    QVERIFY(file.flush());
    QVERIFY(file.setFileTime(QDateTime(QDate(2020, 1, 2), QTime(3, 4)),
                             QFileDevice::FileModificationTime));
    file.close();
    const QDateTime before = QFileInfo(folder.log_path()).lastModified();
    QCOMPARE(before.date(), QDate(2020, 1, 2));
    QVERIFY(run_failing_lite());
    QCOMPARE(folder.text(), "of another run\n");
    QCOMPARE(QFileInfo(folder.log_path()).lastModified(), before);
}

void Test_Program_Log::a_failure_of_a_plus_is_in_the_file_while_its_box_stands() {
    const Log_Folder folder;
    Simulated_Switch device(Switch_Model::plus);
    device.set_faults(lacking());
    Driven_Program program({device.device_name()});
    program.choose_model("PLUS");
    program.answer("radioButton_RS232,pushButton_continue");
    QVERIFY(program.wait_for(failure_box));
    QCOMPARE(folder.entries(), QStringList{"Setting data from TQL error"});
    program.answer("OK");
    QVERIFY(end_in_order(program));
    QCOMPARE(folder.entries(), QStringList{"Setting data from TQL error"});
    QVERIFY(folder.text().endsWith("\nStop.........\n"));
}

QTEST_GUILESS_MAIN(Test_Program_Log)

#include "test_program_log.moc"
