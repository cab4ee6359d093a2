// SPDX-License-Identifier: MIT

#include "tests/end_to_end/driven_program.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// Which font the real program chooses on machines with different fonts.
class Test_Program_Font : public QObject {
    Q_OBJECT

private slots:
    void the_best_installed_font_is_chosen_data();
    void the_best_installed_font_is_chosen();
    void a_theme_that_sets_its_font_later_changes_nothing();
};

namespace {

const QString dejavu = "truetype/dejavu";
const QString liberation = "truetype/liberation";
const QString arimo = "truetype/croscore";

/// Renames a font, so that it replaces one that is not available here.
const QString arimo_is_segoe = R"(
 <match target="scan">
  <test name="family"><string>Arimo</string></test>
  <edit name="family" mode="assign"><string>Segoe UI</string></edit>
 </match>)";

/// A configuration for fontconfig with the fonts of these folders only.
QByteArray configuration(const QStringList& folders, const QString& rule, const QString& cache) {
    QString text = "<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n"
                   "<fontconfig>\n";
    for (const QString& folder : folders) {
        text += " <dir>/usr/share/fonts/" + folder + "</dir>\n";
    }
    // The font that a desktop sets.
    text += " <match target=\"pattern\"><edit name=\"family\" mode=\"append_last\" "
            "binding=\"weak\"><string>DejaVu Sans</string></edit></match>\n";
    return (text + " <cachedir>" + cache + "</cachedir>" + rule + "\n</fontconfig>\n").toUtf8();
}

} // namespace

void Test_Program_Font::the_best_installed_font_is_chosen_data() {
    QTest::addColumn<QStringList>("folders");
    QTest::addColumn<QString>("rule");
    QTest::addColumn<QString>("family");
    QTest::newRow("Segoe UI and Liberation Sans")
        << QStringList{dejavu, liberation, arimo} << arimo_is_segoe << "Segoe UI";
    QTest::newRow("Liberation Sans and Arimo") << QStringList{dejavu, liberation, arimo} << ""
                                               << "Liberation Sans";
    QTest::newRow("Arimo") << QStringList{dejavu, arimo} << ""
                           << "Arimo";
    QTest::newRow("DejaVu Sans alone") << QStringList{dejavu} << ""
                                       << "DejaVu Sans";
}

void Test_Program_Font::the_best_installed_font_is_chosen() {
    QFETCH(QStringList, folders);
    QFETCH(QString, rule);
    QFETCH(QString, family);
    const QTemporaryDir place;
    QFile file(place.filePath("fonts.conf"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(configuration(folders, rule, place.filePath("cache")));
    file.close();

    Driven_Program program({}, Port_List::answers, {{"FONTCONFIG_FILE", file.fileName()}});
    program.ask_for_fonts();
    QVERIFY2(program.wait_for("fonts "), program.errors().constData());
    program.answer("frame");
    QVERIFY(program.wait_for_end());
    QVERIFY2(program.lines().contains("fonts " + family + " 9, for Segoe UI " + family),
             qPrintable(program.lines().join('\n')));
}

void Test_Program_Font::a_theme_that_sets_its_font_later_changes_nothing() {
    Driven_Program program;
    program.set_theme_font();
    program.ask_for_fonts();
    QVERIFY2(program.wait_for("fonts "), program.errors().constData());
    program.answer("frame");
    QVERIFY(program.wait_for_end());
    QVERIFY2(program.lines().contains("fonts Liberation Sans 9, for Segoe UI Liberation Sans"),
             qPrintable(program.lines().join('\n')));
}

QTEST_GUILESS_MAIN(Test_Program_Font)

#include "test_program_font.moc"
