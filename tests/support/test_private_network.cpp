// SPDX-License-Identifier: MIT

#include "tests/support/private_network.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

/// The harness that keeps broadcasts in the test's own network.
class Test_Private_Network : public QObject {
    Q_OBJECT

private slots:
    void a_program_runs_in_a_network_of_its_own_with_the_loopback_alone();
    void without_its_tools_the_program_fails_instead_of_running_data();
    void without_its_tools_the_program_fails_instead_of_running();
    void in_the_outer_network_the_program_fails_instead_of_running();
    void where_the_network_is_refused_each_function_is_skipped_by_name();
};

namespace {

constexpr int patience_ms = 20'000;

struct Run {
    int exit_code;
    QStringList output;
};

Run run_child(const QProcessEnvironment& environment,
              const QString& program = HALVERN_PRIVATE_NETWORK_CHILD,
              const QStringList& arguments = {}) {
    QProcess child;
    child.setProcessEnvironment(environment);
    child.start(program, arguments);
    child.waitForFinished(patience_ms);
    const QString output = QString::fromUtf8(child.readAllStandardOutput());
    return {child.exitStatus() == QProcess::NormalExit ? child.exitCode() : -1,
            output.split('\n', Qt::SkipEmptyParts)};
}

/// Such as "net:[4026531840]".
QString own_network() { return QFileInfo(QFile::symLinkTarget("/proc/self/ns/net")).fileName(); }

} // namespace

void Test_Private_Network::a_program_runs_in_a_network_of_its_own_with_the_loopback_alone() {
    if (const std::string refusal = private_network_refusal(); !refusal.empty()) {
        QSKIP(("no private network: " + refusal).c_str());
    }
    const Run run = run_child(QProcessEnvironment::systemEnvironment());
    QCOMPARE(run.exit_code, 42);
    QCOMPARE(run.output.size(), 2);
    QVERIFY(run.output[0].startsWith("net:["));
    QVERIFY(run.output[0] != own_network());
    QCOMPARE(run.output[1], QString("lo"));
}

void Test_Private_Network::without_its_tools_the_program_fails_instead_of_running_data() {
    QTest::addColumn<QStringList>("tools");
    QTest::newRow("no shell") << QStringList();
    QTest::newRow("no unshare") << QStringList({"sh", "ip"});
    QTest::newRow("no ip") << QStringList({"sh", "unshare", "true"});
}

void Test_Private_Network::without_its_tools_the_program_fails_instead_of_running() {
    QFETCH(const QStringList, tools);
    const QTemporaryDir place;
    for (const QString& tool : tools) {
        const QString program =
            QStandardPaths::findExecutable(tool, {"/bin", "/usr/bin", "/sbin", "/usr/sbin"});
        QVERIFY2(QFile::link(program, place.filePath(tool)), qPrintable(tool));
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", place.path());
    const Run run = run_child(environment);
    QCOMPARE_GT(run.exit_code, 0);
    QVERIFY(run.exit_code != 42);
    QCOMPARE(run.output, QStringList());
}

void Test_Private_Network::in_the_outer_network_the_program_fails_instead_of_running() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HALVERN_OUTER_NETWORK", own_network());
    const Run run = run_child(environment);
    QCOMPARE(run.exit_code, 1);
    QCOMPARE(run.output, QStringList());
}

void Test_Private_Network::where_the_network_is_refused_each_function_is_skipped_by_name() {
    const QTemporaryDir place;
    QFile unshare(place.filePath("unshare"));
    QVERIFY(unshare.open(QIODevice::WriteOnly));
    unshare.write("#!/bin/sh\necho refused here >&2\nexit 1\n");
    unshare.close();
    QVERIFY(unshare.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", place.path() + ':' + environment.value("PATH"));
    const QString test = QDir(QCoreApplication::applicationDirPath()).filePath("test_usr_login");

    const Run names = run_child(environment, test, {"-functions"});
    const Run all = run_child(environment, test);
    QCOMPARE(all.exit_code, 0);
    QCOMPARE_GT(all.output.size(), 10);
    QCOMPARE(names.output, all.output);
    for (const QString& line : all.output) {
        QVERIFY2(line.startsWith("SKIP   : ") &&
                     line.endsWith("() no private network: refused here"),
                 qPrintable(line));
    }
    QVERIFY(
        all.output.contains("SKIP   : the_login_frame_on_the_wire_is_the_known_one() no private "
                            "network: refused here"));
}

QTEST_GUILESS_MAIN(Test_Private_Network)
#include "test_private_network.moc"
