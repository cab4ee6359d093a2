#include "tests/forms/fact_file.h"
#include "tests/forms/form_gallery.h"
#include "tests/forms/geometry_checks.h"
#include "tests/forms/sample_content.h"
#include "tests/forms/test_look.h"

#include <QComboBox>
#include <QImage>
#include <QJsonArray>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

#include <map>

namespace {

/// One page of one form as a person sees it; dialogs have one page, told as -1.
std::unique_ptr<QWidget> show_page(const QString& form_name, int page, bool filled) {
    auto window = build_form(form_name);
    if (filled) {
        fill_with_samples(*window);
    }
    if (page >= 0) {
        window->findChild<QStackedWidget*>("stackedWidget")->setCurrentIndex(page);
    }
    window->show();
    QApplication::processEvents();
    return window;
}

void add_a_row_per_page() {
    QTest::addColumn<QString>("form_name");
    QTest::addColumn<int>("page");
    QTest::addColumn<bool>("filled");
    for (const Gallery_Form& form : all_forms()) {
        const qsizetype pages = read_facts(form.class_name)["pages"].toArray().size();
        for (int page = pages ? 0 : -1; page < pages; ++page) {
            const QString name = form.class_name + (pages ? QString(" page %1").arg(page) : "");
            QTest::newRow(qPrintable(name + " empty")) << form.class_name << page << false;
            QTest::newRow(qPrintable(name + " filled")) << form.class_name << page << true;
        }
    }
}

} // namespace

/// The forms at their fixed sizes, in DejaVu Sans: everything shows, nothing lies on another thing.
class Test_Form_Geometry : public QObject {
    Q_OBJECT

    const QWidget& shown(const QString& form_name, int page, bool filled);

    std::map<QString, std::unique_ptr<QWidget>> shown_pages;

private slots:
    void initTestCase();
    void cleanupTestCase() { shown_pages.clear(); }

    void the_fixed_size_holds_data() { add_a_row_per_page(); }
    void the_fixed_size_holds();
    void nothing_reaches_beyond_its_block_data() { add_a_row_per_page(); }
    void nothing_reaches_beyond_its_block();
    void nothing_lies_on_another_thing_data() { add_a_row_per_page(); }
    void nothing_lies_on_another_thing();
    void only_stated_limits_cut_a_text_data();
    void only_stated_limits_cut_a_text();
    void blocks_stand_in_their_order_data();
    void blocks_stand_in_their_order();
    void layouts_have_their_margins_data();
    void layouts_have_their_margins();

    void a_minimum_above_a_maximum_wins();
    void labels_in_a_box_have_no_border_of_their_own();
    void long_texts_from_outside_move_nothing_data();
    void long_texts_from_outside_move_nothing();
    void answers_to_a_question_stand_at_the_right();
};

/// One window per page for all tests that only look at it.
const QWidget& Test_Form_Geometry::shown(const QString& form_name, int page, bool filled) {
    auto& window = shown_pages[QString("%1 %2 %3").arg(form_name).arg(page).arg(filled)];
    if (!window) {
        window = show_page(form_name, page, filled);
    }
    return *window;
}

void Test_Form_Geometry::initTestCase() { QVERIFY2(use_test_look(), "install fonts-dejavu-core"); }

void Test_Form_Geometry::the_fixed_size_holds() {
    QFETCH(QString, form_name);
    QFETCH(int, page);
    QFETCH(bool, filled);
    const QWidget& window = shown(form_name, page, filled);
    const auto form = std::ranges::find(all_forms(), form_name, &Gallery_Form::class_name);
    QCOMPARE(window.size(), form->fixed_size);
}

void Test_Form_Geometry::nothing_reaches_beyond_its_block() {
    QFETCH(QString, form_name);
    QFETCH(int, page);
    QFETCH(bool, filled);
    const QWidget& window = shown(form_name, page, filled);
    QVERIFY(visible_leaves(window).size() >= 3);
    QCOMPARE(leaves_out_of_bounds(window).join('\n'), QString());
}

void Test_Form_Geometry::nothing_lies_on_another_thing() {
    QFETCH(QString, form_name);
    QFETCH(int, page);
    QFETCH(bool, filled);
    const QWidget& window = shown(form_name, page, filled);
    QCOMPARE(overlapping_leaves(window).join('\n'), QString());
}

void Test_Form_Geometry::only_stated_limits_cut_a_text_data() {
    QTest::addColumn<QString>("form_name");
    for (const Gallery_Form& form : all_forms()) {
        QTest::newRow(qPrintable(form.class_name)) << form.class_name;
    }
}

void Test_Form_Geometry::only_stated_limits_cut_a_text() {
    QFETCH(QString, form_name);
    const QJsonObject facts = read_facts(form_name);
    const int pages = int(facts["pages"].toArray().size());
    QStringList cut;
    for (int page = pages ? 0 : -1; page < pages; ++page) {
        cut += leaves_with_cut_content(shown(form_name, page, true));
    }
    cut.removeDuplicates();
    cut.sort();
    QCOMPARE(cut.join(", "), to_texts(facts["cut"]).join(", "));
}

