#pragma once

#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QMap>
#include <QString>
#include <QTemporaryDir>

/// A Lite window, its switch, a folder for settings files, and a hand for the dialogs.
///
///     Settings_Desk desk;
///     QVERIFY(desk.lite.open_filled());
///     QVERIFY2(desk.load(desk.write(file_text())), desk.robot.why());
class Settings_Desk {
public:
    /// The folder is the user's home for the length of this object.
    Settings_Desk();
    ~Settings_Desk();
    Settings_Desk(const Settings_Desk&) = delete;
    Settings_Desk& operator=(const Settings_Desk&) = delete;

    /// A path in the folder.
    QString path(const QString& name = "settings.txt") const;
    /// Writes a file into the folder and returns its path.
    QString write(const QByteArray& content, const QString& name = "settings.txt") const;
    /// The whole content of a file; "(no file)" if there is none.
    static QByteArray read(const QString& file_path);

    void expect_saved_box();
    void expect_error_boxes(int count);
    void expect_applied_box();
    void expect_file_dialog(const QString& title, const Modal_Action& action);

    /// Clicks the button, types the path into the dialog and dismisses the box "File saved".
    /// @return whether just these two came.
    [[nodiscard]] bool save(const QString& file_path);

    /// Clicks the button and chooses the file. Its first part has been applied afterwards, with so
    /// many error boxes on the way.
    [[nodiscard]] bool load_first_part(const QString& file_path, int error_boxes = 0);
    /// Calls the second part now instead of in two seconds, up to the box "Settings file applied".
    [[nodiscard]] bool load_second_part_now(int error_boxes = 0);
    /// Waits for the second part and its box.
    [[nodiscard]] bool wait_for_second_part(int error_boxes = 0);

    /// The switch hears and obeys but says nothing from now on, so that its answers bring no
    /// further commands.
    void silence_switch();

    Modal_Robot robot;
    Lite_Fixture lite;

private:
    QTemporaryDir folder;
    QByteArray earlier_home = qgetenv("HOME");
};

/// The lines of a settings file by their labels, in the order in which the tool writes them.
class Settings_Lines {
public:
    /// A unit with keyboard and mouse on channel 2, USB on channel 3, three ports, cursor rolling
    /// on, and the displays in a 2 by 2 block.
    Settings_Lines();

    /// The value of a line, to be changed.
    QByteArray& operator[](const QByteArray& label);
    /// Leaves a line out.
    void remove(const QByteArray& label);
    QByteArray text(const QByteArray& line_end = "\n") const;
    /// The same in reverse order.
    QByteArray reversed_text() const;

    /// The values of labels, in order.
    QByteArrayList values(const QByteArrayList& labels) const;

private:
    QByteArrayList labels;
    QMap<QByteArray, QByteArray> lines;
};

/// Labels of the lines that are sent, in the order in which they are.
extern const QByteArrayList first_part_labels;
extern const QByteArrayList second_part_labels;
