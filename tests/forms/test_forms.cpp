// SPDX-License-Identifier: MIT

#include "tests/forms/fact_file.h"
#include "tests/forms/fixed_look.h"
#include "tests/forms/form_gallery.h"
#include "tests/forms/widget_facts.h"

#include <QDir>
#include <QHeaderView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

#include <map>

namespace {

const QStringList main_forms = {"Corvane_LITE_UI", "Corvane_UI", "Corvane_PRO_UI"};

/// True if "on_<object>_<signal>" names an object of the form and a signal of it.
bool binds(const QWidget& form, const QString& slot) {
    const QString object = slot.section('_', 1, -2);
    const QString signal = slot.section('_', -1);
    const auto* widget = form.findChild<QWidget*>(object);
    if (!widget) {
        return false;
    }
    const QMetaObject* type = widget->metaObject();
    for (int i = 0; i < type->methodCount(); ++i) {
        const QMetaMethod method = type->method(i);
        if (method.methodType() == QMetaMethod::Signal && method.name() == signal.toLatin1()) {
            return true;
        }
    }
    return false;
}

void add_a_row_per_form() {
    QTest::addColumn<QString>("form_name");
    for (const Gallery_Form& form : all_forms()) {
        QTest::newRow(qPrintable(form.class_name)) << form.class_name;
    }
}

void add_a_row_per_main_form() {
    QTest::addColumn<QString>("form_name");
    for (const QString& name : main_forms) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

} // namespace

/// Compares the forms with the facts files: every object with its text, limits, font and style.
class Test_Forms : public QObject {
    Q_OBJECT

    const QWidget& shown(const QString& name);

    std::map<QString, std::unique_ptr<QWidget>> shown_forms;

private slots:
    void initTestCase();
    void cleanupTestCase() { shown_forms.clear(); }

    void every_told_object_is_as_told_data();
    void every_told_object_is_as_told();
    void the_window_itself_is_as_told_data() { add_a_row_per_form(); }
    void the_window_itself_is_as_told();
    void every_slot_finds_its_object_data() { add_a_row_per_form(); }
    void every_slot_finds_its_object();
    void objects_of_other_forms_are_absent_data() { add_a_row_per_form(); }
    void objects_of_other_forms_are_absent();
    void nothing_has_a_tool_tip_data() { add_a_row_per_form(); }
    void nothing_has_a_tool_tip();
    void styled_frames_have_the_platforms_look_data() { add_a_row_per_form(); }
    void styled_frames_have_the_platforms_look();

    void the_stack_has_four_pages_in_order_data() { add_a_row_per_main_form(); }
    void the_stack_has_four_pages_in_order();
    void the_grid_has_no_headers_data() { add_a_row_per_main_form(); }
    void the_grid_has_no_headers();
    void captions_of_buttons_are_14_pixels_high_data() { add_a_row_per_main_form(); }
    void captions_of_buttons_are_14_pixels_high();
    void send_and_return_do_nothing_data() { add_a_row_per_main_form(); }
    void send_and_return_do_nothing();
    void the_terminal_keeps_markup_and_has_no_undo_data() { add_a_row_per_main_form(); }
    void the_terminal_keeps_markup_and_has_no_undo();
    void labels_for_device_text_show_markup_as_characters_data() { add_a_row_per_form(); }
    void labels_for_device_text_show_markup_as_characters();

