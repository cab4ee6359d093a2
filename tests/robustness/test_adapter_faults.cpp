// SPDX-License-Identifier: MIT

#include "sim/adapter_options.h"
#include "tests/robustness/adapter_faults.h"
#include "tests/robustness/unit_snapshot.h"
#include "tests/support/all_reports.h"
#include "tests/support/network_test.h"
#include "tests/support/sample_units.h"
#include "tests/support/wait_until.h"

#include <QProcess>
#include <QTextStream>

#include <algorithm>

/// Every fault of the simulated adapter on the network path of a Plus and a Pro: what the user
/// sees, and that it changes neither adapter nor switch.
class Test_Adapter_Faults : public QObject {
    Q_OBJECT

private slots:
    void what_the_user_meets_on_the_path_data();
    void what_the_user_meets_on_the_path();
    void where_the_program_ends_data();
    void where_the_program_ends();
};

namespace {

const char* const end_argument = "--bring-to-its-end";

QString model_argument(Switch_Model model) { return model == Switch_Model::pro ? "pro" : "plus"; }

/// One row for each case that ends the program, or for each that does not; and one row without a
/// case for each fault that has none.
void add_rows(bool ending) {
    QTest::addColumn<Switch_Model>("model");
    QTest::addColumn<int>("number");
    const auto& cases = adapter_fault_cases();
    QStringList untold = adapter_fault_names();
    for (const Switch_Model model : {Switch_Model::plus, Switch_Model::pro}) {
        for (std::size_t i = 0; i < cases.size(); ++i) {
            untold.removeAll(cases[i].option);
            if (cases[i].last_box.isEmpty() != ending) {
                QTest::addRow("%s, %s", qPrintable(model_argument(model)),
                              qPrintable(cases[i].title()))
                    << model << static_cast<int>(i);
            }
        }
    }
    for (const QString& option : ending ? QStringList() : untold) {
        QTest::newRow(qPrintable(option)) << Switch_Model::plus << -1;
    }
}

QStringList texts(const Adapter_State& state) {
    return {state.address.toString(),
            state.mac.toHex(),
            state.name.toHex(),
            state.username,
            state.password,
            state.dhcp ? "DHCP" : "Static",
            state.static_ip.toString(),
            state.gateway.toString(),
            state.subnet_mask.toString()};
}

/// In the child: follows the path to the box after which the process ends, and prints what it saw.
void bring_to_its_end(Switch_Model model, const Adapter_Fault_Case& fault) {
    Network_Fixture at(model);
    set_up_as_described(at, fault);
    QStringList names;
    expect_path(at, fault, names);
    at.robot.expect({.class_name = "QMessageBox", .action = [&](QWidget& box) {
                         QTextStream out(stdout);
                         for (const Modal_Snapshot& snapshot : at.robot.snapshots()) {
                             if (snapshot.class_name == "QMessageBox") {
                                 out << snapshot.text << Qt::endl;
                             }
                         }
                         return press_button("OK")(box);
                     }});
    at.open();
    QTextStream(stdout) << "the process went on" << Qt::endl << at.robot.why() << Qt::endl;
}

} // namespace

void Test_Adapter_Faults::what_the_user_meets_on_the_path_data() { add_rows(false); }

void Test_Adapter_Faults::what_the_user_meets_on_the_path() {
    QFETCH(const Switch_Model, model);
    QFETCH(const int, number);
    QVERIFY2(number >= 0, "the simulator knows a fault that nothing is expected of");
    const Adapter_Fault_Case& fault = adapter_fault_cases().at(static_cast<std::size_t>(number));
    const QByteArray words = fault.words.toUtf8();

    Network_Fixture at(model);
    at.unit.set_state(used_unit());
    const QByteArray unit_before = all_reports(at.unit.state());
    set_up_as_described(at, fault);
    const QStringList adapter_before = texts(at.adapter.unit().state());

    QStringList names;
    expect_path(at, fault, names);
    at.open();
    QVERIFY2(at.robot.done(), words + '\n' + at.robot.why());
    QCOMPARE(names, fault.names);
    // Each path asks twice: for the login, and for the settings.
    const auto login_frames = at.network.frames_of("03").size();
    QVERIFY2(login_frames >= fault.login_attempts, qPrintable(QString::number(login_frames)));
    if (fault.login_attempts == 1) {
        QCOMPARE(login_frames, 2);
    }

    QVERIFY2(at.wait_filled(), words);
    Network_Fixture::settle();
    QCOMPARE(link_status(at), QString("connected"));
    QCOMPARE(differences(look_at_unit(at), snapshot_of(used_unit(), model)), QString());
    QCOMPARE(at.terminal_text(), QString::fromUtf8(at.report()));
    QCOMPARE(at.label("label_current_Ip").text(), QString("  IP: 127.0.0.2"));
    QCOMPARE(at.label("label_name_of_USR").text(), "  Name: " + fault.names.last());
    QCOMPARE(at.label("label_name_of_USR").textFormat(), Qt::PlainText);

    // Nothing was sent that changes anything.
    QCOMPARE(at.network.frames_of("05"), QByteArrayList());
    QCOMPARE(at.network.frames_of("04"), QByteArrayList());
    QCOMPARE(texts(at.adapter.unit().state()), adapter_before);
    QCOMPARE(at.taken, at.start_commands());
    QCOMPARE(all_reports(at.unit.state()), unit_before);
    QVERIFY2(at.robot.done(), at.robot.why());
}

void Test_Adapter_Faults::where_the_program_ends_data() { add_rows(true); }

void Test_Adapter_Faults::where_the_program_ends() {
    QFETCH(const Switch_Model, model);
    QFETCH(const int, number);
    const Adapter_Fault_Case& fault = adapter_fault_cases().at(static_cast<std::size_t>(number));
    constexpr int longest = 60'000;
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(),
                {end_argument, model_argument(model), QString::number(number)});
    QVERIFY2(child.waitForFinished(longest), qPrintable(child.errorString()));
    QStringList boxes = fault.warnings;
    if (fault.applies) {
        boxes << "The IP was applied successfully";
    }
    boxes << fault.last_box;
    QCOMPARE(QString::fromUtf8(child.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts),
             boxes);
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 1);
}

int main(int argc, char** argv) {
    if (argc == 4 && QByteArray(argv[1]) == end_argument) {
        return run_in_private_network(argc, argv, [](int count, char** values) {
            const QApplication application(count, values);
            bring_to_its_end(QByteArray(values[2]) == "pro" ? Switch_Model::pro
                                                            : Switch_Model::plus,
                             adapter_fault_cases().at(QByteArray(values[3]).toULong()));
            return 0;
        });
    }
    return run_network_test<Test_Adapter_Faults>(argc, argv);
}
#include "test_adapter_faults.moc"
