// SPDX-License-Identifier: MIT

#include "app/select_km_type_dialog.h"
#include "app/start_up.h"
#include "app/text_font.h"
#include "tests/support/log_folder.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QPalette>
#include <QTest>
#include <QTimer>

#include <cmath>
#include <optional>
#include <stdexcept>

/// The run between the creation and the end of the application object: the order in which objects
/// are created and destroyed.
class Test_Start_Up : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void the_chosen_model_reaches_the_factory_data();
    void the_chosen_model_reaches_the_factory();
    void the_window_is_shown_only_once_it_is_made();
    void closing_the_window_ends_the_run_with_status_0();
    void the_status_is_that_of_the_event_loop();
    void a_dialog_closed_without_a_choice_ends_the_run_at_once_with_0();
    void a_dialog_closed_without_a_choice_touches_no_log();
    void the_dialog_exists_hidden_while_the_window_lives();
    void the_window_is_deleted_before_the_dialog();
    void a_factory_that_throws_hands_over_its_exception();
    void a_factory_that_throws_leaves_no_dialog_and_no_event_loop();
    void a_dark_theme_gives_way_to_the_light_palette();
    void disabled_captions_can_be_read_on_the_buttons_grey();
    void the_text_font_stays_when_a_theme_sets_another();
};

namespace {

/// The model dialog of this process, if it still exists, visible or not.
const Select_KM_type_Dialog* standing_dialog() {
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        if (const auto* dialog = qobject_cast<const Select_KM_type_Dialog*>(widget)) {
            return dialog;
        }
    }
    return nullptr;
}

/// What was visible of the dialog at one moment.
struct Dialog_Snapshot {
    bool exists = standing_dialog() != nullptr;
    bool visible = exists && standing_dialog()->isVisible();
};

/// A main window that records the state of the dialog when it is destroyed.
class Watching_Window : public QMainWindow {
public:
    explicit Watching_Window(std::optional<Dialog_Snapshot>& snapshot) : at_end(snapshot) {}
    ~Watching_Window() override { at_end = Dialog_Snapshot(); }

private:
    std::optional<Dialog_Snapshot>& at_end;
};

void close_when_the_loop_runs(QMainWindow& window) {
    QTimer::singleShot(0, &window, [&window] { window.close(); });
}

Modal_Expectation choose_model(const QString& button) {
    return {.class_name = "Select_KM_type_Dialog",
            .action = in_order({press_object(button), press_object("pushButton_Continue")})};
}

/// The contrast ratio of two colours as the eye perceives it; 1 to 21.
double contrast(const QColor& one, const QColor& other) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QPalette dark_theme() {
    QPalette palette(Qt::black);
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, Qt::white);
    }
    palette.setColor(QPalette::Base, Qt::black);
    return palette;
}

} // namespace

void Test_Start_Up::cleanup() {
    QCOMPARE(windows_left(), QStringList());
    QCOMPARE(standing_dialog(), nullptr);
}

void Test_Start_Up::the_chosen_model_reaches_the_factory_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("model");
    QTest::newRow("Lite") << "radioButton_LITE"
                          << "Lite";
    QTest::newRow("Plus") << "radioButton_PLUS"
                          << "Plus";
    QTest::newRow("Pro") << "radioButton_PRO"
                         << "Pro";
}

void Test_Start_Up::the_chosen_model_reaches_the_factory() {
    QFETCH(QString, button);
    QFETCH(QString, model);
    Modal_Robot robot;
    robot.expect(choose_model(button));
    QStringList asked;
    std::exception_ptr failure;
    const int status = run_tool(
        [&](const std::string& km_type) {
            asked.append(QString::fromStdString(km_type));
            auto window = std::make_unique<QMainWindow>();
            close_when_the_loop_runs(*window);
            return window;
        },
        failure);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(asked, QStringList{model});
    QCOMPARE(status, 0);
    QVERIFY(!failure);
}

void Test_Start_Up::the_window_is_shown_only_once_it_is_made() {
    Modal_Robot robot;
    robot.expect(choose_model("radioButton_LITE"));
    bool visible_in_factory = true;
    bool visible_in_loop = false;
    std::exception_ptr failure;
    run_tool(
        [&](const std::string&) {
            auto window = std::make_unique<QMainWindow>();
            // The constructor of a real window may run its own event loops.
            QCoreApplication::processEvents();
            visible_in_factory = window->isVisible();
            QTimer::singleShot(0, window.get(), [&visible_in_loop, shown = window.get()] {
                visible_in_loop = shown->isVisible();
                shown->close();
            });
            return window;
        },
        failure);
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(!visible_in_factory);
    QVERIFY(visible_in_loop);
}

void Test_Start_Up::closing_the_window_ends_the_run_with_status_0() {
    Modal_Robot robot;
    robot.expect(choose_model("radioButton_PRO"));
    std::exception_ptr failure;
    const int status = run_tool(
        [](const std::string&) {
            auto window = std::make_unique<QMainWindow>();
            close_when_the_loop_runs(*window);
            return window;
        },
        failure);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(status, 0);
}

void Test_Start_Up::the_status_is_that_of_the_event_loop() {
    Modal_Robot robot;
    robot.expect(choose_model("radioButton_PRO"));
    std::exception_ptr failure;
    const int status = run_tool(
        [](const std::string&) {
            auto window = std::make_unique<QMainWindow>();
            QTimer::singleShot(0, window.get(), [] { QApplication::exit(7); });
            return window;
        },
        failure);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(status, 7);
}

