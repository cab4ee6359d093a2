#include "pages/model_traits.h"
#include "tests/settings/kept_rights.h"
#include "tests/settings/settings_desk.h"
#include "tests/support/bare_window.h"
#include "tests/support/model_fixture.h"

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

/// What a save leaves of the file that was there, and of its surroundings.
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
    /// Saves over the file, which the dialog asks about.
    [[nodiscard]] bool save_over(const QString& path);
    [[nodiscard]] QStringList names_in_folder() const {
        return QDir(desk->path(""))
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }
    /// A whole file as this model writes it.
    [[nodiscard]] static bool is_whole(const QByteArray& text, const Settings_Desk& window) {
        return text.startsWith("KM Control: //c1\nUSB Control: ") &&
               text.endsWith(window.is_pro() ? "\nAudio chacked state: ALL\n"
                                             : "\nMouse Mode: //ks\n");
    }

    std::unique_ptr<Settings_Desk> desk;
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
    desk = std::make_unique<Settings_Desk>(model);
    QVERIFY(desk->open_filled());
    desk->silence_switch();
}

void Test_Settings_Keep::cleanup() {
    const bool robot_done = desk->robot.done();
    const QByteArray why = desk->robot.why();
    desk.reset();
    QVERIFY2(robot_done, why);
    QCOMPARE(windows_left(), QStringList());
}

bool Test_Settings_Keep::save_over(const QString& path) {
    desk->expect_file_dialog("Save Settings File", choose_file(path));
    desk->robot.expect({.class_name = "QMessageBox", .action = press_button("Yes")});
    desk->expect_saved_box();
    desk->fixture.button("pushButton_Create_Settings_File").click();
    return desk->robot.done();
}

void Test_Settings_Keep::a_name_that_is_no_unicode_writes_nothing() {
    const QChar high(0xD83D);
    const QChar low(0xDDA5);
    for (const QString& name : {high + QString(".txt"), 'a' + QString(low) + ".txt",
                                QString(low) + high, QString("a") + QChar(u'\0') + "b.txt"}) {
        QVERIFY2(desk->save(desk->path(name)), desk->robot.why());
        QCOMPARE(names_in_folder(), QStringList());
    }
    QVERIFY2(desk->save(desk->path()), desk->robot.why());
    QVERIFY(is_whole(Settings_Desk::read(desk->path()), *desk));
}

void Test_Settings_Keep::what_is_no_regular_file_is_not_written() {
    QCOMPARE(mkfifo(desk->path("pipe").toUtf8(), 0600), 0);
    QVERIFY(QFile::link(desk->path("pipe"), desk->path("link")));
    for (const char* name : {"pipe", "link", "/dev/null", "/dev/full"}) {
        const QString path = QDir(desk->path("")).filePath(name);
        const bool is_link = QFileInfo(path).isSymLink();
        // Who opens the pipe for writing waits for ever, as nobody reads from it.
        QVERIFY2(save_over(path), desk->robot.why());
        struct stat found = {};
        QCOMPARE(stat(path.toUtf8(), &found), 0);
        QVERIFY(S_ISFIFO(found.st_mode) || S_ISCHR(found.st_mode));
        QCOMPARE(QFileInfo(path).isSymLink(), is_link);
        QCOMPARE(names_in_folder(), (QStringList{"link", "pipe"}));
    }
}

void Test_Settings_Keep::a_value_that_throws_leaves_the_old_file() {
    Bare_Window window(traits_of(desk->model), Bare_Window::Timers::ended_by_test);
    // The first of the four entries is missing, and the last.
    for (const char* report : {"KM\n", "C1\t150 300 A\nC2\t150 300 B\nC3\t150 300 C\n"}) {
        desk->write(old_text);
        window.controller().session.state.status_buff = report;
        desk->expect_file_dialog("Save Settings File", choose_file(desk->path()));
        desk->robot.expect({.class_name = "QMessageBox", .action = press_button("Yes")});
        QVERIFY_THROWS_EXCEPTION(std::out_of_range,
                                 window.controller().settings.create_settings_file());
        QVERIFY2(desk->robot.done(), desk->robot.why());
        QCOMPARE(Settings_Desk::read(desk->path()), old_text);
    }
}

