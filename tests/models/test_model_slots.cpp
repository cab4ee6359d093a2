// SPDX-License-Identifier: MIT

#include "tests/support/bare_window.h"
#include "tests/support/model_fixture.h"
#include "windows/halvern_velmoran_lite.h"
#include "windows/halvern_velmoran_plus.h"
#include "windows/halvern_velmoran_pro.h"

#include <QFile>
#include <QMetaMethod>
#include <QTest>

#include <algorithm>

/// Compares the slots of each main window with slots.txt: forms and timers find them by name only,
/// so a missing slot would not be noticed before its button is pressed. Also calls the methods that
/// send.
class Test_Model_Slots : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void each_window_has_exactly_its_slots_data();
    void each_window_has_exactly_its_slots();
    void every_window_sends_by_each_of_its_methods_data() { add_model_rows(); }
    void every_window_sends_by_each_of_its_methods();
    void the_window_of_tests_has_no_name_of_its_own();

private:
    /// A line of the file: the letters of the models, and the signature.
    struct Line {
        QByteArray models;
        QByteArray signature;
    };
    QList<Line> lines;
};

namespace {

QByteArrayList sorted(QByteArrayList list) {
    std::ranges::sort(list);
    return list;
}

QByteArrayList slots_of(const QMetaObject& window) {
    QByteArrayList names;
    for (int i = window.methodOffset(); i < window.methodCount(); ++i) {
        if (window.method(i).methodType() == QMetaMethod::Slot) {
            names.append(window.method(i).methodSignature());
        }
    }
    return sorted(names);
}

/// Slots of the Lite, plain methods of the others.
template <class Window>
void send_by_each_method(QMainWindow& main_window) {
    auto& window = dynamic_cast<Window&>(main_window);
    std::string command = "//c2";
    window.writeCommand(command);
    // The carriage return is appended to the caller's own text.
    QCOMPARE(command, std::string("//c2\r"));
    window.writeCommand(std::string("//u3"));
    window.writeData("//R\r");
    window.send_initial_command();
    window.send_information_command();
    window.send_current_layout_command();
}

} // namespace

void Test_Model_Slots::initTestCase() {
    QFile file(MODEL_SLOTS_FILE);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        if (!line.isEmpty() && !line.startsWith('#')) {
            const QByteArrayList words = line.split(' ');
            QCOMPARE(words.size(), 2);
            lines.append({words[0], words[1]});
        }
    }
    QCOMPARE(lines.size(), 57);
}

void Test_Model_Slots::each_window_has_exactly_its_slots_data() {
    QTest::addColumn<char>("letter");
    QTest::addColumn<const QMetaObject*>("window");
    QTest::newRow("Lite") << 'L' << &Halvern_Velmoran_LITE::staticMetaObject;
    QTest::newRow("Plus") << 'P' << &Halvern_Velmoran_PLUS::staticMetaObject;
    QTest::newRow("Pro") << 'R' << &Halvern_Velmoran_PRO::staticMetaObject;
}

void Test_Model_Slots::each_window_has_exactly_its_slots() {
    QFETCH(const char, letter);
    QFETCH(const QMetaObject*, window);
    QByteArrayList expected;
    for (const Line& line : lines) {
        if (line.models.contains(letter)) {
            expected.append(line.signature);
        }
    }
    QCOMPARE(slots_of(*window), sorted(expected));
    // No class between them and Qt's own window could add further slots.
    QCOMPARE(window->superClass(), &QMainWindow::staticMetaObject);
}

void Test_Model_Slots::every_window_sends_by_each_of_its_methods() {
    QFETCH(Switch_Model, model);
    Modal_Robot robot;
    const std::unique_ptr<Window_Fixture> fixture = make_model_fixture(model, robot);
    QVERIFY(fixture->open_filled());
    switch (model) {
    case Switch_Model::lite:
        send_by_each_method<Halvern_Velmoran_LITE>(fixture->window());
        break;
    case Switch_Model::plus:
        send_by_each_method<Halvern_Velmoran_PLUS>(fixture->window());
        break;
    case Switch_Model::pro:
        send_by_each_method<Halvern_Velmoran_PRO>(fixture->window());
        break;
    }
    const QByteArrayList expected{"//c2", "//u3", "//R", "//rl", "//??", "//BP"};
    QCOMPARE(fixture->commands(), expected);
    fixture->close();
    QVERIFY2(robot.done(), robot.why());
}

void Test_Model_Slots::the_window_of_tests_has_no_name_of_its_own() {
    for (const QByteArray& name : slots_of(Bare_Window::staticMetaObject)) {
        const bool known = std::ranges::any_of(lines, [&name](const Line& line) {
            return line.models == "LPR" && line.signature == name;
        });
        QVERIFY2(known, name.constData());
    }
}

QTEST_MAIN(Test_Model_Slots)

#include "test_model_slots.moc"