    void only_plus_and_pro_have_connection_settings();
    void the_hint_of_the_hardware_dialog_starts_with_a_blank();
    void continue_is_written_differently_in_two_dialogs();
};

void Test_Forms::initTestCase() { QVERIFY2(use_fixed_look(), "install fonts-liberation"); }

/// One window per form for all tests that do not change it. Fonts are final when it is shown.
const QWidget& Test_Forms::shown(const QString& name) {
    auto& form = shown_forms[name];
    if (!form) {
        form = build_form(name);
        form->show();
    }
    return *form;
}

void Test_Forms::every_told_object_is_as_told_data() {
    QTest::addColumn<QString>("form_name");
    QTest::addColumn<QString>("object");
    QTest::addColumn<QJsonObject>("fact");
    for (const Gallery_Form& form : all_forms()) {
        const QJsonObject widgets = read_facts(form.class_name)["widgets"].toObject();
        QVERIFY(!widgets.isEmpty());
        for (auto widget = widgets.begin(); widget != widgets.end(); ++widget) {
            QTest::newRow(qPrintable(form.class_name + ": " + widget.key()))
                << form.class_name << widget.key() << widget.value().toObject();
        }
    }
}

void Test_Forms::every_told_object_is_as_told() {
    QFETCH(QString, form_name);
    QFETCH(QString, object);
    QFETCH(QJsonObject, fact);
    QCOMPARE(widget_differences(shown(form_name), object, fact).join('\n'), QString());
}

void Test_Forms::the_window_itself_is_as_told() {
    QFETCH(QString, form_name);
    const QJsonObject facts = read_facts(form_name);
    const auto form = std::ranges::find(all_forms(), form_name, &Gallery_Form::class_name);
    const auto window = form->set_up();
    const QJsonArray size = facts["design_size"].toArray();
    QCOMPARE(window->size(), QSize(size[0].toInt(), size[1].toInt()));
    QCOMPARE(window->windowTitle(), facts["title"].toString());
    QCOMPARE(window->objectName(), form_name);
    QCOMPARE(style_differences(window->styleSheet(), to_texts(facts["style"])), QStringList());
    QCOMPARE(window->windowModality(), Qt::NonModal);
}

void Test_Forms::every_slot_finds_its_object() {
    QFETCH(QString, form_name);
    const QJsonObject facts = read_facts(form_name);
    const QStringList slot_names = to_texts(facts["slots"]);
    QVERIFY(!slot_names.isEmpty());
    for (const QString& slot : slot_names) {
        QVERIFY2(binds(shown(form_name), slot), qPrintable(slot));
    }
    for (const QString& slot : to_texts(facts["unslotted"])) {
        QVERIFY2(!binds(shown(form_name), slot), qPrintable(slot));
    }
}

void Test_Forms::objects_of_other_forms_are_absent() {
    QFETCH(QString, form_name);
    for (const QString& name : to_texts(read_facts(form_name)["absent"])) {
        QVERIFY2(!shown(form_name).findChild<QWidget*>(name), qPrintable(name));
    }
}

void Test_Forms::nothing_has_a_tool_tip() {
    QFETCH(QString, form_name);
    for (const QWidget* widget : shown(form_name).findChildren<QWidget*>()) {
        QVERIFY2(widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
    }
}

void Test_Forms::styled_frames_have_the_platforms_look() {
    QFETCH(QString, form_name);
    for (const QString& name : to_texts(read_facts(form_name)["styled_frames"])) {
        const auto* frame = shown(form_name).findChild<QFrame*>(name);
        QVERIFY2(frame, qPrintable(name));
        QCOMPARE(frame->frameShape(), QFrame::StyledPanel);
    }
}

void Test_Forms::the_stack_has_four_pages_in_order() {
    QFETCH(QString, form_name);
    const QJsonObject facts = read_facts(form_name);
    const auto* stack = shown(form_name).findChild<QStackedWidget*>("stackedWidget");
    QVERIFY(stack);
    QStringList pages;
    for (int i = 0; i < stack->count(); ++i) {
        pages.append(stack->widget(i)->objectName());
    }
    QCOMPARE(pages, to_texts(facts["pages"]));
    QCOMPARE(stack->currentIndex(), facts["page_index"].toInt());
}

void Test_Forms::the_grid_has_no_headers() {
    QFETCH(QString, form_name);
    const auto* grid = shown(form_name).findChild<QTableWidget*>("tableWidget");
    QVERIFY(grid);
    QVERIFY(grid->horizontalHeader()->isHidden());
    QVERIFY(grid->verticalHeader()->isHidden());
    QVERIFY(grid->horizontalHeader()->cascadingSectionResizes());
    QVERIFY(grid->horizontalHeader()->highlightSections());
}

void Test_Forms::captions_of_buttons_are_14_pixels_high() {
    QFETCH(QString, form_name);
    const auto buttons = shown(form_name).findChildren<QPushButton*>();
    QVERIFY(!buttons.isEmpty());
    for (QPushButton* button : buttons) {
        button->ensurePolished();
        QVERIFY2(button->font().pixelSize() == 14, qPrintable(button->objectName()));
    }
}

void Test_Forms::send_and_return_do_nothing() {
    QFETCH(QString, form_name);
    const auto form = build_form(form_name);
    auto* stack = form->findChild<QStackedWidget*>("stackedWidget");
    auto* line = form->findChild<QLineEdit*>("lineEdit_Command");
    auto* button = form->findChild<QPushButton*>("pushButton_Send_Command");
    const auto* text = form->findChild<QTextEdit*>("textEdit");
    QVERIFY(stack);
    QVERIFY(line);
    QVERIFY(button);
    QVERIFY(text);
    stack->setCurrentIndex(3);
    form->show();
    QVERIFY(line->isVisible());
    QVERIFY(button->isVisible());

    QTest::keyClicks(line, "//R");
    QTest::keyClick(line, Qt::Key_Return);
    QTest::mouseClick(button, Qt::LeftButton);

    QCOMPARE(line->text(), "//R");
    QCOMPARE(text->toPlainText(), QString());
    QCOMPARE(stack->currentIndex(), 3);
    QVERIFY(form->isVisible());
}

void Test_Forms::the_terminal_keeps_markup_and_has_no_undo() {
    QFETCH(QString, form_name);
    const auto form = build_form(form_name);
    auto* terminal = form->findChild<QTextEdit*>("textEdit_Main_Terminal");
    QVERIFY(terminal);
    terminal->insertPlainText("<b>KM</b>");
    QCOMPARE(terminal->toPlainText(), "<b>KM</b>");
    QVERIFY(!terminal->document()->isUndoAvailable());
}

void Test_Forms::labels_for_device_text_show_markup_as_characters() {
    QFETCH(QString, form_name);
    const auto form = build_form(form_name);
    const QJsonObject widgets = read_facts(form_name)["widgets"].toObject();
    for (auto fact = widgets.begin(); fact != widgets.end(); ++fact) {
        if (!fact.value()[QLatin1String("plain")].toBool()) {
            continue;
        }
        auto* label = form->findChild<QLabel*>(fact.key());
        QVERIFY2(label, qPrintable(fact.key()));
        // Read as markup, this text shows nothing and is no wider than the label's own limits.
        label->setText(QString("<b></b>").repeated(40));
        QVERIFY2(label->sizeHint().width() > 210, qPrintable(fact.key()));
    }
}

void Test_Forms::only_plus_and_pro_have_connection_settings() {
    const QString name = "pushButton_Connection_Settings";
    QVERIFY(!shown("Corvane_LITE_UI").findChild<QPushButton*>(name));
    QVERIFY(shown("Corvane_UI").findChild<QPushButton*>(name));
    QVERIFY(shown("Corvane_PRO_UI").findChild<QPushButton*>(name));
}

void Test_Forms::the_hint_of_the_hardware_dialog_starts_with_a_blank() {
    const auto* hint = shown("Select_hardware_Dialog").findChild<QLabel*>("label_3");
    QVERIFY(hint);
    QVERIFY(hint->text().startsWith(" Select"));
}

void Test_Forms::continue_is_written_differently_in_two_dialogs() {
    const QWidget& method = shown("Select_connection_method_Dialog");
    QVERIFY(method.findChild<QPushButton*>("pushButton_continue"));
    QVERIFY(!method.findChild<QPushButton*>("pushButton_Continue"));
    const QWidget& model = shown("Select_KM_type_Dialog");
    QVERIFY(model.findChild<QPushButton*>("pushButton_Continue"));
    QVERIFY(!model.findChild<QPushButton*>("pushButton_continue"));
}

QTEST_MAIN(Test_Forms)
#include "test_forms.moc"
