#include "usr/waiting.h"

#include <QThread>

#include <chrono>

void block_for_milliseconds(unsigned long milliseconds) { QThread::msleep(milliseconds); }

qint64 read_wall_clock() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}