void Test_Settings_Keep::a_reader_of_the_old_file_reads_it_to_its_end() {
    QFile reader(desk->write(old_text));
    QVERIFY(reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    QCOMPARE(reader.read(9), QByteArray("precious\n"));
    QVERIFY2(save_over(desk->path()), desk->robot.why());
    QCOMPARE(reader.readAll(), old_text.mid(9));
    QVERIFY(is_whole(Settings_Desk::read(desk->path()), *desk));
}

void Test_Settings_Keep::nothing_is_left_beside_the_file() {
    desk->write(old_text);
    QVERIFY2(save_over(desk->path()), desk->robot.why());
    QVERIFY2(desk->save(desk->path("new.txt")), desk->robot.why());
    QCOMPARE(names_in_folder(), (QStringList{"new.txt", "settings.txt"}));
}

void Test_Settings_Keep::a_full_disk_keeps_the_old_file() {
    desk->write("precious\n");
    const Full_Disk full(100);
    QVERIFY2(save_over(desk->path()), desk->robot.why());
    QCOMPARE(Settings_Desk::read(desk->path()), QByteArray("precious\n"));
    QCOMPARE(names_in_folder(), QStringList{"settings.txt"});
}

void Test_Settings_Keep::a_disk_that_is_full_when_it_is_synchronised_keeps_the_old_file() {
    desk->write("precious\n");
    const Late_Full_Disk full;
    QVERIFY2(save_over(desk->path()), desk->robot.why());
    QCOMPARE(Settings_Desk::read(desk->path()), QByteArray("precious\n"));
    QCOMPARE(names_in_folder(), QStringList{"settings.txt"});
}

void Test_Settings_Keep::a_full_disk_leaves_no_new_file() {
    const Full_Disk full(100);
    QVERIFY2(desk->save(desk->path()), desk->robot.why());
    QCOMPARE(names_in_folder(), QStringList());
}

void Test_Settings_Keep::a_disk_that_fills_up_before_the_audio_lines_keeps_all_others() {
    std::unique_ptr<Full_Disk> full;
    QByteArray at_box;
    desk->expect_file_dialog("Save Settings File", choose_file(desk->path()));
    desk->robot.expect({.text = "File saved", .action = [&](QWidget& box) {
                            at_box = Settings_Desk::read(desk->path());
                            full = std::make_unique<Full_Disk>(at_box.size() + 1);
                            return press_key(Qt::Key_Return)(box);
                        }});
    desk->fixture.button("pushButton_Create_Settings_File").click();
    full.reset();
    QVERIFY(at_box.endsWith("\nMouse Mode: //ks\n"));
    QCOMPARE(Settings_Desk::read(desk->path()), at_box);
    QCOMPARE(names_in_folder(), QStringList{"settings.txt"});
}

void Test_Settings_Keep::a_file_that_failed_gets_no_audio_lines_later() {
    desk->write("precious\n");
    auto full = std::make_unique<Full_Disk>(100);
    desk->expect_file_dialog("Save Settings File", choose_file(desk->path()));
    desk->robot.expect({.class_name = "QMessageBox", .action = press_button("Yes")});
    desk->robot.expect({.text = "File saved", .action = [&](QWidget& box) {
                            full.reset();
                            return press_key(Qt::Key_Return)(box);
                        }});
    desk->fixture.button("pushButton_Create_Settings_File").click();
    QCOMPARE(Settings_Desk::read(desk->path()), QByteArray("precious\n"));
}

void Test_Settings_Keep::a_symbolic_link_is_followed_and_kept() {
    QVERIFY(QDir(desk->path("")).mkdir("below"));
    desk->write(old_text, "below/target.txt");
    QCOMPARE(symlink("below/target.txt", desk->path("inner.txt").toUtf8()), 0);
    QCOMPARE(symlink("inner.txt", desk->path("outer.txt").toUtf8()), 0);
    QVERIFY2(save_over(desk->path("outer.txt")), desk->robot.why());
    QVERIFY(QFileInfo(desk->path("outer.txt")).isSymLink());
    QVERIFY(QFileInfo(desk->path("inner.txt")).isSymLink());
    QVERIFY(!QFileInfo(desk->path("below/target.txt")).isSymLink());
    QVERIFY(is_whole(Settings_Desk::read(desk->path("below/target.txt")), *desk));
    QCOMPARE(QDir(desk->path("below")).entryList(QDir::Files), QStringList{"target.txt"});
}

void Test_Settings_Keep::a_link_to_nothing_makes_its_target() {
    QCOMPARE(symlink("target.txt", desk->path("link.txt").toUtf8()), 0);
    QVERIFY2(desk->save(desk->path("link.txt")), desk->robot.why());
    QVERIFY(QFileInfo(desk->path("link.txt")).isSymLink());
    QVERIFY(is_whole(Settings_Desk::read(desk->path("target.txt")), *desk));
}

void Test_Settings_Keep::the_mode_of_a_file_is_kept() {
    for (const mode_t mode : {0600U, 0644U, 0664U, 0666U, 0755U, 0222U}) {
        desk->write(old_text);
        QCOMPARE(chmod(desk->path().toUtf8(), mode), 0);
        QVERIFY2(save_over(desk->path()), desk->robot.why());
        QCOMPARE(mode_of(desk->path()), mode);
        QCOMPARE(chmod(desk->path().toUtf8(), 0600), 0);
        QVERIFY(is_whole(Settings_Desk::read(desk->path()), *desk));
    }
}

void Test_Settings_Keep::a_new_file_has_the_users_mode() {
    const mode_t earlier = umask(027);
    const bool saved = desk->save(desk->path());
    umask(earlier);
    QVERIFY2(saved, desk->robot.why());
    QCOMPARE(mode_of(desk->path()), mode_t(0640));
}

void Test_Settings_Keep::owner_and_group_are_kept() {
    desk->write(old_text);
    const uid_t owner = geteuid() == 0 ? 1234 : geteuid();
    const gid_t group = another_group();
    if (chown(desk->path().toUtf8(), owner, group) != 0) {
        // In a namespace root may have no other ids to give.
        QVERIFY(errno == EINVAL || errno == EPERM);
        QSKIP("no other owner to be had here");
    }
    QCOMPARE(chmod(desk->path().toUtf8(), 0664), 0);
    QVERIFY2(save_over(desk->path()), desk->robot.why());
    QCOMPARE(QFileInfo(desk->path()).ownerId(), owner);
    QCOMPARE(QFileInfo(desk->path()).groupId(), group);
    QCOMPARE(mode_of(desk->path()), mode_t(0664));
    QVERIFY(is_whole(Settings_Desk::read(desk->path()), *desk));
}

void Test_Settings_Keep::a_file_without_the_right_to_write_stays() {
    desk->write(old_text);
    QCOMPARE(chmod(desk->path().toUtf8(), 0444), 0);
    const Plain_Rights plain;
    QVERIFY2(save_over(desk->path()), desk->robot.why());
    QCOMPARE(Settings_Desk::read(desk->path()), old_text);
    QCOMPARE(mode_of(desk->path()), mode_t(0444));
}

void Test_Settings_Keep::a_folder_without_rights_has_its_file_overwritten() {
    QVERIFY(QDir(desk->path("")).mkdir("closed"));
    const QString path = desk->write(old_text, "closed/settings.txt");
    const QFileInfo before(path);
    QCOMPARE(chmod(desk->path("closed").toUtf8(), 0555), 0);
    const Plain_Rights plain;
    QVERIFY2(save_over(path), desk->robot.why());
    QVERIFY(is_whole(Settings_Desk::read(path), *desk));
    QVERIFY2(desk->save(desk->path("closed/new.txt")), desk->robot.why());
    QCOMPARE(QDir(desk->path("closed")).entryList(QDir::Files), QStringList{"settings.txt"});
    QCOMPARE(chmod(desk->path("closed").toUtf8(), 0755), 0);
}

void Test_Settings_Keep::a_full_disk_keeps_a_file_that_is_overwritten() {
    QVERIFY(QDir(desk->path("")).mkdir("closed"));
    const QString path = desk->write("precious\n", "closed/settings.txt");
    QCOMPARE(chmod(desk->path("closed").toUtf8(), 0555), 0);
    const Plain_Rights plain;
    {
        const Full_Disk full(100);
        QVERIFY2(save_over(path), desk->robot.why());
    }
    QCOMPARE(Settings_Desk::read(path), QByteArray("precious\n"));
    QCOMPARE(chmod(desk->path("closed").toUtf8(), 0755), 0);
}

void Test_Settings_Keep::a_file_without_a_name_is_overwritten() {
    const int descriptor = memfd_create("settings", MFD_CLOEXEC);
    const QString path = QString("/proc/self/fd/%1").arg(descriptor);
    QCOMPARE(write(descriptor, old_text.data(), static_cast<std::size_t>(old_text.size())),
             old_text.size());
    QVERIFY2(save_over(path), desk->robot.why());
    QVERIFY(is_whole(Settings_Desk::read(path), *desk));
    QCOMPARE(QDir("/").entryList({"memfd*"}, QDir::AllEntries | QDir::System), QStringList());
    ::close(descriptor);
}

void Test_Settings_Keep::what_failed_is_told_to_a_developer_only() {
    desk->write("precious\n");
    QCOMPARE(mkfifo(desk->path("pipe").toUtf8(), 0600), 0);
    const auto told = [&](const QString& path, const auto& save) {
        const Heard_Diagnostics diagnostics("halvern.settings");
        return save(path) ? diagnostics.lines().join('|') : QString("not saved");
    };
    const auto over = [&](const QString& path) { return save_over(path); };
    const auto anew = [&](const QString& path) { return desk->save(path); };
    // Off by default.
    QCOMPARE(told(desk->path("pipe"), over), QString());
    QLoggingCategory::setFilterRules("halvern.settings.debug=true");
    QVERIFY(told(desk->path("pipe"), over).contains("is no regular file"));
    QVERIFY(told(desk->path(QChar(0xD83D)), anew).contains("no valid name of a file"));
    QVERIFY(told("/nowhere/to/be/found.txt", anew).contains("nothing can be written beside"));
    {
        const Full_Disk full(100);
        const QString line = told(desk->path(), over);
        QVERIFY2(line.contains("was not written:"), qPrintable(line));
    }
    QCOMPARE(told(desk->path(), over), QString());
    QLoggingCategory::setFilterRules(QString());
}

int main(int argc, char** argv) {
    ignore_full_disk_signal();
    // The rules of the surroundings would win over those of the test.
    qunsetenv("QT_LOGGING_RULES");
    QApplication application(argc, argv);
    Test_Settings_Keep test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_settings_keep.moc"
