// SPDX-License-Identifier: MIT

#include "usr/ip_allocation.h"

QString text_of(IP_Allocation allocation) {
    switch (allocation) {
    case IP_Allocation::unknown:
        break;
    case IP_Allocation::refused:
        return "-1";
    case IP_Allocation::dhcp:
        return "00";
    case IP_Allocation::static_address:
        return "80";
    }
    return {};
}

IP_Allocation ip_allocation_of(const QString& text) {
    for (const IP_Allocation allocation :
         {IP_Allocation::refused, IP_Allocation::dhcp, IP_Allocation::static_address}) {
        if (text == text_of(allocation)) {
            return allocation;
        }
    }
    return IP_Allocation::unknown;
}
