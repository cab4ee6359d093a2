// SPDX-License-Identifier: MIT

#include "tests/forms/form_gallery.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString logo_path = ":/img/logos/rsz_velmoran_logo_original.png";

QPixmap logo_of(const QWidget& form) { return form.findChild<QLabel*>("label_52")->pixmap(); }

/// Changes the working directory for the lifetime of the object.
class Working_Directory {
public:
    explicit Working_Directory(const QString& path) { QDir::setCurrent(path); }
    Working_Directory(const Working_Directory&) = delete;
    Working_Directory& operator=(const Working_Directory&) = delete;
    ~Working_Directory() { QDir::setCurrent(former); }

private:
    const QString former = QDir::currentPath();
};

} // namespace

/// The three pictures, in a program that links them only through a static library.
class Test_Logos : public QObject {
    Q_OBJECT

private slots:
    void each_picture_has_its_length_and_opens_data();
    void each_picture_has_its_length_and_opens();
    void the_collection_holds_nothing_else();
    void lite_shows_the_logo_only_from_its_working_directory();
    void plus_and_pro_show_the_logo_whatever_the_working_directory();
    void the_logo_fits_its_place_on_the_left_menu();
};

void Test_Logos::each_picture_has_its_length_and_opens_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("length");
    QTest::newRow("logo") << logo_path << 2844;
    QTest::newRow("refresh") << ":/img/logos/refresh.png" << 902;
    QTest::newRow("window icon") << ":/img/logos/icon_logo_Velmoran.png" << 1439;
}

void Test_Logos::each_picture_has_its_length_and_opens() {
    QFETCH(QString, path);
    QFETCH(int, length);
    QCOMPARE(QFile(path).size(), length);
    QVERIFY(!QPixmap(path, "PNG").isNull());
}

void Test_Logos::the_collection_holds_nothing_else() {
    QCOMPARE(QDir(":/img/logos").entryList().size(), 3);
    QCOMPARE(QDir(":/img").entryList(), QStringList("logos"));
}

void Test_Logos::lite_shows_the_logo_only_from_its_working_directory() {
    const QTemporaryDir folder;
    const Working_Directory here(folder.path());
    QVERIFY(logo_of(*build_form("Corvane_LITE_UI")).isNull());

    QVERIFY(QDir(folder.path()).mkdir("logos"));
    QVERIFY(QFile::copy(logo_path, "logos/rsz_velmoran_logo_original.png"));
    QCOMPARE(logo_of(*build_form("Corvane_LITE_UI")).size(), QPixmap(logo_path).size());
}

void Test_Logos::plus_and_pro_show_the_logo_whatever_the_working_directory() {
    const QTemporaryDir empty;
    const Working_Directory here(empty.path());
    QVERIFY(!logo_of(*build_form("Corvane_UI")).isNull());
    QVERIFY(!logo_of(*build_form("Corvane_PRO_UI")).isNull());
}

void Test_Logos::the_logo_fits_its_place_on_the_left_menu() {
    const QPixmap logo(logo_path);
    QVERIFY(logo.height() <= 30);
    QVERIFY(logo.width() <= 180);
}

QTEST_MAIN(Test_Logos)
#include "test_logos.moc"
