// SPDX-License-Identifier: MIT

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTest>

/// The folders of the product, as docs/architecture.md describes them: which may include
/// which, and how large they are.
class Test_Folders : public QObject {
    Q_OBJECT

private slots:
    void arrows_go_in_one_direction_data();
    void arrows_go_in_one_direction();
    void the_link_names_no_widget();
    void a_page_asks_no_device();
    void no_folder_holds_more_than_a_third_of_the_product();
    void test_folders_share_helpers_only_by_support();
};

namespace {

const QStringList folders{"app", "link", "usr", "settings", "pages", "windows"};

struct Source {
    QString path;
    QString text;
};

QList<Source> sources_of(const QString& folder) {
    QList<Source> sources;
    const QDir directory(QString(HALVERN_SOURCE_FOLDER) + '/' + folder);
    for (const QString& name : directory.entryList({"*.cpp", "*.h"}, QDir::Files)) {
        QFile file(directory.filePath(name));
        const bool readable = file.open(QIODevice::ReadOnly);
        sources.append(
            {folder + '/' + name, readable ? QString::fromUtf8(file.readAll()) : "(no file)"});
    }
    return sources;
}

/// The lines that include a header whose name matches.
QStringList includes(const QString& folder, const QString& pattern) {
    const QRegularExpression line("^#include ([\"<]" + pattern + "[\">])$",
                                  QRegularExpression::MultilineOption);
    QStringList found;
    for (const Source& source : sources_of(folder)) {
        for (auto matches = line.globalMatch(source.text); matches.hasNext();) {
            found.append(source.path + ' ' + matches.next().captured(1));
        }
    }
    return found;
}

} // namespace

void Test_Folders::arrows_go_in_one_direction_data() {
    QTest::addColumn<QStringList>("known");
    QTest::newRow("app") << QStringList{"app"};
    QTest::newRow("link") << QStringList{"link"};
    QTest::newRow("usr") << QStringList{"usr", "app"};
    QTest::newRow("settings") << QStringList{"settings"};
    QTest::newRow("pages") << QStringList{"pages", "link", "settings", "app"};
    QTest::newRow("windows") << QStringList{"windows", "pages", "link", "usr", "app"};
    QTest::newRow("sim") << QStringList();
}

void Test_Folders::arrows_go_in_one_direction() {
    QFETCH(const QStringList, known);
    const QString folder = QTest::currentDataTag();
    QStringList unknown = folders;
    for (const QString& name : known) {
        unknown.removeAll(name);
    }
    QVERIFY(!sources_of(folder).isEmpty());
    QCOMPARE(includes(folder, "(?:" + unknown.join('|') + ")/[^\"]+"), QStringList());
}

void Test_Folders::the_link_names_no_widget() {
    QCOMPARE(includes("link", "Q(?:Widget|MessageBox|MainWindow|Application|ComboBox|Dialog)"),
             QStringList());
}

void Test_Folders::a_page_asks_no_device() {
    QCOMPARE(includes("pages", "link/link_transport\\.h"), QStringList());
    QCOMPARE(includes("pages", "Q(?:SerialPort|SerialPortInfo|UdpSocket|IODevice)"), QStringList());
    // The patterns match where they should.
    QVERIFY(!includes("link", "link/link_transport\\.h").isEmpty());
    QVERIFY(!includes("link", "QSerialPort").isEmpty());
}

void Test_Folders::no_folder_holds_more_than_a_third_of_the_product() {
    QHash<QString, qsizetype> lines;
    qsizetype all = 0;
    for (const QString& folder : folders) {
        for (const Source& source : sources_of(folder)) {
            lines[folder] += source.text.count('\n');
        }
        all += lines[folder];
    }
    for (const QString& folder : folders) {
        QVERIFY2(lines[folder] > 0 && 3 * lines[folder] <= all,
                 qPrintable(QString("%1: %2 of %3 lines").arg(folder).arg(lines[folder]).arg(all)));
    }
}

void Test_Folders::test_folders_share_helpers_only_by_support() {
    const QDir tests(QString(HALVERN_SOURCE_FOLDER) + "/tests");
    QStringList wrong;
    for (const QString& folder : tests.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        wrong += includes("tests/" + folder, "tests/(?!(?:support|" + folder + ")/)[^\"]+");
    }
    QCOMPARE(wrong, QStringList());
    // The pattern matches where it should.
    QVERIFY(!includes("tests/app", "tests/(?!app/)[^\"]+").isEmpty());
}

QTEST_APPLESS_MAIN(Test_Folders)

#include "test_folders.moc"
