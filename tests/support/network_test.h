// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/network_fixture.h"
#include "tests/support/private_network.h"

#include <QApplication>
#include <QTest>

#include <memory>

inline constexpr const char* report_failure = "Setting data from TQL error";

/// Base class of the tests of the network link: each test function runs with a new fixture, on the
/// Plus and on the Pro.
class Network_Test : public QObject {
    Q_OBJECT

protected:
    std::unique_ptr<Network_Fixture> at;

protected slots:
    void initTestCase_data();
    void init();
    void cleanup();
};

/// Runs a test in a private network; reports it as skipped where none can be created.
template <class Test>
int run_network_test(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test test;
        return QTest::qExec(&test, count, values);
    });
}
