// SPDX-License-Identifier: MIT

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTest>

/// The rooms of the product, as docs/architecture.md draws them: who may include whom, and how
/// large they are.
class Test_Rooms : public QObject {
    Q_OBJECT

private slots:
    void arrows_go_in_one_direction_data();
    void arrows_go_in_one_direction();
    void the_link_names_no_widget();
    void a_page_asks_no_device();
    void no_room_holds_more_than_a_third_of_the_product();
};

namespace {

const QStringList rooms{"app", "link", "usr", "settings", "pages", "windows"};

struct Source {
    QString path;
    QString text;
};

QList<Source> sources_of(const QString& room) {
    QList<Source> sources;
    const QDir folder(QString(HALVERN_SOURCE_FOLDER) + '/' + room);
    for (const QString& name : folder.entryList({"*.cpp", "*.h"}, QDir::Files)) {
        QFile file(folder.filePath(name));
        const bool readable = file.open(QIODevice::ReadOnly);
        sources.append(
            {room + '/' + name, readable ? QString::fromUtf8(file.readAll()) : "(no file)"});
    }
    return sources;
}

/// The lines that include a header whose name matches.
QStringList includes(const QString& room, const QString& pattern) {
    const QRegularExpression line("^#include ([\"<]" + pattern + "[\">])$",
                                  QRegularExpression::MultilineOption);
    QStringList found;
    for (const Source& source : sources_of(room)) {
        for (auto matches = line.globalMatch(source.text); matches.hasNext();) {
            found.append(source.path + ' ' + matches.next().captured(1));
        }
    }
    return found;
}

} // namespace

void Test_Rooms::arrows_go_in_one_direction_data() {
    QTest::addColumn<QStringList>("known");
    // The entry point makes the windows.
    QTest::newRow("app") << QStringList{"app"};
    QTest::newRow("link") << QStringList{"link"};
    QTest::newRow("usr") << QStringList{"usr", "app"};
    QTest::newRow("settings") << QStringList{"settings"};
    QTest::newRow("pages") << QStringList{"pages", "link", "settings", "app"};
    QTest::newRow("windows") << QStringList{"windows", "pages", "link", "usr", "app"};
    QTest::newRow("sim") << QStringList();
}

void Test_Rooms::arrows_go_in_one_direction() {
    QFETCH(const QStringList, known);
    const QString room = QTest::currentDataTag();
    QStringList unknown = rooms;
    for (const QString& name : known) {
        unknown.removeAll(name);
    }
    QVERIFY(!sources_of(room).isEmpty());
    QStringList wrong = includes(room, "(?:" + unknown.join('|') + ")/[^\"]+");
    wrong.removeIf([](const QString& line) { return line.startsWith("app/main.cpp \"windows/"); });
    QCOMPARE(wrong, QStringList());
}

void Test_Rooms::the_link_names_no_widget() {
    QCOMPARE(includes("link", "Q(?:Widget|MessageBox|MainWindow|Application|ComboBox|Dialog)"),
             QStringList());
}

void Test_Rooms::a_page_asks_no_device() {
    QCOMPARE(includes("pages", "link/link_transport\\.h"), QStringList());
    QCOMPARE(includes("pages", "Q(?:SerialPort|SerialPortInfo|UdpSocket|IODevice)"), QStringList());
    // What is looked for exists.
    QVERIFY(!includes("link", "link/link_transport\\.h").isEmpty());
    QVERIFY(!includes("link", "QSerialPort").isEmpty());
}

void Test_Rooms::no_room_holds_more_than_a_third_of_the_product() {
    QHash<QString, qsizetype> lines;
    qsizetype all = 0;
    for (const QString& room : rooms) {
        for (const Source& source : sources_of(room)) {
            lines[room] += source.text.count('\n');
        }
        all += lines[room];
    }
    for (const QString& room : rooms) {
        QVERIFY2(lines[room] > 0 && 3 * lines[room] <= all,
                 qPrintable(QString("%1: %2 of %3 lines").arg(room).arg(lines[room]).arg(all)));
    }
}

QTEST_APPLESS_MAIN(Test_Rooms)

#include "test_rooms.moc"
