// SPDX-License-Identifier: MIT

#include "tests/settings/settings_snapshot.h"
#include "tests/support/close_fixture.h"
#include "tests/support/settings_fixture.h"
#include "tests/support/wait_until.h"

#include <QTest>

#include <ctime>

/// The processor time of this process since the object was created, which does not depend on the
/// load of the machine.
class Processor_Time {
public:
    [[nodiscard]] qint64 elapsed() const {
        return static_cast<qint64>(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
    }

private:
    std::clock_t start = std::clock();
};

/// Files far larger than any unit's settings: they load, and the time of each part is printed.
class Test_Settings_Load_Size : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_file_of_100_mb_loads();
    void a_line_of_10_mb_loads_data();
    void a_line_of_10_mb_loads();

private:
    void print_time(const char* part, const Processor_Time& since) const;

    std::unique_ptr<Settings_Fixture> fixture;
    Settings_Lines lines;
};

namespace {

constexpr int megabyte = 1'000'000;
/// Far above what is needed, far below what a user would consider a crash.
constexpr int max_part = 120'000;

} // namespace

void Test_Settings_Load_Size::init() {
    lines = Settings_Lines();
    fixture = std::make_unique<Settings_Fixture>();
    QVERIFY(fixture->open_filled());
    fixture->silence_switch();
}

void Test_Settings_Load_Size::cleanup() { close_fixture(fixture); }

void Test_Settings_Load_Size::print_time(const char* part, const Processor_Time& since) const {
    qInfo("%s, %s: %lld ms", QTest::currentDataTag() ? QTest::currentDataTag() : "100 MB", part,
          since.elapsed());
}

void Test_Settings_Load_Size::a_file_of_100_mb_loads() {
    const QByteArray noise = QByteArray("No label stands in this line, just words.\r\n");
    const QString path = fixture->write(
        noise.repeated(100 * megabyte / static_cast<int>(noise.size())) + lines.text());
    Processor_Time time;
    QVERIFY2(fixture->load_first_part(path), fixture->robot.why());
    print_time("first part", time);
    QVERIFY(time.elapsed() < max_part);
    time = {};
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    print_time("second part", time);
    QVERIFY(time.elapsed() < max_part);
    QCOMPARE(look_at(*fixture), good_snapshot(*fixture));
    QCOMPARE(fixture->window_fixture.commands(),
             lines.values(first_part_labels) + fixture->sent_in_second_part(lines));
}

void Test_Settings_Load_Size::a_line_of_10_mb_loads_data() {
    QTest::addColumn<QByteArray>("label");
    for (const char* label : {"Cursor Rolling: ", "Custom mouse movement setting 1: ",
                              "Data from mouse movement label 1: ", "Mouse Parking: "}) {
        QTest::addRow("%s", label) << QByteArray(label);
    }
}

void Test_Settings_Load_Size::a_line_of_10_mb_loads() {
    QFETCH(const QByteArray, label);
    lines[label] += QByteArray(10 * megabyte, 'W');
    const QString path = fixture->write(lines.text());
    Processor_Time time;
    QVERIFY2(fixture->load_first_part(path), fixture->robot.why());
    print_time("first part", time);
    QVERIFY(time.elapsed() < max_part);
    time = {};
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    print_time("second part", time);
    QVERIFY(time.elapsed() < max_part);
    // The page that shows the text has to be drawn, too.
    time = {};
    fixture->window_fixture.button("pushButton_Mouse_Speed_Settings").click();
    fixture->window_fixture.window().grab();
    print_time("drawing", time);
    QVERIFY(time.elapsed() < max_part);
}

QTEST_MAIN(Test_Settings_Load_Size)

#include "test_settings_load_size.moc"
