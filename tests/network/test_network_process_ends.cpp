// SPDX-License-Identifier: MIT

#include "tests/support/log_folder.h"
#include "tests/support/private_network.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

/// The deliberate ends of the process of Plus and Pro, watched from outside.
class Test_Network_Process_Ends : public QObject {
    Q_OBJECT

private slots:
    void the_process_ends_with_status_1_after_its_box_data();
    void the_process_ends_with_status_1_after_its_box();
    void the_box_comes_after_its_wait_data();
    void the_box_comes_after_its_wait();
    void a_hotkey_before_a_layout_is_read_back_ends_the_process_data();
    void a_hotkey_before_a_layout_is_read_back_ends_the_process();
};

namespace {

/// How a child ended, and what it printed.
struct End {
    QStringList lines;
    bool in_order = false;
    int status = -1;
    QString errors;
};

End run_child(const QString& model, const QString& scenario) {
    constexpr int longest = 60'000;
    QProcess child;
    child.start(NETWORK_END_CHILD, {model, scenario});
    End end;
    if (!child.waitForFinished(longest)) {
        end.errors = child.errorString();
        return end;
    }
    end.lines = QString::fromUtf8(child.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    end.in_order = child.exitStatus() == QProcess::NormalExit;
    end.status = child.exitCode();
    end.errors = QString::fromUtf8(child.readAllStandardError());
    return end;
}

QString box(const QString& title, const QString& text) {
    return QString("QMessageBox , title \"%1\", text \"%2\", icon 2, buttons OK").arg(title, text);
}

const char* const unreachable = "Check if the device is on the same network as the PC";

} // namespace

void Test_Network_Process_Ends::the_process_ends_with_status_1_after_its_box_data() {
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("scenario");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("log_entries");
    const QStringList unread = {"Get static IP error", "Get subnet mask error",
                                "Get gateway error"};
    const struct {
        const char* scenario;
        QString last_box;
        bool window_open;
        QStringList log_entries = {};
    } rows[] = {
        {"no-port", box(" ", "No available port"), false},
        {"no-port-later", box(" ", "No available port"), true},
        {"no-hardware", box("Information", "No hardware online"), false},
        {"no-hardware-later", box("Information", "No hardware online"), true},
        {"no-hardware-on-refresh", box("Information", "No hardware online"), false},
        {"adapter-not-back", box(" ", "No connection"), false, unread},
    };
    for (const char* model : {"plus", "pro"}) {
        for (const auto& row : rows) {
            const QStringList before = row.window_open ? QStringList("window open") : QStringList();
            QTest::addRow("%s %s", model, row.scenario)
                << QString(model) << QString(row.scenario) << before + QStringList(row.last_box)
                << row.log_entries;
        }
    }
}

void Test_Network_Process_Ends::the_process_ends_with_status_1_after_its_box() {
    QFETCH(const QString, model);
    QFETCH(const QString, scenario);
    QFETCH(const QStringList, lines);
    QFETCH(const QStringList, log_entries);
    const Log_Folder folder;
    const End end = run_child(model, scenario);
    QVERIFY2(end.in_order, qPrintable(end.errors));
    QCOMPARE(end.lines, lines);
    QCOMPARE(end.status, 1);
    // No window is destroyed at this end.
    QCOMPARE(folder.entries(), log_entries);
    QVERIFY(folder.text().startsWith("Start.........\n"));
    QVERIFY(!folder.text().contains("Stop"));
}

void Test_Network_Process_Ends::the_box_comes_after_its_wait_data() {
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("scenario");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<int>("wait");
    QTest::newRow("no answer on a Plus")
        << "plus"
        << "silent-after-on" << QStringList({"window open", box(" ", unreachable)}) << 7000;
    QTest::newRow("no answer on a Pro")
        << "pro"
        << "silent-after-on" << QStringList({"window open", box(" ", unreachable)}) << 7000;
    QTest::newRow("ON twice: each has a timer of its own")
        << "plus"
        << "silent-after-on-twice"
        << QStringList({"window open", box(" ", unreachable), box(" ", unreachable)}) << 8000;
    QTest::newRow("OFF meanwhile")
        << "pro"
        << "off-within-the-seven-seconds"
        << QStringList({"window open", "green", box(" ", unreachable)}) << 7000;
    for (const char* model : {"plus", "pro"}) {
        QTest::addRow("a stalled connection of a %s", model)
            << model << "stalled-connection" << QStringList(box(" ", "No connection")) << 3000;
    }
    QTest::newRow("ON before any adapter was found")
        << "plus"
        << "on-without-an-adapter" << QStringList({"window open", box(" ", "No connection")}) << 0;
}

void Test_Network_Process_Ends::the_box_comes_after_its_wait() {
    QFETCH(const QString, model);
    QFETCH(const QString, scenario);
    QFETCH(const QStringList, lines);
    QFETCH(const int, wait);
    const End end = run_child(model, scenario);
    QVERIFY2(end.in_order, qPrintable(end.errors));
    QCOMPARE(end.lines.mid(0, end.lines.size() - 1), lines);
    const QRegularExpressionMatch after =
        QRegularExpression(R"(\Aafter (\d+)\z)").match(end.lines.last());
    QVERIFY2(after.hasMatch(), qPrintable(end.lines.last()));
    // In virtual time, in which the robot looks for the box every few milliseconds.
    constexpr int looks = 15;
    QVERIFY2(after.captured(1).toInt() >= wait, qPrintable(end.lines.last()));
    QVERIFY2(after.captured(1).toInt() <= wait + looks, qPrintable(end.lines.last()));
    QCOMPARE(end.status, 1);
}

void Test_Network_Process_Ends::a_hotkey_before_a_layout_is_read_back_ends_the_process_data() {
    QTest::addColumn<QString>("model");
    QTest::newRow("Plus") << "plus";
    QTest::newRow("Pro") << "pro";
}

void Test_Network_Process_Ends::a_hotkey_before_a_layout_is_read_back_ends_the_process() {
    QFETCH(const QString, model);
    const Log_Folder folder;
    const End end = run_child(model, "hotkey-before-a-layout-is-read-back");
    QVERIFY(!end.in_order);
    QCOMPARE(end.lines, (QStringList{"window open", "//BP"}));
    QVERIFY2(end.errors.contains("no grid position behind 04B"), qPrintable(end.errors));
}

int main(int argc, char** argv) {
    return run_test_of_private_networks(argc, argv, [](int count, char** values) {
        const QCoreApplication application(count, values);
        Test_Network_Process_Ends test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_network_process_ends.moc"
