// SPDX-License-Identifier: MIT

// Saving and loading a settings file as the window does it, beyond the dialogs and the wait between
// the two parts of a load; and the load of a file of 100 MB compared with reading that file once.

#include "benchmarks/dialog_watch.h"
#include "benchmarks/measurements.h"
#include "benchmarks/statistics.h"
#include "benchmarks/window_on_line.h"
#include "pages/settings_import_export.h"
#include "tests/support/wait_until.h"

#include <QFile>
#include <QTemporaryDir>

#include <fstream>

namespace {

constexpr int small_rounds = 9;
constexpr int big_rounds = 3;
constexpr qsizetype big_size = 100'000'000;
constexpr double max_save_ms = 16;

class Settings_Window {
public:
    explicit Settings_Window(const QString& model) : on_line(model) {
        on_line.fill_pages(other_state());
        if (!folder.isValid()) {
            throw Measurement_Failed("no temporary folder");
        }
    }

    [[nodiscard]] QString path(const QString& name) const { return folder.filePath(name); }

    double save_milliseconds(const QString& file) {
        QFile::remove(path(file));
        watch.choose(path(file));
        on_line.call("on_pushButton_Create_Settings_File_clicked");
        on_line.line().drop_input();
        return milliseconds_between(watch.file_dialog_gone_ns(), watch.box_made_ns());
    }

    /// Both parts together.
    double load_milliseconds(const QString& file) {
        watch.choose(path(file));
        on_line.call("on_pushButton_Load_Settings_File_clicked");
        const qint64 first_part_done = now_ns();
        constexpr int max_wait_ms = 60'000;
        if (!wait_until([this] { return watch.box_answered(); }, max_wait_ms)) {
            throw Measurement_Failed("the settings file is not applied");
        }
        on_line.line().drop_input();
        return milliseconds_between(watch.file_dialog_gone_ns(), first_part_done) +
               milliseconds_between(first_part_done, watch.box_made_ns()) -
               Settings_Import_Export::second_part_wait_ms;
    }

private:
    QTemporaryDir folder;
    Dialog_Watch watch;
    Window_On_Line on_line;
};

QByteArray content_of(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw Measurement_Failed("no " + path);
    }
    return file.readAll();
}

void write_file(const QString& path, const QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        throw Measurement_Failed("cannot write " + path);
    }
}

double read_once_milliseconds(const QString& path) {
    const qint64 begin = now_ns();
    std::ifstream file(path.toStdString(), std::ios::binary | std::ios::ate);
    std::string text(static_cast<std::size_t>(file.tellg()), '\0');
    file.seekg(0);
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    const qint64 end = now_ns();
    if (!file) {
        throw Measurement_Failed("cannot read " + path);
    }
    return milliseconds_between(begin, end);
}

Rows measure_usual_file(const QString& model, Settings_Window& window) {
    Samples saving;
    Samples loading;
    for (int round = 0; round < small_rounds; ++round) {
        saving.push_back(window.save_milliseconds("settings.txt"));
        loading.push_back(window.load_milliseconds("settings.txt"));
    }
    const auto row = [](const QString& what, const Samples& samples) {
        return row_with_limit(what, "one frame",
                              QString("%1 ms (smallest %2)")
                                  .arg(readable(median(samples)), readable(smallest(samples))),
                              median(samples), max_save_ms, "16 ms");
    };
    return {row("settings file saved, beyond the dialogs, " + model, saving),
            row("settings file loaded, beyond the dialogs and 2000 ms, " + model, loading)};
}

Row measure_big_file(Settings_Window& window, const QString& what, const QByteArray& content) {
    write_file(window.path("big.txt"), content);
    Samples loading;
    Samples reading;
    for (int round = 0; round < big_rounds; ++round) {
        loading.push_back(window.load_milliseconds("big.txt"));
        reading.push_back(read_once_milliseconds(window.path("big.txt")));
    }
    return ratio_row(what, "reading it once", loading, reading, "ms", std::nullopt);
}

Rows measure_files_of(const QString& model) {
    Settings_Window window(model);
    Rows rows = measure_usual_file(model, window);
    const QByteArray settings = content_of(window.path("settings.txt"));
    const QByteArray remark = "A remark that no label of the settings stands in.\n";
    const QByteArray padding = remark.repeated(big_size / remark.size());
    rows.append(measure_big_file(window, "100 MB file loaded, settings first, " + model,
                                 settings + padding));
    rows.append(measure_big_file(window, "100 MB file loaded, settings last, " + model,
                                 padding + settings));
    return rows;
}

} // namespace

Rows measure_settings() { return rows_of_all_models(measure_files_of); }
