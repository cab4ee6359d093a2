// SPDX-License-Identifier: MIT

#include "app/event_log.h"

#include <QDateTime>
#include <QString>

#include <filesystem>
#include <fstream>

namespace {

const std::filesystem::path log_folder = R"(C:\Users\Public\Documents)";

std::ofstream log_file;

} // namespace

int open_log() {
    // Without this check, other systems than Windows would create a file with backslashes in its
    // name in the working directory.
    std::error_code no_folder;
    if (std::filesystem::is_directory(log_folder, no_folder)) {
        log_file.open(log_folder / "KM_log.txt");
    } else {
        log_file.setstate(std::ios::failbit);
    }
    log_file << "Start........." << std::endl;
    return log_file.is_open() ? 1 : -1;
}

void close_log() {
    log_file << "Stop........." << std::endl;
    log_file.close();
}

void write_log_line(const std::string& message) {
    const QString now = QDateTime::currentDateTime().toString("yyyy-MM-dd hh:mm:ss");
    log_file << message << "   " << now.toStdString() << std::endl;
}
