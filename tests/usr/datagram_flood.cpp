// SPDX-License-Identifier: MIT

#include "tests/usr/datagram_flood.h"

#include "tests/support/raw_sender.h"

#include <algorithm>
#include <sys/resource.h>

Datagram_Flood::Datagram_Flood(const QByteArray& datagram, quint16 port, int total)
    : total_count(total), thread([this, datagram, port] {
          Raw_Sender sender;
          while (sent_count < total_count && !is_stopped) {
              if (sender.send(datagram, port)) {
                  ++sent_count;
                  sent_count.notify_all();
              }
          }
      }) {}

Datagram_Flood::~Datagram_Flood() {
    is_stopped = true;
    thread.join();
}

void Datagram_Flood::wait_for_more(int datagrams) const {
    const int wanted = std::min(total_count, sent_count + datagrams);
    for (int sent = sent_count; sent < wanted; sent = sent_count) {
        sent_count.wait(sent);
    }
}

double peak_memory_mb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024.0;
}
