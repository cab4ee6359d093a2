#include "tests/usr/datagram_flood.h"

#include "tests/usr/raw_sender.h"

#include <sys/resource.h>

Datagram_Flood::Datagram_Flood(const QByteArray& datagram, quint16 port,
                               std::chrono::milliseconds length)
    : thread([this, datagram, port, length] {
          Raw_Sender sender;
          const auto end = std::chrono::steady_clock::now() + length;
          while (std::chrono::steady_clock::now() < end) {
              count += sender.send(datagram, port) ? 1 : 0;
          }
      }) {}

double peak_memory_mb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}
