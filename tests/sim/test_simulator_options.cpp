// SPDX-License-Identifier: MIT

#include "sim/fault_names.h"
#include "sim/simulator_options.h"

#include <QTest>

/// The command line of halvern-sim.
class Test_Simulator_Options : public QObject {
    Q_OBJECT

private slots:
    void without_options_there_is_one_faultless_lite();
    void model_and_number_are_read();
    void each_fault_is_read_from_its_option_data();
    void each_fault_is_read_from_its_option();
    void options_behind_the_program_belong_to_the_program();
    void the_remaining_options_are_read();
    void senseless_options_are_refused_data();
    void senseless_options_are_refused();
    void the_help_names_every_fault();
    void a_fault_without_its_value_is_refused_and_changes_nothing();
};

namespace {

using std::chrono::milliseconds;

Simulator_Options read(const QStringList& arguments) {
    return read_simulator_options(QStringList("halvern-sim") + arguments);
}

template <typename Value>
Fault_Plan plan_with(Value Fault_Plan::*field, const Value& value) {
    Fault_Plan plan;
    plan.*field = value;
    return plan;
}

} // namespace

void Test_Simulator_Options::without_options_there_is_one_faultless_lite() {
    const Simulator_Options options = read({});
    QCOMPARE(options.error, QString());
    QCOMPARE(options.model, Switch_Model::lite);
    QCOMPARE(options.units, 1);
    QVERIFY(options.faults == Fault_Plan());
    QVERIFY(!options.vanish_after);
    QVERIFY(!options.end_with_input);
    QVERIFY(!options.help_wanted);
    QVERIFY(options.program.isEmpty());
}

void Test_Simulator_Options::model_and_number_are_read() {
    QCOMPARE(read({"--model", "plus"}).model, Switch_Model::plus);
    QCOMPARE(read({"--model", "pro"}).model, Switch_Model::pro);
    QCOMPARE(read({"--units", "3"}).units, 3);
}

void Test_Simulator_Options::each_fault_is_read_from_its_option_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<Fault_Plan>("plan");
    const auto row = [](const QStringList& arguments, const Fault_Plan& plan) {
        QTest::newRow(qPrintable(arguments.first())) << arguments << plan;
    };
    row({"--delay", "700"}, plan_with(&Fault_Plan::delay, milliseconds(700)));
    row({"--chunk", "16"}, plan_with(&Fault_Plan::chunk_size, 16));
    row({"--gap", "40"}, plan_with(&Fault_Plan::chunk_gap, milliseconds(40)));
    row({"--crlf"}, plan_with(&Fault_Plan::crlf, true));
    row({"--nul"}, plan_with(&Fault_Plan::nul, true));
    row({"--invalid-utf8"}, plan_with(&Fault_Plan::invalid_utf8, true));
    row({"--missing", "Buzzer: "}, plan_with(&Fault_Plan::missing_key, QByteArray("Buzzer: ")));
    row({"--oversize"}, plan_with(&Fault_Plan::oversize, true));
    row({"--markup"}, plan_with(&Fault_Plan::markup, true));
    row({"--silent"}, plan_with(&Fault_Plan::silence, true));
    row({"--disappear"}, plan_with(&Fault_Plan::disappearance, true));
}

void Test_Simulator_Options::each_fault_is_read_from_its_option() {
    QFETCH(QStringList, arguments);
    QFETCH(Fault_Plan, plan);
    const Simulator_Options options = read(arguments);
    QCOMPARE(options.error, QString());
    QVERIFY(options.faults == plan);
}

void Test_Simulator_Options::options_behind_the_program_belong_to_the_program() {
    const Simulator_Options options = read({"--units", "2", "--", "halvern", "--crlf"});
    QCOMPARE(options.units, 2);
    QCOMPARE(options.program, QStringList({"halvern", "--crlf"}));
    QVERIFY(!options.faults.crlf);
}

void Test_Simulator_Options::the_remaining_options_are_read() {
    const Simulator_Options options =
        read({"--vanish-after", "250", "--state-file", "units.txt", "--end-with-input"});
    QCOMPARE(options.vanish_after, milliseconds(250));
    QCOMPARE(options.state_file, "units.txt");
    QVERIFY(options.end_with_input);
    QVERIFY(read({"-h"}).help_wanted);
    QVERIFY(read({"--help"}).help_wanted);
}

void Test_Simulator_Options::senseless_options_are_refused_data() {
    QTest::addColumn<QStringList>("arguments");
    for (const QStringList& arguments :
         {QStringList{"--model", "ultra"}, QStringList{"--units", "0"},
          QStringList{"--units", "33"}, QStringList{"--units", "two"}, QStringList{"--delay", "-1"},
          QStringList{"--chunk", "0"}, QStringList{"--gap", "soon"}, QStringList{"--missing", ""},
          QStringList{"--vanish-after", "x"}, QStringList{"--unknown"}, QStringList{"--crlf=1"}}) {
        QTest::newRow(qPrintable(arguments.join(' '))) << arguments;
    }
}

void Test_Simulator_Options::senseless_options_are_refused() {
    QFETCH(QStringList, arguments);
    QVERIFY(!read(arguments).error.isEmpty());
}

void Test_Simulator_Options::the_help_names_every_fault() {
    const QString help = simulator_help();
    for (const Fault_Word& word : fault_names()) {
        QVERIFY2(help.contains("--" + word.name), qPrintable(word.name));
    }
}

void Test_Simulator_Options::a_fault_without_its_value_is_refused_and_changes_nothing() {
    Fault_Plan plan;
    plan.crlf = true;
    const Fault_Plan before = plan;
    QVERIFY(!set_fault(plan, "delay", ""));
    QVERIFY(!set_fault(plan, "delay", "soon"));
    QVERIFY(!set_fault(plan, "crlf", "1"));
    QVERIFY(!set_fault(plan, "unheard-of", ""));
    QVERIFY(plan == before);
    QVERIFY(set_fault(plan, "delay", "5"));
    QVERIFY(plan.crlf);
}

QTEST_GUILESS_MAIN(Test_Simulator_Options)

#include "test_simulator_options.moc"
