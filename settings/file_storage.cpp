// SPDX-License-Identifier: MIT

#include "settings/file_storage.h"

#include "settings/settings_log.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <filesystem>
#include <fstream>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

constexpr auto new_text = QIODevice::WriteOnly | QIODevice::Text;

/// Removes the CR of every CR LF, so that a file from Windows reads the same everywhere.
void drop_carriage_returns(std::string& text) {
    const std::size_t first = std::min(text.find('\r'), text.size());
    std::size_t kept = first;
    for (std::size_t i = first; i < text.size(); ++i) {
        const bool before_line_feed = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!before_line_feed) {
            text[kept] = text[i];
            ++kept;
        }
    }
    text.resize(kept);
}

/// A name with half a surrogate pair or a NUL cannot be the name of a file.
bool is_file_name(const QString& path) {
    const bool valid = path.isValidUtf16() && !path.contains(QChar(u'\0'));
    if (!valid) {
        qCDebug(settings_log) << "no valid name of a file:" << path;
    }
    return valid;
}

bool is_regular_file(const QFileInfo& info) {
    // Opening a pipe would wait for its other end.
    const bool regular = info.isFile();
    if (!regular) {
        qCDebug(settings_log) << info.filePath()
                              << (info.exists() ? "is no regular file" : "is not there");
    }
    return regular;
}

bool write_text(QFileDevice& file, const std::string& text) {
    const auto size = static_cast<qint64>(text.size());
    return file.write(text.data(), size) == size && file.flush();
}

#ifdef Q_OS_UNIX
void take_over_rights(const QFileDevice& from, const QFileDevice& to) {
    struct stat earlier = {};
    constexpr mode_t mode_bits = 07777;
    if (fstat(from.handle(), &earlier) != 0 ||
        fchown(to.handle(), earlier.st_uid, earlier.st_gid) != 0) {
        qCDebug(settings_log) << from.fileName() << "may change its owner or group";
    }
    // After the owner, because changing the owner clears some of the bits.
    if (earlier.st_mode != 0 && fchmod(to.handle(), earlier.st_mode & mode_bits) != 0) {
        qCDebug(settings_log) << from.fileName() << "may change its mode";
    }
}

/// Only now a disk may report that it is full. Some file systems cannot synchronise.
bool is_synchronised(const QFileDevice& file) {
    return fsync(file.handle()) == 0 || errno == EINVAL || errno == EROFS;
}
#else
// The library keeps the rights, and synchronises.
void take_over_rights(const QFileDevice&, const QFileDevice&) {}
bool is_synchronised(const QFileDevice&) { return true; }
#endif

enum class Outcome { replaced, no_room_beside, not_written };

/// @param earlier the file at this path, open; null if there is none yet.
Outcome replace_by_renaming(const QString& path, const std::string& text,
                            const QFileDevice* earlier) {
    QSaveFile file(path);
    if (!file.open(new_text)) {
        qCDebug(settings_log) << "nothing can be written beside" << path << file.errorString();
        return Outcome::no_room_beside;
    }
    if (earlier != nullptr) {
        take_over_rights(*earlier, file);
    }
    if (!write_text(file, text) || !is_synchronised(file)) {
        qCDebug(settings_log) << path << "was not written:" << file.errorString();
        return Outcome::not_written;
    }
    if (!file.commit()) {
        qCDebug(settings_log) << path << "can't be renamed to:" << file.errorString();
        return Outcome::no_room_beside;
    }
    return Outcome::replaced;
}

/// The file is not truncated before the text is written: overwriting needs no more disk space.
bool overwrite(QFile& file, const std::string& text) {
    return file.seek(0) && write_text(file, text) && file.resize(file.pos()) &&
           is_synchronised(file);
}

bool replace_in_place(const QString& path, const std::string& text) {
    QFile file(path);
    // Unbuffered, so that no data of a failed attempt is written later.
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered)) {
        qCDebug(settings_log) << path << "did not open:" << file.errorString();
        return false;
    }
    const std::string earlier = file.readAll().toStdString();
    file.setTextModeEnabled(true);
    if (overwrite(file, text)) {
        return true;
    }
    qCDebug(settings_log) << path << "was not written in place:" << file.errorString();
    file.setTextModeEnabled(false);
    if (!overwrite(file, earlier)) {
        qCDebug(settings_log) << path << "has lost its content:" << file.errorString();
    }
    return false;
}

bool replace_existing(const QFileInfo& info, const std::string& text) {
    if (!is_regular_file(info)) {
        return false;
    }
    // A read-only file stays, whatever its folder allows. Opening for append does not truncate.
    QFile earlier(info.filePath());
    if (!earlier.open(QIODevice::Append | QIODevice::ExistingOnly)) {
        qCDebug(settings_log) << info.filePath() << "did not open:" << earlier.errorString();
        return false;
    }
    // An open file that no longer has a name can only be accessed through /proc.
    const QString followed = info.canonicalFilePath();
    const Outcome outcome = followed.isEmpty() ? Outcome::no_room_beside
                                               : replace_by_renaming(followed, text, &earlier);
    return outcome == Outcome::replaced ||
           (outcome == Outcome::no_room_beside && replace_in_place(info.filePath(), text));
}

} // namespace

std::string read_file(const QString& path) {
    if (!is_file_name(path) || !is_regular_file(QFileInfo(path))) {
        return {};
    }
    constexpr std::size_t block_size = 1U << 16U;
    std::ifstream in_file(std::filesystem::path(path.toStdU16String()));
    if (!in_file) {
        qCDebug(settings_log) << path << "did not open";
    }
    std::string text;
    // A read error, as of a failing disk, ends the text and throws nothing.
    while (in_file) {
        const std::size_t size_before = text.size();
        text.resize(size_before + block_size);
        in_file.read(text.data() + size_before, block_size);
        text.resize(size_before + static_cast<std::size_t>(in_file.gcount()));
    }
    if (in_file.bad()) {
        qCDebug(settings_log) << path << "ended in a reading error";
    }
    drop_carriage_returns(text);
    return text;
}

bool replace_file(const QString& path, const std::string& text) {
    if (!is_file_name(path)) {
        return false;
    }
    const QFileInfo info(path);
    if (info.exists()) {
        return replace_existing(info, text);
    }
    return replace_by_renaming(path, text, nullptr) == Outcome::replaced;
}
