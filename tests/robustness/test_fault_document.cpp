// SPDX-License-Identifier: MIT

#include "sim/adapter_options.h"
#include "sim/fault_names.h"
#include "tests/robustness/adapter_faults.h"
#include "tests/robustness/switch_faults.h"

#include <QFile>
#include <QTest>

/// docs/faults.md lists every fault in the words of the tests, and the simulators have a name for
/// every fault.
class Test_Fault_Document : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void every_fault_of_the_switch_is_told_data();
    void every_fault_of_the_switch_is_told();
    void every_fault_of_the_adapter_is_told();
    void every_field_of_a_fault_plan_has_a_word();
    void every_fault_of_an_adapter_has_an_option();
    void the_guides_lead_to_the_document();

private:
    static QString read(const QString& path);
    /// The rows of the tables that begin with a code and contain a text.
    [[nodiscard]] bool tells(const QString& code, const QString& words) const;

    QString document;
};

QString Test_Fault_Document::read(const QString& path) {
    QFile file(QString(HALVERN_SOURCE_FOLDER) + '/' + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool Test_Fault_Document::tells(const QString& code, const QString& words) const {
    const QStringList lines = document.split('\n');
    return std::any_of(lines.begin(), lines.end(), [&](const QString& line) {
        return line.startsWith("| `" + code) && line.contains(words);
    });
}

void Test_Fault_Document::initTestCase() {
    document = read("docs/faults.md");
    QVERIFY(!document.isEmpty());
}

void Test_Fault_Document::every_fault_of_the_switch_is_told_data() {
    QTest::addColumn<QString>("fault");
    for (const Fault_Word& word : fault_names()) {
        QTest::newRow(qPrintable(word.name)) << word.name;
    }
}

void Test_Fault_Document::every_fault_of_the_switch_is_told() {
    QFETCH(const QString, fault);
    QVERIFY(tells(fault, QString()));
    for (const Switch_Fault_Case& one : switch_fault_cases()) {
        if (one.fault == fault) {
            for (const QString& words : {one.serial.words, one.network.words}) {
                QVERIFY2(tells(one.title(), words), qPrintable(one.title() + ": " + words));
            }
        }
    }
}

void Test_Fault_Document::every_fault_of_the_adapter_is_told() {
    for (const QString& option : adapter_fault_names()) {
        QVERIFY2(tells(option, QString()), qPrintable(option));
    }
    for (const Adapter_Fault_Case& one : adapter_fault_cases()) {
        QVERIFY2(tells(one.title(), one.words), qPrintable(one.title() + ": " + one.words));
    }
}

void Test_Fault_Document::every_field_of_a_fault_plan_has_a_word() {
    Fault_Plan plan;
    for (const Fault_Word& word : fault_names()) {
        QVERIFY(set_fault(plan, word.name, word.value_name.isEmpty() ? QString() : "77"));
    }
    // A new field does not compile until it is listed here.
    const auto& [delay, chunk_size, chunk_gap, crlf, nul, invalid_utf8, oversize, markup, silence,
                 disappearance, missing_key] = plan;
    QCOMPARE(delay.count(), 77);
    QCOMPARE(chunk_size, 77);
    QCOMPARE(chunk_gap.count(), 77);
    QVERIFY(crlf && nul && invalid_utf8 && oversize && markup && silence && disappearance);
    QCOMPARE(missing_key, QByteArray("77"));
}

void Test_Fault_Document::every_fault_of_an_adapter_has_an_option() {
    QString error;
    const auto options = read_adapter_options(
        {"halvern-sim-adapter", "--silent-search", "--silent-login", "7", "--never-back",
         "--copies", "7", "--search-bytes", "7", "--login-bytes", "7", "--foreign", "7"},
        error);
    QVERIFY2(options, qPrintable(error));
    // A new field does not compile until it is listed here.
    const auto& [silent_to_search, unanswered_logins, never_comes_back, copies, search_reply_bytes,
                 login_answer_bytes, foreign_datagram_bytes] = options->faults;
    QVERIFY(silent_to_search && never_comes_back);
    QCOMPARE(unanswered_logins, 7);
    QCOMPARE(copies, 7);
    QCOMPARE(search_reply_bytes, 7);
    QCOMPARE(login_answer_bytes, 7);
    QCOMPARE(foreign_datagram_bytes, 7);
}

void Test_Fault_Document::the_guides_lead_to_the_document() {
    QVERIFY(read("CONTRIBUTING.md").contains("(docs/faults.md)"));
    QVERIFY(read("docs/user-guide.md").contains("(faults.md)"));
}

QTEST_MAIN(Test_Fault_Document)
#include "test_fault_document.moc"
