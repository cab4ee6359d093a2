// SPDX-License-Identifier: MIT

#include "pages/model_traits.h"
#include "tests/settings/kept_rights.h"
#include "tests/support/bare_window.h"
#include "tests/support/close_fixture.h"
#include "tests/support/model_fixture.h"
#include "tests/support/settings_fixture.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QTest>

#include <cerrno>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

/// What a save preserves of the earlier file and of its environment.
class Test_Settings_Keep : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void a_name_that_is_no_unicode_writes_nothing();
    void what_is_no_regular_file_is_not_written();
    void a_value_that_throws_leaves_the_old_file();
    void a_reader_of_the_old_file_reads_it_to_its_end();
    void nothing_is_left_beside_the_file();
    void a_full_disk_keeps_the_old_file();
    void a_disk_that_is_full_when_it_is_synchronised_keeps_the_old_file();
    void a_full_disk_leaves_no_new_file();
    void a_disk_that_fills_up_before_the_audio_lines_keeps_all_others();
    void a_file_that_failed_gets_no_audio_lines_later();
    void a_symbolic_link_is_followed_and_kept();
    void a_link_to_nothing_makes_its_target();
    void the_mode_of_a_file_is_kept();
    void a_new_file_has_the_users_mode();
    void owner_and_group_are_kept();
    void a_file_without_the_right_to_write_stays();
    void a_folder_without_rights_has_its_file_overwritten();
    void a_full_disk_keeps_a_file_that_is_overwritten();
    void a_file_without_a_name_is_overwritten();
    void what_failed_is_told_to_a_developer_only();

private:
    /// Overwrites the file, which the dialog asks about.
    [[nodiscard]] bool save_over(const QString& path);
    [[nodiscard]] QStringList names_in_folder() const {
        return QDir(fixture->path(""))
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }
    /// A complete file as this model writes it.
    [[nodiscard]] static bool is_whole(const QByteArray& text, const Settings_Fixture& window) {
        return text.startsWith("KM Control: //c1\nUSB Control: ") &&
               text.endsWith(window.is_pro() ? "\nAudio chacked state: ALL\n"
                                             : "\nMouse Mode: //ks\n");
    }

    std::unique_ptr<Settings_Fixture> fixture;
};

namespace {

const QByteArray old_text = QByteArray("precious\n").repeated(1000);

const Model_Traits& traits_of(Switch_Model model) {
    switch (model) {
    case Switch_Model::lite:
        return lite_model;
    case Switch_Model::plus:
        return plus_model;
    default:
        return pro_model;
    }
}

mode_t mode_of(const QString& path) {
    struct stat found = {};
    return stat(path.toUtf8(), &found) == 0 ? found.st_mode & 07777U : 0;
}

} // namespace

void Test_Settings_Keep::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    fixture = std::make_unique<Settings_Fixture>(model);
    QVERIFY(fixture->open_filled());
    fixture->silence_switch();
}

void Test_Settings_Keep::cleanup() { close_fixture(fixture); }

bool Test_Settings_Keep::save_over(const QString& path) {
    fixture->expect_file_dialog("Save Settings File", choose_file(path));
    fixture->robot.expect({.class_name = "QMessageBox", .action = press_button("Yes")});
    fixture->expect_saved_box();
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    return fixture->robot.done();
}

void Test_Settings_Keep::a_name_that_is_no_unicode_writes_nothing() {
    const QChar high(0xD83D);
    const QChar low(0xDDA5);
    for (const QString& name : {high + QString(".txt"), 'a' + QString(low) + ".txt",
                                QString(low) + high, QString("a") + QChar(u'\0') + "b.txt"}) {
        QVERIFY2(fixture->save(fixture->path(name)), fixture->robot.why());
        QCOMPARE(names_in_folder(), QStringList());
    }
    QVERIFY2(fixture->save(fixture->path()), fixture->robot.why());
    QVERIFY(is_whole(Settings_Fixture::read(fixture->path()), *fixture));
}

