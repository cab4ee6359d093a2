// SPDX-License-Identifier: MIT

#include "sim/port_list.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSerialPortInfo>
#include <QTest>

/// The simulated list of ports, which replaces the machine's own.
class Test_Port_List : public QObject {
    Q_OBJECT

private slots:
    void the_listed_names_are_the_ports_in_their_order();
    void a_port_is_opened_by_the_listed_device_name();
    void an_empty_list_means_no_port();
    void an_unset_variable_means_no_port();
    void empty_names_are_passed_over();
    void qt_asks_the_program_it_is_linked_into_and_not_libudev();
    void qt_asks_the_preloaded_list_and_not_libudev();
    void an_unmodified_program_sees_the_preloaded_list();
    void an_unmodified_program_sees_no_port_without_a_list();
};

namespace {

const char list_ports_program[] = "list_ports";
const char linked_program[] = "list_ports_linked";

QStringList names_listed() {
    QStringList names;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        names.append(port.portName());
    }
    return names;
}

QString beside_this_program(const QString& name) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(name);
}

/// Starts one of the small programs and waits for its end.
struct Listing {
    Listing(const char* program, const QProcessEnvironment& environment) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(beside_this_program(program), QStringList());
        ended_well = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
                     process.exitCode() == 0;
        names =
            QString::fromLocal8Bit(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
        errors = process.readAllStandardError();
    }

    bool ended_well = false;
    QStringList names;
    QByteArray errors;
};

QProcessEnvironment environment_with(const QStringList& ports) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(port_list_variable, QString::fromLocal8Bit(port_list_value(ports)));
    return environment;
}

QProcessEnvironment preloading(QProcessEnvironment environment) {
    // By file name only: a space would split a path in a list of libraries to preload.
    const QFileInfo library(HALVERN_PORT_LIST_PRELOAD);
    environment.insert("LD_PRELOAD", library.fileName());
    environment.insert("LD_LIBRARY_PATH", library.path());
    environment.insert("ASAN_OPTIONS", "verify_asan_link_order=0");
    return environment;
}

/// The files to which the dynamic linker has bound the libudev functions that QSerialPortInfo
/// calls, as it reports itself.
QSet<QString> files_asked(const char* program, QProcessEnvironment environment) {
    environment.insert("LD_DEBUG", "bindings");
    environment.insert("LD_BIND_NOW", "1");
    static const QRegularExpression binding(
        "binding file \\S*libQt6SerialPort\\S* \\[0\\] to (.+) \\[0\\]: normal symbol `udev_");
    QSet<QString> files;
    auto matches =
        binding.globalMatch(QString::fromLocal8Bit(Listing(program, environment).errors));
    while (matches.hasNext()) {
        files.insert(matches.next().captured(1));
    }
    return files;
}

} // namespace

void Test_Port_List::the_listed_names_are_the_ports_in_their_order() {
    list_ports({"/dev/pts/7", "/dev/pts/9", "/dev/pts/8"});
    QCOMPARE(names_listed(), QStringList({"pts/7", "pts/9", "pts/8"}));
}

void Test_Port_List::a_port_is_opened_by_the_listed_device_name() {
    list_ports({"/dev/pts/7"});
    QCOMPARE(QSerialPortInfo::availablePorts().value(0).systemLocation(), "/dev/pts/7");
}

void Test_Port_List::an_empty_list_means_no_port() {
    list_ports({});
    QCOMPARE(names_listed(), QStringList());
}

void Test_Port_List::an_unset_variable_means_no_port() {
    qunsetenv(port_list_variable);
    QCOMPARE(names_listed(), QStringList());
}

void Test_Port_List::empty_names_are_passed_over() {
    qputenv(port_list_variable, ":/dev/pts/7::/dev/pts/9:");
    QCOMPARE(names_listed(), QStringList({"pts/7", "pts/9"}));
}

void Test_Port_List::qt_asks_the_program_it_is_linked_into_and_not_libudev() {
    QCOMPARE(files_asked(linked_program, environment_with({"/dev/pts/7"})),
             QSet<QString>{beside_this_program(linked_program)});
}

void Test_Port_List::qt_asks_the_preloaded_list_and_not_libudev() {
    QCOMPARE(files_asked(list_ports_program, preloading(environment_with({"/dev/pts/7"}))),
             QSet<QString>{HALVERN_PORT_LIST_PRELOAD});
}

void Test_Port_List::an_unmodified_program_sees_the_preloaded_list() {
    const Listing listing(list_ports_program,
                          preloading(environment_with({"/dev/pts/7", "/dev/pts/9"})));
    QVERIFY2(listing.ended_well, listing.errors.constData());
    QCOMPARE(listing.names, QStringList({"pts/7", "pts/9"}));
}

void Test_Port_List::an_unmodified_program_sees_no_port_without_a_list() {
    QProcessEnvironment environment = preloading(QProcessEnvironment::systemEnvironment());
    environment.remove(port_list_variable);
    const Listing listing(list_ports_program, environment);
    QVERIFY2(listing.ended_well, listing.errors.constData());
    QCOMPARE(listing.names, QStringList());
}

QTEST_GUILESS_MAIN(Test_Port_List)

#include "test_port_list.moc"