void Test_Form_Geometry::blocks_stand_in_their_order_data() {
    QTest::addColumn<QString>("form_name");
    QTest::addColumn<QJsonObject>("order");
    for (const Gallery_Form& form : all_forms()) {
        const QJsonArray orders = read_facts(form.class_name)["order"].toArray();
        QVERIFY(!orders.isEmpty());
        for (const auto& order : orders) {
            const QString kind = order[QLatin1String("down")].isArray() ? "down" : "right";
            const QStringList names = to_texts(order[kind]);
            QTest::newRow(qPrintable(form.class_name + ": " + names.first() + ", " + kind + " to " +
                                     names.last()))
                << form.class_name << order.toObject();
        }
    }
}

void Test_Form_Geometry::blocks_stand_in_their_order() {
    QFETCH(QString, form_name);
    QFETCH(QJsonObject, order);
    const QStringList pages = to_texts(read_facts(form_name)["pages"]);
    const qsizetype page = order.contains("page") ? pages.indexOf(order["page"].toString()) : 0;
    const QWidget& window = shown(form_name, pages.isEmpty() ? -1 : int(page), true);
    QCOMPARE(order_differences(window, order).join('\n'), QString());
}

void Test_Form_Geometry::layouts_have_their_margins_data() {
    QTest::addColumn<QString>("form_name");
    QTest::addColumn<QString>("block_name");
    QTest::addColumn<QJsonObject>("fact");
    for (const Gallery_Form& form : all_forms()) {
        const QJsonObject layouts = read_facts(form.class_name)["layouts"].toObject();
        for (auto layout = layouts.begin(); layout != layouts.end(); ++layout) {
            QTest::newRow(qPrintable(form.class_name + ": " + layout.key()))
                << form.class_name << layout.key() << layout.value().toObject();
        }
    }
}

void Test_Form_Geometry::layouts_have_their_margins() {
    QFETCH(QString, form_name);
    QFETCH(QString, block_name);
    QFETCH(QJsonObject, fact);
    const auto form = build_form(form_name);
    const QWidget* block =
        block_name == form_name ? form.get() : form->findChild<QWidget*>(block_name);
    QVERIFY(block);
    QCOMPARE(layout_differences(*block, fact).join('\n'), QString());
}

void Test_Form_Geometry::a_minimum_above_a_maximum_wins() {
    const QWidget& window = shown("Corvane_LITE_UI", 0, false);
    const auto* mode = window.findChild<QComboBox*>("comboBox_Select_Display_Mode");
    QCOMPARE(mode->size(), QSize(150, 23));
    const auto* roll = window.findChild<QComboBox*>("comboBox_Enable_or_Disable_Cursor_Roll");
    QCOMPARE(roll->size(), QSize(60, 23));
}

void Test_Form_Geometry::labels_in_a_box_have_no_border_of_their_own() {
    const QColor box_border(77, 156, 238);
    for (const char* form_name : {"Corvane_LITE_UI", "Corvane_UI", "Corvane_PRO_UI"}) {
        const QWidget& window = shown(form_name, 0, true);
        const auto* box = window.findChild<QWidget*>("frame_7");
        for (QLabel* label : box->findChildren<QLabel*>()) {
            const QImage picture = label->grab().toImage();
            for (int x = 0; x < picture.width(); ++x) {
                QVERIFY2(picture.pixelColor(x, 0) != box_border, qPrintable(label->objectName()));
            }
        }
        const QImage picture = window.findChild<QWidget*>("frame_7")->grab().toImage();
        QCOMPARE(picture.pixelColor(picture.width() / 2, 0), box_border);
    }
}

void Test_Form_Geometry::long_texts_from_outside_move_nothing_data() {
    QTest::addColumn<QString>("form_name");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("object");
    for (const char* form_name : {"Corvane_LITE_UI", "Corvane_UI", "Corvane_PRO_UI"}) {
        const QString name(form_name);
        QTest::newRow(qPrintable(name + " address")) << name << 0 << "label_current_Ip";
        QTest::newRow(qPrintable(name + " hotkey"))
            << name << 0 << "label_Current_Hotkey_Trigger_Data";
        QTest::newRow(qPrintable(name + " custom entry")) << name << 1 << "label_Custom_1";
    }
    QTest::newRow("Corvane_UI name") << "Corvane_UI" << 0 << "label_name_of_USR";
    QTest::newRow("Corvane_PRO_UI name") << "Corvane_PRO_UI" << 0 << "label_name_of_USR";
}

void Test_Form_Geometry::long_texts_from_outside_move_nothing() {
    QFETCH(QString, form_name);
    QFETCH(int, page);
    QFETCH(QString, object);
    const auto window = show_page(form_name, page, true);
    auto* label = window->findChild<QLabel*>(object);
    QVERIFY(label);
    const int width = label->width();
    label->setText(QString(300, 'W'));
    QApplication::processEvents();
    QCOMPARE(label->width(), width);
    QCOMPARE(leaves_out_of_bounds(*window).join('\n'), QString());
    QCOMPARE(overlapping_leaves(*window).join('\n'), QString());
}

void Test_Form_Geometry::answers_to_a_question_stand_at_the_right() {
    const QWidget& window = shown("Yes_No_Dialog", -1, true);
    const QRect cancel = place_in(window, *window.findChild<QPushButton*>("pushButton_Cancel"));
    const QRect ok = place_in(window, *window.findChild<QPushButton*>("pushButton_OK"));
    QVERIFY(window.width() - cancel.right() < 20);
    QVERIFY(ok.left() > 100);
}

QTEST_MAIN(Test_Form_Geometry)
#include "test_form_geometry.moc"
