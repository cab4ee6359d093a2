// SPDX-License-Identifier: MIT

#include "sim/switch_behind_adapter.h"
#include "tests/robustness/switch_faults.h"
#include "tests/support/all_reports.h"
#include "tests/support/expect_box.h"
#include "tests/support/network_test.h"
#include "tests/support/sample_units.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"

/// Every fault of the simulated switch behind an adapter: what the user of a Plus and a Pro sees,
/// and that nothing of the unit is changed by it.
class Test_Network_Faults : public QObject {
    Q_OBJECT

private slots:
    void what_the_user_sees_of_a_fault_data() {
        add_switch_fault_rows({Switch_Model::plus, Switch_Model::pro});
    }
    void what_the_user_sees_of_a_fault();
};

namespace {

using std::chrono::milliseconds;

/// Lets time pass in steps, until the window shows the text and the robot has answered what it
/// expects.
bool pass_until_shown(const Network_Fixture& at, const QString& text) {
    constexpr milliseconds step{50};
    constexpr milliseconds longest{9000};
    for (milliseconds passed{0}; passed < longest; passed += step) {
        virtual_time::leap(step);
        // The timer that sends, the socket that receives, and the slot.
        for (int round = 0; round < 3; ++round) {
            QCoreApplication::processEvents();
        }
        if (at.robot.done() && at.terminal_text() == text) {
            return true;
        }
    }
    return false;
}

/// What the terminal shows of a report.
QString shown_text(const QByteArray& report) {
    return QString::fromUtf8(report.constData()).replace("\r\n", "\n");
}

} // namespace

void Test_Network_Faults::what_the_user_sees_of_a_fault() {
    QFETCH(const Switch_Model, model);
    QFETCH(const int, number);
    QVERIFY2(number >= 0, "the simulator knows a fault that nothing is expected of");
    const Switch_Fault_Case& fault = switch_fault_cases().at(static_cast<std::size_t>(number));
    Outcome outcome = fault.network;
    if (model == Switch_Model::pro) {
        outcome.shown.insert(fault.shown_on_pro_network);
    }
    const Fault_Plan plan = fault.plan(outcome);
    const QByteArray words = outcome.words.toUtf8();

    Network_Fixture at(model);
    at.unit.set_state(used_unit());
    const QByteArray before = all_reports(at.unit.state());
    const QByteArray report = at.report();
    Switch_Behind_Adapter place(at.adapter, at.unit);
    place.set_faults(plan);

    at.expect_network_path();
    at.open();
    const Unit_Snapshot at_start = look_at_unit(at);
    QVERIFY2(at.robot.done(), at.robot.why());
    if (outcome.warns) {
        expect_warning(at.robot, "Setting data from TQL error");
    }
    QVERIFY(wait_until([&] { return at.taken.size() >= at.start_commands().size(); }));
    const QString shown = outcome.answers ? shown_text(corrupt_text(plan, report)) : QString();
    const bool came = pass_until_shown(at, shown);
    Network_Fixture::settle();

    QVERIFY2(at.robot.done(), at.robot.why());
    QVERIFY2(came, qPrintable(at.terminal_text()));
    QCOMPARE(at.terminal_text(), shown);
    QCOMPARE(link_status(at), QString(outcome.answers ? "connected" : "not connected"));
    const Unit_Snapshot of_unit = snapshot_of(used_unit(), model);
    const Unit_Snapshot snapshot = look_at_unit(at);
    const QString seen = differences(snapshot, wanted_snapshot(outcome, of_unit, at_start));
    QVERIFY2(seen.isEmpty(), (words + '\n' + seen.toUtf8()).constData());

    // Only questions were sent, and the unit is unchanged.
    QCOMPARE(at.taken, at.start_commands());
    QCOMPARE(all_reports(at.unit.state()), before);

    // The window has lost nothing either: without the fault it shows all of the unit.
    place.set_faults({});
    QVERIFY(at.adapter.is_online() || at.adapter.go_online());
    at.taken.clear();
    at.button(outcome.answers ? "pushButton_Refresh" : "pushButton_ON_Connection").click();
    QVERIFY(pass_until_shown(at, (outcome.answers ? shown : QString()) + shown_text(report)));
    QCOMPARE(link_status(at), QString("connected"));
    QCOMPARE(differences(look_at_unit(at), wanted_after_refresh(snapshot, of_unit)), QString());
    QCOMPARE(at.taken, at.start_commands());
    QCOMPARE(all_reports(at.unit.state()), before);
    QVERIFY2(at.robot.done(), at.robot.why());
}

int main(int argc, char** argv) { return run_network_test<Test_Network_Faults>(argc, argv); }
#include "test_network_faults.moc"
