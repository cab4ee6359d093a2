// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/modal_robot.h"
#include "tests/support/window_fixture.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QMap>
#include <QString>
#include <QTemporaryDir>

#include <memory>

/// The lines of a settings file by their labels, in the order in which the tool writes them.
class Settings_Lines;

/// A window of any model, its switch, a folder for settings files, and a robot for the dialogs.
///
///     Settings_Fixture fixture;
///     QVERIFY(fixture.open_filled());
///     QVERIFY2(fixture.load(fixture.write(file_text())), fixture.robot.why());
class Settings_Fixture {
public:
    /// The folder is the user's home for the lifetime of this object.
    explicit Settings_Fixture(Switch_Model switch_model = Switch_Model::lite);
    ~Settings_Fixture();
    Settings_Fixture(const Settings_Fixture&) = delete;
    Settings_Fixture& operator=(const Settings_Fixture&) = delete;

    /// Opens the window and waits until the unit's report has filled its pages, and its answer the
    /// audio boxes of a Pro.
    [[nodiscard]] bool open_filled();
    /// The audio boxes that are checked, by the ends of their names; empty on Lite and Plus.
    [[nodiscard]] QString checked_audio_boxes() const;

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
    /// @return whether exactly these two were shown.
    [[nodiscard]] bool save(const QString& file_path);

    /// Clicks the button and chooses the file. Afterwards its first part has been applied, with
    /// this many error boxes.
    [[nodiscard]] bool load_first_part(const QString& file_path, int error_boxes = 0);
    /// Waits for the second part and its box, with this many error boxes before and this many more
    /// at the line of the mouse mode, which a Pro applies after the box "Settings file applied".
    [[nodiscard]] bool wait_for_second_part(int error_boxes = 0, int mode_error_boxes = 0);

    /// From now on the switch executes commands but does not answer, so that its answers cause no
    /// further commands.
    void silence_switch();

    // The differences between the models.
    [[nodiscard]] bool is_lite() const { return model == Switch_Model::lite; }
    [[nodiscard]] bool is_pro() const { return model == Switch_Model::pro; }
    /// The fields of a custom entry: "X", "Y" or "Name".
    [[nodiscard]] QLineEdit& custom_field(const QString& what) const;
    [[nodiscard]] QPushButton& custom_submit() const;
    /// The questions of a window at its start.
    [[nodiscard]] QByteArrayList start_commands() const;
    /// What the second part of a load sends before the box "Settings file applied", and after it.
    [[nodiscard]] QByteArrayList sent_before_box(const Settings_Lines& lines) const;
    [[nodiscard]] QByteArrayList sent_after_box(const Settings_Lines& lines) const;
    [[nodiscard]] QByteArrayList sent_in_second_part(const Settings_Lines& lines) const {
        return sent_before_box(lines) + sent_after_box(lines);
    }
    /// How many commands a complete load sends.
    [[nodiscard]] int sent_count() const { return is_pro() ? 17 : 16; }

    const Switch_Model model;
    Modal_Robot robot;

private:
    const std::unique_ptr<Window_Fixture> owned_fixture;

public:
    Window_Fixture& window_fixture = *owned_fixture;

private:
    QTemporaryDir folder;
    QByteArray earlier_home = qgetenv("HOME");
};

class Settings_Lines {
public:
    /// A unit with keyboard and mouse on channel 2, USB on channel 3, three ports, cursor rolling
    /// on, and the displays in a 2 by 2 block; on a Pro also audio from channels 2 and 4.
    explicit Settings_Lines(Switch_Model model = Switch_Model::lite);

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

/// Labels of the lines that the first part of a load sends, in order.
extern const QByteArrayList first_part_labels;

/// The time between the two parts of a load.
inline constexpr int second_part_wait_ms = 2000;
