#include "tests/usr/datagram_flood.h"

#include "tests/usr/raw_sender.h"

#include <sys/resource.h>

Datagram_Flood::Datagram_Flood(const QByteArray& datagram, quint16 port,
                               std::chrono::milliseconds length)
    : thread([this, datagram, port, length] {
          Raw_Sender sender;
          using Clock = std::chrono::steady_clock;
          // A machine that is busy elsewhere gets longer for as many.
          constexpr int enough = 200;
          constexpr std::chrono::seconds longest{10};
          const auto end = Clock::now() + length;
          const auto last_end = Clock::now() + longest;
          while (Clock::now() < end || (count < enough && Clock::now() < last_end)) {
              count += sender.send(datagram, port) ? 1 : 0;
          }
      }) {}

double peak_memory_mb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}
