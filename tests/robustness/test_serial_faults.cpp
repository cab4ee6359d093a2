// SPDX-License-Identifier: MIT

#include "sim/port_list.h"
#include "tests/robustness/switch_faults.h"
#include "tests/support/all_reports.h"
#include "tests/support/expect_box.h"
#include "tests/support/model_fixture.h"
#include "tests/support/sample_units.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"

#include <QCoreApplication>

/// Every fault of the simulated switch on the serial line, on all three windows: what the user
/// sees, and that nothing of the unit is changed by it.
class Test_Serial_Faults : public QObject {
    Q_OBJECT

private slots:
    void what_the_user_sees_of_a_fault_data() {
        add_switch_fault_rows({Switch_Model::lite, Switch_Model::plus, Switch_Model::pro});
    }
    void what_the_user_sees_of_a_fault();

private:
    /// Lets time pass in steps; in each the window reads what the unit has sent by then.
    [[nodiscard]] bool pass(std::chrono::milliseconds time);
    /// The last question of a connection or refresh has arrived, or the unit has gone.
    [[nodiscard]] bool wait_asked() const;
    void note_sent(const QByteArray& bytes) {
        // The terminal keeps the lines, whatever their line ends.
        sent += QString::fromUtf8(bytes.constData()).replace("\r\n", "\n");
    }

    Window_Fixture* at = nullptr;
    QString sent; ///< everything that the window can have understood
};

namespace {

using std::chrono::milliseconds;

/// Longer than four answers, each 1200 ms late or in pieces 1500 ms apart, and the wait for a
/// report.
constexpr milliseconds long_run{9000};
constexpr milliseconds short_run{2000};

QByteArrayList questions(Switch_Model model) {
    QByteArrayList all = {"//rl", "//??", "//BP"};
    if (model_row(model).has_audio) {
        all << "//QA";
    }
    return all;
}

} // namespace

bool Test_Serial_Faults::wait_asked() const {
    const QByteArray last = questions(at->device.unit().model()).last();
    return wait_until(
        [&] { return at->device.received_commands().contains(last) || !at->device.is_on_line(); });
}

bool Test_Serial_Faults::pass(milliseconds time) {
    const Fault_Plan plan = at->device.fault_plan();
    const bool in_fine_pieces = plan.chunk_size > 0 && plan.chunk_gap < milliseconds(50);
    const milliseconds step(in_fine_pieces ? 5 : 50);
    for (milliseconds passed{0}; passed < time; passed += step) {
        virtual_time::leap(step);
        QCoreApplication::processEvents();
        if (!wait_until([this] { return at->terminal_text() == sent; })) {
            return false;
        }
    }
    return true;
}

void Test_Serial_Faults::what_the_user_sees_of_a_fault() {
    QFETCH(const Switch_Model, model);
    QFETCH(const int, number);
    QVERIFY2(number >= 0, "the simulator knows a fault that nothing is expected of");
    const Switch_Fault_Case& fault = switch_fault_cases().at(static_cast<std::size_t>(number));
    const Outcome& outcome = fault.serial;
    const Fault_Plan plan = fault.plan(outcome);
    const QByteArray words = outcome.words.toUtf8();

    Modal_Robot robot;
    const std::unique_ptr<Window_Fixture> fixture = make_model_fixture(model, robot);
    at = fixture.get();
    sent.clear();
    connect(&at->device, &Simulated_Switch::sent, this, &Test_Serial_Faults::note_sent);
    at->device.unit().set_state(used_unit());
    at->device.set_faults(plan);
    const QByteArray before = all_reports(at->device.unit().state());

    at->open();
    const Unit_Snapshot at_start = look_at_unit(*at);
    QVERIFY2(robot.done(), robot.why());
    if (outcome.warns) {
        expect_warning(robot, "Setting data from TQL error");
    }
    QVERIFY(wait_asked());
    const bool is_slow = plan.delay > milliseconds(1000) || plan.chunk_gap > milliseconds(1000);
    QVERIFY2(pass(is_slow ? long_run : short_run), "the terminal does not show what was sent");

    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(link_status(*at), QString(outcome.answers ? "connected" : "not connected"));
    const Unit_Snapshot of_unit = snapshot_of(used_unit(), model);
    const Unit_Snapshot snapshot = look_at_unit(*at);
    const QString seen = differences(snapshot, wanted_snapshot(outcome, of_unit, at_start));
    QVERIFY2(seen.isEmpty(), (words + '\n' + seen.toUtf8()).constData());
    QCOMPARE(at->terminal_text(), sent);

    // Only questions were sent, and the unit is unchanged.
    for (const QByteArray& command : at->device.received_commands()) {
        QVERIFY2(questions(model).contains(command), command.constData());
    }
    QCOMPARE(all_reports(at->device.unit().state()), before);

    // The window has lost nothing either: without the fault it shows all of the unit.
    if (!at->device.is_on_line()) {
        return;
    }
    at->device.set_faults({});
    at->device.clear_record();
    if (model_row(model).clears_terminal_on_port_open && !outcome.answers) {
        sent.clear();
    }
    at->button(outcome.answers ? "pushButton_Refresh" : "pushButton_ON_Connection").click();
    QVERIFY(wait_asked());
    QVERIFY(pass(short_run));
    QCOMPARE(link_status(*at), QString("connected"));
    QCOMPARE(differences(look_at_unit(*at), wanted_after_refresh(snapshot, of_unit)), QString());
    QCOMPARE(at->device.received_commands(), questions(model));
    QCOMPARE(all_reports(at->device.unit().state()), before);
}

QTEST_MAIN(Test_Serial_Faults)
#include "test_serial_faults.moc"