void Test_Settings_Keep::what_is_no_regular_file_is_not_written() {
    QCOMPARE(mkfifo(fixture->path("pipe").toUtf8(), 0600), 0);
    QVERIFY(QFile::link(fixture->path("pipe"), fixture->path("link")));
    for (const char* name : {"pipe", "link", "/dev/null", "/dev/full"}) {
        const QString path = QDir(fixture->path("")).filePath(name);
        const bool is_link = QFileInfo(path).isSymLink();
        // Opening the pipe for writing would block for ever, because nobody reads from it.
        QVERIFY2(save_over(path), fixture->robot.why());
        struct stat found = {};
        QCOMPARE(stat(path.toUtf8(), &found), 0);
        QVERIFY(S_ISFIFO(found.st_mode) || S_ISCHR(found.st_mode));
        QCOMPARE(QFileInfo(path).isSymLink(), is_link);
        QCOMPARE(names_in_folder(), (QStringList{"link", "pipe"}));
    }
}

void Test_Settings_Keep::a_value_that_throws_leaves_the_old_file() {
    Bare_Window window(traits_of(fixture->model), Bare_Window::Timers::ended_by_test);
    // The first of the four entries is missing, and the last.
    for (const char* report : {"KM\n", "C1\t150 300 A\nC2\t150 300 B\nC3\t150 300 C\n"}) {
        fixture->write(old_text);
        window.controller().session.state.status_buff = report;
        fixture->expect_file_dialog("Save Settings File", choose_file(fixture->path()));
        fixture->robot.expect({.class_name = "QMessageBox", .action = press_button("Yes")});
        QVERIFY_THROWS_EXCEPTION(std::out_of_range,
                                 window.controller().settings.create_settings_file());
        QVERIFY2(fixture->robot.done(), fixture->robot.why());
        QCOMPARE(Settings_Fixture::read(fixture->path()), old_text);
    }
}