void Test_Start_Up::a_dialog_closed_without_a_choice_ends_the_run_at_once_with_0() {
    Modal_Robot robot;
    robot.expect({.class_name = "Select_KM_type_Dialog", .action = close_by_frame()});
    QStringList asked;
    std::exception_ptr failure;
    const int status = run_tool(
        [&](const std::string& km_type) {
            asked.append(QString::fromStdString(km_type));
            return std::unique_ptr<QMainWindow>();
        },
        failure);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(status, 0);
    QCOMPARE(asked, QStringList{""});
    QVERIFY(!failure);
}

void Test_Start_Up::a_dialog_closed_without_a_choice_touches_no_log() {
    const Log_Folder folder;
    Modal_Robot robot;
    robot.expect({.class_name = "Select_KM_type_Dialog", .action = close_by_frame()});
    std::exception_ptr failure;
    run_tool([](const std::string&) { return std::unique_ptr<QMainWindow>(); }, failure);
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(!folder.has_log());
}

void Test_Start_Up::the_dialog_exists_hidden_while_the_window_lives() {
    Modal_Robot robot;
    robot.expect(choose_model("radioButton_LITE"));
    std::optional<Dialog_Snapshot> in_factory;
    std::optional<Dialog_Snapshot> in_loop;
    std::exception_ptr failure;
    run_tool(
        [&](const std::string&) {
            in_factory = Dialog_Snapshot();
            auto window = std::make_unique<QMainWindow>();
            QTimer::singleShot(0, window.get(), [&in_loop, shown = window.get()] {
                in_loop = Dialog_Snapshot();
                shown->close();
            });
            return window;
        },
        failure);
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(in_factory && in_factory->exists && !in_factory->visible);
    QVERIFY(in_loop && in_loop->exists && !in_loop->visible);
}

void Test_Start_Up::the_window_is_deleted_before_the_dialog() {
    Modal_Robot robot;
    robot.expect(choose_model("radioButton_LITE"));
    std::optional<Dialog_Snapshot> at_end_of_window;
    std::exception_ptr failure;
    run_tool(
        [&](const std::string&) {
            auto window = std::make_unique<Watching_Window>(at_end_of_window);
            close_when_the_loop_runs(*window);
            return window;
        },
        failure);
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(at_end_of_window.has_value());
    QVERIFY(at_end_of_window->exists);
    QVERIFY(!at_end_of_window->visible);
    QCOMPARE(standing_dialog(), nullptr);
}

void Test_Start_Up::a_factory_that_throws_hands_over_its_exception() {
    Modal_Robot robot;
    robot.expect(choose_model("radioButton_PLUS"));
    std::exception_ptr failure;
    const int status = run_tool(
        [](const std::string&) -> std::unique_ptr<QMainWindow> {
            throw std::out_of_range("no such adapter");
        },
        failure);
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(failure);
    QCOMPARE(status, 1);
    try {
        std::rethrow_exception(failure);
    } catch (const std::out_of_range& handed_over) {
        QCOMPARE(handed_over.what(), "no such adapter");
        return;
    } catch (...) {
    }
    QFAIL("another exception was handed over");
}

void Test_Start_Up::a_factory_that_throws_leaves_no_dialog_and_no_event_loop() {
    Modal_Robot robot;
    robot.expect(choose_model("radioButton_PLUS"));
    std::optional<Dialog_Snapshot> at_end_of_window;
    bool loop_ran = false;
    std::exception_ptr failure;
    run_tool(
        [&](const std::string&) -> std::unique_ptr<QMainWindow> {
            const Watching_Window half_made(at_end_of_window);
            QTimer::singleShot(0, this, [&loop_ran] { loop_ran = true; });
            throw std::runtime_error("half made");
        },
        failure);
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(failure);
    QVERIFY(!loop_ran);
    QVERIFY(at_end_of_window && at_end_of_window->exists);
    QCOMPARE(standing_dialog(), nullptr);
    QVERIFY(wait_until([&] { return loop_ran; }));
}

void Test_Start_Up::a_dark_theme_gives_way_to_the_light_palette() {
    QApplication::setPalette(dark_theme());
    set_light_palette();
    const QPalette palette = QApplication::palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        QVERIFY(contrast(palette.color(group, QPalette::Text),
                         palette.color(group, QPalette::Base)) > 7);
        QVERIFY(contrast(palette.color(group, QPalette::WindowText),
                         palette.color(group, QPalette::Window)) > 7);
        QVERIFY(contrast(palette.color(group, QPalette::ButtonText),
                         palette.color(group, QPalette::Button)) > 7);
    }
    QCOMPARE(palette.color(QPalette::Window), QColor(239, 239, 239));
    QCOMPARE(palette.color(QPalette::Base), QColor(Qt::white));
}

void Test_Start_Up::disabled_captions_can_be_read_on_the_buttons_grey() {
    set_light_palette();
    const QColor button_grey(189, 189, 189);
    const QPalette palette = QApplication::palette();
    // Differs from the black of an enabled caption as well.
    const QColor caption_grey(90, 90, 90);
    QVERIFY(contrast(caption_grey, button_grey) >= 3);
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        QCOMPARE(palette.color(QPalette::Disabled, role), caption_grey);
        QCOMPARE(palette.color(QPalette::Active, role), QColor(Qt::black));
    }
}

void Test_Start_Up::the_text_font_stays_when_a_theme_sets_another() {
    use_text_family("Liberation Sans");
    keep_text_font();
    QApplication::setFont(QFont("DejaVu Sans", 12));
    for (const QFont& font : {QApplication::font(), QLabel().font()}) {
        QCOMPARE(font.family(), "Liberation Sans");
        QCOMPARE(font.pointSize(), 9);
    }
}

QTEST_MAIN(Test_Start_Up)

#include "test_start_up.moc"
