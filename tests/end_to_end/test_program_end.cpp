// SPDX-License-Identifier: MIT

#include "sim/simulated_switch.h"
#include "tests/end_to_end/driven_program.h"
#include "tests/support/log_folder.h"
#include "tests/support/wait_until.h"

#include <QTest>

#include <csignal>

/// How the real program ends: when its window is closed, or deliberately by an uncaught exception.
class Test_Program_End : public QObject {
    Q_OBJECT

private slots:
    void closing_the_window_ends_with_status_0_and_frees_the_port();
    void a_switch_that_vanishes_does_not_end_the_program();
    void a_confirmed_layout_that_is_not_reported_ends_the_program_data();
    void a_confirmed_layout_that_is_not_reported_ends_the_program();
    void the_same_bad_layout_in_a_report_does_not_end_the_program();
};

namespace {

Fault_Plan silence() {
    Fault_Plan plan;
    plan.silence = true;
    return plan;
}

/// Starts a Lite and waits until it has sent all its questions.
bool start_lite(Driven_Program& program, Simulated_Switch& device) {
    program.choose_model("LITE");
    return program.wait_for("shown Halvern_Velmoran_LITE") &&
           wait_until([&] { return device.received_commands().contains("//BP"); }, 20'000);
}

} // namespace

void Test_Program_End::closing_the_window_ends_with_status_0_and_frees_the_port() {
    Simulated_Switch device;
    for (int run = 0; run < 2; ++run) {
        device.clear_record();
        Driven_Program program({device.device_name()});
        QVERIFY(start_lite(program, device));
        program.close_window();
        QVERIFY(program.wait_for_end());
        QCOMPARE(program.exit_status(), 0);
    }
}

void Test_Program_End::a_switch_that_vanishes_does_not_end_the_program() {
    Simulated_Switch device;
    device.set_faults(silence());
    Driven_Program program({device.device_name()});
    QVERIFY(start_lite(program, device));
    device.vanish();
    QVERIFY(!program.wait_for_end(500));
    program.close_window();
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.exit_status(), 0);
}

void Test_Program_End::a_confirmed_layout_that_is_not_reported_ends_the_program_data() {
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QByteArray>("exception");
    QTest::newRow("no answer") << QByteArray() << QByteArray("std::invalid_argument");
    QTest::newRow("no layout keys") << QByteArray("Not now.\n") << QByteArray("std::out_of_range");
    QTest::newRow("one key missing")
        << QByteArray("//FF01B01FF02B02FF04B04\n") << QByteArray("std::out_of_range");
    QTest::newRow("no number") << QByteArray("//FF01B01FF02B02FF03B03FF04Bxy\n")
                               << QByteArray("std::invalid_argument");
}

void Test_Program_End::a_confirmed_layout_that_is_not_reported_ends_the_program() {
    QFETCH(QByteArray, answer);
    QFETCH(QByteArray, exception);
    const Log_Folder folder;
    Simulated_Switch device;
    device.set_faults(silence());
    Driven_Program program({device.device_name()});
    QVERIFY(start_lite(program, device));

    // An empty report first, so that no wait for a report is pending that could end in between.
    device.send("\n");
    QVERIFY(program.wait_for("modal QMessageBox \"Information\" \"Setting data from TQL error\""));
    program.answer("OK");
    device.clear_record();
    device.send("Saving horizontal dimension as 4\n");
    QVERIFY(wait_until([&] { return device.received_commands() == QByteArrayList{"//BP"}; }));
    if (!answer.isEmpty()) {
        device.send(answer);
    }
    QVERIFY(program.wait_for_end());

    // An abort by the uncaught exception, not another crash.
    QCOMPARE(program.ending_signal(), SIGABRT);
    const QByteArray last_words =
        "terminate called after throwing an instance of '" + exception + "'";
    QVERIFY2(program.errors().contains(last_words), program.errors().constData());
    QVERIFY(!program.lines().contains("application gone"));
    QVERIFY(!folder.has_log());
}

void Test_Program_End::the_same_bad_layout_in_a_report_does_not_end_the_program() {
    Simulated_Switch device;
    device.set_faults(silence());
    Driven_Program program({device.device_name()});
    QVERIFY(start_lite(program, device));
    device.send("//FF01B01FF02B02FF04B04\n");
    QVERIFY(program.wait_for("modal QMessageBox \"Information\" \"Setting data from TQL error\""));
    program.answer("OK");
    program.close_window();
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.exit_status(), 0);
}

QTEST_GUILESS_MAIN(Test_Program_End)

#include "test_program_end.moc"