void Test_Settings_Keep::a_reader_of_the_old_file_reads_it_to_its_end() {
    QFile reader(fixture->write(old_text));
    QVERIFY(reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    QCOMPARE(reader.read(9), QByteArray("precious\n"));
    QVERIFY2(save_over(fixture->path()), fixture->robot.why());
    QCOMPARE(reader.readAll(), old_text.mid(9));
    QVERIFY(is_whole(Settings_Fixture::read(fixture->path()), *fixture));
}

void Test_Settings_Keep::nothing_is_left_beside_the_file() {
    fixture->write(old_text);
    QVERIFY2(save_over(fixture->path()), fixture->robot.why());
    QVERIFY2(fixture->save(fixture->path("new.txt")), fixture->robot.why());
    QCOMPARE(names_in_folder(), (QStringList{"new.txt", "settings.txt"}));
}

void Test_Settings_Keep::a_full_disk_keeps_the_old_file() {
    fixture->write("precious\n");
    const Full_Disk full(100);
    QVERIFY2(save_over(fixture->path()), fixture->robot.why());
    QCOMPARE(Settings_Fixture::read(fixture->path()), QByteArray("precious\n"));
    QCOMPARE(names_in_folder(), QStringList{"settings.txt"});
}

void Test_Settings_Keep::a_disk_that_is_full_when_it_is_synchronised_keeps_the_old_file() {
    fixture->write("precious\n");
    const Late_Full_Disk full;
    QVERIFY2(save_over(fixture->path()), fixture->robot.why());
    QCOMPARE(Settings_Fixture::read(fixture->path()), QByteArray("precious\n"));
    QCOMPARE(names_in_folder(), QStringList{"settings.txt"});
}

void Test_Settings_Keep::a_full_disk_leaves_no_new_file() {
    const Full_Disk full(100);
    QVERIFY2(fixture->save(fixture->path()), fixture->robot.why());
    QCOMPARE(names_in_folder(), QStringList());
}

void Test_Settings_Keep::a_disk_that_fills_up_before_the_audio_lines_keeps_all_others() {
    std::unique_ptr<Full_Disk> full;
    QByteArray at_box;
    fixture->expect_file_dialog("Save Settings File", choose_file(fixture->path()));
    fixture->robot.expect({.text = "File saved", .action = [&](QWidget& box) {
                               at_box = Settings_Fixture::read(fixture->path());
                               full = std::make_unique<Full_Disk>(at_box.size() + 1);
                               return press_key(Qt::Key_Return)(box);
                           }});
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    full.reset();
    QVERIFY(at_box.endsWith("\nMouse Mode: //ks\n"));
    QCOMPARE(Settings_Fixture::read(fixture->path()), at_box);
    QCOMPARE(names_in_folder(), QStringList{"settings.txt"});
}

void Test_Settings_Keep::a_file_that_failed_gets_no_audio_lines_later() {
    fixture->write("precious\n");
    auto full = std::make_unique<Full_Disk>(100);
    fixture->expect_file_dialog("Save Settings File", choose_file(fixture->path()));
    fixture->robot.expect({.class_name = "QMessageBox", .action = press_button("Yes")});
    fixture->robot.expect({.text = "File saved", .action = [&](QWidget& box) {
                               full.reset();
                               return press_key(Qt::Key_Return)(box);
                           }});
    fixture->window_fixture.button("pushButton_Create_Settings_File").click();
    QCOMPARE(Settings_Fixture::read(fixture->path()), QByteArray("precious\n"));
}

void Test_Settings_Keep::a_symbolic_link_is_followed_and_kept() {
    QVERIFY(QDir(fixture->path("")).mkdir("below"));
    fixture->write(old_text, "below/target.txt");
    QCOMPARE(symlink("below/target.txt", fixture->path("inner.txt").toUtf8()), 0);
    QCOMPARE(symlink("inner.txt", fixture->path("outer.txt").toUtf8()), 0);
    QVERIFY2(save_over(fixture->path("outer.txt")), fixture->robot.why());
    QVERIFY(QFileInfo(fixture->path("outer.txt")).isSymLink());
    QVERIFY(QFileInfo(fixture->path("inner.txt")).isSymLink());
    QVERIFY(!QFileInfo(fixture->path("below/target.txt")).isSymLink());
    QVERIFY(is_whole(Settings_Fixture::read(fixture->path("below/target.txt")), *fixture));
    QCOMPARE(QDir(fixture->path("below")).entryList(QDir::Files), QStringList{"target.txt"});
}

void Test_Settings_Keep::a_link_to_nothing_makes_its_target() {
    QCOMPARE(symlink("target.txt", fixture->path("link.txt").toUtf8()), 0);
    QVERIFY2(fixture->save(fixture->path("link.txt")), fixture->robot.why());
    QVERIFY(QFileInfo(fixture->path("link.txt")).isSymLink());
    QVERIFY(is_whole(Settings_Fixture::read(fixture->path("target.txt")), *fixture));
}

void Test_Settings_Keep::the_mode_of_a_file_is_kept() {
    for (const mode_t mode : {0600U, 0644U, 0664U, 0666U, 0755U, 0222U}) {
        fixture->write(old_text);
        QCOMPARE(chmod(fixture->path().toUtf8(), mode), 0);
        QVERIFY2(save_over(fixture->path()), fixture->robot.why());
        QCOMPARE(mode_of(fixture->path()), mode);
        QCOMPARE(chmod(fixture->path().toUtf8(), 0600), 0);
        QVERIFY(is_whole(Settings_Fixture::read(fixture->path()), *fixture));
    }
}

void Test_Settings_Keep::a_new_file_has_the_users_mode() {
    const mode_t earlier = umask(027);
    const bool saved = fixture->save(fixture->path());
    umask(earlier);
    QVERIFY2(saved, fixture->robot.why());
    QCOMPARE(mode_of(fixture->path()), mode_t(0640));
}

void Test_Settings_Keep::owner_and_group_are_kept() {
    fixture->write(old_text);
    const uid_t owner = geteuid() == 0 ? 1234 : geteuid();
    const gid_t group = another_group();
    if (chown(fixture->path().toUtf8(), owner, group) != 0) {
        // In a namespace root may have no other ids.
        QVERIFY(errno == EINVAL || errno == EPERM);
        QSKIP("no other owner to be had here");
    }
    QCOMPARE(chmod(fixture->path().toUtf8(), 0664), 0);
    QVERIFY2(save_over(fixture->path()), fixture->robot.why());
    QCOMPARE(QFileInfo(fixture->path()).ownerId(), owner);
    QCOMPARE(QFileInfo(fixture->path()).groupId(), group);
    QCOMPARE(mode_of(fixture->path()), mode_t(0664));
    QVERIFY(is_whole(Settings_Fixture::read(fixture->path()), *fixture));
}

void Test_Settings_Keep::a_file_without_the_right_to_write_stays() {
    fixture->write(old_text);
    QCOMPARE(chmod(fixture->path().toUtf8(), 0444), 0);
    const Plain_Rights plain;
    QVERIFY2(save_over(fixture->path()), fixture->robot.why());
    QCOMPARE(Settings_Fixture::read(fixture->path()), old_text);
    QCOMPARE(mode_of(fixture->path()), mode_t(0444));
}

void Test_Settings_Keep::a_folder_without_rights_has_its_file_overwritten() {
    QVERIFY(QDir(fixture->path("")).mkdir("closed"));
    const QString path = fixture->write(old_text, "closed/settings.txt");
    const QFileInfo before(path);
    QCOMPARE(chmod(fixture->path("closed").toUtf8(), 0555), 0);
    const Plain_Rights plain;
    QVERIFY2(save_over(path), fixture->robot.why());
    QVERIFY(is_whole(Settings_Fixture::read(path), *fixture));
    QVERIFY2(fixture->save(fixture->path("closed/new.txt")), fixture->robot.why());
    QCOMPARE(QDir(fixture->path("closed")).entryList(QDir::Files), QStringList{"settings.txt"});
    QCOMPARE(chmod(fixture->path("closed").toUtf8(), 0755), 0);
}

void Test_Settings_Keep::a_full_disk_keeps_a_file_that_is_overwritten() {
    QVERIFY(QDir(fixture->path("")).mkdir("closed"));
    const QString path = fixture->write("precious\n", "closed/settings.txt");
    QCOMPARE(chmod(fixture->path("closed").toUtf8(), 0555), 0);
    const Plain_Rights plain;
    {
        const Full_Disk full(100);
        QVERIFY2(save_over(path), fixture->robot.why());
    }
    QCOMPARE(Settings_Fixture::read(path), QByteArray("precious\n"));
    QCOMPARE(chmod(fixture->path("closed").toUtf8(), 0755), 0);
}

void Test_Settings_Keep::a_file_without_a_name_is_overwritten() {
    const int descriptor = memfd_create("settings", MFD_CLOEXEC);
    const QString path = QString("/proc/self/fd/%1").arg(descriptor);
    QCOMPARE(write(descriptor, old_text.data(), static_cast<std::size_t>(old_text.size())),
             old_text.size());
    QVERIFY2(save_over(path), fixture->robot.why());
    QVERIFY(is_whole(Settings_Fixture::read(path), *fixture));
    QCOMPARE(QDir("/").entryList({"memfd*"}, QDir::AllEntries | QDir::System), QStringList());
    ::close(descriptor);
}

void Test_Settings_Keep::what_failed_is_told_to_a_developer_only() {
    fixture->write("precious\n");
    QCOMPARE(mkfifo(fixture->path("pipe").toUtf8(), 0600), 0);
    const auto told = [&](const QString& path, const auto& save) {
        const Collected_Diagnostics diagnostics("halvern.settings");
        return save(path) ? diagnostics.lines().join('|') : QString("not saved");
    };
    const auto over = [&](const QString& path) { return save_over(path); };
    const auto anew = [&](const QString& path) { return fixture->save(path); };
    // Off by default.
    QCOMPARE(told(fixture->path("pipe"), over), QString());
    QLoggingCategory::setFilterRules("halvern.settings.debug=true");
    // Once: a Pro must not try to append its audio lines.
    QCOMPARE(told(fixture->path("pipe"), over).count("is no regular file"), 1);
    QCOMPARE(told(fixture->path(QChar(0xD83D)), anew).count("no valid name of a file"), 1);
    QVERIFY(told("/nowhere/to/be/found.txt", anew).contains("nothing can be written beside"));
    {
        // Can be opened for appending, but not for overwriting, which reads it first.
        QVERIFY(QDir(fixture->path("")).mkdir("closed"));
        const QString path = fixture->write(old_text, "closed/unreadable.txt");
        QCOMPARE(chmod(path.toUtf8(), 0200), 0);
        QCOMPARE(chmod(fixture->path("closed").toUtf8(), 0555), 0);
        {
            const Plain_Rights plain;
            QCOMPARE(told(path, over).count("did not open:"), 1);
        }
        QCOMPARE(chmod(fixture->path("closed").toUtf8(), 0755), 0);
        QCOMPARE(chmod(path.toUtf8(), 0600), 0);
        QCOMPARE(Settings_Fixture::read(path), old_text);
    }
    {
        const Full_Disk full(100);
        const QString line = told(fixture->path(), over);
        QVERIFY2(line.contains("was not written:"), qPrintable(line));
    }
    QCOMPARE(told(fixture->path(), over), QString());
    QLoggingCategory::setFilterRules(QString());
}

int main(int argc, char** argv) {
    ignore_full_disk_signal();
    // The rules in the environment would override those of the test.
    qunsetenv("QT_LOGGING_RULES");
    QApplication application(argc, argv);
    Test_Settings_Keep test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_settings_keep.moc"
