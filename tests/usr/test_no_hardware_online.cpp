// SPDX-License-Identifier: MIT

#include "tests/support/private_network.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>

/// The end of the process when no adapter answers, watched from outside.
class Test_No_Hardware_Online : public QObject {
    Q_OBJECT

private slots:
    void a_search_without_answer_ends_the_process_after_its_box_data();
    void a_search_without_answer_ends_the_process_after_its_box();
};

void Test_No_Hardware_Online::a_search_without_answer_ends_the_process_after_its_box_data() {
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QStringList>("lines_before");
    QTest::newRow("in the constructor") << "construct" << QStringList();
    QTest::newRow("on Refresh") << "refresh" << QStringList("the dialog was made");
    QTest::newRow("the search port is taken") << "port" << QStringList();
}

void Test_No_Hardware_Online::a_search_without_answer_ends_the_process_after_its_box() {
    QFETCH(const QString, argument);
    QFETCH(const QStringList, lines_before);
    QProcess child;
    child.start(HALVERN_NO_HARDWARE_CHILD, {argument});
    QVERIFY2(child.waitForFinished(20'000), qPrintable(child.errorString()));

    const QString box = "QMessageBox , title \"Information\", text \"No hardware online\", "
                        "icon 2, buttons OK";
    const QString output = QString::fromUtf8(child.readAllStandardOutput());
    QCOMPARE(output.split('\n', Qt::SkipEmptyParts), lines_before + QStringList(box));
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 1);
}

int main(int argc, char** argv) {
    return run_test_of_private_networks(argc, argv, [](int count, char** values) {
        const QCoreApplication application(count, values);
        Test_No_Hardware_Online test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_no_hardware_online.moc"
